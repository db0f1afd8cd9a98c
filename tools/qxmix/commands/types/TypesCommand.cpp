#include "TypesCommand.h"

#include "answers/Envelope.h"
#include "files/Output.h"
#include "json/Json.h"
#include "mixes/MixTraits.h"
#include "module/LibrarySearch.h"
#include "terminal/Table.h"
#include "text/Duration.h"

#include <CLI/App.hpp>

namespace qxmix {

namespace {

using Align = Table::Align;

/// Name of a sub-type, after the XFS CDM interface; null for one that has none.
const char* AlgorithmName(std::uint16_t subType) {
    switch (subType) {
    case 1:
        return "minimumBills";
    case 2:
        return "equalEmptying";
    case 3:
        return "maxCashUnits";
    default:
        return nullptr;
    }
}

/// Which units a mix passes over that could serve: help for people, the module does not tell it.
std::string PassesOver(std::uint16_t mix, std::uint32_t minimum) {
    if (Traits(mix).passesOverLow) {
        return "low units";
    }
    return Traits(mix).keepsMinimum ? "units of <= " + std::to_string(minimum) : "-";
}

std::string TypesText(const Catalogue& catalogue, std::uint32_t minimum, const Painter& painter) {
    Table table(
        {{Align::Right, 1, 3}, {Align::Left, 2, 15}, {Align::Left, 2, 36}, {Align::Left, 2, 0}});
    table.AddRow({"mix", "sub-type", "name", "passes over"});
    for (const CatalogueEntry& entry : catalogue.entries) {
        const char* const algorithm = AlgorithmName(entry.subType);
        table.AddRow(
            {std::to_string(entry.mixNumber),
             std::to_string(entry.subType) + " " + (algorithm == nullptr ? "-" : algorithm),
             Printable(entry.name), PassesOver(entry.mixNumber, minimum)});
    }
    return table.Text(painter);
}

Json TypesJson(const Catalogue& catalogue) {
    Json types = Json::array();
    for (const CatalogueEntry& entry : catalogue.entries) {
        const char* const algorithm = AlgorithmName(entry.subType);
        types.push_back({{"mix", entry.mixNumber},
                         {"mixType", entry.mixType},
                         {"subType", entry.subType},
                         {"algorithm", algorithm == nullptr ? Json() : Json(algorithm)},
                         {"name", entry.name}});
    }
    return {{"types", types}};
}

/// Asks for the catalogue; there is no answer without it.
Catalogue ReadTypes(Asker& asker, Milliseconds deadline) {
    Catalogue catalogue;
    const std::uint16_t expected = asker.Open().mixTypeCount;
    const Ending ending = asker.ListTypes(catalogue, deadline);
    if (ending.kind == Ending::Kind::NoAnswer) {
        throw WorkError("the module gave no catalogue within " + DurationWords(deadline));
    }
    if (ending.kind == Ending::Kind::Crashed) {
        throw WorkError("the module crashed while it made the catalogue: " + ending.crash);
    }
    if (catalogue.returned != 0) {
        throw WorkError("the module could not allocate the catalogue (code " +
                        std::to_string(catalogue.returned) + "), " +
                        std::to_string(catalogue.recordCount) + " of " + std::to_string(expected) +
                        " read");
    }
    return catalogue;
}

}  // namespace

const CommandInfo& TypesCommand::Info() const {
    static const CommandInfo info = {
        "types", "Lists the mixes that the module offers.", {"types"}, {"types", "types --json"}};
    return info;
}

void TypesCommand::AddOptions(CLI::App&) {
}

ExitStatus TypesCommand::Run(const CommonOptions& options) {
    const Milliseconds deadline = options.deadline.value_or(kUsualDeadline);
    Asker asker(FindLibrary(options.Library()), options.RegistryOr({}), options.Trace());
    const Catalogue catalogue = ReadTypes(asker, deadline);
    if (!options.registryOut.empty()) {
        asker.KeepRegistry();
    }
    OutputFiles files;
    files.Add(options.registryOut, asker.Registry());
    files.Commit();
    if (options.json) {
        Envelope envelope = EnvelopeBy(asker, Info().name);
        envelope.input = {{"deadline", DurationText(deadline)}};
        envelope.result = TypesJson(catalogue);
        WriteStandardOutput(EnvelopeText(envelope));
    } else {
        WriteStandardOutput(TypesText(catalogue, asker.Open().minimum, Painter(options.color)));
    }
    return ExitStatus::Well;
}

}  // namespace qxmix
