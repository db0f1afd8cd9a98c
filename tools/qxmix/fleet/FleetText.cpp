#include "FleetText.h"

#include "json/Json.h"
#include "terminal/Terminal.h"

namespace qxmix {

namespace {

constexpr std::size_t kLongestFileName = 40;
constexpr const char* kDots = "...";
constexpr std::size_t kDotColumns = 3;

}  // namespace

std::string NameInTable(const std::string& name) {
    std::string shown = Printable(name);
    const std::size_t columns = ColumnsOf(shown);
    if (columns <= kLongestFileName) {
        return shown;
    }
    const std::string cut = CutToColumns(shown, columns - kLongestFileName + kDotColumns);
    return kDots + shown.substr(cut.size());
}

std::string CutToFit(const std::string& text, std::size_t columns) {
    const std::string shown = Printable(text);
    return ColumnsOf(shown) <= columns ? shown : CutToColumns(shown, columns - kDotColumns) + kDots;
}

std::string FleetInterruption(std::size_t done, std::size_t named) {
    return "interrupted after " + std::to_string(done) + " of " + std::to_string(named) +
           " dispensers\n";
}

std::string WithoutFile(const std::string& error, const std::string& file) {
    if (error.compare(0, file.size(), file) != 0) {
        return error;
    }
    const std::size_t rest = error.find_first_not_of(": ", file.size());
    return rest == std::string::npos ? error : error.substr(rest);
}

Json FleetElement(const std::string& file, ExitStatus status) {
    return {{"file", file}, {"exitStatus", static_cast<int>(status)}};
}

Json FleetElement(const std::string& file, const ToolError& error) {
    const auto* const field = dynamic_cast<const FieldError*>(&error);
    const bool hasPointer = field != nullptr && !field->Pointer().empty();
    Json json = FleetElement(file, error.Status());
    json["error"] = {{"pointer", hasPointer ? Json(field->Pointer()) : Json()},
                     {"message", hasPointer ? field->Wrong() : WithoutFile(error.what(), file)}};
    return json;
}

std::string ElementText(const Json& element) {
    return element.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace qxmix
