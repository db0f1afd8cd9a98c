#pragma once

#include "BatchSetting.h"
#include "workers/AtWork.h"

namespace qxmix {

/// What the workers of a batch do: they read, ask and answer the lines of a block, each an item
/// under its number (see BatchBlock.h).
///
/// @param setting  outlives the job.
Job BatchJob(const BatchSetting& setting);

}  // namespace qxmix
