#include "LintRules.h"

#include "findings/RuleTexts.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr LintScope kCurrency = LintScope::Currency;
constexpr LintScope kDispenser = LintScope::Dispenser;

}  // namespace

// clang-format off
const std::vector<LintRule>& LintRules() {
    static const std::vector<LintRule> rules = {
        {"QX101", kDispenser, CheckPositionOrder},
        {"QX102", kDispenser, CheckPositionUse},
        {"QX103", kCurrency,  CheckTypesOfOneNote},
        {"QX104", kCurrency,  CheckCurrencies},
        {"QX105", kCurrency,  CheckDrawable},
        {"QX201", kCurrency,  CheckFullCassettes},
        {"QX202", kCurrency,  CheckManipulatedCassettes},
        {"QX203", kCurrency,  CheckUnusableFirstCassettes},
        {"QX204", kCurrency,  CheckWorthlessCoupons},
        {"QX205", kCurrency,  CheckUnitsPassedOver},
        {"QX206", kCurrency,  CheckUnitCount},
        {"QX301", kDispenser, CheckMinimumText},
        {"QX302", kCurrency,  CheckMinimumSize},
        {"QX303", kDispenser, CheckTraceLevel},
        {"QX304", kDispenser, CheckErrorCodeKey},
        {"QX305", kDispenser, CheckErrorCodeLeft},
        {"QX306", kDispenser, CheckStoredElsewhere},
        {"QX401", kCurrency,  CheckTooMuch},
        {"QX402", kCurrency,  CheckNoAnswer},
        {"QX403", kCurrency,  CheckEndlessPair},
        {"QX404", kCurrency,  CheckCleanFirstFit},
        {"QX405", kCurrency,  CheckPartialFirstFit},
        {"QX406", kCurrency,  CheckOtherLibrary},
        {"QX501", kCurrency,  CheckTooLittle},
        {"QX502", kCurrency,  CheckNothingPaid},
        {"QX503", kCurrency,  CheckButtons},
        {"QX504", kCurrency,  CheckLimit},
        {"QX505", kCurrency,  CheckStoppedSearch},
        {"QX506", kCurrency,  CheckStaleCodes},
        {"QX507", kCurrency,  CheckSlowAnswers},
        {"QX508", kCurrency,  CheckNothingWorks},
        {"QX509", kCurrency,  CheckImbalanceScores},
        {"QX510", kCurrency,  CheckSpreadScores},
        {"QX511", kCurrency,  CheckRoundedTotal},
        {"QX512", kCurrency,  CheckRefusals},
        {"QX601", kDispenser, CheckRemainderUnits},
        {"QX602", kDispenser, CheckUnscaledNotes},
        {"QX603", kCurrency,  CheckCoinWorth},
        {"QX604", kCurrency,  CheckWrappedAmounts},
        {"QX605", kDispenser, CheckPartialRemainder},
    };
    return rules;
}
// clang-format on

std::vector<LintFinding> CheckAll(const LintCase& lint) {
    std::vector<LintFinding> findings;
    for (const LintRule& rule : LintRules()) {
        if (rule.scope == kDispenser && !lint.IsFirst()) {
            continue;
        }
        Finding pattern = FindingOf(rule.id);
        if (rule.scope == kCurrency && lint.IsOneOfSeveral()) {
            pattern.currency = lint.TheDispenser().currency;
        }
        LintReport report(lint, pattern, findings);
        rule.check(lint, report);
    }
    return findings;
}

std::vector<LintFinding> CheckAll(const LintCases& cases) {
    std::vector<LintFinding> findings;
    for (const LintCase& lint : cases) {
        const std::vector<LintFinding> found = CheckAll(lint);
        findings.insert(findings.end(), found.begin(), found.end());
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& one, const Finding& other) { return one.id < other.id; });
    return findings;
}

}  // namespace qxmix
