#pragma once

#include "errors/Errors.h"
#include "json/JsonName.h"
#include "terminal/Terminal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

enum class Severity { Note, Warning, Error };

/// Something that is wrong, and what to do about it. The same ids everywhere.
struct Finding {
    std::string id;  ///< QX401
    Severity severity = Severity::Note;
    std::optional<std::uint16_t> mix;
    std::string pointer;  ///< field of the dispenser file; empty: about no field
    std::string message;
    std::string advice;            ///< empty: nothing to do
    std::optional<bool> isProved;  ///< QX402: whether it is known that no answer ever comes
    std::string currency;          ///< asked when it was found; empty: there is one, or in all
};

/// Columns before the message of a finding.
constexpr std::size_t kLeftOfFinding = 13;

enum class FindingPlace { Untold, Told };

/// The findings for people, without a heading: a line each, and for all but the notes a second one
/// that says what to do.
///
/// @param quiet  leaves the notes out.
std::string FindingsText(const std::vector<Finding>& findings, bool quiet, const Painter& painter);

/// One of them.
///
/// @param place  whether the field that it is about is told, too.
std::string FindingText(const Finding& finding, FindingPlace place, const Painter& painter);

/// Has a finding tell in which of several currencies it was found.
void TellCurrency(Finding& finding, const std::string& currency);

/// What stands before a text that is about one of several currencies: "USD: ".
inline std::string CurrencyMark(const std::string& currency) {
    return currency + ": ";
}

Json FindingJson(const Finding& finding);
Json FindingsJson(const std::vector<Finding>& findings);

/// What a command that only looks ends with when it found this.
ExitStatus ExitStatusOf(Severity severity);

/// What it ends with when it found all these.
ExitStatus ExitStatusOf(const std::vector<Finding>& findings);

}  // namespace qxmix
