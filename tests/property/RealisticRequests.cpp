#include "RandomRequests.h"

namespace property {
namespace {

struct CurrencyNotes {
    const char* name;
    std::uint32_t notes[6];  // those that dispensers hold, repeated where there are fewer
};

constexpr CurrencyNotes kCurrencies[] = {
    {"EUR", {5, 10, 20, 50, 100, 200}},         {"EUR", {10, 20, 50, 100, 200, 500}},
    {"CHF", {10, 20, 50, 100, 200, 1000}},      {"USD", {1, 5, 10, 20, 50, 100}},
    {"GBP", {5, 10, 20, 50, 10, 20}},           {"SEK", {20, 50, 100, 200, 500, 1000}},
    {"CZK", {100, 200, 500, 1000, 2000, 5000}},
};

constexpr std::uint32_t kCoins[] = {1, 2, 5, 10, 20, 50};
constexpr std::uint32_t kCoupons[] = {0, 1, 5, 10, 25};
constexpr std::uint16_t kLimits[] = {20, 25, 40, 40, 40, 60, 60, 100, 200, 1000};

std::uint16_t RandomType(Draw& draw) {
    const std::uint32_t share = draw.Below(100);
    if (share < 88) {
        return 3;
    }
    if (share < 92) {
        return 4;
    }
    if (share < 94) {
        return 5;
    }
    if (share < 96) {
        return 7;
    }
    constexpr std::uint16_t kOthers[] = {1, 2, 6, 12};
    return draw.Pick(kOthers);
}

std::uint16_t RandomStatus(Draw& draw) {
    const std::uint32_t share = draw.Below(100);
    if (share < 72) {
        return 0;
    }
    if (share < 84) {
        return 3;
    }
    if (share < 88) {
        return 1;
    }
    if (share < 92) {
        return 2;
    }
    return static_cast<std::uint16_t>(draw.Between(4, 9));
}

std::uint32_t RandomCount(Draw& draw, std::uint16_t status) {
    switch (status) {
    case 0:
        return draw.Percent(10) ? draw.Below(60) : draw.Between(1, 3000);
    case 1:
    case 2:
        return draw.Between(1800, 3000);
    case 3:
        return draw.Between(1, 150);
    case 4:
        return draw.Percent(80) ? 0 : draw.Below(20);
    default:
        return draw.Between(0, 3000);
    }
}

reference::CassetteLine RandomCassette(Draw& draw, const CurrencyNotes& currency) {
    reference::CassetteLine line;
    line.type = RandomType(draw);
    line.status = RandomStatus(draw);
    line.count = RandomCount(draw, line.status);
    line.currency = draw.Percent(96) ? currency.name : "XTS";
    if (line.type == 4 || line.type == 5) {
        line.value = draw.Pick(kCoins);
    } else if (line.type == 7) {
        line.value = draw.Pick(kCoupons);
    } else {
        line.value = draw.Pick(currency.notes);
    }
    return line;
}

/// Adds one to six cassettes and returns an amount that a few of their notes make.
std::uint32_t AddCassettes(Draw& draw, const CurrencyNotes& currency, RandomCase& random) {
    const std::uint32_t number = draw.Percent(80) ? draw.Between(3, 6) : draw.Between(1, 3);
    constexpr std::uint32_t kMostNotes[] = {2, 3, 3, 5, 8, 25};
    const std::uint32_t mostNotes = draw.Pick(kMostNotes);
    std::uint32_t payable = 0;
    reference::CassetteLine line;
    for (std::uint32_t index = 0; index < number; ++index) {
        const reference::CassetteLine before = line;
        line = RandomCassette(draw, currency);
        if (index > 0 && draw.Percent(25)) {  // several cassettes of one note
            line.value = before.value;
            line.type = before.type;
            line.currency = before.currency;
        }
        random.request.Add(line);
        payable += line.value * draw.Between(0, mostNotes);
    }
    return payable;
}

std::uint32_t RandomAmount(Draw& draw, std::uint32_t payable) {
    const std::uint32_t share = draw.Below(100);
    if (share < 75) {
        return payable;
    }
    if (share < 85) {
        return payable + draw.Between(1, 30);
    }
    if (share < 92) {
        return 10 * draw.Between(0, 150);
    }
    if (share < 97) {
        return draw.Between(0, 500);
    }
    return draw.Between(1000, 3000000);  // mostly beyond what the units hold, or limit
}

int RandomExponent(Draw& draw) {
    if (draw.Percent(70)) {
        return 0;
    }
    constexpr int kExponents[] = {-2, -2, -2, -2, -2, -3, -1, 1, 1, 2, 3};
    return draw.Pick(kExponents);
}

/// The same money counted in units of 10 to the power of the exponent.
std::uint32_t InUnitsOf(int exponent, std::uint32_t amount) {
    for (; exponent < 0; ++exponent) {
        amount *= 10;
    }
    for (; exponent > 0; --exponent) {
        amount /= 10;
    }
    return amount;
}

}  // namespace

void FillRealistic(Draw& draw, RandomCase& random) {
    const CurrencyNotes& currency = draw.Pick(kCurrencies);
    random.request.Currency(currency.name);
    const std::uint32_t payable = AddCassettes(draw, currency, random);
    const std::uint32_t amount = RandomAmount(draw, payable);
    const int exponent = RandomExponent(draw);
    random.request.Exponent(exponent).Amount(InUnitsOf(exponent, amount));
    random.request.Limit(draw.Pick(kLimits));
    random.request.Partial(draw.Percent(65) ? 0 : draw.Percent(90) ? 1 : 2);
    random.object.cstMinimum = draw.Percent(70) ? 100 : draw.Below(400);
}

}  // namespace property
