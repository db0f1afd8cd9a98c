#include "LintRules.h"

namespace qxmix {

// clang-format off
const std::vector<LintRule>& LintRules() {
    static const std::vector<LintRule> rules = {
        {"QX101", Severity::Error,   CheckPositionOrder,          "list cassettes by position"},
        {"QX102", Severity::Error,   CheckPositionUse,            "use 0 to 5 once each"},
        {"QX103", Severity::Warning, CheckTypesOfOneNote,         "give both one type"},
        {"QX104", Severity::Note,    CheckCurrencies,             "ask in its currency"},
        {"QX105", Severity::Warning, CheckDrawable,               "correct the field"},
        {"QX201", Severity::Error,   CheckFullCassettes,          "report it as ok once the dispenser may draw from it"},
        {"QX202", Severity::Error,   CheckManipulatedCassettes,   "take it out or test it in"},
        {"QX203", Severity::Error,   CheckUnusableFirstCassettes, "set the count to 0"},
        {"QX204", Severity::Error,   CheckWorthlessCoupons,       "give it a value, or leave it out"},
        {"QX205", Severity::Note,    CheckUnitsPassedOver,        "refill, or lower the minimum"},
        {"QX206", Severity::Error,   CheckUnitCount,              "load five"},
        {"QX301", Severity::Error,   CheckMinimumText,            ""},
        {"QX302", Severity::Error,   CheckMinimumSize,            "lower it (a minus sign makes it huge)"},
        {"QX303", Severity::Warning, CheckTraceLevel,             ""},
        {"QX304", Severity::Warning, CheckErrorCodeKey,           ""},
        {"QX305", Severity::Note,    CheckErrorCodeLeft,          ""},
        {"QX401", Severity::Error,   CheckTooMuch,                "choose another mix, or check what is paid before money moves"},
        {"QX402", Severity::Error,   CheckNoAnswer,               "never call it without a watchdog"},
        {"QX403", Severity::Error,   CheckEndlessPair,            "choose another mix"},
        {"QX404", Severity::Warning, CheckCleanFirstFit,          "check what is paid before money moves"},
        {"QX405", Severity::Warning, CheckPartialFirstFit,        "ask without it"},
        {"QX501", Severity::Error,   CheckTooLittle,              ""},
        {"QX502", Severity::Note,    CheckNothingPaid,            "read the remainder"},
        {"QX503", Severity::Warning, CheckButtons,                "take it off, or load notes for it"},
        {"QX504", Severity::Warning, CheckLimit,                  "load larger notes"},
        {"QX505", Severity::Warning, CheckStoppedSearch,          "choose another mix"},
        {"QX506", Severity::Note,    CheckStaleCodes,             "do not read the code after success"},
        {"QX507", Severity::Warning, CheckSlowAnswers,            "load fewer small notes, or choose another mix"},
        {"QX508", Severity::Error,   CheckNothingWorks,           "see the other findings"},
        {"QX509", Severity::Warning, CheckImbalanceScores,        "choose another mix"},
        {"QX510", Severity::Warning, CheckSpreadScores,           "lower the limit"},
        {"QX511", Severity::Warning, CheckRoundedTotal,           "split the request"},
        {"QX601", Severity::Error,   CheckRemainderUnits,         "compute it from the items"},
        {"QX602", Severity::Error,   CheckUnscaledNotes,          "never ask mix 9 here"},
        {"QX603", Severity::Error,   CheckCoinWorth,              "say its worth"},
        {"QX604", Severity::Error,   CheckWrappedAmounts,         "choose a smaller exponent"},
        {"QX605", Severity::Warning, CheckPartialRemainder,       "compare amountAfter with what was asked"},
    };
    return rules;
}
// clang-format on

std::vector<LintFinding> CheckAll(const LintCase& lint) {
    std::vector<LintFinding> findings;
    for (const LintRule& rule : LintRules()) {
        Finding pattern;
        pattern.id = rule.id;
        pattern.severity = rule.severity;
        pattern.advice = rule.advice;
        LintReport report(lint, pattern, findings);
        rule.check(lint, report);
    }
    return findings;
}

}  // namespace qxmix
