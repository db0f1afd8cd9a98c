#include "FileReader.h"

#include "LastShare.h"
#include "errors/Errors.h"
#include "text/Duration.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

/// A busy machine may need so long to begin, however short calculations have to be.
constexpr Milliseconds kLeastTime{2000};

enum class Kind : std::uint8_t { Name, Content, Refusal };

Message MessageOf(Kind kind, const std::string& bytes) {
    return {static_cast<std::uint8_t>(kind), bytes};
}

Message Answer(const FileReader::Reading& reading, const std::string& name) {
    try {
        return MessageOf(Kind::Content, reading(name));
    } catch (const InputError& error) {
        return MessageOf(Kind::Refusal, error.what());
    }
}

/// The life of the child.
void AnswerAll(const FileReader::Reading& reading, Channel& channel) {
    Message message;
    while (channel.Receive(message, std::nullopt) == Channel::State::Received) {
        channel.Send(Answer(reading, message.bytes));
    }
}

}  // namespace

FileReader::FileReader(Reading reading, Milliseconds deadline)
    : reading_(std::move(reading)), longest_(std::max(deadline * kLastShare, kLeastTime)) {
}

std::string FileReader::Read(const std::string& name) {
    if (child_ == nullptr) {
        child_ = std::make_unique<ChildProcess>(
            [this](Channel& channel) { AnswerAll(reading_, channel); });
    }
    child_->Connection().Send(MessageOf(Kind::Name, name));
    Message message;
    const Channel::State state = child_->Connection().Receive(message, Clock::now() + longest_);
    if (state != Channel::State::Received) {
        child_.reset();
        throw InputError(name + ": cannot be read: " +
                         (state == Channel::State::Closed
                              ? std::string("its reader ended")
                              : "nothing came within " + DurationWords(longest_)));
    }
    if (static_cast<Kind>(message.kind) == Kind::Refusal) {
        throw InputError(message.bytes);
    }
    return std::move(message.bytes);
}

}  // namespace qxmix
