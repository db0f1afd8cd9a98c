#pragma once

namespace qxmix {

/// Tells the page that the next calculation begins: it ends this tool when that takes too long, and
/// runs the same command line again.
///
/// @return false for a calculation that the page has seen to take too long.
bool TellPageOfCalculation();

}  // namespace qxmix
