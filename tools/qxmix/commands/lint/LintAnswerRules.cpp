#include "CashUnitCodes.h"
#include "LintRules.h"
#include "json/Json.h"
#include "options/MixList.h"
#include "terminal/Terminal.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

bool IsTooLittle(Outcome outcome) {
    return outcome == Outcome::NothingPaid || outcome == Outcome::PaidInPart;
}

/// Rules about the cassettes of units that gave less than was taken of them.
std::vector<std::string> RulesBehind(const LintCase& lint, const LintMix& mix) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    std::set<std::string> rules;
    for (const std::size_t place : mix.shortUnits) {
        const Unit& unit = mix.units.All()[place];
        for (const std::size_t index : unit.cassettes) {
            const Cassette& cassette = cassettes[index];
            const bool isFirst = index == unit.cassettes.front();
            if (cassette.position >= kMaxCashUnits) {
                rules.insert("QX102");
            } else if (cassette.count == 0) {
                continue;
            } else if (Contains(SetOf(CashUnitStatus::Full, CashUnitStatus::High),
                                cassette.status)) {
                rules.insert("QX201");
            } else if (isFirst && cassette.status > 3) {
                rules.insert(cassette.status > 8 ? "QX202" : "QX203");
            }
        }
    }
    return {rules.begin(), rules.end()};
}

/// Mixes that end their search at the first combination over the limit: with two units alone, one
/// of notes and one of coins, which are held to the limit apart.
bool CanStopAtLimit(const LintMix& mix) {
    return mix.Traits().stopsAtLimit && mix.kept.size() == 2 &&
           Contains(kCoinTypes, mix.kept[0].type) != Contains(kCoinTypes, mix.kept[1].type);
}

/// Whether what a mix reports as remainder is what it did not pay.
bool IsRemainderRight(const LintCase& lint, const LintMix& mix, const LintAnswer& answer) {
    Money told = Unpacked(lint, answer).paid;
    told += SearchedMoney(lint.TheDispenser(), answer.cell.remainder);
    return told == SearchedMoney(lint.TheDispenser(), mix.units.SearchedAmount(answer.amount));
}

/// From what the unpaid rest of answers can be booked.
const char*
RestAdvice(const LintCase& lint, const LintMix& mix, const std::vector<LintAnswer>& answers) {
    const bool isRight = std::all_of(answers.begin(), answers.end(), [&](const LintAnswer& answer) {
        return IsRemainderRight(lint, mix, answer);
    });
    return isRight ? "book what the remainder leaves"
                   : "book what was not paid, from the items: the remainder is wrong";
}

/// "35 ms"
std::string TimeText(std::chrono::nanoseconds time) {
    return std::to_string(std::chrono::ceil<Milliseconds>(time).count()) + " ms";
}

}  // namespace

void CheckTooLittle(const LintCase& lint, LintReport& report) {
    if (lint.TheDispenser().partial) {
        return;
    }
    for (const LintMix& mix : lint.mixes) {
        const std::vector<std::string> rules = RulesBehind(lint, mix);
        const auto answers = AnswersWhere(lint, mix, [&mix](const LintAnswer& answer) {
            return IsTooLittle(answer.cell.outcome) && !IsBelowSmallest(mix, answer.amount);
        });
        LintAnswersText text;
        text.before = MixText(mix) + " succeeds, pays too little";
        text.tell = [&lint](const LintAnswer& answer) { return PaidText(lint, answer); };
        text.advice = (rules.empty() ? "" : "mend " + Join(rules, " ") + "; until then ") +
                      RestAdvice(lint, mix, answers);
        report.AddAnswers(mix, answers, text);
    }
}

void CheckNothingPaid(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        LintAnswersText text;
        const auto answers = AnswersWhere(lint, mix, [&mix](const LintAnswer& answer) {
            return answer.cell.outcome == Outcome::NothingPaid &&
                   IsBelowSmallest(mix, answer.amount);
        });
        text.before = MixText(mix) + " succeeds and pays nothing";
        text.tell = AmountsOf(lint);
        text.advice = std::all_of(answers.begin(), answers.end(),
                                  [&](const LintAnswer& answer) {
                                      return IsRemainderRight(lint, mix, answer);
                                  })
                          ? ""
                          : "look at the items: the remainder is wrong";
        report.AddAnswers(mix, answers, text);
    }
}

void CheckStoppedSearch(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        LintAnswersText text;
        text.before = MixText(mix) + " stops at a combination over the limit";
        text.tell = AmountsOf(lint);
        report.AddAnswers(mix,
                          AnswersWhere(lint, mix,
                                       [&lint, &mix](const LintAnswer& answer) {
                                           return CanStopAtLimit(mix) &&
                                                  mix.paidWithoutLimit.count(answer.amount) != 0 &&
                                                  !lint.payers.at(answer.amount).payers.empty();
                                       }),
                          text);
    }
}

void CheckStaleCodes(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        LintAnswersText text;
        text.before = MixText(mix) + " pays and leaves a stale code";
        text.tell = [&lint](const LintAnswer& answer) {
            return AmountText(lint, answer.amount) + " " + Printable(answer.cell.code);
        };
        text.details = [](const LintAnswer& answer) {
            return Json{{"registry", Printable(answer.cell.code)}};
        };
        report.AddAnswers(mix,
                          AnswersWhere(lint, mix,
                                       [](const LintAnswer& answer) {
                                           return answer.cell.outcome == Outcome::Paid &&
                                                  !answer.cell.code.empty();
                                       }),
                          text);
    }
}

void CheckSlowAnswers(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        const MapRow::Slowest& slowest = mix.row.SlowestAnswer();
        if (slowest.took > lint.slow) {
            report.Add("/mix",
                       MixText(mix) + " takes " + TimeText(slowest.took) + " for " +
                           AmountText(lint, lint.questions.Amount(slowest.place)) + " " +
                           lint.TheDispenser().currency,
                       std::vector<std::uint16_t>{mix.mix});
        }
    }
}

}  // namespace qxmix
