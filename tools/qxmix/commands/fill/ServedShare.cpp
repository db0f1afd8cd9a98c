#include "ServedShare.h"

#include "dispenser/Money.h"

namespace qxmix {

namespace {

constexpr int kDecimals = 3;
constexpr std::uint32_t kWhole = 100000;

}  // namespace

std::optional<ServedShare> ParsePercent(const std::string& text) {
    // A percentage is decimal text just as money is.
    const std::optional<Money> percent = Money::Parse(text);
    const auto thousandths = percent ? percent->In(-kDecimals) : std::nullopt;
    if (!thousandths || *thousandths == 0 || *thousandths > kWhole) {
        return std::nullopt;
    }
    return ServedShare{*thousandths, kWhole};
}

std::string PercentText(const ServedShare& share) {
    constexpr std::uint64_t kHundredths = 10000;
    const std::uint64_t hundredths = share.served * kHundredths / share.asked;
    return Money::Of(static_cast<std::uint32_t>(hundredths), -2).Text(1);
}

}  // namespace qxmix
