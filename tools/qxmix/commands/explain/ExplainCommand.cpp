#include "ExplainCommand.h"

#include "ExplainForms.h"
#include "amounts/MixText.h"
#include "amounts/WaitingLine.h"
#include "answers/Envelope.h"
#include "dispenser/DispenserJson.h"
#include "files/Output.h"
#include "json/Json.h"
#include "options/AskedModule.h"
#include "requests/Request.h"
#include "text/Duration.h"
#include "text/Hex.h"

#include <CLI/App.hpp>
#include <optional>

namespace qxmix {

namespace {

/// The story of the answer; none when Ctrl-C came too early for one.
std::optional<Explanation>
TryToExplain(const MixQuestions& questions, MixAnswers& answers, Asker& asker) {
    if (!answers.isComplete) {
        return std::nullopt;
    }
    try {
        Explanation story = Explain(questions, answers.answers.front(), asker);
        answers.isComplete = story.around.isComplete;
        return story;
    } catch (const Interruption&) {
        answers.isComplete = false;
        return std::nullopt;
    }
}

std::string AnswerJson(const MixQuestions& questions,
                       const MixAnswers& answers,
                       const std::optional<Explanation>& story,
                       bool isRaw,
                       const Asker& asker) {
    Envelope envelope = EnvelopeBy(asker, "explain");
    envelope.complete = answers.isComplete;
    envelope.input = {{"dispenser", DispenserJson(questions.dispenser)},
                      {"amount", questions.amount},
                      {"mix", std::uint16_t{questions.requests.front().usMixNumber}},
                      {"deadline", DurationText(questions.deadline)}};
    if (isRaw) {
        envelope.input["request"] = HexText(RawBytes(questions.requests.front()));
    }
    envelope.result = story ? ExplainJson(questions, *story) : Json();
    envelope.warnings = answers.findings;
    envelope.exitStatus = ExitStatusOf(answers);
    return EnvelopeText(envelope);
}

std::string AnswerText(const MixQuestions& questions,
                       const MixAnswers& answers,
                       const std::optional<Explanation>& story,
                       const CommonOptions& options) {
    const Painter painter(options.color);
    const std::string text = story ? ExplainText(questions, *story, painter)
                                   : MixText(questions, answers.answers.front(), painter);
    return text + FindingsText(answers.findings, options.quiet, painter) +
           (answers.isComplete ? "" : "interrupted: the explanation is not complete\n");
}

}  // namespace

const CommandInfo& ExplainCommand::Info() const {
    static const CommandInfo info = {
        "explain",
        "Tells why an amount is paid as it is, or is not.",
        {"explain DISPENSER --amount A [--mix N]", "explain --raw-in F [DISPENSER]"},
        {"explain examples/euro.json --amount 285",
         "explain EUR:50x10,20x10:empty --amount 80 --mix 5"}};
    return info;
}

void ExplainCommand::AddOptions(CLI::App& command) {
    AddAmountArguments(command, asked_, MixChoice::One);
}

ExitStatus ExplainCommand::Run(const CommonOptions& options) {
    MixQuestions questions = Prepare();
    questions.deadline = options.deadline.value_or(questions.deadline);
    AskedModule module(options.Library(), options, questions.dispenser);
    WaitingLine waiting(questions.dispenser, options, module.asker);
    MixAnswers answers = AskMixes(questions, module.asker, !options.registryOut.empty());
    const std::optional<Explanation> story = TryToExplain(questions, answers, module.asker);
    waiting.Wipe();
    if (answers.answers.empty() && !options.json) {
        throw Interruption();
    }
    const std::string text =
        options.json ? AnswerJson(questions, answers, story, !asked_.rawIn.empty(), module.asker)
                     : AnswerText(questions, answers, story, options);
    OutputFiles files;
    files.Add(options.registryOut, module.asker.Registry());
    files.Commit();
    WriteStandardOutput(text);
    return ExitStatusOf(answers);
}

MixQuestions ExplainCommand::Prepare() const {
    MixQuestions questions = asked_.Questions();
    if (!questions.requests.empty()) {
        return questions;
    }
    const std::vector<std::uint16_t> mixes = asked_.ask.Mixes(questions.dispenser);
    if (mixes.size() != 1) {
        throw InputError(std::string(asked_.ask.mixes.empty() ? "--mix" : "--mixes") + ": " +
                         std::to_string(mixes.size()) + " mixes; expected one");
    }
    questions.requests = {BuildRequest(questions.dispenser, questions.amount, mixes.front())};
    return questions;
}

}  // namespace qxmix
