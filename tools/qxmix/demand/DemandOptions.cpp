#include "DemandOptions.h"

#include "errors/Errors.h"
#include "options/CommonOptions.h"
#include "options/ShellWords.h"

#include <CLI/App.hpp>

namespace qxmix {

namespace {

constexpr std::int64_t kMostRuns = 10000;

}  // namespace

void DemandOptions::Require(const std::string& dispenser) const {
    if (file.empty()) {
        throw InputError("--demand: missing; expected a file of withdrawals such as "
                         "examples/week.json");
    }
    if (dispenser == "-" && file == "-") {
        throw InputError("--demand: - is taken by the dispenser; expected a file");
    }
}

std::string DemandOptions::Words() const {
    return " --demand " + ShellWord(file) +
           (resample ? " --resample " + std::to_string(*resample) : "");
}

void AddDemandOption(CLI::App& command, DemandOptions& options, const std::string& help) {
    command.add_option("--demand", options.file, help)->type_name("FILE");
}

void AddRunOptions(CLI::App& command, DemandOptions& options, const std::string& helpOfRuns) {
    AddWholeOption(
        command, "--seed", 0, UINT32_MAX,
        [&options](std::int64_t number) { options.seed = static_cast<std::uint32_t>(number); },
        "draws other withdrawals; 1 without it");
    AddWholeOption(
        command, "--runs", 1, kMostRuns,
        [&options](std::int64_t number) { options.runs = static_cast<std::uint32_t>(number); },
        helpOfRuns);
    AddWholeOption(
        command, "--resample", 1, kMostDays,
        [&options](std::int64_t number) { options.resample = static_cast<std::uint32_t>(number); },
        "draws so many days from recorded withdrawals: whole days, each of its day of the week");
}

void RefuseForRecorded(const char* option) {
    if (option != nullptr) {
        throw InputError(
            std::string(option) +
            ": given for recorded withdrawals; expected a JSON file to draw them from, or "
            "--resample");
    }
}

void CheckSeeds(std::uint32_t seed, std::uint32_t runs) {
    if (std::uint64_t{seed} + runs - 1 > UINT32_MAX) {
        throw InputError("--seed: " + std::to_string(seed) + " is too large; expected at most " +
                         std::to_string(UINT32_MAX - runs + 1) + " for so many --runs");
    }
}

}  // namespace qxmix
