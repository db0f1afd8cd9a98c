#include "JournalReplay.h"

#include "JournalForms.h"
#include "JournalText.h"
#include "dispenser/DispenserJson.h"
#include "dispenser/DispenserReader.h"
#include "files/InputFile.h"
#include "files/Output.h"
#include "findings/RuleTexts.h"
#include "module/RegistryImage.h"
#include "options/AskedModule.h"
#include "options/ShellWords.h"
#include "sheets/SheetText.h"
#include "terminal/Progress.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

Journal OpenJournal(const JournalArguments& arguments, const Dispenser& dispenser) {
    const InputFile file = ReadInput(arguments.journal);
    return ReadJournal(file.name, SheetText(file), dispenser, arguments.sheet);
}

/// How the journal was read, and where it does not fit the dispenser.
std::vector<Finding> NotesOf(const Journal& journal, const JournalAnswers& answers) {
    std::vector<Finding> notes = journal.notes;
    if (answers.beyond > 0) {
        Finding note = FindingOf("QX704");
        note.message = std::to_string(answers.beyond) +
                       (answers.beyond == 1 ? " line takes" : " lines take") +
                       " more from a cassette than is left there, first line " +
                       std::to_string(answers.firstBeyond);
        notes.push_back(note);
    }
    return notes;
}

ExitStatus StatusOf(const Journal& journal, const JournalAnswers& answers) {
    return !answers.isComplete           ? ExitStatus::Interrupted
           : !journal.badLines.empty()   ? ExitStatus::BadInput
           : answers.differences.empty() ? ExitStatus::Well
                                         : ExitStatus::HonestNo;
}

std::string CommandLine(const JournalArguments& arguments, const CommonOptions& options) {
    return "qxmix replay " + ShellWord(arguments.journal) + " --dispenser " +
           ShellWord(arguments.dispenser) + SheetWords(arguments.sheet) +
           (arguments.stops ? " --stop" : "") + AskingWords(AskOptions{}, options);
}

}  // namespace

ExitStatus ReplayJournal(const JournalArguments& arguments, const CommonOptions& options) {
    arguments.output.Form(options);
    if (arguments.journal == "-" && arguments.dispenser == "-") {
        throw InputError("--dispenser: - is taken by the journal; expected a file");
    }
    Dispenser dispenser = OpenDispenser(arguments.dispenser);
    const Journal journal = OpenJournal(arguments, dispenser);
    const Milliseconds deadline = options.deadline.value_or(kUsualDeadline);
    AskedModule module(options.Library(), options, dispenser);
    module.Open();
    if (!options.json) {
        for (const LineError& bad : journal.badLines) {
            Complain(bad.text);
        }
    }
    Progress progress("replay", journal.entries.size(), options.quiet || options.trace);
    const JournalAnswers answers = AskJournal(
        journal, dispenser, arguments.stops,
        [&](const MixRequest& request) { return module.asker.Ask(request, deadline); },
        [&progress](const WorkProgress& now) { progress.Show(now); });
    progress.Wipe();

    Envelope envelope = EnvelopeBy(module.asker, "replay");
    envelope.complete = answers.isComplete;
    envelope.input = {{"journal", arguments.journal},
                      {"dispenser", DispenserJson(dispenser)},
                      {"stop", arguments.stops},
                      {"deadline", DurationText(deadline)}};
    envelope.result = JournalJson(journal, dispenser, answers);
    envelope.warnings = NotesOf(journal, answers);
    envelope.exitStatus = StatusOf(journal, answers);
    const AnswerForms forms{[&](const Painter& painter) {
                                return JournalText(journal, dispenser, answers, painter) +
                                       FindingsText(envelope.warnings, options.quiet, painter);
                            },
                            [&] { return JournalCsv(journal, dispenser, answers); },
                            [&] {
                                return JournalPage(journal, dispenser, answers, envelope,
                                                   CommandLine(arguments, options));
                            }};
    return arguments.output.Write(options, envelope, forms,
                                  WithErrorCode(module.asker.Registry(), answers.lastCode));
}

}  // namespace qxmix
