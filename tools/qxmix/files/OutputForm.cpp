#include "OutputForm.h"

#include "errors/Errors.h"

#include <map>

namespace qxmix {

std::optional<OutputForm> OutputFormOf(const std::string& file, const OutputForms& allowed) {
    static const std::map<std::string, OutputForm> forms = {{".txt", OutputForm::TextFile},
                                                            {".json", OutputForm::JsonFile},
                                                            {".csv", OutputForm::CsvFile},
                                                            {".html", OutputForm::Page}};
    if (file.empty()) {
        return std::nullopt;
    }
    const std::size_t dot = file.rfind('.');
    const auto form = forms.find(dot == std::string::npos ? "" : file.substr(dot));
    if (form == forms.end() || (form->second == OutputForm::Page && !allowed.hasPage)) {
        throw InputError("--output: " +
                         NotAllowed(file, std::string("a name that ends in ") + allowed.endings));
    }
    return form->second;
}

bool NeedsResult(std::optional<OutputForm> form) {
    return form == OutputForm::JsonFile || form == OutputForm::Page;
}

}  // namespace qxmix
