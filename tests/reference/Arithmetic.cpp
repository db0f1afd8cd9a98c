#include "Arithmetic.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace reference {
namespace {

constexpr int kLargestFinitePower = 308;

std::vector<double> ReadPowersFromText() {
    std::vector<double> powers;
    for (int exponent = 0; exponent <= kLargestFinitePower; ++exponent) {
        // The decimal text is converted with a single correct rounding; repeated multiplication
        // would round at every step.
        const std::string text = "1e" + std::to_string(exponent);
        powers.push_back(std::strtod(text.c_str(), nullptr));
    }
    return powers;
}

}  // namespace

double PowerOfTen(int exponent) {
    static const std::vector<double> powers = ReadPowersFromText();
    if (exponent > kLargestFinitePower) {
        return std::numeric_limits<double>::infinity();
    }
    return powers[static_cast<std::size_t>(exponent)];
}

std::uint32_t ToU32(double number) {
    if (!std::isfinite(number)) {
        return 0;
    }
    constexpr double kTwoToThe32 = 4294967296.0;
    double rest = std::fmod(std::trunc(number), kTwoToThe32);
    if (rest < 0) {
        rest += kTwoToThe32;
    }
    return static_cast<std::uint32_t>(rest);
}

}  // namespace reference
