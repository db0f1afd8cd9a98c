#pragma once

#include "DemandFile.h"
#include "RecordedDemand.h"
#include "options/Parser.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// What the commands that let customers come are told of them.
struct DemandOptions {
    std::string file;  ///< --demand
    SheetOptions sheet = RecordedSheet();
    std::optional<std::uint32_t> resample;  ///< days that are drawn from a list; none: it is asked
    std::optional<std::uint32_t> seed;
    std::optional<std::uint32_t> runs;

    /// @throw InputError when no file is named, or the dispenser has taken standard input.
    void Require(const std::string& dispenser) const;

    DemandFile Open() const { return {file, sheet, resample}; }

    /// As a shell takes them, but for the seed and the runs: " --demand week.json".
    std::string Words() const;
};

/// @param help  of --demand.
void AddDemandOption(CLI::App& command, DemandOptions& options, const std::string& help);

/// Adds --seed, --runs and --resample.
void AddRunOptions(CLI::App& command, DemandOptions& options, const std::string& helpOfRuns);

/// @throw InputError when an option was given that has no meaning for recorded withdrawals.
/// @param option  its name; null: none was.
void RefuseForRecorded(const char* option);

/// @throw InputError when the seeds of so many runs go beyond the largest.
void CheckSeeds(std::uint32_t seed, std::uint32_t runs);

}  // namespace qxmix
