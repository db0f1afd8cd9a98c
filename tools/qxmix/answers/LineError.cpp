#include "LineError.h"

#include <utility>

namespace qxmix {

LineError::LineError(std::uint64_t number, Json lineId, const InputError& error)
    : line(number), id(std::move(lineId)), message(error.what()), text(error.what()) {
    if (const auto* field = dynamic_cast<const FieldError*>(&error)) {
        pointer = field->Pointer().empty() ? Json() : Json(field->Pointer());
        message = field->Wrong();
    } else if (const auto* syntax = dynamic_cast<const SyntaxError*>(&error)) {
        message = "column " + std::to_string(syntax->Column()) + ": " + syntax->Wrong();
    }
}

Json LineErrorJson(const LineError& error) {
    Json json = Json::object();
    if (!error.id.is_null()) {
        json["id"] = error.id;
    }
    json["error"] = {{"line", error.line}, {"pointer", error.pointer}, {"message", error.message}};
    return json;
}

Json LineErrorsJson(const std::vector<LineError>& errors) {
    Json json = Json::array();
    for (const LineError& error : errors) {
        json.push_back(LineErrorJson(error));
    }
    return json;
}

}  // namespace qxmix
