#include "RandomRequests.h"

namespace property {
namespace {

/// Two kinds of which one is taken by the ten thousand: the score of their counts wraps.
void FillManyItems(Draw& draw, RandomCase& random) {
    const std::uint32_t small = draw.Between(1, 3);
    const std::uint32_t amount = small * draw.Between(40000, 65000);
    random.request.Coin(small, draw.Between(40000, 140000));
    const std::uint32_t value = draw.Between(amount / 60, amount / 2);
    random.request.Bill(value, draw.Between(1, 40000));
    if (draw.Percent(50)) {
        const std::uint32_t third = draw.Between(amount / 8, amount);
        random.request.Bill(third, draw.Between(1, 40000));
    }
    random.request.Amount(amount).Limit(static_cast<std::uint16_t>(draw.Between(40000, 65535)));
}

/// A few items of units that hold so many that the products of their counts wrap.
void FillFullUnits(Draw& draw, RandomCase& random) {
    constexpr std::uint32_t kMost[] = {600, 3000, 70000, 20000000};
    const std::uint32_t most = draw.Pick(kMost);
    const bool powersOfTwo = draw.Percent(25);  // scores that wrap to exactly 2^31 or 0
    const std::uint32_t number = draw.Between(2, 5);
    std::uint32_t amount = 0;
    for (std::uint32_t index = 0; index < number; ++index) {
        const std::uint32_t value = draw.Between(1, powersOfTwo ? 6 : 30);
        const std::uint32_t count =
            powersOfTwo ? 1U << draw.Between(27, 30) : draw.Between(most / 4, most);
        if (draw.Percent(85)) {
            random.request.Bill(value, count);
        } else {
            random.request.Coin(value, count);
        }
        amount += value * draw.Below(6);
    }
    random.request.Amount(amount).Limit(static_cast<std::uint16_t>(draw.Between(5, 60)));
}

/// Nearly all items of some units and hardly any of the others: no share wraps, but the differences
/// of the shares around the table can add up to more than 2^32.
void FillUnevenShares(Draw& draw, RandomCase& random) {
    const std::uint32_t smallest = draw.Between(1, 3);
    const std::uint32_t smallestCount = draw.Between(30000, 60000);
    const std::uint32_t value = smallest * smallestCount / draw.Between(1, 4);
    std::uint32_t amount = 0;
    const auto add = [&](std::uint32_t worth, std::uint32_t fewest, std::uint32_t most) {
        const std::uint32_t count = draw.Between(fewest, most);
        random.request.Bill(worth, count);
        const std::uint32_t few = draw.Below(count / 10 + 1);
        amount += worth * (draw.Percent(50) ? few : count - few);
    };
    add(smallest, smallestCount, smallestCount);
    add(value, 100, 400);
    add(draw.Between(value + 1, 2 * value), 4, 12);
    add(draw.Between(2 * value + 1, 3 * value), 4, 12);
    if (draw.Percent(30)) {
        add(draw.Between(3 * value + 1, 4 * value), 1, 3);
    }
    random.request.Amount(amount).Limit(65535);
}

}  // namespace

void FillWrapping(Draw& draw, RandomCase& random) {
    constexpr std::uint16_t kScoringMixes[] = {2, 3, 7, 8};
    if (draw.Percent(80)) {
        random.request.Mix(draw.Pick(kScoringMixes));
    }
    random.request.Currency("EUR").Exponent(0).Partial(draw.Below(3));
    if (draw.Percent(30)) {
        FillManyItems(draw, random);
    } else if (draw.Percent(80)) {
        FillFullUnits(draw, random);
    } else {
        FillUnevenShares(draw, random);
    }
    random.object.cstMinimum = draw.Below(2);
}

}  // namespace property
