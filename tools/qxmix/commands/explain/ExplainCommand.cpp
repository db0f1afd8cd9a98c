#include "ExplainCommand.h"

#include "ExplainJson.h"
#include "ExplainText.h"
#include "answers/Envelope.h"
#include "commands/mix/MixText.h"
#include "dispenser/DispenserJson.h"
#include "dispenser/DispenserReader.h"
#include "files/InputFile.h"
#include "files/Output.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "requests/Request.h"
#include "text/Duration.h"

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
                       const Asker& asker) {
    Envelope envelope;
    envelope.module = asker.ModuleVersion();
    envelope.library = FileNameOf(asker.Library());
    envelope.command = "explain";
    envelope.complete = answers.isComplete;
    envelope.input = {{"dispenser", DispenserJson(questions.dispenser)},
                      {"amount", questions.amount},
                      {"mix", std::uint16_t{questions.requests.front().usMixNumber}},
                      {"deadline", DurationText(questions.deadline)}};
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
    static const CommandInfo info = {"explain",
                                     "Tells why an amount is paid as it is, or is not.",
                                     {"explain DISPENSER --amount A [--mix N]"},
                                     {"explain examples/euro.json --amount 285",
                                      "explain EUR:50x10,20x10:empty --amount 80 --mix 5"}};
    return info;
}

void ExplainCommand::AddOptions(CLI::App& command) {
    command.add_option("DISPENSER", dispenser_, "dispenser file, - or inline");
    command.add_option("--amount", amount_, "what to pay, a whole number of 10^exponent units")
        ->type_name("A");
    AddAskOptions(command, ask_);
}

ExitStatus ExplainCommand::Run(const CommonOptions& options) {
    MixQuestions questions = Prepare();
    questions.deadline = options.deadline.value_or(questions.deadline);
    const std::string registry = options.RegistryOr(questions.dispenser.registry);
    questions.dispenser.registry = TakenValues(registry);

    Asker asker(FindLibrary(options.Library()), registry, options.Trace());
    MixAnswers answers = AskMixes(questions, asker, !options.registryOut.empty());
    const std::optional<Explanation> story = TryToExplain(questions, answers, asker);
    if (answers.answers.empty() && !options.json) {
        throw Interruption();
    }
    const std::string text = options.json ? AnswerJson(questions, answers, story, asker)
                                          : AnswerText(questions, answers, story, options);
    OutputFiles files;
    files.Add(options.registryOut, asker.Registry());
    files.Commit();
    WriteStandardOutput(text);
    return ExitStatusOf(answers);
}

MixQuestions ExplainCommand::Prepare() const {
    if (dispenser_.empty()) {
        throw InputError("DISPENSER: missing; expected a file, - or a dispenser such as "
                         "EUR:50x10,20x10");
    }
    if (amount_.empty()) {
        throw InputError("--amount: missing; expected what to pay");
    }
    MixQuestions questions;
    questions.dispenser = OpenDispenser(dispenser_);
    ask_.ApplyTo(questions.dispenser);
    questions.amount = ParseAmount(amount_, "--amount", questions.dispenser);
    const std::vector<std::uint16_t> mixes = ask_.Mixes(questions.dispenser);
    if (mixes.size() != 1) {
        throw InputError(std::string(ask_.mixes.empty() ? "--mix" : "--mixes") + ": " +
                         std::to_string(mixes.size()) + " mixes; expected one");
    }
    questions.requests = {BuildRequest(questions.dispenser, questions.amount, mixes.front())};
    return questions;
}

}  // namespace qxmix
