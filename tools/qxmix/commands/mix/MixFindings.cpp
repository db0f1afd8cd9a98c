#include "MixFindings.h"

#include "answers/OwnDecisions.h"
#include "dispenser/ReadableMoney.h"
#include "findings/RuleTexts.h"
#include "module/LibrarySearch.h"
#include "options/MixList.h"
#include "text/Duration.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr Milliseconds kOtherMixDeadline{100};

bool PaysExactly(const MixQuestions& questions,
                 const std::vector<MixAnswer>& answers,
                 std::uint16_t mix,
                 Asker& asker) {
    const auto known = std::find_if(answers.begin(), answers.end(),
                                    [mix](const MixAnswer& answer) { return answer.mix == mix; });
    if (known != answers.end()) {
        return known->judgement.outcome == Outcome::Paid;
    }
    MixRequest request = questions.requests.front();
    request.usMixNumber = mix;
    const Reply reply = asker.Ask(request, kOtherMixDeadline, Asker::Tracing::Silent);
    return Judge(questions.dispenser, questions.amount, reply).outcome == Outcome::Paid;
}

std::vector<std::string>
ExactPayers(const MixQuestions& questions, const std::vector<MixAnswer>& answers, Asker& asker) {
    std::vector<std::string> payers;
    for (const std::uint16_t mix : AllMixes()) {
        if (PaysExactly(questions, answers, mix, asker)) {
            payers.push_back(std::to_string(mix));
        }
    }
    return payers;
}

std::string Advice(const std::vector<std::string>& payers, const std::string& amount) {
    if (payers.empty()) {
        return "ask another amount: no mix paid " + amount + " exactly";
    }
    const bool isOne = payers.size() == 1;
    return (isOne ? "mix " : "mixes ") + Join(payers, " ") + (isOne ? " pays " : " pay ") + amount +
           " exactly";
}

std::string MessageOf(const Judgement& judgement, Milliseconds deadline) {
    if (judgement.isProved) {
        return "this amount is never answered: do not call this mix without a watchdog";
    }
    if (judgement.outcome == Outcome::NoAnswer) {
        return "no answer within " + DurationWords(deadline) +
               ": never call this mix without a watchdog";
    }
    const std::string what = judgement.outcome == Outcome::Overpaid ? "paid than asked"
                             : judgement.isHeld                     ? "taken than the limit allows"
                                                                    : "taken than a cassette holds";
    return "more is " + what + ": do not hand out this answer";
}

}  // namespace

Finding DangerOf(std::uint16_t mix, const Judgement& judgement, Milliseconds deadline) {
    Finding finding = FindingOf(judgement.IsAnswered() ? "QX401" : "QX402");
    finding.mix = mix;
    finding.pointer = "/mix";
    finding.message = MessageOf(judgement, deadline);
    if (judgement.outcome == Outcome::NoAnswer) {
        finding.isProved = judgement.isProved;
    }
    return finding;
}

std::vector<Finding>
DangersOf(const MixQuestions& questions, const std::vector<MixAnswer>& answers, Asker& asker) {
    const bool isHarmless =
        std::none_of(answers.begin(), answers.end(),
                     [](const MixAnswer& answer) { return answer.judgement.IsDangerous(); });
    if (isHarmless) {
        return {};
    }
    const std::string amount =
        ReadableText(answers.front().judgement.asked, AmountDecimals(questions.dispenser));
    const std::string advice = Advice(ExactPayers(questions, answers, asker), amount);
    std::vector<Finding> findings;
    for (const MixAnswer& answer : answers) {
        if (!answer.judgement.IsDangerous()) {
            continue;
        }
        Finding finding = DangerOf(answer.mix, answer.judgement, questions.deadline);
        if (questions.asksList) {
            finding.message = "mix " + std::to_string(answer.mix) + ": " + finding.message;
        }
        finding.advice = advice;
        findings.push_back(finding);
    }
    return findings;
}

std::vector<Finding>
DifferencesOf(const MixQuestions& questions, const std::vector<MixAnswer>& answers, Asker& asker) {
    if (IsOwnLibrary(asker.Library())) {
        return {};
    }
    OwnDecisions decisions(asker.Library(), asker.Open().minimum);
    std::vector<Finding> findings;
    for (const MixAnswer& answer : answers) {
        const LibraryDifference difference = decisions.Of(answer.request, answer.reply.ending.kind);
        if (difference == LibraryDifference::None) {
            continue;
        }
        Finding finding = FindingOf("QX406");
        finding.mix = answer.mix;
        finding.pointer = "/mix";
        finding.message =
            (questions.asksList ? "mix " + std::to_string(answer.mix) + ": " : std::string()) +
            WordsOf(difference);
        findings.push_back(finding);
    }
    return findings;
}

}  // namespace qxmix
