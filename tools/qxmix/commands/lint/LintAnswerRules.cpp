#include "CashUnitCodes.h"
#include "LintRules.h"
#include "options/MixList.h"
#include "terminal/Terminal.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

bool IsTooLittle(Outcome outcome) {
    return outcome == Outcome::NothingPaid || outcome == Outcome::PaidInPart;
}

/// Whether an amount does not reach the smallest note that a mix draws from.
bool IsBelowSmallest(const LintMix& mix, std::uint32_t amount) {
    const std::uint32_t searched = mix.units.SearchedAmount(amount);
    return !mix.kept.empty() &&
           std::all_of(mix.kept.begin(), mix.kept.end(),
                       [searched](const Unit& unit) { return searched < unit.searched; });
}

LintAnswersText::Tell AmountsOf(const LintCase& lint) {
    return [&lint](const LintAnswer& answer) { return AmountText(lint, answer.amount); };
}

std::string MixText(const LintMix& mix) {
    return "mix " + std::to_string(mix.mix);
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

/// Why a button is dead: what each mix does with it, where they do not all the same.
std::vector<std::uint16_t> MixesThatDoNotPay(const LintCase& lint, std::uint32_t amount) {
    return MixesWhere(lint, [&lint, amount](const LintMix& mix) {
        return !AnswersWhere(lint, mix, [amount](const LintAnswer& answer) {
                    return answer.amount == amount && answer.cell.outcome != Outcome::Paid;
                }).empty();
    });
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
        LintAnswersText text;
        text.before = MixText(mix) + " succeeds, pays too little";
        text.tell = [&lint](const LintAnswer& answer) { return PaidText(lint, answer); };
        text.advice = (rules.empty() ? "" : "mend " + Join(rules, " ") + "; until then ") +
                      std::string("book what the remainder leaves");
        report.AddAnswers(mix,
                          AnswersWhere(lint, mix,
                                       [&mix](const LintAnswer& answer) {
                                           return IsTooLittle(answer.cell.outcome) &&
                                                  !IsBelowSmallest(mix, answer.amount);
                                       }),
                          text);
    }
}

void CheckNothingPaid(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        LintAnswersText text;
        text.before = MixText(mix) + " succeeds and pays nothing";
        text.tell = AmountsOf(lint);
        report.AddAnswers(mix,
                          AnswersWhere(lint, mix,
                                       [&mix](const LintAnswer& answer) {
                                           return answer.cell.outcome == Outcome::NothingPaid &&
                                                  IsBelowSmallest(mix, answer.amount);
                                       }),
                          text);
    }
}

void CheckButtons(const LintCase& lint, LintReport& report) {
    const std::vector<std::uint32_t>& buttons = lint.TheDispenser().amounts.buttons;
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        report.Add("/amounts/buttons/" + std::to_string(index),
                   "dead button: " + AmountText(lint, buttons[index]) + " " +
                       lint.TheDispenser().currency + " is not paid",
                   MixesThatDoNotPay(lint, buttons[index]));
    }
}

void CheckLimit(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        LintAnswersText text;
        text.before = "the limit of " + std::to_string(lint.TheDispenser().maxDispenseItems) +
                      " stops " + MixText(mix);
        text.tell = AmountsOf(lint);
        text.pointer = "/maxDispenseItems";
        report.AddAnswers(mix,
                          AnswersWhere(lint, mix,
                                       [&mix](const LintAnswer& answer) {
                                           return answer.cell.outcome == Outcome::TooManyItems ||
                                                  mix.paidWithoutLimit.count(answer.amount) != 0;
                                       }),
                          text);
    }
}

void CheckStoppedSearch(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        LintAnswersText text;
        text.before = MixText(mix) + " stops at a combination over the limit";
        text.tell = AmountsOf(lint);
        report.AddAnswers(mix,
                          AnswersWhere(lint, mix,
                                       [&mix](const LintAnswer& answer) {
                                           return mix.paidByAnother.count(answer.amount) != 0;
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

void CheckNothingWorks(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        if (mix.row.Size() != 0 && mix.row.Count(Outcome::Paid) == 0) {
            report.Add("/mix", MixText(mix) + " pays nothing here",
                       std::vector<std::uint16_t>{mix.mix});
        }
    }
}

}  // namespace qxmix
