#pragma once

#include "LintReport.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace qxmix {

/// The rule about what is accepted in vain.
constexpr const char* kNoLongerFound = "QX801";

/// Marks the findings that a dispenser's own file accepts, and adds a note for each that it accepts
/// although it is not there.
void AcceptFindings(const Dispenser& dispenser, std::vector<LintFinding>& findings);

/// The findings of an earlier run, which are accepted.
class LintBaseline {
public:
    /// @param file    what --json or --output of `lint` wrote; empty: nothing is accepted.
    /// @param isMany  whether many dispensers are asked now.
    /// @throw InputError when it is something else, or of one dispenser where many are asked.
    LintBaseline(const std::string& file, bool isMany);

    /// Marks those that were found before.
    ///
    /// @param dispenser  as it is named now.
    /// @param currency   its own: that of a finding that tells none, then and now.
    void Accept(const std::string& dispenser,
                const std::string& currency,
                std::vector<LintFinding>& findings) const;

private:
    using Keys = std::set<std::string>;

    bool isOfMany_ = false;
    std::map<std::string, Keys> known_;  // by dispenser; of a run over one alone under ""
};

}  // namespace qxmix
