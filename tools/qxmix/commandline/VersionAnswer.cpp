#include "VersionAnswer.h"

#include "ToolVersion.h"
#include "answers/Envelope.h"
#include "files/Output.h"
#include "json/Json.h"
#include "module/LibrarySearch.h"
#include "terminal/Terminal.h"

namespace qxmix {

namespace {

struct ModuleFound {
    std::string version;  // empty: it names none
    std::string library;  // empty: not found
    std::string problem;  // why it was not found
};

ModuleFound FindModule(const CommonOptions& options) {
    const std::string named = options.Library();
    const std::string registry = options.RegistryOr({});
    try {
        Asker asker(FindLibrary(named), registry, options.Trace());
        asker.Open();
        return {asker.ModuleVersion(), FileNameOf(asker.Library()), ""};
    } catch (const WorkError& error) {
        return {"", "", error.what()};
    }
}

std::string JsonAnswer(const ModuleFound& found) {
    Envelope envelope;
    envelope.module = found.version;
    envelope.library = found.library;
    envelope.command = "version";
    envelope.result = {{"tool", kToolVersion},
                       {"module", found.version.empty() ? Json() : Json(found.version)},
                       {"problem", found.problem.empty() ? Json() : Json(found.problem)}};
    return EnvelopeText(envelope);
}

std::string TextAnswer(const ModuleFound& found) {
    const std::string tool = std::string("qxmix ") + kToolVersion + "\n";
    if (found.library.empty()) {
        return tool + "module not found: " + Printable(found.problem) + "\n";
    }
    const std::string version = found.version.empty() ? "names no version" : found.version;
    return tool + "module " + Printable(version + " (" + found.library + ")") + "\n";
}

}  // namespace

ExitStatus AnswerVersion(const CommonOptions& options) {
    const ModuleFound found = FindModule(options);
    WriteStandardOutput(options.json ? JsonAnswer(found) : TextAnswer(found));
    return ExitStatus::Well;
}

}  // namespace qxmix
