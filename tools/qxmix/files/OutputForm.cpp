#include "OutputForm.h"

#include "errors/Errors.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

struct FormRow {
    OutputForm form;
    const char* name;
    const char* ending;  // of a file; empty: it is for standard output alone
};

// clang-format off
constexpr FormRow kFormRows[] = {
    // The longer of two endings first: a file's form is that of the first that fits.
    {OutputForm::MixTableJson, "mixtable-json", ".mixtable.json"},
    {OutputForm::MixTableCsv,  "mixtable-csv",  ".mixtable.csv"},
    {OutputForm::TextFile, "text",   ".txt"},
    {OutputForm::JsonFile, "json",   ".json"},
    {OutputForm::CsvFile,  "csv",    ".csv"},
    {OutputForm::Page,     "html",   ".html"},
    {OutputForm::Sarif,    "sarif",  ".sarif"},
    {OutputForm::JUnit,    "junit",  ".xml"},
    {OutputForm::Github,   "github", ""},
};
// clang-format on

bool Holds(const OutputForms& allowed, OutputForm form) {
    return std::count(allowed.forms.begin(), allowed.forms.end(), form) != 0;
}

bool EndsWith(const std::string& file, const std::string& ending) {
    return !ending.empty() && file.size() >= ending.size() &&
           file.compare(file.size() - ending.size(), ending.size(), ending) == 0;
}

}  // namespace

const OutputForms& AllForms() {
    static const OutputForms forms = {
        ".txt, .json, .csv or .html",
        {OutputForm::TextFile, OutputForm::JsonFile, OutputForm::CsvFile, OutputForm::Page}};
    return forms;
}

const OutputForms& FormsWithoutPage() {
    static const OutputForms forms = {
        ".txt, .json or .csv", {OutputForm::TextFile, OutputForm::JsonFile, OutputForm::CsvFile}};
    return forms;
}

const OutputForms& CheckForms() {
    static const OutputForms forms = {".txt, .json, .csv, .html, .sarif or .xml",
                                      {OutputForm::TextFile, OutputForm::JsonFile,
                                       OutputForm::CsvFile, OutputForm::Page, OutputForm::Sarif,
                                       OutputForm::JUnit, OutputForm::Github}};
    return forms;
}

const OutputForms& FormsWithMixTable() {
    static const OutputForms forms = {".txt, .json, .csv, .html, .mixtable.json or .mixtable.csv",
                                      {OutputForm::TextFile, OutputForm::JsonFile,
                                       OutputForm::CsvFile, OutputForm::Page,
                                       OutputForm::MixTableJson, OutputForm::MixTableCsv}};
    return forms;
}

bool IsMixTable(std::optional<OutputForm> form) {
    return form == OutputForm::MixTableJson || form == OutputForm::MixTableCsv;
}

std::optional<OutputForm> OutputFormOf(const std::string& file, const OutputForms& allowed) {
    if (file.empty()) {
        return std::nullopt;
    }
    for (const FormRow& row : kFormRows) {
        if (EndsWith(file, row.ending) && Holds(allowed, row.form)) {
            return row.form;
        }
    }
    throw InputError("--output: " +
                     NotAllowed(file, std::string("a name that ends in ") + allowed.endings));
}

OutputForm FormNamed(const std::string& name, const OutputForms& allowed) {
    std::vector<std::string> names;
    for (const FormRow& row : kFormRows) {
        if (Holds(allowed, row.form)) {
            if (name == row.name) {
                return row.form;
            }
            names.emplace_back(row.name);
        }
    }
    throw InputError("--format: " + NotAllowed(name, "one of " + Join(names, ", ")));
}

bool NeedsResult(std::optional<OutputForm> form) {
    return form == OutputForm::JsonFile || form == OutputForm::Page;
}

}  // namespace qxmix
