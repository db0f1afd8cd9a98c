#pragma once

#include "AskFleet.h"
#include "Spool.h"
#include "errors/Errors.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace qxmix {

/// Many dispensers, and what is known of each: a row in memory, the rest put away.
///
/// @tparam Row  what a command keeps of one; has its `status`.
template <typename Row>
struct Fleet {
    std::vector<Row> rows;   ///< in the order in which they were named
    std::size_t named = 0;   ///< dispensers named; more than rows after Ctrl-C
    bool isComplete = true;  ///< false: Ctrl-C came before the end
    Spool spool;

    /// The highest of all dispensers.
    ExitStatus Status() const {
        if (!isComplete) {
            return ExitStatus::Interrupted;
        }
        ExitStatus status = ExitStatus::Well;
        for (const Row& row : rows) {
            status = std::max(status, row.status);
        }
        return status;
    }

    /// Has workers do some work on each dispenser.
    ///
    /// @param keep  makes the row of a dispenser out of its name and what the work has reported;
    /// that
    ///   is empty where its worker ended, and an error tells how.
    template <typename Keep>
    void Ask(const std::vector<std::string>& names,
             const FleetWorkers& workers,
             const DispenserWork& work,
             const Keep& keep) {
        named = names.size();
        std::map<std::size_t, Row> ready;  // by place: they come as they are ready
        isComplete =
            AskFleet(names, workers, work,
                     [&](std::size_t place, const std::string& report, const std::string& crash) {
                         const WorkError ended("its worker ended: " + crash);
                         ready.emplace(place, keep(names[place], report, ended));
                     });
        for (auto& [place, row] : ready) {
            rows.push_back(std::move(row));
        }
    }
};

}  // namespace qxmix
