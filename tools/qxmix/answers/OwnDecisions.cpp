#include "OwnDecisions.h"

#include "mixes/MixTraits.h"
#include "module/LibrarySearch.h"
#include "module/NeverAnswers.h"
#include "workers/Bytes.h"
#include "workers/ChildProcess.h"

#include <optional>

namespace qxmix {

namespace {

constexpr Milliseconds kLongest{2000};

/// The life of the child.
void DecideAll(std::uint32_t minimum, Channel& channel) {
    Message message;
    while (channel.Receive(message, std::nullopt) == Channel::State::Received) {
        const auto request = ByteReader(message.bytes).Take<MixRequest>();
        channel.Send({static_cast<std::uint8_t>(DecideEnding(request, minimum)), ""});
    }
}

}  // namespace

std::string WordsOf(LibraryDifference difference) {
    switch (difference) {
    case LibraryDifference::Answers:
        return "the library answers, where the tool's own module never does";
    case LibraryDifference::NoAnswer:
        return "the library gives no answer, where the tool's own module ends";
    case LibraryDifference::None:
        break;
    }
    return "";
}

OwnDecisions::OwnDecisions(const std::string& library, std::uint32_t minimum)
    : minimum_(minimum), isWanted_(!IsOwnLibrary(library)) {
}

OwnDecisions::~OwnDecisions() = default;

LibraryDifference OwnDecisions::Of(const MixRequest& request, Ending::Kind ending) {
    const bool isAnswered = ending == Ending::Kind::Answered;
    if (!isWanted_ || (!isAnswered && ending != Ending::Kind::NoAnswer) ||
        (isAnswered && !Traits(request.usMixNumber).isFirstFit)) {
        return LibraryDifference::None;
    }
    if (child_ == nullptr) {
        child_ = std::make_unique<ChildProcess>(
            [minimum = minimum_](Channel& channel) { DecideAll(minimum, channel); });
    }
    ByteWriter writer;
    writer.Put(request);
    child_->Connection().Send({0, writer.Bytes()});
    Message message;
    if (child_->Connection().Receive(message, Clock::now() + kLongest) !=
        Channel::State::Received) {
        child_.reset();
        isWanted_ = false;
        return LibraryDifference::None;
    }
    const auto decided = static_cast<CallEnding>(message.kind);
    return isAnswered && decided == CallEnding::Never   ? LibraryDifference::Answers
           : !isAnswered && decided == CallEnding::Ends ? LibraryDifference::NoAnswer
                                                        : LibraryDifference::None;
}

}  // namespace qxmix
