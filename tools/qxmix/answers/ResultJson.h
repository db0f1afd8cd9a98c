#pragma once

#include "Dangers.h"
#include "Judgement.h"
#include "dispenser/Dispenser.h"
#include "json/JsonName.h"
#include "workers/Worker.h"

#include <string>

namespace qxmix {

/// The result of one calculation; what a missing answer leaves unknown is null.
Json ResultJson(const Dispenser& dispenser, const Judgement& judgement, const Reply& reply);

/// The answer of a calculation as a recorded line holds it.
Json RecordedAnswer(const Reply& reply);

/// How often each outcome occurs, those that do; what is paid comes first.
Json CountsJson(const OutcomeCounts& count);

/// The error code that a calculation left, or null.
Json WrittenCodeJson(const Calculation& calculation);

}  // namespace qxmix
