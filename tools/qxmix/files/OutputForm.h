#pragma once

#include <optional>
#include <string>

namespace qxmix {

/// The forms in which an answer is written to a file.
enum class OutputForm { TextFile, JsonFile, CsvFile, Page };

/// The forms that a command can write.
struct OutputForms {
    const char* endings;  ///< of the file names, for people
    bool hasPage;
};

constexpr OutputForms kAllForms = {".txt, .json, .csv or .html", true};
constexpr OutputForms kFormsWithoutPage = {".txt, .json or .csv", false};

/// The form that a file's name asks for.
///
/// @param file  of --output; empty: none.
/// @throw InputError when the name asks for none of the forms.
std::optional<OutputForm> OutputFormOf(const std::string& file, const OutputForms& allowed);

/// Whether a form holds the answer as JSON.
bool NeedsResult(std::optional<OutputForm> form);

}  // namespace qxmix
