#pragma once

#include "LintReport.h"

#include <vector>

namespace qxmix {

/// What a rule looks at where a dispenser is asked in several currencies.
enum class LintScope {
    Currency,   ///< each of them: what it finds tells which
    Dispenser,  ///< what is the same in all
};

/// A rule of `qxmix lint`.
///
/// To add one: a row in RuleTexts.cpp with an id that was never used, a row in LintRules.cpp, its
/// check in the file of its topic, a test that makes it speak and one that does not, a row in
/// docs/qxmix.md.
struct LintRule {
    const char* id;
    LintScope scope;
    void (*check)(const LintCase& lint, LintReport& report);
};

/// All of them, by id.
const std::vector<LintRule>& LintRules();

/// What the rules find, by id.
std::vector<LintFinding> CheckAll(const LintCase& lint);

/// What they find in all currencies, by id and then in the order of the currencies.
std::vector<LintFinding> CheckAll(const LintCases& cases);

/// Whether a rule may advise to change to a mix: no other rule warns of it.
bool IsAdvisable(const LintCase& lint, std::uint16_t mix);

// The checks by topic, a file each: LintCassetteRules.cpp ...
void CheckPositionOrder(const LintCase& lint, LintReport& report);
void CheckPositionUse(const LintCase& lint, LintReport& report);
void CheckTypesOfOneNote(const LintCase& lint, LintReport& report);
void CheckCurrencies(const LintCase& lint, LintReport& report);
void CheckDrawable(const LintCase& lint, LintReport& report);

// ... LintStatusRules.cpp ...
void CheckFullCassettes(const LintCase& lint, LintReport& report);
void CheckManipulatedCassettes(const LintCase& lint, LintReport& report);
void CheckUnusableFirstCassettes(const LintCase& lint, LintReport& report);
void CheckWorthlessCoupons(const LintCase& lint, LintReport& report);
void CheckUnitsPassedOver(const LintCase& lint, LintReport& report);
void CheckUnitCount(const LintCase& lint, LintReport& report);

// ... LintRegistryRules.cpp ...
void CheckMinimumText(const LintCase& lint, LintReport& report);
void CheckMinimumSize(const LintCase& lint, LintReport& report);
void CheckTraceLevel(const LintCase& lint, LintReport& report);
void CheckErrorCodeKey(const LintCase& lint, LintReport& report);
void CheckErrorCodeLeft(const LintCase& lint, LintReport& report);
void CheckStoredElsewhere(const LintCase& lint, LintReport& report);

// ... LintDangerRules.cpp ...
void CheckTooMuch(const LintCase& lint, LintReport& report);
void CheckNoAnswer(const LintCase& lint, LintReport& report);
void CheckEndlessPair(const LintCase& lint, LintReport& report);
void CheckCleanFirstFit(const LintCase& lint, LintReport& report);
void CheckPartialFirstFit(const LintCase& lint, LintReport& report);
void CheckOtherLibrary(const LintCase& lint, LintReport& report);

// ... LintAnswerRules.cpp ...
void CheckTooLittle(const LintCase& lint, LintReport& report);
void CheckNothingPaid(const LintCase& lint, LintReport& report);
void CheckStoppedSearch(const LintCase& lint, LintReport& report);
void CheckStaleCodes(const LintCase& lint, LintReport& report);
void CheckSlowAnswers(const LintCase& lint, LintReport& report);

// ... LintRefusalRules.cpp ...
void CheckButtons(const LintCase& lint, LintReport& report);
void CheckLimit(const LintCase& lint, LintReport& report);
void CheckNothingWorks(const LintCase& lint, LintReport& report);
void CheckRefusals(const LintCase& lint, LintReport& report);

// ... LintScoreRules.cpp ...
void CheckImbalanceScores(const LintCase& lint, LintReport& report);
void CheckSpreadScores(const LintCase& lint, LintReport& report);
void CheckRoundedTotal(const LintCase& lint, LintReport& report);

// ... and LintMoneyRules.cpp.
void CheckRemainderUnits(const LintCase& lint, LintReport& report);
void CheckUnscaledNotes(const LintCase& lint, LintReport& report);
void CheckCoinWorth(const LintCase& lint, LintReport& report);
void CheckWrappedAmounts(const LintCase& lint, LintReport& report);
void CheckPartialRemainder(const LintCase& lint, LintReport& report);

}  // namespace qxmix
