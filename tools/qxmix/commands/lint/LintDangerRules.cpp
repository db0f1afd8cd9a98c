#include "LintRules.h"
#include "json/Json.h"
#include "mixes/MixTraits.h"
#include "options/MixList.h"

#include <algorithm>

namespace qxmix {

namespace {

std::vector<LintAnswer> AnswersWith(const LintCase& lint, const LintMix& mix, Outcome outcome) {
    return AnswersWhere(
        lint, mix, [outcome](const LintAnswer& answer) { return answer.cell.outcome == outcome; });
}

const char* NameOf(WhyTooMuch why) {
    static const char* const names[] = {"noCombination", "limit", "searchOrder"};
    return names[static_cast<std::size_t>(why)];
}

/// Which cassettes an answer takes whole, and why it does.
Json TooMuchJson(const LintCase& lint, const LintMix& mix, const LintAnswer& answer) {
    const Dispenser& dispenser = lint.TheDispenser();
    const CassetteItems taken = Unpacked(lint, answer).taken;
    Json emptied = Json::array();
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        if (taken[index] != 0 && taken[index] >= dispenser.cassettes[index].count) {
            emptied.push_back(index);
        }
    }
    const auto why = mix.whyTooMuch.find(answer.amount);
    return {{"emptied", emptied},
            {"why", why == mix.whyTooMuch.end() ? Json() : Json(NameOf(why->second))}};
}

/// Whether there is a mix to choose instead of one that takes too much.
bool HasBetterMix(const LintCase& lint, const LintMix& mix) {
    const std::vector<std::uint16_t> all = AllMixes();
    return std::any_of(all.begin(), all.end(), [&](std::uint16_t other) {
        return other != mix.mix && IsAdvisable(lint, other);
    });
}

bool IsProved(const LintAnswer& answer) {
    return answer.cell.IsProved();
}

std::vector<std::uint16_t> FirstFitMixesWith(const LintCase& lint, std::size_t leastUnits) {
    return MixesWhere(lint, [leastUnits](const LintMix& mix) {
        return mix.Traits().isFirstFit && mix.kept.size() >= leastUnits &&
               mix.kept.size() <= mix.Traits().mostUnits;
    });
}

}  // namespace

void CheckTooMuch(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        LintAnswersText text;
        text.advice = HasBetterMix(lint, mix) ? "" : "check what is paid before money moves";
        text.tell = [&lint](const LintAnswer& answer) { return PaidText(lint, answer); };
        text.details = [&lint, &mix](const LintAnswer& answer) {
            return TooMuchJson(lint, mix, answer);
        };
        text.before = "mix " + std::to_string(mix.mix) + " overpays";
        report.AddAnswers(mix, AnswersWith(lint, mix, Outcome::Overpaid), text);
        text.before = "mix " + std::to_string(mix.mix) + " overdraws";
        report.AddAnswers(mix, AnswersWith(lint, mix, Outcome::Overdrawn), text);
    }
}

void CheckNoAnswer(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        const auto missed = AnswersWith(lint, mix, Outcome::NoAnswer);
        const auto proved = std::count_if(missed.begin(), missed.end(), IsProved);
        const bool areAll = proved == static_cast<std::ptrdiff_t>(missed.size());
        LintAnswersText text;
        text.before =
            "mix " + std::to_string(mix.mix) + (areAll ? " never answers" : " gives no answer");
        text.after = (proved == 0 || areAll ? "" : ", " + std::to_string(proved) + " proved") +
                     (lint.IsGivenUp(mix) ? ", given up at the last" : std::string());
        text.tell = [&lint](const LintAnswer& answer) { return AmountText(lint, answer.amount); };
        text.details = [](const LintAnswer& answer) { return Json{{"proved", IsProved(answer)}}; };
        report.AddAnswers(mix, missed, text);
    }
}

void CheckEndlessPair(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        if (!mix.Traits().isFirstFit || mix.kept.size() != 2 || mix.kept.back().searched == 0) {
            continue;
        }
        const Unit& lesser = mix.kept.back();
        const std::uint32_t bound = UINT32_MAX / lesser.searched;
        if (lesser.counted >= bound) {
            report.Add(CassettePointer(lesser.cassettes.front(), "count"),
                       std::to_string(lesser.counted) + " is at least " + std::to_string(bound) +
                           ": amounts that cannot be made may never be answered",
                       std::vector<std::uint16_t>{mix.mix});
        }
    }
}

void CheckCleanFirstFit(const LintCase& lint, LintReport& report) {
    std::vector<std::uint16_t> mixes = FirstFitMixesWith(lint, 2);
    mixes.erase(std::remove_if(mixes.begin(), mixes.end(),
                               [&report](std::uint16_t mix) {
                                   return report.Has("QX401", mix) || report.Has("QX402", mix);
                               }),
                mixes.end());
    report.Add("/mix",
               "clean on the amounts asked only: on others the unit next to last by worth can be "
               "paid out whole",
               mixes);
}

void CheckPartialFirstFit(const LintCase& lint, LintReport& report) {
    if (lint.TheDispenser().partial) {
        report.Add("/partial", "a partial amount does not end the search",
                   FirstFitMixesWith(lint, 3));
    }
}

void CheckOtherLibrary(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        for (const LibraryDifference difference :
             {LibraryDifference::Answers, LibraryDifference::NoAnswer}) {
            LintAnswersText text;
            text.before = MixText(mix) + ": " + WordsOf(difference);
            text.tell = AmountsOf(lint);
            report.AddAnswers(mix,
                              AnswersWhere(lint, mix,
                                           [&](const LintAnswer& answer) {
                                               const auto known =
                                                   mix.differences.find(answer.amount);
                                               return known != mix.differences.end() &&
                                                      known->second == difference;
                                           }),
                              text);
        }
    }
}

}  // namespace qxmix
