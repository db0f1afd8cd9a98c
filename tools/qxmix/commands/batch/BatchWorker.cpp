#include "BatchWorker.h"

#include "BatchLoop.h"
#include "errors/Errors.h"

#include <new>

namespace qxmix {

namespace {

BatchMark* MarkIn(const SharedMemory& memory) {
    return new (memory.Bytes()) BatchMark;
}

}  // namespace

BatchWorker::BatchWorker(const BatchSetting& setting)
    : setting_(&setting), memory_(sizeof(BatchMark)), mark_(MarkIn(memory_)) {
}

void BatchWorker::Start(LineBlock block) {
    block_ = std::move(block);
    isBusy_ = true;
    Send();
}

std::optional<BlockAnswers> BatchWorker::Finish() {
    Message message;
    switch (child_->Connection().Receive(message, Clock::now())) {
    case Channel::State::Received: {
        BlockAnswers answers = ReadBlockAnswers(message);
        isBusy_ = !answers.isLast;
        block_.DropFirst(answers.lineCount);
        if (answers.isWorn) {
            child_.reset();
        }
        return answers;
    }
    case Channel::State::Closed:
        StartAgain(mark_->line, {Ending::Kind::Crashed, child_->WaitForEnd()});
        return std::nullopt;
    case Channel::State::Waiting:
        break;
    }
    const Clock::time_point now = Clock::now();
    if (now >= deadline_.LookAgain() && HasMissed(now)) {
        child_->Kill();
        StartAgain(seen_, {Ending::Kind::NoAnswer, ""});
    }
    return std::nullopt;
}

void BatchWorker::GiveUp() {
    child_.reset();
    isBusy_ = false;
}

void BatchWorker::GiveUpLine() {
    const std::uint64_t line = mark_->line;
    child_.reset();
    block_.KeepFirst(line > block_.firstLine ? line - block_.firstLine : 0);
    isBusy_ = !block_.lines.empty();
    if (isBusy_) {
        Send();
    }
}

void BatchWorker::Send() {
    if (child_ == nullptr) {
        mark_->line = 0;
        child_ = std::make_unique<ChildProcess>(
            [this](Channel& channel) { RunBatchWorker(*setting_, channel, *mark_); });
    }
    seen_ = 0;
    deadline_.Start(setting_->deadline, Clock::now());
    // Whether the child is gone shows when the answers are fetched.
    child_->Connection().Send(ToMessage(block_));
}

void BatchWorker::StartAgain(std::uint64_t line, const Ending& ending) {
    if (line == 0) {
        throw WorkError("a worker ended by itself: " + ending.crash);
    }
    block_.known.push_back({line, ending});
    child_.reset();
    Send();
}

bool BatchWorker::HasMissed(Clock::time_point now) {
    const std::uint64_t line = mark_->line;
    const std::chrono::nanoseconds worked =
        child_->WorkingTime() - std::chrono::nanoseconds(mark_->workedBefore.load());
    if (line == 0 || line != seen_ || line != mark_->line) {
        seen_ = mark_->line;
        deadline_.Start(setting_->deadline, now);
    }
    return seen_ != 0 && line == seen_ && deadline_.IsMissed(worked, now);
}

}  // namespace qxmix
