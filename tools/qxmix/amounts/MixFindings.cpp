#include "MixAnswers.h"

#include "answers/FewerItems.h"
#include "answers/OwnDecisions.h"
#include "dispenser/NotesText.h"
#include "dispenser/ReadableMoney.h"
#include "findings/RuleTexts.h"
#include "mixes/MixTraits.h"
#include "module/LibrarySearch.h"
#include "options/MixList.h"
#include "text/Duration.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr Milliseconds kOtherMixDeadline{100};

bool PaysExactly(const MixQuestions& questions,
                 const std::vector<Answer>& answers,
                 std::uint16_t mix,
                 Asker& asker) {
    const auto known = std::find_if(answers.begin(), answers.end(),
                                    [mix](const Answer& answer) { return answer.mix == mix; });
    if (known != answers.end()) {
        return known->outcome == Outcome::Paid;
    }
    MixRequest request = questions.requests.front();
    request.usMixNumber = mix;
    const Answer answer = AskSilently(asker, questions.dispenser, request, kOtherMixDeadline);
    return answer.outcome == Outcome::Paid;
}

std::vector<std::string>
ExactPayers(const MixQuestions& questions, const std::vector<Answer>& answers, Asker& asker) {
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

std::string MessageOf(const Answer& answer) {
    if (answer.isProved) {
        return "this amount is never answered: do not call this mix without a watchdog";
    }
    if (answer.outcome == Outcome::NoAnswer) {
        return "no answer within " + DurationWords(answer.deadline) +
               ": never call this mix without a watchdog";
    }
    const std::string what = answer.outcome == Outcome::Overpaid ? "paid than asked"
                             : answer.isHeld                     ? "taken than the limit allows"
                                                                 : "taken than a cassette holds";
    return "more is " + what + ": do not hand out this answer";
}

}  // namespace

Finding DangerOf(const Answer& answer) {
    Finding finding = FindingOf(answer.IsAnswered() ? "QX401" : "QX402");
    finding.mix = answer.mix;
    finding.pointer = "/mix";
    finding.message = MessageOf(answer);
    if (answer.outcome == Outcome::NoAnswer) {
        finding.isProved = answer.isProved;
    }
    return finding;
}

std::vector<Finding>
DangersOf(const MixQuestions& questions, const std::vector<Answer>& answers, Asker& asker) {
    const bool isHarmless = std::none_of(answers.begin(), answers.end(),
                                         [](const Answer& answer) { return answer.IsDangerous(); });
    if (isHarmless) {
        return {};
    }
    const std::string amount =
        ReadableText(answers.front().asked, AmountDecimals(questions.dispenser));
    const std::string advice = Advice(ExactPayers(questions, answers, asker), amount);
    std::vector<Finding> findings;
    for (const Answer& answer : answers) {
        if (!answer.IsDangerous()) {
            continue;
        }
        Finding finding = DangerOf(answer);
        if (questions.asksList) {
            finding.message = "mix " + std::to_string(answer.mix) + ": " + finding.message;
        }
        finding.advice = advice;
        findings.push_back(finding);
    }
    return findings;
}

std::vector<Finding> WastesOf(const MixQuestions& questions, const std::vector<Answer>& answers) {
    constexpr std::uint16_t kFewestItems = 1;
    std::vector<Finding> findings;
    for (const Answer& answer : answers) {
        const std::uint64_t items = answer.Items();
        if (answer.mix != kFewestItems || answer.outcome != Outcome::Paid) {
            continue;
        }
        const auto few = FewItemsFor(questions.dispenser, questions.amount, items / 2);
        if (few && CountOf(*few) > 0) {
            Finding finding = FindingOf("QX407");
            finding.mix = answer.mix;
            finding.pointer = "/mix";
            finding.message =
                (questions.asksList ? "mix " + std::to_string(answer.mix) + ": " : std::string()) +
                std::to_string(CountOf(*few)) + " items would do instead of " +
                std::to_string(items) + ": " + NotesText(questions.dispenser, *few, false);
            findings.push_back(finding);
        }
    }
    return findings;
}

std::vector<Finding>
DifferencesOf(const MixQuestions& questions, const std::vector<Answer>& answers, Asker& asker) {
    if (IsOwnLibrary(asker.Library())) {
        return {};
    }
    OwnDecisions decisions(asker.Library(), asker.Open().minimum);
    std::vector<Finding> findings;
    for (std::size_t place = 0; place < answers.size(); ++place) {
        const Answer& answer = answers[place];
        const LibraryDifference difference =
            decisions.Of(questions.requests[place], EndingOf(answer.outcome, answer.isProved));
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
