#pragma once

#include "BatchBlock.h"
#include "BatchSetting.h"
#include "workers/ChildProcess.h"
#include "workers/SharedMemory.h"
#include "workers/WorkDeadline.h"

#include <chrono>
#include <memory>
#include <optional>

namespace qxmix {

/// One of the children that answer a batch, block by block, each replaced when a calculation takes
/// it down.
///
/// The child says in shared memory which line it calculates, so that its deadline can be kept
/// although the tool hears nothing before the block is done.
class BatchWorker {
public:
    /// @param setting  outlives the worker.
    explicit BatchWorker(const BatchSetting& setting);
    BatchWorker(BatchWorker&&) = default;

    bool IsBusy() const { return isBusy_; }

    /// Sends a block on its way; Finish brings the answers. One at a time.
    void Start(LineBlock block);

    /// The next part of the answers if it is there; does not wait. Ends a calculation that has
    /// missed its deadline.
    ///
    /// @throw WorkError when a child ends without a calculation that could be blamed.
    std::optional<BlockAnswers> Finish();

    /// Gives up the block.
    void GiveUp();

    /// Gives up the line that is being calculated and all behind it; the answers to those before
    /// it, if there are any, still come.
    void GiveUpLine();

    /// Readable when Finish may have something to do.
    ChannelEnd Descriptor() { return child_->Connection().Descriptor(); }

    /// When Finish may have something to do even if nothing came.
    Clock::time_point LookAgain() const { return deadline_.LookAgain(); }

private:
    void Send();
    void StartAgain(std::uint64_t line, const Ending& ending);
    bool HasMissed(Clock::time_point now);

    const BatchSetting* setting_;
    SharedMemory memory_;
    BatchMark* mark_;  // there
    std::unique_ptr<ChildProcess> child_;
    LineBlock block_;
    bool isBusy_ = false;
    std::uint64_t seen_ = 0;  // line that the child was at when it was last looked at
    WorkDeadline deadline_;   // of that line, since it was first found there
};

}  // namespace qxmix
