#include "RandomRequests.h"

namespace property {
namespace {

std::uint16_t RandomType(Draw& draw) {
    constexpr std::uint16_t kTypes[] = {3, 3, 3, 3, 3, 3, 4, 4, 5, 7, 7, 12};
    return draw.Percent(97) ? draw.Pick(kTypes) : static_cast<std::uint16_t>(draw.Below(14));
}

std::uint16_t RandomStatus(Draw& draw) {
    constexpr std::uint16_t kStatuses[] = {0, 0, 0, 0, 0, 3};
    return draw.Percent(92) ? draw.Pick(kStatuses) : static_cast<std::uint16_t>(draw.Below(11));
}

}  // namespace

void FillAdversarial(Draw& draw, RandomCase& random) {
    random.request.Currency("EUR");
    const std::uint32_t number = draw.Between(1, 6);
    const std::uint32_t leastValue = draw.Percent(10) ? 0 : 1;
    for (std::uint32_t index = 0; index < number; ++index) {
        reference::CassetteLine line;
        line.value = draw.Between(leastValue, 12);
        line.count = draw.Between(0, 6);
        line.type = RandomType(draw);
        line.status = RandomStatus(draw);
        line.currency = draw.Percent(98) ? "EUR" : "eur";
        random.request.Add(line);
    }
    random.request.Amount(draw.Between(0, 80));
    random.request.Limit(static_cast<std::uint16_t>(draw.Between(0, 30)));
    random.request.Partial(draw.Below(3));
    random.request.Exponent(draw.Percent(95) ? 0 : draw.Percent(50) ? 1 : -1);
    random.object.cstMinimum = draw.Below(3);
}

}  // namespace property
