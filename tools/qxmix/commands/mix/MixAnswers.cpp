#include "MixAnswers.h"

#include "MixFindings.h"

#include <algorithm>

namespace qxmix {

namespace {

MixAnswer AskOne(const MixQuestions& questions, const MixRequest& request, Asker& asker) {
    MixAnswer answer;
    answer.mix = request.usMixNumber;
    answer.request = request;
    answer.reply = asker.Ask(request, questions.deadline);
    answer.judgement = Judge(questions.dispenser, questions.amount, answer.reply);
    return answer;
}

}  // namespace

MixAnswers AskMixes(const MixQuestions& questions, Asker& asker, bool keepsRegistry) {
    MixAnswers known;
    try {
        for (const MixRequest& request : questions.requests) {
            known.answers.push_back(AskOne(questions, request, asker));
            if (keepsRegistry) {
                asker.KeepRegistry();
            }
        }
        known.findings = DangersOf(questions, known.answers, asker);
        for (const Finding& finding : DifferencesOf(questions, known.answers, asker)) {
            known.findings.push_back(finding);
        }
    } catch (const Interruption&) {
        known.isComplete = false;
    }
    return known;
}

ExitStatus ExitStatusOf(const MixAnswers& answers) {
    if (!answers.isComplete) {
        return ExitStatus::Interrupted;
    }
    ExitStatus highest = ExitStatus::Well;
    for (const MixAnswer& answer : answers.answers) {
        highest = std::max(highest, RowOf(answer.judgement.outcome).exitStatus);
    }
    return highest;
}

}  // namespace qxmix
