#pragma once

#include <optional>
#include <string>

namespace qxmix {

/// The forms in which an answer is written to a file.
enum class OutputForm { TextFile, JsonFile, CsvFile, Page };

/// The endings of the file names, for people.
constexpr const char* kOutputFormsExpected = ".txt, .json, .csv or .html";

/// The form that a file's name asks for.
///
/// @param file  of --output; empty: none.
/// @throw InputError when the name asks for no form.
std::optional<OutputForm> OutputFormOf(const std::string& file);

/// Whether a form holds the answer as JSON.
bool NeedsResult(std::optional<OutputForm> form);

}  // namespace qxmix
