#include "LintRules.h"
#include "registry/RegistryRules.h"

#include <algorithm>

namespace qxmix {

namespace {

/// Whether the minimum leaves a mix nothing of what it would draw from without one.
bool IsLeftNothing(const LintMix& mix) {
    const std::vector<Unit>& units = mix.units.All();
    return mix.Traits().keepsMinimum && mix.kept.empty() &&
           std::any_of(units.begin(), units.end(),
                       [](const Unit& unit) { return unit.dropped == Dropped::Minimum; });
}

void AddRegistryFindings(const LintCase& lint, LintReport& report) {
    for (const Finding& finding : CheckRegistry(lint.registry, lint.taken, lint.registryFile)) {
        report.AddOwn(finding);
    }
}

}  // namespace

void CheckMinimumText(const LintCase& lint, LintReport& report) {
    AddRegistryFindings(lint, report);
}

void CheckTraceLevel(const LintCase& lint, LintReport& report) {
    AddRegistryFindings(lint, report);
}

void CheckErrorCodeKey(const LintCase& lint, LintReport& report) {
    AddRegistryFindings(lint, report);
}

void CheckErrorCodeLeft(const LintCase& lint, LintReport& report) {
    AddRegistryFindings(lint, report);
}

void CheckStoredElsewhere(const LintCase& lint, LintReport& report) {
    AddRegistryFindings(lint, report);
}

void CheckMinimumSize(const LintCase& lint, LintReport& report) {
    const std::vector<std::uint16_t> mixes = MixesWhere(lint, IsLeftNothing);
    std::uint32_t largest = 0;
    for (const LintMix& mix : lint.mixes) {
        for (const Unit& unit : mix.units.All()) {
            largest = unit.dropped == Dropped::Minimum ? std::max(largest, unit.counted) : largest;
        }
    }
    report.Add("/registry/CSTMinimum4Mix6",
               "the minimum " + std::to_string(lint.taken.minimum) +
                   " is not below the largest unit, " + std::to_string(largest) +
                   ": nothing is left",
               mixes);
}

}  // namespace qxmix
