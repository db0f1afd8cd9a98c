#pragma once

#include "options/AskOptions.h"
#include "workers/Worker.h"

#include <string>

namespace qxmix {

/// What holds for all lines of a batch.
struct BatchSetting {
    OpenOrder order;                ///< the library, and the registry of requests without their own
    bool replacesRegistry = false;  ///< that registry stands before what requests bring
    AskOptions ask;
    Milliseconds deadline{2000};
    bool takesFiles = true;     ///< requests may name dispenser files
    bool traces = false;        ///< the module's lines go to standard error
    bool hasEnvelope = false;   ///< answers are whole envelopes
    std::string moduleVersion;  ///< for envelopes
    std::string command;        ///< for envelopes
};

}  // namespace qxmix
