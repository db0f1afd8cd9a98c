#include "RandomRequests.h"

namespace property {
namespace {

constexpr std::uint32_t kEdges[] = {0,          1,          2,           3,          0xFFFF,
                                    0x10000,    0x10001,    0xFFFFFF,    0x1000000,  0x1000001,
                                    0x3FFFFFFF, 0x40000000, 0x55555555,  0x7FFFFFFF, 0x80000000,
                                    0x80000001, 0xAAAAAAAA, 0xC0000000U, 0xFFFFFFFE, 0xFFFFFFFF};

/// A number on or near an edge of 16, 24, 31 or 32 bits; it may wrap past one.
std::uint32_t NearEdge(Draw& draw) {
    const std::uint32_t edge = draw.Pick(kEdges);
    const std::uint32_t above = draw.Below(8);
    return edge + above - 3;
}

std::uint32_t RandomValue(Draw& draw) {
    const std::uint32_t share = draw.Below(100);
    if (share < 45) {
        return NearEdge(draw);
    }
    if (share < 75) {
        return draw.Between(0x4000000, 0xFFFFFFFF);
    }
    return draw.Between(1, 1000);
}

std::uint32_t RandomCount(Draw& draw) {
    const std::uint32_t share = draw.Below(100);
    if (share < 40) {
        return NearEdge(draw);
    }
    if (share < 60) {
        return draw.U32() >> draw.Below(32);
    }
    return draw.Between(1, 300);
}

std::uint32_t RandomAmount(Draw& draw) {
    const std::uint32_t share = draw.Below(100);
    if (share < 60) {
        return NearEdge(draw);
    }
    if (share < 90) {
        return draw.U32();
    }
    return draw.Between(0, 5000);
}

std::uint16_t RandomType(Draw& draw) {
    constexpr std::uint16_t kTypes[] = {3, 3, 3, 4, 5, 7, 12};
    return draw.Percent(93) ? draw.Pick(kTypes) : static_cast<std::uint16_t>(draw.U32());
}

std::uint16_t RandomStatus(Draw& draw) {
    if (draw.Percent(80)) {
        return draw.Percent(80) ? 0 : 3;
    }
    return static_cast<std::uint16_t>(draw.Percent(80) ? draw.Below(11) : draw.U32());
}

int RandomExponent(Draw& draw) {
    const std::uint32_t share = draw.Below(100);
    if (share < 60) {
        return 0;
    }
    if (share < 80) {
        return static_cast<int>(draw.Below(31)) - 15;
    }
    constexpr int kExponents[] = {22, 23, 25, 26, 27, 299, 308, 309, 32767};
    const int exponent = draw.Pick(kExponents);
    if (share < 95) {
        return draw.Percent(50) ? exponent : -exponent;
    }
    return share < 97 ? -32768 : static_cast<std::int16_t>(draw.U32());
}

/// Positions out of order, shared or beyond the result, and a wrong number of cassettes.
void BreakPromises(Draw& draw, std::uint32_t number, RandomCase& random) {
    for (std::uint32_t index = 0; index < number; ++index) {
        if (draw.Percent(30)) {
            const std::uint32_t position = draw.Percent(80) ? draw.Below(8) : draw.U32();
            random.request.Position(index, static_cast<std::uint16_t>(position));
        }
    }
    if (draw.Percent(20)) {
        random.request.CassetteNumber(
            static_cast<std::uint16_t>(draw.Percent(50) ? draw.Below(9) : draw.U32()));
    }
}

/// Lets the amount be made of a few notes of what has been added, perhaps wrapped.
std::uint32_t AddCassettes(Draw& draw, std::uint32_t number, RandomCase& random) {
    std::uint32_t payable = 0;
    reference::CassetteLine line;
    for (std::uint32_t index = 0; index < number; ++index) {
        const std::uint32_t valueBefore = line.value;
        line.value = RandomValue(draw);
        line.count = RandomCount(draw);
        line.type = RandomType(draw);
        line.status = RandomStatus(draw);
        line.currency = draw.Percent(97) ? "EUR" : "EUX";
        if (index > 0 && draw.Percent(30)) {
            line.value = valueBefore;
        }
        random.request.Add(line);
        payable += line.value * draw.Below(4);
    }
    return payable;
}

}  // namespace

void FillExtreme(Draw& draw, RandomCase& random) {
    random.request.Currency("EUR");
    const std::uint32_t number = draw.Percent(70) ? draw.Between(1, 4) : draw.Between(0, 6);
    const std::uint32_t payable = AddCassettes(draw, number, random);
    random.request.Amount(draw.Percent(65) ? payable : RandomAmount(draw));
    random.request.Exponent(RandomExponent(draw));
    random.request.Limit(static_cast<std::uint16_t>(draw.Percent(50) ? 65535 : NearEdge(draw)));
    constexpr std::uint32_t kPartials[] = {0, 0, 1, 1, 1, 2, 0x10001, 0x80000001, 0xFFFFFFFF};
    random.request.Partial(draw.Pick(kPartials));
    if (draw.Percent(30)) {
        BreakPromises(draw, number, random);
    }
    random.object.cstMinimum = draw.Percent(70) ? draw.Below(10) : NearEdge(draw);
    if (draw.Percent(5)) {
        random.object.first = static_cast<std::uint16_t>(draw.Below(12));
        random.object.last = static_cast<std::uint16_t>(draw.Percent(50) ? draw.Below(12) : 65535);
    }
}

}  // namespace property
