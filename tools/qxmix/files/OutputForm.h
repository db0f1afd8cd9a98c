#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// The forms in which an answer is written.
enum class OutputForm {
    TextFile,
    JsonFile,
    CsvFile,
    Page,
    Sarif,         ///< findings as checks of source code give them
    JUnit,         ///< the cases of a test
    Github,        ///< notes beside the files that a workflow has checked
    MixTableJson,  ///< what a mix pays, as an XFS service takes it
    MixTableCsv,
};

/// The forms that a command can write.
struct OutputForms {
    const char* endings;  ///< of the file names, for people
    std::vector<OutputForm> forms;
};

const OutputForms& AllForms();
const OutputForms& FormsWithoutPage();
const OutputForms& CheckForms();
const OutputForms& FormsWithMixTable();

/// The form that a file's name asks for.
///
/// @param file  of --output; empty: none.
/// @throw InputError when the name asks for none of the forms.
std::optional<OutputForm> OutputFormOf(const std::string& file, const OutputForms& allowed);

/// The form with this name, for standard output.
///
/// @throw InputError when it is none.
OutputForm FormNamed(const std::string& name, const OutputForms& allowed);

/// Whether a form is a mix table.
bool IsMixTable(std::optional<OutputForm> form);

/// Whether a form holds the answer as JSON.
bool NeedsResult(std::optional<OutputForm> form);

}  // namespace qxmix
