#pragma once

#include "answers/LineError.h"
#include "json/Json.h"
#include "requests/RequestReader.h"

#include <cstdint>
#include <string>
#include <variant>

namespace qxmix {

/// One recorded line.
struct RecordedLine {
    std::uint64_t number = 0;  ///< of the line in its file, from 1
    Json id;                   ///< null: none
    AskedRequest asked;
    Json answer;  ///< fields of a result (ResultJson), those that count; null: none was recorded
};

/// A line of a trace: a recorded one, or what is wrong with it.
using TraceLine = std::variant<RecordedLine, LineError>;

/// Reads a recorded line: an id, a request as hexadecimal digits or as a line of a batch, an
/// answer.
///
/// @param needsAnswer  whether it has to have one.
/// @param reader       reads requests that are written as lines of a batch.
TraceLine ReadTraceLine(const std::string& text,
                        const std::string& file,
                        std::uint64_t number,
                        bool needsAnswer,
                        RequestReader& reader);

}  // namespace qxmix
