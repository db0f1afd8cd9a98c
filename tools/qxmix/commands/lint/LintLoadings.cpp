#include "LintCase.h"

#include "CashUnitCodes.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint16_t kBill = static_cast<std::uint16_t>(CashUnitType::BillCassette);
constexpr std::uint16_t kCoinDispenser = static_cast<std::uint16_t>(CashUnitType::CoinDispenser);

/// Whether the status of a cassette is one of those that give.
bool IsGiving(const Cassette& cassette) {
    return Contains(SetOf(CashUnitStatus::Ok, CashUnitStatus::Low), cassette.status);
}

/// The unit of a cassette.
const Unit& UnitWith(const LintMix& mix, std::size_t cassette) {
    const std::vector<Unit>& units = mix.units.All();
    return *std::find_if(units.begin(), units.end(), [cassette](const Unit& unit) {
        return std::count(unit.cassettes.begin(), unit.cassettes.end(), cassette) != 0;
    });
}

/// Whether a cassette can be of use to the mix if it is in order.
bool CanServe(const LintCase& lint, const LintMix& mix, std::size_t index) {
    const Cassette& cassette = lint.TheDispenser().cassettes[index];
    const Unit& unit = UnitWith(mix, index);
    // Of an empty one whose items count nevertheless, the count has to be mended first.
    const bool isMiscounted = !unit.dropped && unit.cassettes.front() == index &&
                              cassette.count > 0 && cassette.status > 3;
    return cassette.currency == lint.TheDispenser().currency && cassette.value != 0 &&
           unit.dropped != Dropped::Type && !isMiscounted;
}

/// Items that make a unit serve whatever the minimum.
std::uint32_t FullCount(const LintMix& mix) {
    return mix.Traits().keepsMinimum
               ? std::max(kFullCassette, std::min(mix.units.Minimum(), UINT32_MAX / 4) + 1)
               : kFullCassette;
}

void AddMended(const LintCase& lint, const LintMix& mix, std::vector<Loading>& loadings) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    std::vector<Loading> filled;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        if (!CanServe(lint, mix, index)) {
            continue;
        }
        Loading loading{Loading::Kind::Service, index, cassettes[index]};
        if (loading.cassette.count != 0 && !IsGiving(loading.cassette)) {
            loading.cassette.status = 0;
            loadings.push_back(loading);
        }
        if (loading.cassette.count < FullCount(mix)) {
            loading.kind = Loading::Kind::Fill;
            loading.cassette.status = 0;
            loading.cassette.count = FullCount(mix);
            filled.push_back(loading);
        }
    }
    loadings.insert(loadings.end(), filled.begin(), filled.end());
}

/// New cassettes of every note and coin that can be of use, the largest first.
std::vector<Cassette>
NewCassettes(const Dispenser& dispenser, const LintMix& mix, std::uint32_t most) {
    std::vector<Cassette> cassettes;
    const Money largest = AskedMoney(dispenser, most);
    const auto add = [&](std::uint16_t type, std::uint32_t value, const Money& worth) {
        Cassette cassette;
        cassette.type = type;
        cassette.currency = dispenser.currency;
        cassette.value = value;
        cassette.count = FullCount(mix);
        if (!(worth == Money::Of(value, 0))) {
            cassette.worth = worth;
        }
        cassettes.push_back(cassette);
    };
    for (int power = 6; power >= 0; --power) {
        for (const std::uint32_t digit : {5U, 2U, 1U}) {
            const Money note = Money::Of(digit, power);
            std::uint32_t value = digit;
            for (int tens = 0; tens < power; ++tens) {
                value *= 10;
            }
            if (!(note > largest)) {
                add(kBill, value, note);
            }
        }
    }
    // Below a whole unit there are coins, whose value counts units of the amount.
    std::uint32_t value = 1;
    for (int power = dispenser.exponent; power < 0 && power >= -4; ++power, value *= 10) {
        for (const std::uint32_t digit : {1U, 2U, 5U}) {
            add(kCoinDispenser, digit * value, Money::Of(digit, power));
        }
    }
    return cassettes;
}

/// Whether nothing is lost with a cassette: it shares its unit, or the mix does not use that.
bool IsSpare(const LintCase& lint, const LintMix& mix, std::size_t cassette) {
    if (!lint.TellsOf(lint.TheDispenser().cassettes[cassette])) {
        return false;  // customers ask for its currency, too
    }
    const Unit& unit = UnitWith(mix, cassette);
    return unit.dropped ? unit.dropped != Dropped::Currency : unit.cassettes.size() > 1;
}

}  // namespace

std::vector<Loading> LoadingsToTry(const LintCase& lint, const LintMix& mix, std::uint32_t most) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    std::vector<Loading> loadings;
    AddMended(lint, mix, loadings);
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        if (cassettes[index].position != index) {
            return loadings;
        }
    }
    for (Cassette& cassette : NewCassettes(lint.TheDispenser(), mix, most)) {
        if (cassettes.size() < kMaxCashUnits) {
            cassette.position = static_cast<std::uint16_t>(cassettes.size());
            loadings.push_back({Loading::Kind::Add, cassettes.size(), cassette});
            continue;
        }
        for (std::size_t index = cassettes.size(); index-- > 0;) {
            if (IsSpare(lint, mix, index)) {
                cassette.position = static_cast<std::uint16_t>(index);
                loadings.push_back({Loading::Kind::Replace, index, cassette});
            }
        }
    }
    return loadings;
}

Dispenser WithLoading(const Dispenser& dispenser, const Loading& loading) {
    Dispenser changed = dispenser;
    changed.cassettes.resize(std::max(changed.cassettes.size(), loading.place + 1));
    changed.cassettes[loading.place] = loading.cassette;
    return changed;
}

}  // namespace qxmix
