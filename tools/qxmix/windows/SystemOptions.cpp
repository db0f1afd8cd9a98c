#include "options/SystemOptions.h"

#include "errors/Errors.h"

#include <CLI/App.hpp>
#include <initializer_list>

namespace qxmix {

namespace {

void Refuse(CLI::App& command, const std::string& name, const std::string& reason) {
    command.get_option(name)->group("")->each([name, reason](const std::string&) {
        throw InputError(name + ": not on Windows: " + reason);
    });
}

}  // namespace

void LimitOptions(CLI::App& command) {
    for (const char* name : {"--registry", "--registry-out"}) {
        Refuse(command, name, "the module uses the system's own registry");
    }
    Refuse(command, "--trace", "the module for Windows has no trace lines");
}

}  // namespace qxmix
