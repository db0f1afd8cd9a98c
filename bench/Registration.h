#pragma once

namespace bench {

constexpr unsigned kRealisticQuestions = 500;  ///< of each realistic set

/// Registers everything that the table shows: searches over realistic and worst questions, whole
/// calls, and beside them the reference and the peers.
void RegisterTable();

/// Registers the growth curves: time against amount, units and limit. Their sets are named
/// "amount=1000".
void RegisterCurves();

}  // namespace bench
