#include "BatchRun.h"

#include "BatchBlock.h"
#include "BatchJob.h"
#include "LineCutter.h"
#include "errors/Errors.h"
#include "files/FileCalls.h"
#include "files/Output.h"
#include "workers/Interrupt.h"
#include "workers/WorkerPool.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <deque>
#include <utility>

namespace qxmix {

namespace {

constexpr std::size_t kMostLines = 256;  ///< of a block
constexpr std::size_t kReadSize = std::size_t{256} << 10U;

/// Blocks for each worker that may be under way or wait for an earlier one's answers.
constexpr std::size_t kBlocksAhead = 4;

/// How long the lines that have been read may still take after Ctrl-C.
constexpr Milliseconds kLastWait{1000};

class BatchRun {
public:
    BatchRun(const BatchSetting& setting, std::size_t jobs)
        : deadline_(setting.deadline), mostAhead_(kBlocksAhead * jobs),
          pool_(setting.order, jobs, nullptr, BatchJob(setting)),
          cutter_(setting.traces ? 1 : kMostLines, LinesThere::In("-")), buffer_(kReadSize, '\0') {}

    void Run(BatchSummary& summary, const ProgressListener& listen) {
        HandOut();
        while (!isAtEnd_ || !waiting_.empty()) {
            try {
                if (pool_.Wait(wantsInput_ ? kStandardInput : kNoChannelEnd, end_)) {
                    Read();
                }
                TakeAnswers(summary);
                listen({summary.answeredLines, 0});
            } catch (const Interruption&) {
                TakeInterrupt();
                summary.isComplete = false;
                isAtEnd_ = true;
                end_ = Clock::now() + kLastWait;
            }
            if (Clock::now() >= end_) {
                GiveUp();
            }
            HandOut();
        }
    }

private:
    /// A block that is not written whole.
    struct Waiting {
        LineBlock rest;           // what is not answered yet
        BlockAnswers answers{};   // those that are here and not written
        bool isUnderWay = false;  // a worker has it
        bool isDone = false;

        void Add(const BlockAnswers& more) {
            rest.DropFirst(more.lineCount);
            answers.lines += more.lines;
            answers.lineCount += more.lineCount;
            answers.badLines += more.badLines;
            answers.lastCode = more.lastCode.empty() ? answers.lastCode : more.lastCode;
        }
    };

    void HandOut() {
        wantsInput_ = false;
        pool_.HandOut([this] { return NextTask(); });
    }

    std::optional<WorkerPool::Task> NextTask() {
        auto next = std::find_if(waiting_.begin(), waiting_.end(), [](const Waiting& block) {
            return !block.isUnderWay && !block.isDone;
        });
        if (next == waiting_.end()) {
            if (!ReadAhead()) {
                return std::nullopt;
            }
            next = std::prev(waiting_.end());
        }
        next->isUnderWay = true;
        WorkerPool::Task task;
        task.number = written_ + static_cast<std::uint64_t>(next - waiting_.begin());
        task.request = MixRequest{};
        task.deadline = deadline_;
        task.job = BytesOf(next->rest);
        return task;
    }

    /// Has one block more wait, if it is here and not too far ahead.
    bool ReadAhead() {
        if (hasGivenUp_ || waiting_.size() >= mostAhead_) {
            return false;
        }
        std::optional<LineBlock> block = cutter_.Next();
        if (!block) {
            wantsInput_ = !isAtEnd_;
            return false;
        }
        waiting_.push_back({std::move(*block)});
        return true;
    }

    void Read() {
        const std::ptrdiff_t size = ReadBytes(kStandardInput, buffer_.data(), buffer_.size());
        if (size < 0 && errno != EAGAIN) {
            throw InputError(std::string("standard input: cannot be read: ") +
                             std::strerror(errno));
        }
        if (size > 0) {
            cutter_.Add(buffer_.data(), static_cast<std::size_t>(size));
        }
        if (size == 0 || cutter_.IsOver()) {
            cutter_.End();
            isAtEnd_ = true;
        }
    }

    void TakeAnswers(BatchSummary& summary) {
        pool_.TakeReplies(
            [this](const WorkerPool::Task& task, const Reply& reply) { Take(task, reply); });
        while (!waiting_.empty()) {
            Write(std::exchange(waiting_.front().answers, {}), summary);
            if (!waiting_.front().isDone) {
                return;
            }
            waiting_.pop_front();
            ++written_;
        }
    }

    void Take(const WorkerPool::Task& task, const Reply& reply) {
        Waiting& block = waiting_[static_cast<std::size_t>(task.number - written_)];
        block.isUnderWay = !reply.isLast;
        if (reply.ending.kind == Ending::Kind::Answered) {
            block.Add(ReadBlockAnswers(reply.report));
            block.isDone = reply.isLast;
            return;
        }
        if (reply.item == 0) {
            throw WorkError("a worker ended by itself: " + reply.ending.crash);
        }
        // The lines before it are asked again, with those behind it.
        block.rest.known.push_back({reply.item, reply.ending});
    }

    static void Write(const BlockAnswers& answers, BatchSummary& summary) {
        if (answers.lineCount == 0) {
            return;
        }
        WriteStandardOutput(answers.lines);
        summary.answeredLines += answers.lineCount;
        summary.badLines += answers.badLines;
        if (!answers.lastCode.empty()) {
            summary.lastCode = answers.lastCode;
        }
    }

    /// Ends with the line that takes too long after Ctrl-C. What comes before it in its block may
    /// have to be asked again, for no more than the same time.
    void GiveUp() {
        const bool isFirstTime = !std::exchange(hasGivenUp_, true);
        end_ = Clock::now() + kLastWait;
        bool isAskedAgain = false;
        pool_.GiveUp([&](const WorkerPool::Task& task, const Reply& reply) {
            if (isFirstTime && task.number == written_) {
                Waiting& block = waiting_.front();
                block.isUnderWay = false;
                block.rest.DropFrom(reply.item);
                isAskedAgain = !block.rest.lines.empty();
            }
        });
        waiting_.resize(isAskedAgain ? 1 : 0);
    }

    Milliseconds deadline_;
    std::size_t mostAhead_;
    WorkerPool pool_;
    LineCutter cutter_;
    std::string buffer_;
    bool isAtEnd_ = false;
    bool wantsInput_ = false;
    std::uint64_t written_ = 0;    // blocks written, and so the number of the first that waits
    std::deque<Waiting> waiting_;  // in the order of the lines
    Clock::time_point end_ = Clock::time_point::max();  // after Ctrl-C: when to give up
    bool hasGivenUp_ = false;
};

}  // namespace

BatchSummary
RunBatch(const BatchSetting& setting, std::size_t jobs, const ProgressListener& listen) {
    CatchInterrupts();
    BatchSummary summary;
    BatchRun(setting, jobs).Run(summary, listen);
    return summary;
}

}  // namespace qxmix
