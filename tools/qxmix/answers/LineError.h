#pragma once

#include "errors/Errors.h"
#include "json/Json.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// A line of a stream that is none: it costs itself, and the stream goes on.
struct LineError {
    LineError(std::uint64_t number, Json lineId, const InputError& error);

    std::uint64_t line;
    Json id;              ///< that the line names; null: none
    Json pointer;         ///< of the field that is wrong; null: the line as a whole
    std::string message;  ///< what is wrong and what is expected
    std::string text;     ///< the whole error, with its place
};

/// What stands in the place of an answer to such a line.
Json LineErrorJson(const LineError& error);
Json LineErrorsJson(const std::vector<LineError>& errors);

}  // namespace qxmix
