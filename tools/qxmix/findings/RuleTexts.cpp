#include "RuleTexts.h"

#include <algorithm>
#include <iterator>

namespace qxmix {

namespace {

// clang-format off
/// By id. An id is never used again for something else.
constexpr RuleText kRuleTexts[] = {
    {"QX101", Severity::Error,   "list cassettes by position"},
    {"QX102", Severity::Error,   "use 0 to 5 once each"},
    {"QX103", Severity::Warning, "give both one type if they hold the same"},
    {"QX104", Severity::Note,    "ask in its currency"},
    {"QX105", Severity::Warning, "correct the field"},
    {"QX201", Severity::Error,   "report it as ok once the dispenser may draw from it"},
    {"QX202", Severity::Error,   "take it out or test it in"},
    {"QX203", Severity::Error,   "set the count to 0"},
    {"QX204", Severity::Error,   "give it a value, or leave it out"},
    {"QX205", Severity::Note,    "refill, or lower the minimum"},
    {"QX206", Severity::Error,   "load five"},
    {"QX301", Severity::Error,   ""},
    {"QX302", Severity::Error,   "lower it (a minus sign makes it huge)"},
    {"QX303", Severity::Warning, ""},
    {"QX304", Severity::Warning, "create the key below HKEY_LOCAL_MACHINE"},
    {"QX305", Severity::Note,    "--clear-error removes it; the module never does"},
    {"QX306", Severity::Warning, "store it in the key that is read"},
    {"QX401", Severity::Error,   "choose another mix, or check what is paid before money moves"},
    {"QX402", Severity::Error,   "never call it without a watchdog"},
    {"QX403", Severity::Error,   "choose another mix"},
    {"QX404", Severity::Warning, "check what is paid before money moves"},
    {"QX405", Severity::Warning, "ask without it"},
    {"QX406", Severity::Warning, "find out which of the two the dispenser has, and ask that one"},
    {"QX407", Severity::Note,    "choose another mix, or ask in parts"},
    {"QX501", Severity::Error,   ""},
    {"QX502", Severity::Note,    "read the remainder"},
    {"QX503", Severity::Warning, "take it off"},
    {"QX504", Severity::Warning, "ask them in parts"},
    {"QX505", Severity::Warning, "choose another mix"},
    {"QX506", Severity::Note,    "do not read the code after success"},
    {"QX507", Severity::Warning, "load fewer small notes, or choose another mix"},
    {"QX508", Severity::Error,   ""},
    {"QX509", Severity::Warning, "choose another mix"},
    {"QX510", Severity::Warning, "choose another mix"},
    {"QX511", Severity::Warning, "split the request"},
    {"QX512", Severity::Warning, "load notes for them, or offer other amounts"},
    {"QX601", Severity::Error,   "compute it from the items"},
    {"QX602", Severity::Error,   "never ask mix 9 here"},
    {"QX603", Severity::Error,   "say its worth"},
    {"QX604", Severity::Error,   "choose an exponent nearer to 0"},
    {"QX605", Severity::Warning, "compare amountAfter with what was asked"},
    {"QX701", Severity::Note,    "sort the rows by time"},
    {"QX702", Severity::Note,    "name a column that is meant with --columns"},
    {"QX703", Severity::Note,    "write money without decimals as numbers of units"},
    {"QX704", Severity::Note,    "begin with the counts that the dispenser had then"},
};
// clang-format on

const RuleText& TextOf(const std::string& id) {
    static constexpr RuleText none = {"", Severity::Note, ""};
    const auto* const text = std::find_if(std::begin(kRuleTexts), std::end(kRuleTexts),
                                          [&id](const RuleText& row) { return id == row.id; });
    return text == std::end(kRuleTexts) ? none : *text;
}

}  // namespace

const char* AdviceOf(const char* id) {
    return TextOf(id).advice;
}

Finding FindingOf(const char* id) {
    Finding finding;
    finding.id = id;
    finding.severity = TextOf(id).severity;
    finding.advice = TextOf(id).advice;
    return finding;
}

Finding FindingOf(const char* id, const std::string& message) {
    Finding finding = FindingOf(id);
    finding.message = message;
    return finding;
}

}  // namespace qxmix
