#include "SearchedItems.h"

#include "ResultCodes.h"

#include <numeric>

namespace qxmix {

namespace {}  // namespace

std::vector<std::uint32_t> SearchedItems(const Units& units,
                                         std::uint32_t amount,
                                         Asker& asker,
                                         std::optional<std::uint16_t> limit) {
    MixRequest request = units.OneCassettePerUnit();
    request.ulAmount = amount;
    if (limit) {
        request.usMaxDispenseItems = *limit;
    }
    const Reply reply = asker.Ask(request, kSideDeadline, Asker::Tracing::Silent);
    if (reply.ending.kind != Ending::Kind::Answered || reply.calculation.returned != kSuccess) {
        return {};
    }
    std::vector<std::uint32_t> taken(request.usNumPhysicalCUs);
    std::size_t slot = 0;
    for (const Unit& unit : units.All()) {
        if (!unit.dropped) {
            taken[unit.order] = reply.calculation.result.aulNotes[slot];
            ++slot;
        }
    }
    return taken;
}

std::vector<std::uint32_t> GivenItems(const Units& units, const Answer& answer) {
    std::vector<std::uint32_t> given;
    for (const Unit& unit : units.Kept()) {
        given.push_back(std::accumulate(unit.cassettes.begin(), unit.cassettes.end(), 0U,
                                        [&answer](std::uint32_t sum, std::size_t cassette) {
                                            return sum + answer.taken[cassette];
                                        }));
    }
    return given;
}

}  // namespace qxmix
