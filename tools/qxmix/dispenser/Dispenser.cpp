#include "Dispenser.h"

#include "OrderingRules.h"

#include <algorithm>
#include <numeric>

namespace qxmix {

namespace {

constexpr std::uint64_t kMaxAmount = 0xFFFFFFFFU;

bool IsCoin(std::uint16_t type) {
    return type == 4 || type == 5;
}

/// The value of an item in the unit of an amount, held to the largest amount. Coins keep theirs.
std::uint64_t ValueInAmountUnits(const Cassette& cassette, int exponent) {
    std::uint64_t value = cassette.value;
    if (IsCoin(cassette.type) || value == 0) {
        return value;
    }
    for (int power = exponent; power < 0 && value < kMaxAmount; ++power) {
        value = std::min(value * 10, kMaxAmount);
    }
    return value;
}

}  // namespace

std::string CassetteLabel(const Dispenser& dispenser, std::size_t index) {
    const std::string& label = dispenser.cassettes[index].label;
    return label.empty() ? std::to_string(index) : label;
}

Money AskedMoney(const Dispenser& dispenser, std::uint32_t amount) {
    return Money::Of(amount, dispenser.exponent);
}

unsigned AmountDecimals(const Dispenser& dispenser) {
    return dispenser.exponent < 0 ? static_cast<unsigned>(-dispenser.exponent) : 0;
}

Amounts AmountsWithDefaults(const Dispenser& dispenser) {
    std::uint64_t divisor = 0;
    std::uint64_t largest = 0;
    for (const Cassette& cassette : dispenser.cassettes) {
        if (cassette.currency == dispenser.currency) {
            const std::uint64_t value = ValueInAmountUnits(cassette, dispenser.exponent);
            divisor = std::gcd(divisor, value);
            largest = std::max(largest, value);
        }
    }
    std::uint64_t most = largest * 10;
    for (int power = 0; power < dispenser.exponent && most != 0; ++power) {
        divisor /= 10;
        most /= 10;
    }
    divisor = std::max<std::uint64_t>(divisor, 1);
    most = std::clamp<std::uint64_t>(most, 1, kMaxAmount);

    Amounts amounts = dispenser.AmountsTold();
    amounts.min = amounts.min.value_or(static_cast<std::uint32_t>(divisor));
    amounts.step = amounts.step.value_or(static_cast<std::uint32_t>(divisor));
    amounts.max = amounts.max.value_or(static_cast<std::uint32_t>(most));
    return amounts;
}

const Amounts& Dispenser::AmountsTold() const {
    static const Amounts none;
    const auto told = amounts.find(currency);
    return told == amounts.end() ? none : told->second;
}

bool Dispenser::HasAmountsByCurrency() const {
    return tellsByCurrency || amounts.size() > amounts.count(currency);
}

std::vector<std::string> CurrenciesOf(const Dispenser& dispenser) {
    std::vector<std::string> currencies = {dispenser.currency};
    const auto add = [&currencies](const std::string& currency) {
        if (std::count(currencies.begin(), currencies.end(), currency) == 0) {
            currencies.push_back(currency);
        }
    };
    for (const Cassette& cassette : dispenser.cassettes) {
        if (Contains(kAlsoRecycling, cassette.type)) {
            add(cassette.currency);
        }
    }
    for (const auto& [currency, amounts] : dispenser.amounts) {
        add(currency);
    }
    return currencies;
}

Dispenser InCurrency(Dispenser dispenser, const std::string& currency) {
    dispenser.tellsByCurrency = dispenser.tellsByCurrency || currency != dispenser.currency;
    dispenser.currency = currency;
    return dispenser;
}

std::string AmountsPointer(const Dispenser& dispenser) {
    return dispenser.HasAmountsByCurrency() ? "/amounts/" + dispenser.currency : "/amounts";
}

}  // namespace qxmix
