#include "DemandSource.h"

#include "text/Dates.h"

namespace qxmix {

std::uint64_t SizeOf(const DemandSource& source, std::uint32_t seed) {
    if (const auto* pattern = std::get_if<DemandPattern>(&source)) {
        return pattern->Size();
    }
    const auto* days = std::get_if<RecordedDays>(&source);
    return days != nullptr ? days->SizeOf(seed) : std::get<Demand>(source).withdrawals.size();
}

std::uint64_t SizeOfRuns(const DemandSource& source, std::uint32_t seed, std::uint32_t runs) {
    std::uint64_t size = 0;
    for (std::uint32_t run = 0; run < runs; ++run) {
        size += SizeOf(source, seed + run);
    }
    return size;
}

Demand DemandOf(const DemandSource& source, std::uint32_t seed, const std::string& currency) {
    if (const auto* pattern = std::get_if<DemandPattern>(&source)) {
        return DrawDemand(*pattern, seed, currency);
    }
    const auto* days = std::get_if<RecordedDays>(&source);
    return days != nullptr ? days->Draw(seed) : std::get<Demand>(source);
}

std::uint32_t DaysOf(const DemandSource& source) {
    if (const auto* pattern = std::get_if<DemandPattern>(&source)) {
        return pattern->days;
    }
    if (const auto* days = std::get_if<RecordedDays>(&source)) {
        return days->Days();
    }
    const std::vector<Withdrawal>& asked = std::get<Demand>(source).withdrawals;
    return static_cast<std::uint32_t>(asked.back().time / kSecondsInDay) + 1;
}

void SetDays(DemandSource& source, std::uint32_t days) {
    if (auto* pattern = std::get_if<DemandPattern>(&source)) {
        pattern->days = days;
    } else {
        std::get<RecordedDays>(source).SetDays(days);
    }
}

const Demand* RecordOf(const DemandSource& source) {
    const auto* days = std::get_if<RecordedDays>(&source);
    return days != nullptr ? &days->Record() : std::get_if<Demand>(&source);
}

std::vector<Finding> NotesOf(const DemandSource& source) {
    const Demand* const record = RecordOf(source);
    return record != nullptr ? record->notes : std::vector<Finding>();
}

}  // namespace qxmix
