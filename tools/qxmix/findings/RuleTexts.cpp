#include "RuleTexts.h"

#include <algorithm>
#include <iterator>

namespace qxmix {

namespace {

// clang-format off
/// By id. An id is never used again for something else.
constexpr RuleText kRuleTexts[] = {
    {"QX101", Severity::Error,   "list cassettes by position",
     "a position is not the cassette's place, and below 6"},
    {"QX102", Severity::Error,   "use 0 to 5 once each",
     "a position is above 5, or given twice"},
    {"QX103", Severity::Warning, "give both one type if they hold the same",
     "one note, by currency, value and worth, under two types that one type would make one unit"},
    {"QX104", Severity::Note,    "ask in its currency",
     "another currency than the request's; an error when no cassette has that"},
    {"QX105", Severity::Warning, "correct the field",
     "a type that is not drawn from, a count of 2^31 and more, a value of 0 that is no coupon's"},
    {"QX201", Severity::Error,   "report it as ok once the dispenser may draw from it",
     "a full or high cassette with items, in a unit that is used"},
    {"QX202", Severity::Error,   "take it out or test it in",
     "the first cassette of a used unit is manipulated or of an unknown status, with items"},
    {"QX203", Severity::Error,   "set the count to 0",
     "the first of a used unit is empty, inoperative, missing, or without value or reference, "
     "with items"},
    {"QX204", Severity::Error,   "give it a value, or leave it out",
     "a coupon of value 0 is used"},
    {"QX205", Severity::Note,    "refill, or lower the minimum",
     "mix 5 passes over a low unit of the currency asked, or mixes 6 to 9 one that does not "
     "hold more than the minimum"},
    {"QX206", Severity::Error,   "load five",
     "any answer is -315"},
    {"QX301", Severity::Error,   "",
     "CSTMinimum4Mix6 is not text that is a decimal number"},
    {"QX302", Severity::Error,   "lower it (a minus sign makes it huge)",
     "the minimum leaves mixes 6 to 9 nothing"},
    {"QX303", Severity::Warning, "",
     "TraceLevel is not a number"},
    {"QX304", Severity::Warning, "create the key below HKEY_LOCAL_MACHINE",
     "the registry file has no key for error codes"},
    {"QX305", Severity::Note,    "--clear-error removes it; the module never does",
     "an error code was left before anything is asked"},
    {"QX306", Severity::Warning, "store it in the key that is read",
     "TraceLevel, CSTMinimum4Mix6 or CDM is stored, but not in the key that is read"},
    {"QX401", Severity::Error,   "choose another mix, or check what is paid before money moves",
     "a mix overpays or overdraws; JSON names the emptied cassettes and why: noCombination, "
     "limit or searchOrder"},
    {"QX402", Severity::Error,   "never call it without a watchdog",
     "no answer; after twenty missed deadlines a mix is given up, and the amounts behind are "
     "not asked; proved, and not asked, where the module itself knows that no answer ever "
     "comes"},
    {"QX403", Severity::Error,   "choose another mix",
     "mixes 4 and 9, two units: the last holds at least 4294967295 / value"},
    {"QX404", Severity::Warning, "check what is paid before money moves",
     "mixes 4 and 9, two to five units, without QX401 and QX402"},
    {"QX405", Severity::Warning, "ask without it",
     "mixes 4 and 9, a partial amount, three to five units"},
    {"QX406", Severity::Warning, "find out which of the two the dispenser has, and ask that one",
     "a library other than the tool's own answers what the own module never does, or gives no "
     "answer where the own one ends"},
    {"QX407", Severity::Note,    "choose another mix, or ask in parts",
     "mix, explain: mix 1 pays, with at least twice as many items as would do"},
    {"QX501", Severity::Error,   "",
     "a success that pays too little, without a partial amount; the remainder is recommended "
     "only where it is what was not paid"},
    {"QX502", Severity::Note,    "read the remainder",
     "a success that pays nothing: the amount is below the smallest note"},
    {"QX503", Severity::Warning, "take it off",
     "a button is not paid; with the mixes that pay it and the rule that tells why"},
    {"QX504", Severity::Warning, "ask them in parts",
     "-307, or a refusal that a limit of 65535 lifts; with mixes that stay within the limit, "
     "notes or a limit that would do"},
    {"QX505", Severity::Warning, "choose another mix",
     "mixes 2, 3, 7, 8, notes and coins: refused because of the limit, and another mix pays"},
    {"QX506", Severity::Note,    "do not read the code after success",
     "paid, with an error code left"},
    {"QX507", Severity::Warning, "load fewer small notes, or choose another mix",
     "the slowest answer took longer than --slow, in processor time"},
    {"QX508", Severity::Error,   "",
     "a mix pays no amount at all; with the reason of each cassette, or of the answers"},
    {"QX509", Severity::Warning, "choose another mix",
     "mixes 3 and 8: the score of even emptying can reach 2^32"},
    {"QX510", Severity::Warning, "choose another mix",
     "mixes 2 and 7: the score of equal notes can reach 2^32"},
    {"QX511", Severity::Warning, "split the request",
     "the units hold more than 16777216 units of the amount"},
    {"QX512", Severity::Warning, "load notes for them, or offer other amounts",
     "refused although the limit is not the cause; a note where neither the file nor options "
     "name the amounts"},
    {"QX601", Severity::Error,   "compute it from the items",
     "a negative exponent"},
    {"QX602", Severity::Error,   "never ask mix 9 here",
     "mix 9 under a negative exponent"},
    {"QX603", Severity::Error,   "say its worth",
     "a coin without worth under a negative exponent"},
    {"QX604", Severity::Error,   "choose an exponent nearer to 0",
     "the largest amount or a value is scaled beyond 32 bits"},
    {"QX605", Severity::Warning, "compare amountAfter with what was asked",
     "a partial amount is allowed"},
    {"QX701", Severity::Note,    "sort the rows by time",
     "simulate, replay: recorded rows were not in the order of time, and were sorted"},
    {"QX702", Severity::Note,    "name a column that is meant with --columns",
     "simulate, replay: columns of a recorded list that are passed over"},
    {"QX703", Severity::Note,    "write money without decimals as numbers of units",
     "simulate, replay: recorded amounts are read as money, not as numbers of units"},
    {"QX704", Severity::Note,    "begin with the counts that the dispenser had then",
     "replay: lines of a journal take more from a cassette than is left there"},
    {"QX801", Severity::Note,    "take it out of the accepted ones",
     "an accepted finding is no longer found"},
};
// clang-format on

const RuleText& RuleTextOf(const std::string& id) {
    static constexpr RuleText none = {"", Severity::Note, "", ""};
    const auto* const text = std::find_if(std::begin(kRuleTexts), std::end(kRuleTexts),
                                          [&id](const RuleText& row) { return id == row.id; });
    return text == std::end(kRuleTexts) ? none : *text;
}

}  // namespace

const std::vector<RuleText>& RuleTexts() {
    static const std::vector<RuleText> texts(std::begin(kRuleTexts), std::end(kRuleTexts));
    return texts;
}

const char* AdviceOf(const char* id) {
    return RuleTextOf(id).advice;
}

Finding FindingOf(const char* id) {
    Finding finding;
    finding.id = id;
    finding.severity = RuleTextOf(id).severity;
    finding.advice = RuleTextOf(id).advice;
    return finding;
}

Finding FindingOf(const char* id, const std::string& message) {
    Finding finding = FindingOf(id);
    finding.message = message;
    return finding;
}

}  // namespace qxmix
