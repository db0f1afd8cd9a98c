#include "BatchRun.h"

#include "BatchWorker.h"
#include "LineCutter.h"
#include "errors/Errors.h"
#include "files/FileCalls.h"
#include "files/Output.h"
#include "workers/Interrupt.h"
#include "workers/Waiting.h"

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
        : cutter_(setting.traces ? 1 : kMostLines), buffer_(kReadSize, '\0') {
        for (std::size_t job = 0; job < jobs; ++job) {
            places_.push_back({BatchWorker(setting), 0});
        }
    }

    void Run(BatchSummary& summary, const ProgressListener& listen) {
        HandOut();
        while (!isAtEnd_ || !waiting_.empty()) {
            try {
                Wait();
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
    struct Place {
        BatchWorker worker;
        std::uint64_t block;  // number of its block
    };

    /// A block that is under way or waits for an earlier one's answers.
    struct Waiting {
        BlockAnswers answers;  // those that are here and not written
        bool isDone = false;

        void Add(const BlockAnswers& more) {
            answers.lines += more.lines;
            answers.lineCount += more.lineCount;
            answers.badLines += more.badLines;
            answers.lastCode = more.lastCode.empty() ? answers.lastCode : more.lastCode;
            isDone = more.isLast;
        }
    };

    Place* IdlePlace() {
        const auto idle = std::find_if(places_.begin(), places_.end(),
                                       [](const Place& place) { return !place.worker.IsBusy(); });
        const bool isAhead = waiting_.size() >= kBlocksAhead * places_.size();
        return idle == places_.end() || isAhead ? nullptr : &*idle;
    }

    /// Gives blocks to idle workers as long as there are both.
    void HandOut() {
        wantsInput_ = false;
        if (hasGivenUp_) {
            return;
        }
        for (Place* place = IdlePlace(); place != nullptr; place = IdlePlace()) {
            std::optional<LineBlock> block = cutter_.Next();
            if (!block) {
                wantsInput_ = !isAtEnd_;
                return;
            }
            place->block = written_ + waiting_.size();
            waiting_.emplace_back();
            place->worker.Start(std::move(*block));
        }
    }

    void Wait() {
        std::vector<ChannelEnd> ends = {wantsInput_ ? kStandardInput : kNoChannelEnd};
        Clock::time_point first = end_;
        for (Place& place : places_) {
            if (place.worker.IsBusy()) {
                ends.push_back(place.worker.Descriptor());
                first = std::min(first, place.worker.LookAgain());
            }
        }
        if (WaitForOneOf(ends, first).front()) {
            Read();
        }
    }

    void Read() {
        const std::ptrdiff_t size = ReadBytes(kStandardInput, buffer_.data(), buffer_.size());
        if (size < 0 && errno != EAGAIN) {
            throw InputError(std::string("standard input: cannot be read: ") +
                             std::strerror(errno));
        }
        if (size > 0) {
            cutter_.Add(buffer_.data(), static_cast<std::size_t>(size));
        } else if (size == 0) {
            cutter_.End();
            isAtEnd_ = true;
        }
    }

    void TakeAnswers(BatchSummary& summary) {
        for (Place& place : places_) {
            while (place.worker.IsBusy()) {
                const std::optional<BlockAnswers> part = place.worker.Finish();
                if (!part) {
                    break;
                }
                waiting_[static_cast<std::size_t>(place.block - written_)].Add(*part);
            }
        }
        while (!waiting_.empty()) {
            Write(std::exchange(waiting_.front().answers, {}), summary);
            if (!waiting_.front().isDone) {
                return;
            }
            waiting_.pop_front();
            ++written_;
        }
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
        const bool isOver = std::exchange(hasGivenUp_, true);
        end_ = Clock::now() + kLastWait;
        bool isUnderWay = false;
        for (Place& place : places_) {
            if (!place.worker.IsBusy()) {
                continue;
            }
            if (isOver || place.block != written_) {
                place.worker.GiveUp();
            } else {
                place.worker.GiveUpLine();
                isUnderWay = place.worker.IsBusy();
            }
        }
        waiting_.resize(isUnderWay ? 1 : 0);
    }

    LineCutter cutter_;
    std::string buffer_;
    std::vector<Place> places_;
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
