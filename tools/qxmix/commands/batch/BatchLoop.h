#pragma once

#include "BatchBlock.h"
#include "BatchSetting.h"

namespace qxmix {

/// The life of a worker of a batch: reads, asks and answers one block of lines after the other,
/// until the other end is gone.
///
/// @param mark  is told of each calculation.
void RunBatchWorker(const BatchSetting& setting, Channel& channel, BatchMark& mark);

}  // namespace qxmix
