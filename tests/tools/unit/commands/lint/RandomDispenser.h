#pragma once

#include "dispenser/Dispenser.h"
#include "dispenser/StoredValues.h"

#include <random>
#include <vector>

namespace qxmix {

/// Draws dispensers as careless as people's: few are all right, and each has little that is wrong.
class RandomDispensers {
public:
    explicit RandomDispensers(std::uint64_t seed) : random_(seed) {}

    Dispenser Next() {
        Dispenser dispenser;
        dispenser.currency = "EUR";
        dispenser.exponent = Pick<std::int16_t>({0, 0, 0, 0, 0, 0, 1, 2, -1, -2});
        dispenser.partial = OneIn(8);
        dispenser.maxDispenseItems = Pick<std::uint16_t>({1, 3, 5, 10, 40, 40, 40, 20000});
        const std::size_t count = 1 + Below(6);
        for (std::size_t index = 0; index < count; ++index) {
            dispenser.cassettes.push_back(NextCassette(dispenser, index));
        }
        if (OneIn(8)) {
            std::swap(dispenser.cassettes.front().position, dispenser.cassettes.back().position);
        }
        if (OneIn(10)) {
            dispenser.cassettes.back().position = static_cast<std::uint16_t>(Below(8));
        }
        if (OneIn(3)) {
            dispenser.registry.push_back(
                {kCstMinimum4Mix6, kRegSz, TextBytes(Pick<const char*>({"0", "5", "50", "-5"}))});
        }
        return dispenser;
    }

    std::size_t Below(std::size_t bound) { return random_() % bound; }
    bool OneIn(std::size_t many) { return Below(many) == 0; }

    template <typename Value>
    Value Pick(const std::vector<Value>& values) {
        return values[Below(values.size())];
    }

private:
    Cassette NextCassette(const Dispenser& dispenser, std::size_t index) {
        Cassette cassette;
        cassette.position = static_cast<std::uint16_t>(index);
        cassette.currency = OneIn(10) ? "USD" : "EUR";
        cassette.value = Pick<std::uint32_t>({200, 100, 100, 50, 50, 20, 20, 10, 10, 5, 30, 0});
        cassette.count = Pick<std::uint32_t>({0, 1, 2, 7, 40, 60, 300, 2000});
        cassette.count = OneIn(40) ? 2147483653U : cassette.count;
        cassette.status =
            OneIn(3) ? Pick<std::uint16_t>({1, 2, 3, 3, 4, 5, 6, 7, 8, 9, 11}) : std::uint16_t{0};
        cassette.type = OneIn(5) ? Pick<std::uint16_t>({2, 4, 5, 5, 7, 12}) : std::uint16_t{3};
        const bool isCoin = cassette.type == 4 || cassette.type == 5;
        if (isCoin && dispenser.exponent < 0 && !OneIn(4)) {
            cassette.worth = Money::Of(cassette.value, dispenser.exponent);
        }
        return cassette;
    }

    std::mt19937_64 random_;
};

}  // namespace qxmix
