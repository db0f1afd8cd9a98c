#pragma once

#include "Json.h"
#include "Terminal.h"

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
    std::string advice;  ///< empty: nothing to do
};

/// The findings for people, without a heading: a line each, and for all but the notes a second one
/// that says what to do.
///
/// @param quiet  leaves the notes out.
std::string FindingsText(const std::vector<Finding>& findings, bool quiet, const Painter& painter);

Json FindingsJson(const std::vector<Finding>& findings);

/// Whether any is an error.
bool HasError(const std::vector<Finding>& findings);

}  // namespace qxmix
