#pragma once

#include "LintFleet.h"
#include "json/Json.h"
#include "json/JsonPlaces.h"

#include <functional>
#include <optional>

namespace qxmix {

/// A finding of one of many dispensers, or why that could not be asked, as other programs are told.
struct LintElement {
    const LintFleetRow& row;
    Json finding;                    ///< as in the result; of an error its pointer and message
    bool isError = false;            ///< the dispenser could not be asked
    std::optional<TextPlace> place;  ///< none: it is about no file

    std::string Text(const char* field) const;
    bool IsAccepted() const { return finding.contains("accepted"); }

    /// "error", "warning" or "note".
    std::string Severity() const { return isError ? "error" : Text("severity"); }

    /// What is wrong, and what to do about it.
    std::string Message() const;
};

/// All that was found of a dispenser.
std::vector<LintElement> ElementsOf(const LintFleet& fleet, const LintFleetRow& row);

}  // namespace qxmix
