#include "CommonOptions.h"

#include "OutputFileOption.h"
#include "json/JsonFields.h"
#include "module/RegistryImage.h"
#include "text/Duration.h"
#include "text/ParseWhole.h"

#include <CLI/App.hpp>
#include <cstdio>
#include <map>

namespace qxmix {

namespace {

ColorMode ParseColorMode(const std::string& text) {
    static const std::map<std::string, ColorMode> modes = {
        {"auto", ColorMode::Auto}, {"always", ColorMode::Always}, {"never", ColorMode::Never}};
    const auto mode = modes.find(text);
    if (mode == modes.end()) {
        throw InputError("--color: " + NotAllowed(text, "auto, always or never"));
    }
    return mode->second;
}

}  // namespace

std::string CommonOptions::Library() const {
    if (libraries.size() > 1) {
        throw InputError("--library: given twice; expected once");
    }
    return libraries.empty() ? "" : libraries.front();
}

std::string CommonOptions::RegistryOr(const std::vector<StoredValue>& values) const {
    return registry.empty() ? RegistryOf(values) : ReadRegistryFile(registry);
}

TraceSink CommonOptions::Trace() const {
    if (!trace) {
        return nullptr;
    }
    return [](const std::string& line) { std::fprintf(stderr, "%s\n", Printable(line).c_str()); };
}

void AddCommonOptions(CLI::App& command, CommonOptions& options) {
    command.add_flag("--json", options.json, "answer as JSON");
    command.add_option("--library", options.libraries, "module library to ask")
        ->type_name("FILE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command
        .add_option("--registry", options.registry,
                    "registry file that the module reads; replaces the dispenser's registry")
        ->type_name("FILE");
    AddOutputFileOption(command, "--registry-out", options.registryOut,
                        "writes what the module left there");
    AddDurationOption(
        command, "--deadline", [&options](Milliseconds time) { options.deadline = time; },
        "longest time for one calculation, such as 2s or 100ms");
    command.add_flag("--trace", options.trace, "the module's trace lines, on standard error");
    command
        .add_option_function<std::string>(
            "--color",
            [&options](const std::string& text) { options.color = ParseColorMode(text); },
            "auto, always or never")
        ->type_name("WHEN");
    command.add_flag("-q,--quiet", options.quiet, "no progress and no notes");
}

void AddDurationOption(CLI::App& command,
                       const std::string& name,
                       const std::function<void(Milliseconds)>& store,
                       const std::string& help) {
    command
        .add_option_function<std::string>(
            name,
            [name, store](const std::string& text) {
                const auto time = ParseDuration(text);
                if (!time) {
                    throw InputError(name + ": " + NotAllowed(text, kDurationExpected));
                }
                store(*time);
            },
            help)
        ->type_name("TIME");
}

void AddWholeOption(CLI::App& command,
                    const std::string& name,
                    std::int64_t least,
                    std::int64_t most,
                    const std::function<void(std::int64_t)>& store,
                    const std::string& help) {
    const auto parse = [name, least, most, store](const std::string& text) {
        const auto number = ParseWhole<std::int64_t>(text);
        if (!number || *number < least || *number > most) {
            throw InputError(name + ": " + NotAllowed(text, RangeText(least, most)));
        }
        store(*number);
    };
    command.add_option_function<std::string>(name, parse, help)->type_name("N");
}

}  // namespace qxmix
