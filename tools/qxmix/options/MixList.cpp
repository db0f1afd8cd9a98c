#include "MixList.h"

#include "dispenser/Dispenser.h"
#include "errors/Errors.h"
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
                             NotAllowed(text, "mixes from 1 to 10 such as 1,3-5, or all"));
        }
        for (std::uint16_t mix = range->first; mix <= range->last; ++mix) {
            mixes.insert(mix);
        }
    }
    return {mixes.begin(), mixes.end()};
}

std::vector<std::uint16_t> AllMixes() {
    std::vector<std::uint16_t> mixes;
    for (std::uint16_t mix = kFirstMix; mix <= kLastMix; ++mix) {
        mixes.push_back(mix);
    }
    return mixes;
}

std::string MixesText(const std::vector<std::uint16_t>& mixes) {
    std::vector<std::string> numbers;
    for (const std::uint16_t mix : mixes) {
        numbers.push_back(std::to_string(mix));
    }
    return (mixes.size() == 1 ? "mix " : "mixes ") + Join(numbers, " ");
}

std::string AllMixesText(std::size_t count) {
    return count == 2 ? "both mixes" : "all " + std::to_string(count) + " mixes";
}

}  // namespace qxmix
