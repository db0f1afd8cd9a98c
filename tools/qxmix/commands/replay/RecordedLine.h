#pragma once

#include "json/Json.h"
#include "requests/RequestReader.h"

#include <cstdint>
#include <string>

namespace qxmix {

/// One recorded line.
struct RecordedLine {
    std::uint64_t number = 0;  ///< of the line in its file, from 1
    Json id;                   ///< null: none
    AskedRequest asked;
    Json answer;  ///< fields of a result (ResultJson), those that count; null: none was recorded
};

/// Reads a recorded line: an id, a request as hexadecimal digits or as a line of a batch, an
/// answer.
///
/// @param reader  reads the latter.
/// @throw InputError
RecordedLine ReadRecordedLine(const std::string& text,
                              const std::string& file,
                              std::uint64_t number,
                              RequestReader& reader);

}  // namespace qxmix
