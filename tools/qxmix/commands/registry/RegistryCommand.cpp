#include "RegistryCommand.h"

#include "answers/Envelope.h"
#include "dispenser/StoredValues.h"
#include "errors/NearestName.h"
#include "files/Output.h"
#include "json/Json.h"
#include "json/JsonFields.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"
#include "options/OutputFileOption.h"
#include "registry/RegistryRules.h"
#include "terminal/Table.h"
#include "text/Hex.h"
#include "text/ParseWhole.h"

#include <CLI/App.hpp>
#include <algorithm>

namespace qxmix {

namespace {

using Align = Table::Align;

/// Reads NAME=VALUE as the value in the form that the module needs.
StoredValue ParseSetting(const std::string& setting) {
    const std::size_t equals = setting.find('=');
    const std::string name = setting.substr(0, equals);
    const std::string text = equals == std::string::npos ? "" : setting.substr(equals + 1);
    if (equals == std::string::npos) {
        throw InputError("--set: " + NotAllowed(setting, "NAME=VALUE"));
    }
    if (name != kTraceLevel && name != kCstMinimum4Mix6) {
        throw InputError("--set: unknown value \"" + name + "\"" +
                         DidYouMean(name, {kCstMinimum4Mix6, kTraceLevel}));
    }
    const bool isText = name == kCstMinimum4Mix6;
    const std::int64_t most = isText ? INT32_MAX : UINT32_MAX;
    const auto number = ParseWhole<std::uint32_t>(text);
    if (!number || *number > most) {
        throw InputError("--set: " + name + ": " + NotAllowed(text, RangeText(0, most)));
    }
    return isText ? StoredValue{name, kRegSz, TextBytes(std::to_string(*number))}
                  : StoredValue{name, kRegDword, DwordBytes(*number)};
}

/// What the module takes from one of its values, or what it left there.
Json TakenJson(const std::string& name, const Opening& taken, const std::string& code) {
    if (name == kTraceLevel) {
        return taken.traceLevel;
    }
    if (name == kCstMinimum4Mix6) {
        return taken.minimum;
    }
    return code.empty() ? Json() : Json(Printable(code));
}

Json ValuesJson(const std::string& registry, const Opening& taken) {
    Json values = Json::array();
    for (const char* name : {kTraceLevel, kCstMinimum4Mix6, kErrorCodeName}) {
        const auto stored = FindStored(registry, name);
        values.push_back({{"name", name},
                          {"type", stored ? Json(stored->type) : Json()},
                          {"hex", stored ? Json(HexText(stored->bytes)) : Json()},
                          {"taken", TakenJson(name, taken, stored ? ErrorCodeOf(*stored) : "")}});
    }
    return {{"values", values}};
}

std::string ValuesText(const std::string& registry, const Opening& taken, const Painter& painter) {
    const auto storedText = [&registry](const char* name) {
        const auto stored = FindStored(registry, name);
        return stored ? StoredValueText(*stored) : std::string("-");
    };
    const auto code = FindStored(registry, kErrorCodeName);
    Table table({{Align::Left, 1, 15}, {Align::Left, 2, 21}, {Align::Left, 2, 0}});
    table.AddRow({"value", "stored", "the module takes"});
    table.AddRow({kCstMinimum4Mix6, storedText(kCstMinimum4Mix6), std::to_string(taken.minimum)});
    table.AddRow({kTraceLevel, storedText(kTraceLevel), std::to_string(taken.traceLevel)});
    table.AddRow({kErrorCodeName, storedText(kErrorCodeName),
                  code ? Printable(ErrorCodeOf(*code)) + ": " + ErrorCodeMeaning(ErrorCodeOf(*code))
                       : std::string("-")});
    return table.Text(painter);
}

}  // namespace

const CommandInfo& RegistryCommand::Info() const {
    static const CommandInfo info = {
        "registry",
        "Shows what the module takes from a registry file; writes one.",
        {"registry FILE [--set NAME=VALUE] [--clear-error] [--output FILE]"},
        {"registry examples/device.reg",
         "registry examples/device.reg --set TraceLevel=3 --output mended.reg"}};
    return info;
}

void RegistryCommand::AddOptions(CLI::App& command) {
    command.add_option("FILE", file_, "registry file");
    command.add_option("--set", settings_, "stores a value in the form that the module needs")
        ->type_name("NAME=VALUE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_flag("--clear-error", clearsError_, "removes the error code left in CDM");
    AddOutputFileOption(command, "--output", output_, "writes the registry file");
}

ExitStatus RegistryCommand::Run(const CommonOptions& options) {
    RequireDifferentFiles({{"--output", output_}, {"--registry-out", options.registryOut}});
    if (!options.registry.empty()) {
        throw InputError("--registry: given beside FILE; expected one of them");
    }
    const std::string registry = ReadAndChange();
    Asker asker(FindLibrary(options.Library()), registry, options.Trace());
    const Opening taken = asker.Open();
    const std::vector<Finding> findings = CheckRegistry(registry, taken, file_);
    const ExitStatus status = ExitStatusOf(findings);
    if (!options.registryOut.empty()) {
        asker.KeepRegistry();
    }
    OutputFiles files;
    files.Add(output_, registry);
    files.Add(options.registryOut, asker.Registry());
    files.Commit();
    if (options.json) {
        Envelope envelope = EnvelopeBy(asker, Info().name);
        envelope.input = {{"file", file_}, {"set", settings_}, {"clearError", clearsError_}};
        envelope.result = ValuesJson(registry, taken);
        envelope.warnings = findings;
        envelope.exitStatus = status;
        WriteStandardOutput(EnvelopeText(envelope));
        return status;
    }
    const Painter painter(options.color);
    const bool isUnwritten = (clearsError_ || !settings_.empty()) && output_.empty();
    WriteStandardOutput(ValuesText(registry, taken, painter) +
                        FindingsText(findings, options.quiet, painter) +
                        (isUnwritten ? "not written: --output names the file to write\n" : ""));
    return status;
}

std::string RegistryCommand::ReadAndChange() const {
    if (file_.empty()) {
        throw InputError("FILE: missing; expected a registry file");
    }
    std::vector<StoredValue> values;
    for (const std::string& setting : settings_) {
        const StoredValue value = ParseSetting(setting);
        if (std::any_of(values.begin(), values.end(), [&value](const StoredValue& before) {
                return before.name == value.name;
            })) {
            throw InputError("--set: " + value.name + " given twice; expected once");
        }
        values.push_back(value);
    }
    std::string registry = ReadRegistryFile(file_);
    for (const StoredValue& value : values) {
        registry = WithStored(registry, value);
    }
    return clearsError_ ? WithoutStored(registry, kErrorCodeName) : registry;
}

}  // namespace qxmix
