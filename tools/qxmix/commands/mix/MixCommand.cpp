#include "MixCommand.h"

#include "amounts/MixText.h"
#include "amounts/WaitingLine.h"
#include "answers/Envelope.h"
#include "answers/ResultJson.h"
#include "dispenser/DispenserJson.h"
#include "files/LineFile.h"
#include "files/Output.h"
#include "json/Json.h"
#include "options/AskedModule.h"
#include "options/OutputFileOption.h"
#include "requests/Request.h"
#include "text/Duration.h"
#include "text/Hex.h"

#include <CLI/App.hpp>

namespace qxmix {

namespace {

Json InputJson(const MixQuestions& questions, bool isRaw) {
    Json input = {{"dispenser", DispenserJson(questions.dispenser)}, {"amount", questions.amount}};
    if (questions.asksList) {
        for (const MixRequest& request : questions.requests) {
            input["mixes"].push_back(std::uint16_t{request.usMixNumber});
        }
    } else {
        input["mix"] = std::uint16_t{questions.requests.front().usMixNumber};
    }
    input["deadline"] = DurationText(questions.deadline);
    if (isRaw) {
        input["request"] = HexText(RawBytes(questions.requests.front()));
    }
    return input;
}

Json AnswersJson(const MixQuestions& questions, const MixAnswers& answers) {
    Json mixes = Json::array();
    for (const Answer& answer : answers.answers) {
        Json result = ResultJson(questions.dispenser, answer);
        if (!questions.asksList) {
            return result;
        }
        Json element = {{"mix", answer.mix}};
        element.update(result);
        mixes.push_back(element);
    }
    return questions.asksList ? Json{{"mixes", mixes}} : Json();
}

bool IsRefused(Outcome outcome) {
    switch (outcome) {
    case Outcome::InvalidMixNumber:
    case Outcome::Failed:
    case Outcome::NotDispensable:
    case Outcome::TooManyItems:
    case Outcome::TooManyUnits:
        return true;
    default:
        return false;
    }
}

/// What would be paid instead, and by which mix; none where the one mix asked did not refuse.
std::optional<Surroundings>
AskAroundRefused(const MixQuestions& questions, MixAnswers& answers, Asker& asker) {
    if (questions.asksList || !answers.isComplete || !IsRefused(answers.answers.front().outcome)) {
        return std::nullopt;
    }
    Surroundings around = AskAround(questions, answers.answers.front(), asker);
    answers.isComplete = around.isComplete;
    return around;
}

/// Last line of an answer that Ctrl-C cut short.
std::string InterruptionText(const MixQuestions& questions, const MixAnswers& answers) {
    const std::size_t asked = answers.answers.size();
    const std::size_t all = questions.requests.size();
    if (answers.isComplete) {
        return "";
    }
    if (asked == all) {
        return "interrupted while other mixes were asked\n";
    }
    const std::uint16_t mix = questions.requests[asked].usMixNumber;
    return "interrupted at mix " + std::to_string(mix) + ", " + std::to_string(asked) + " of " +
           std::to_string(all) + " mixes\n";
}

/// Appends one line of JSON for each answer, as replay reads it: an id, the request in hexadecimal
/// digits and what came back. The ids go on counting the lines of the file.
///
/// @throw WorkError when the file cannot be written.
void RecordAnswers(const std::string& file,
                   const MixQuestions& questions,
                   const MixAnswers& answers) {
    AppendLines(file, [&](std::uint64_t id) {
        std::string lines;
        for (std::size_t place = 0; place < answers.answers.size(); ++place) {
            const Json line = {{"id", ++id},
                               {"request", HexText(RawBytes(questions.requests[place]))},
                               {"answer", RecordedAnswer(answers.answers[place])}};
            lines += line.dump() + "\n";
        }
        return lines;
    });
}

}  // namespace

const CommandInfo& MixCommand::Info() const {
    static const CommandInfo info = {
        "mix",
        "Tells what is paid for an amount, and from which cassettes.",
        {"mix DISPENSER --amount A [--mix N|all] [--raw-out F] [--record F]",
         "mix --raw-in F [DISPENSER] [--raw-out F]"},
        {"mix EUR:50x10,20x10 --amount 60", "mix examples/euro.json --amount 280 --mix all"}};
    return info;
}

void MixCommand::AddOptions(CLI::App& command) {
    AddAmountArguments(command, asked_);
    AddOutputFileOption(command, "--raw-out", rawOut_,
                        "writes request and result as they come back");
    AddOutputFileOption(command, "--record", record_,
                        "appends request and answer as a line for replay");
}

ExitStatus MixCommand::Run(const CommonOptions& options) {
    RequireDifferentFiles(
        {{"--raw-out", rawOut_}, {"--registry-out", options.registryOut}, {"--record", record_}});
    MixQuestions questions = Prepare();
    questions.deadline = options.deadline.value_or(questions.deadline);
    if (!rawOut_.empty() && questions.requests.size() != 1) {
        throw InputError("--raw-out: " + std::to_string(questions.requests.size()) +
                         " mixes asked; expected one");
    }
    AskedModule module(options.Library(), options, questions.dispenser);
    WaitingLine waiting(questions.dispenser, options, module.asker);
    MixAnswers answers = AskMixes(questions, module.asker, !options.registryOut.empty());
    const std::optional<Surroundings> around = AskAroundRefused(questions, answers, module.asker);
    waiting.Wipe();
    if (answers.answers.empty() && !options.json) {
        throw Interruption();
    }
    const std::string text = Render(options, questions, answers, around, module.asker);
    WriteFiles(options, questions, answers, module.asker.Registry());
    WriteStandardOutput(text);
    return ExitStatusOf(answers);
}

MixQuestions MixCommand::Prepare() const {
    MixQuestions questions = asked_.Questions();
    if (!questions.requests.empty()) {
        return questions;
    }
    questions.asksList = asked_.ask.AsksList();
    for (const std::uint16_t mix : asked_.ask.Mixes(questions.dispenser)) {
        questions.requests.push_back(BuildRequest(questions.dispenser, questions.amount, mix));
    }
    return questions;
}

void MixCommand::WriteFiles(const CommonOptions& options,
                            const MixQuestions& questions,
                            const MixAnswers& answers,
                            const std::string& registry) const {
    OutputFiles files;
    files.Add(options.registryOut, registry);
    if (!rawOut_.empty() && !answers.raw.empty()) {
        files.Add(rawOut_, answers.raw);
    } else if (!rawOut_.empty() && !answers.answers.empty()) {
        // The answer must be seen all the same: this is no reason to end here.
        Complain(rawOut_ + ": not written: there is no answer");
    }
    files.Commit();
    if (!record_.empty()) {
        RecordAnswers(record_, questions, answers);
    }
}

std::string MixCommand::Render(const CommonOptions& options,
                               const MixQuestions& questions,
                               const MixAnswers& answers,
                               const std::optional<Surroundings>& around,
                               const Asker& asker) const {
    if (options.json) {
        Envelope envelope = EnvelopeBy(asker, Info().name);
        envelope.complete = answers.isComplete;
        envelope.input = InputJson(questions, !asked_.rawIn.empty());
        envelope.result = AnswersJson(questions, answers);
        if (around) {
            envelope.result.update(AroundJson(*around));
        }
        envelope.warnings = answers.findings;
        envelope.exitStatus = ExitStatusOf(answers);
        return EnvelopeText(envelope);
    }
    const Painter painter(options.color);
    const std::string text = questions.asksList
                                 ? MixListText(questions, answers, painter)
                                 : MixText(questions, answers.answers.front(), painter);
    return text + (around ? AroundText(questions, answers.answers.front(), *around) : "") +
           FindingsText(answers.findings, options.quiet, painter) +
           InterruptionText(questions, answers);
}

}  // namespace qxmix
