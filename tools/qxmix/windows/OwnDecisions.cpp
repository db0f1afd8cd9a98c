#include "answers/OwnDecisions.h"

#include "workers/ChildProcess.h"

namespace qxmix {

std::string WordsOf(LibraryDifference) {
    return "";
}

// The module's own operations are not part of this tool.
OwnDecisions::OwnDecisions(const std::string&, std::uint32_t minimum)
    : minimum_(minimum), isWanted_(false) {
}

OwnDecisions::~OwnDecisions() = default;

LibraryDifference OwnDecisions::Of(const MixRequest&, Ending::Kind) {
    return LibraryDifference::None;
}

}  // namespace qxmix
