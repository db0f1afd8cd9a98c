#include "CashUnitCodes.h"
#include "LintCures.h"
#include "LintRules.h"
#include "dispenser/UnitNames.h"
#include "options/MixList.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

/// The rule that tells why a mix does not pay an amount; empty for an answer that no rule knows.
std::string RuleBehind(const LintCase& lint, const LintMix& mix, const LintAnswer& answer) {
    switch (answer.cell.outcome) {
    case Outcome::NoAnswer:
        return "QX402";
    case Outcome::Overpaid:
    case Outcome::Overdrawn:
        return "QX401";
    case Outcome::TooManyUnits:
        return "QX206";
    case Outcome::TooManyItems:
    case Outcome::NotDispensable:
        return mix.kept.empty() ? "QX508" : IsOverLimit(mix, answer) ? "QX504" : "QX512";
    case Outcome::NothingPaid:
    case Outcome::PaidInPart:
        return IsBelowSmallest(mix, answer.amount) ? "QX502"
               : lint.TheDispenser().partial       ? "QX605"
                                                   : "QX501";
    default:
        return "";
    }
}

/// What a mix does that a rule tells of, for people.
std::string DoingText(const LintCase& lint, const LintMix& mix, const std::string& rule) {
    static const std::map<std::string, std::string> doings = {
        {"QX206", "need more than five different notes"},
        {"QX401", "pay too much"},
        {"QX402", "give no answer"},
        {"QX501", "pay too little"},
        {"QX605", "pay too little"},
        {"QX512", "are refused"},
        {"", "fail"}};
    if (rule == "QX504") {
        return "are over the limit of " + std::to_string(lint.TheDispenser().maxDispenseItems);
    }
    if (rule == "QX502") {
        const auto smallest = std::min_element(
            mix.kept.begin(), mix.kept.end(),
            [](const Unit& left, const Unit& right) { return left.searched < right.searched; });
        return "are below the smallest note, " +
               NoteText(lint.TheDispenser().cassettes[smallest->cassettes.front()]);
    }
    return doings.at(rule);
}

/// Why a mix draws from no cassette of a unit.
std::string DropText(const LintCase& lint, const LintMix& mix, const Unit& unit) {
    const Cassette& first = lint.TheDispenser().cassettes[unit.cassettes.front()];
    if (first.currency != lint.TheDispenser().currency) {
        return "is not " + lint.TheDispenser().currency;
    }
    switch (*unit.dropped) {
    case Dropped::Type:
        return "is " + TypeNames().Text(unit.type);
    case Dropped::Status:
        return "is " + StatusNames().Text(unit.status);
    case Dropped::Minimum:
        return "counts " + std::to_string(unit.counted) + ", the minimum is " +
               std::to_string(mix.units.Minimum());
    case Dropped::Count:
        return unit.counted == 0 ? "holds nothing" : "reads as negative";
    case Dropped::Value:
    case Dropped::Currency:
        break;
    }
    return "is worth nothing";
}

/// "no cassette serves: 20 USD is empty, 50 USD is missing"
std::string NoUnitText(const LintCase& lint, const LintMix& mix) {
    std::vector<std::string> reasons;
    for (const Unit& unit : mix.units.All()) {
        reasons.push_back(NoteText(lint.TheDispenser().cassettes[unit.cassettes.front()]) + " " +
                          DropText(lint, mix, unit));
    }
    return "no cassette serves: " + Join(reasons, ", ");
}

/// How many amounts each rule keeps from being paid.
std::map<std::string, std::uint64_t> CountByRule(const LintCase& lint, const LintMix& mix) {
    std::map<std::string, std::uint64_t> counts;
    ForEachAnswer(lint, mix,
                  [&](const LintAnswer& answer) { ++counts[RuleBehind(lint, mix, answer)]; });
    return counts;
}

void AddNothingPaid(const LintCase& lint, const LintMix& mix, LintReport& report) {
    const std::string before = MixText(mix) + " pays nothing here: ";
    if (mix.kept.empty()) {
        const std::string cure = CuresText(lint, mix.forRefused);
        report.AddCured(mix, "/mix", before + NoUnitText(lint, mix),
                        cure.empty() ? "load notes that it draws from" : cure, mix.forRefused);
        return;
    }
    std::vector<std::string> reasons;
    std::vector<std::string> rules;
    for (const auto& [rule, count] : CountByRule(lint, mix)) {
        reasons.push_back((count == mix.row.Size() ? "all" : std::to_string(count)) + " " +
                          DoingText(lint, mix, rule));
        if (!rule.empty()) {
            rules.push_back(rule);
        }
    }
    report.Add("/mix", before + Join(reasons, ", "), std::vector<std::uint16_t>{mix.mix},
               rules.empty() ? "" : "see " + Join(rules, ", "));
}

/// The answer of a mix to one amount, if that was asked.
std::optional<LintAnswer> AnswerTo(const LintCase& lint, const LintMix& mix, std::uint32_t amount) {
    const auto answers = AnswersWhere(
        lint, mix, [amount](const LintAnswer& answer) { return answer.amount == amount; });
    return answers.empty() ? std::nullopt : std::make_optional(answers.front());
}

/// What is to be done about a button that is not paid.
std::string ButtonAdvice(const LintCase& lint, std::uint32_t amount, const std::string& rules) {
    std::vector<std::uint16_t> payers;
    const auto known = lint.payers.find(amount);
    if (known != lint.payers.end()) {
        std::copy_if(known->second.payers.begin(), known->second.payers.end(),
                     std::back_inserter(payers),
                     [&lint](std::uint16_t mix) { return IsAdvisable(lint, mix); });
    }
    return "take it off" + (payers.empty() ? "" : ", or choose " + MixesText(payers)) +
           (rules.empty() ? "" : ", or see " + rules);
}

}  // namespace

void CheckButtons(const LintCase& lint, LintReport& report) {
    const std::vector<std::uint32_t>& buttons = lint.TheDispenser().AmountsTold().buttons;
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        std::vector<std::uint16_t> mixes;
        std::set<std::string> rules;
        for (const LintMix& mix : lint.mixes) {
            const auto answer = AnswerTo(lint, mix, buttons[index]);
            if (answer && answer->cell.outcome != Outcome::Paid) {
                mixes.push_back(mix.mix);
                rules.insert(RuleBehind(lint, mix, *answer));
            }
        }
        rules.erase("");
        report.Add(AmountsPointer(lint.TheDispenser()) + "/buttons/" + std::to_string(index),
                   "dead button: " + AmountText(lint, buttons[index]) + " " +
                       lint.TheDispenser().currency + " is not paid",
                   mixes,
                   ButtonAdvice(lint, buttons[index], Join({rules.begin(), rules.end()}, ", ")));
    }
}

void CheckLimit(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        const auto answers = AnswersWhere(
            lint, mix, [&mix](const LintAnswer& answer) { return IsOverLimit(mix, answer); });
        LintAnswersText text;
        text.before = "the limit of " + std::to_string(lint.TheDispenser().maxDispenseItems) +
                      " stops " + MixText(mix);
        text.tell = AmountsOf(lint);
        text.pointer = "/maxDispenseItems";
        text.cures = &mix.forOverLimit;
        text.advice = CuresText(lint, mix.forOverLimit);
        report.AddAnswers(mix, answers, text);
    }
}

void CheckNothingWorks(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        if (mix.row.Size() != 0 && mix.row.Count(Outcome::Paid) == 0) {
            AddNothingPaid(lint, mix, report);
        }
    }
}

void CheckRefusals(const LintCase& lint, LintReport& report) {
    if (!lint.isRangeNamed) {
        report.Become(Severity::Note);
    }
    for (const LintMix& mix : lint.mixes) {
        if (mix.kept.empty()) {
            continue;
        }
        const auto answers = AnswersWhere(
            lint, mix, [&mix](const LintAnswer& answer) { return IsRefused(mix, answer); });
        LintAnswersText text;
        text.before = MixText(mix) + " refuses";
        text.tellsAll = true;
        text.tell = AmountsOf(lint);
        text.pointer = AmountsPointer(lint.TheDispenser());
        text.cures = &mix.forRefused;
        text.advice = CuresText(lint, mix.forRefused);
        report.AddAnswers(mix, answers, text);
    }
}

}  // namespace qxmix
