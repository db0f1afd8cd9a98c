#include "ReadableMoney.h"

#include <algorithm>
#include <cstdint>

namespace qxmix {

std::string ReadableText(const Money& money, unsigned atLeastDecimals) {
    constexpr std::size_t kLongest = 40;
    if (atLeastDecimals < kLongest) {
        std::string plain = money.Text(atLeastDecimals);
        if (plain.size() <= kLongest) {
            return plain;
        }
    }
    if (money.IsZero()) {
        return "0";
    }
    std::string digits = money.Text();
    const std::size_t point = digits.find('.');
    std::int64_t power = 0;
    if (point != std::string::npos) {
        power = -static_cast<std::int64_t>(digits.size() - point - 1);
        digits.erase(point, 1);
    }
    digits.erase(0, digits.find_first_not_of('0'));
    const std::size_t kept = std::min(digits.find_last_not_of('0') + 1, kLongest);
    const bool isCut = digits.find_last_not_of('0') >= kLongest;
    power += static_cast<std::int64_t>(digits.size() - kept);
    return digits.substr(0, kept) + (isCut ? "..." : "") + "e" + std::to_string(power);
}

}  // namespace qxmix
