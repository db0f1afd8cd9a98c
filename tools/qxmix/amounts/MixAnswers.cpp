#include "MixAnswers.h"

#include "requests/Request.h"

#include <algorithm>

namespace qxmix {

namespace {

void AskOne(const MixQuestions& questions,
            const MixRequest& request,
            Asker& asker,
            MixAnswers& known) {
    const Reply reply = asker.Ask(request, questions.deadline);
    known.answers.push_back(Judge(
        questions.dispenser, {questions.amount, request.usMixNumber, questions.deadline}, reply));
    known.raw = reply.ending.kind == Ending::Kind::Answered
                    ? RawBytes(reply.calculation.request, reply.calculation.result)
                    : "";
}

}  // namespace

MixAnswers AskMixes(const MixQuestions& questions, Asker& asker, bool keepsRegistry) {
    MixAnswers known;
    try {
        for (const MixRequest& request : questions.requests) {
            AskOne(questions, request, asker, known);
            if (keepsRegistry) {
                asker.KeepRegistry();
            }
        }
        known.findings = DangersOf(questions, known.answers, asker);
        for (const Finding& finding : WastesOf(questions, known.answers)) {
            known.findings.push_back(finding);
        }
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
    for (const Answer& answer : answers.answers) {
        highest = std::max(highest, RowOf(answer.outcome).exitStatus);
    }
    return highest;
}

}  // namespace qxmix
