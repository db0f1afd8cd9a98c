#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

namespace qxmix {

/// Draws numbers from a generator of all 64-bit numbers, and the same ones everywhere: the
/// distributions of the standard library differ from one library to the next.
template <typename Generator>
class Lots {
public:
    explicit Lots(Generator generator) : generator_(std::move(generator)) {}

    /// A number below n, which is not 0: each with the same chance.
    std::uint64_t Below(std::uint64_t n) {
        // The uppermost 2^64 mod n numbers would favour the small results.
        const std::uint64_t surplus = (UINT64_MAX % n + 1) % n;
        std::uint64_t drawn = generator_();
        while (drawn > UINT64_MAX - surplus) {
            drawn = generator_();
        }
        return drawn % n;
    }

    /// A place in a list of weights, which are not all 0.
    std::size_t Pick(const std::vector<std::uint64_t>& weights) {
        std::uint64_t left =
            Below(std::accumulate(weights.begin(), weights.end(), std::uint64_t{0}));
        std::size_t place = 0;
        while (left >= weights[place]) {
            left -= weights[place++];
        }
        return place;
    }

private:
    Generator generator_;
};

}  // namespace qxmix
