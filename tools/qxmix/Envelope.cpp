#include "Envelope.h"

#include "ToolVersion.h"

namespace qxmix {

namespace {

Json TextOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

}  // namespace

std::string EnvelopeText(const Envelope& envelope) {
    const Json json = {{"format", "qxmix/answer/1"},
                       {"tool", kToolVersion},
                       {"module", TextOrNull(envelope.module)},
                       {"library", TextOrNull(envelope.library)},
                       {"command", envelope.command},
                       {"complete", envelope.complete},
                       {"input", envelope.input},
                       {"result", envelope.result},
                       {"warnings", FindingsJson(envelope.warnings)},
                       {"exitStatus", static_cast<int>(envelope.exitStatus)}};
    // Names of libraries and files need not be UTF-8; JSON has to be.
    return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace qxmix
