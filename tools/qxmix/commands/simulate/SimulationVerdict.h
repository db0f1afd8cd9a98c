#pragma once

#include "SimulationRanking.h"
#include "findings/Findings.h"

#include <string>
#include <vector>

namespace qxmix {

/// The first lines of a simulation.
struct SimulationVerdict {
    std::string best;    ///< who serves most; in two lines if it is long
    std::string danger;  ///< who is not ranked; empty: all are
};

SimulationVerdict VerdictOf(const SimulationQuestions& questions,
                            const SimulationAnswers& answers,
                            const std::vector<SimulationRow>& rows);

/// What was asked of a mix in one run: "100060 EUR" or "100060 EUR and 300 USD".
std::string AskedText(const Dispenser& dispenser, const Demand& demand);

/// The dangers of all runs as findings.
std::vector<Finding> FindingsOf(const SimulationQuestions& questions,
                                const SimulationAnswers& answers);

/// What the ranking does not tell of the first run, a line a mix: other outcomes than paid, refused
/// and overpaid, and that the mix was given up.
std::vector<std::string> RemarksOn(const SimulationAnswers& answers,
                                   const std::vector<SimulationRow>& rows);

/// How people call an outcome where "refused" stands for all withdrawals with nothing paid: then a
/// refusal of the module is one of its parts and needs a name of its own.
const char* PartWords(const OutcomeRow& row);

}  // namespace qxmix
