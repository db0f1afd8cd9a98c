#pragma once

#include "FillReport.h"

#include <functional>

namespace qxmix {

/// Asks what the page draws of each mix with a loading: money against service, and what the
/// cassettes hold in the course of the runs. After Ctrl-C the report says so, and has what was
/// asked before.
///
/// @param order     the library and what it reads.
/// @param trace     hears the module's lines.
/// @param progress  is told of each stretch that was asked.
/// @throw WorkError when the library cannot be used.
FillReport WithPictures(FillReport report,
                        const OpenOrder& order,
                        const TraceSink& trace,
                        const std::function<void(const FillProgress&)>& progress);

}  // namespace qxmix
