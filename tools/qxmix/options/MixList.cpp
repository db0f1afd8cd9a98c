#include "MixList.h"

#include "dispenser/Dispenser.h"
#include "errors/Errors.h"
#include "json/JsonFields.h"
#include "mixes/MixTraits.h"
#include "text/ParseWhole.h"
#include "text/TextList.h"

#include <set>

namespace qxmix {

namespace {

struct MixRange {
    std::uint16_t first;
    std::uint16_t last;
};

bool IsMix(std::optional<std::uint16_t> mix) {
    return mix && *mix >= kFirstMix && *mix <= kLastMix;
}

std::optional<MixRange> ParseRange(const std::string& text) {
    const std::size_t dash = text.find('-');
    const auto first = ParseWhole<std::uint16_t>(text.substr(0, dash));
    const auto last =
        dash == std::string::npos ? first : ParseWhole<std::uint16_t>(text.substr(dash + 1));
    if (!IsMix(first) || !IsMix(last) || *last < *first) {
        return std::nullopt;
    }
    return MixRange{*first, *last};
}

}  // namespace

std::vector<std::uint16_t> ParseMixList(const std::string& text, const std::string& option) {
    if (text == "all") {
        return AllMixes();
    }
    std::set<std::uint16_t> mixes;
    for (const std::string& part : Split(text, ',')) {
        const std::optional<MixRange> range = ParseRange(part);
        if (!range) {
            throw InputError(option + ": " +
                             NotAllowed(text, "mixes from " + RangeText(kFirstMix, kLastMix) +
                                                  " such as 1,3-5, or all"));
        }
        for (std::uint16_t mix = range->first; mix <= range->last; ++mix) {
            mixes.insert(mix);
        }
    }
    return {mixes.begin(), mixes.end()};
}

std::string MixesText(const std::vector<std::uint16_t>& mixes) {
    std::vector<std::string> numbers;
    for (const std::uint16_t mix : mixes) {
        numbers.push_back(std::to_string(mix));
    }
    return (mixes.size() == 1 ? "mix " : "mixes ") + Join(numbers, " ");
}

std::string MixRangesText(const std::vector<std::uint16_t>& mixes) {
    std::vector<std::string> ranges;
    for (std::size_t first = 0; first < mixes.size();) {
        std::size_t last = first;
        while (last + 1 < mixes.size() && mixes[last + 1] == mixes[last] + 1) {
            ++last;
        }
        ranges.push_back(std::to_string(mixes[first]) +
                         (last == first ? "" : " to " + std::to_string(mixes[last])));
        first = last + 1;
    }
    return (mixes.size() == 1 ? "mix " : "mixes ") + Join(ranges, " ");
}

std::string AllMixesText(std::size_t count) {
    return count == 2 ? "both mixes" : "all " + std::to_string(count) + " mixes";
}

}  // namespace qxmix
