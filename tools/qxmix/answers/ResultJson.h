#pragma once

#include "Answer.h"
#include "Dangers.h"
#include "dispenser/Dispenser.h"
#include "json/JsonName.h"
#include <string>

namespace qxmix {

/// An answer as a result; what is not known is null.
///
/// @param dispenser  the one that was asked.
Json ResultJson(const Dispenser& dispenser, const Answer& answer);

/// An answer as a recorded line holds it.
Json RecordedAnswer(const Answer& answer);

/// How often each outcome occurs, those that do; what is paid comes first.
Json CountsJson(const OutcomeCounts& count);

/// An error code that was left, or null.
Json CodeJson(const std::string& code);

}  // namespace qxmix
