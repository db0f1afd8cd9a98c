#include "LintRules.h"

#include "findings/RuleTexts.h"

namespace qxmix {

// clang-format off
const std::vector<LintRule>& LintRules() {
    static const std::vector<LintRule> rules = {
        {"QX101", CheckPositionOrder},
        {"QX102", CheckPositionUse},
        {"QX103", CheckTypesOfOneNote},
        {"QX104", CheckCurrencies},
        {"QX105", CheckDrawable},
        {"QX201", CheckFullCassettes},
        {"QX202", CheckManipulatedCassettes},
        {"QX203", CheckUnusableFirstCassettes},
        {"QX204", CheckWorthlessCoupons},
        {"QX205", CheckUnitsPassedOver},
        {"QX206", CheckUnitCount},
        {"QX301", CheckMinimumText},
        {"QX302", CheckMinimumSize},
        {"QX303", CheckTraceLevel},
        {"QX304", CheckErrorCodeKey},
        {"QX305", CheckErrorCodeLeft},
        {"QX306", CheckStoredElsewhere},
        {"QX401", CheckTooMuch},
        {"QX402", CheckNoAnswer},
        {"QX403", CheckEndlessPair},
        {"QX404", CheckCleanFirstFit},
        {"QX405", CheckPartialFirstFit},
        {"QX406", CheckOtherLibrary},
        {"QX501", CheckTooLittle},
        {"QX502", CheckNothingPaid},
        {"QX503", CheckButtons},
        {"QX504", CheckLimit},
        {"QX505", CheckStoppedSearch},
        {"QX506", CheckStaleCodes},
        {"QX507", CheckSlowAnswers},
        {"QX508", CheckNothingWorks},
        {"QX509", CheckImbalanceScores},
        {"QX510", CheckSpreadScores},
        {"QX511", CheckRoundedTotal},
        {"QX512", CheckRefusals},
        {"QX601", CheckRemainderUnits},
        {"QX602", CheckUnscaledNotes},
        {"QX603", CheckCoinWorth},
        {"QX604", CheckWrappedAmounts},
        {"QX605", CheckPartialRemainder},
    };
    return rules;
}
// clang-format on

std::vector<LintFinding> CheckAll(const LintCase& lint) {
    std::vector<LintFinding> findings;
    for (const LintRule& rule : LintRules()) {
        LintReport report(lint, FindingOf(rule.id), findings);
        rule.check(lint, report);
    }
    return findings;
}

}  // namespace qxmix
