#include "DayRange.h"

#include "text/ParseWhole.h"

namespace qxmix {

std::optional<DayRange> ParseDayRange(const std::string& text) {
    const std::size_t dash = text.find('-');
    if (dash == std::string::npos) {
        return std::nullopt;
    }
    const auto from = ParseWhole<std::uint32_t>(text.substr(0, dash));
    const auto to = ParseWhole<std::uint32_t>(text.substr(dash + 1));
    const bool isRange = from && to && *from > 0 && *from <= *to && *to <= kMostDaysToRefill;
    return isRange ? std::make_optional(DayRange{*from, *to}) : std::nullopt;
}

}  // namespace qxmix
