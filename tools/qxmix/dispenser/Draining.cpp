#include "Draining.h"

#include "CashUnitCodes.h"

namespace qxmix {

namespace {

constexpr CodeSet kFollowsCount = SetOf(CashUnitStatus::Ok, CashUnitStatus::Low);

}  // namespace

void TakeItems(Dispenser& dispenser, const CassetteItems& items) {
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        Cassette& cassette = dispenser.cassettes[index];
        if (items[index] == 0) {
            continue;
        }
        cassette.count -= items[index];
        if (Contains(kFollowsCount, cassette.status)) {
            cassette.status = StatusByCount(cassette);
        }
    }
}

std::uint16_t StatusByCount(const Cassette& cassette) {
    const CashUnitStatus status = IsEmpty(cassette)                         ? CashUnitStatus::Empty
                                  : cassette.count <= cassette.lowThreshold ? CashUnitStatus::Low
                                                                            : CashUnitStatus::Ok;
    return static_cast<std::uint16_t>(status);
}

bool IsEmpty(const Cassette& cassette) {
    return cassette.count <= cassette.emptyThreshold;
}

Money ValueHeld(const Dispenser& dispenser) {
    Money held;
    for (const Cassette& cassette : dispenser.cassettes) {
        if (cassette.currency == dispenser.currency) {
            held += cassette.Worth().Times(cassette.count);
        }
    }
    return held;
}

Money WorthOf(const Dispenser& dispenser, const CassetteItems& items) {
    Money worth;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        if (items[index] != 0) {
            worth += dispenser.cassettes[index].Worth().Times(items[index]);
        }
    }
    return worth;
}

}  // namespace qxmix
