#pragma once

#include "MixAnswers.h"

#include <string>

namespace qxmix {

/// Appends one line of JSON for each answer, as replay reads it: an id, the request in hexadecimal
/// digits and what came back. The ids go on counting the lines of the file.
///
/// @throw WorkError when the file cannot be written.
void RecordAnswers(const std::string& file,
                   const MixQuestions& questions,
                   const MixAnswers& answers);

}  // namespace qxmix
