#pragma once

#include "Money.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// One cassette of a dispenser.
struct Cassette {
    std::string label;  ///< shown instead of the position; empty: none
    std::uint16_t position = 0;
    std::uint16_t type = 3;
    std::uint16_t status = 0;
    std::string currency;  ///< three characters
    std::uint32_t value = 0;
    std::uint32_t count = 0;
    std::optional<Money> worth;  ///< what one item is really worth; without it, its value
    std::uint32_t lowThreshold = 0;
    std::uint32_t emptyThreshold = 0;
    std::optional<std::uint32_t> capacity;  ///< most items; none: nobody said
    std::optional<std::uint32_t> bundle;    ///< items that are loaded together; none: nobody said

    Money Worth() const { return worth.value_or(Money::Of(value, 0)); }
};

/// What loading a dispenser costs, in its currency.
struct Costs {
    Money interestPerYear;  ///< percent of what is loaded
    Money refill;           ///< one visit
    Money bundle;           ///< each bundle loaded
};

/// What customers can ask, in the unit of an amount.
struct Amounts {
    std::optional<std::uint32_t> min;
    std::optional<std::uint32_t> max;
    std::optional<std::uint32_t> step;
    std::vector<std::uint32_t> buttons;
};

/// A registry value that the module reads, as its type number and raw bytes.
struct StoredValue {
    std::string name;  ///< TraceLevel or CSTMinimum4Mix6
    std::uint32_t type = 0;
    std::string bytes;
};

/// A dispenser and how it is asked: the content of a dispenser file.
struct Dispenser {
    std::string name;      ///< empty: none
    std::string currency;  ///< three characters
    std::int16_t exponent = 0;
    bool partial = false;
    std::uint16_t maxDispenseItems = 40;
    std::optional<std::uint16_t> mix;        ///< 1 to 10
    std::map<std::string, Amounts> amounts;  ///< by currency, of those that anybody told of
    bool tellsByCurrency = false;            ///< the file has them so even if it has one
    std::vector<Cassette> cassettes;  ///< 1 to 6; none only for a captured request without any
    std::vector<StoredValue> registry;
    std::optional<Costs> costs;

    /// Ids of findings that are wanted as they are, each with the reason.
    std::map<std::string, std::string> accepted;

    std::uint16_t MixOrDefault() const { return mix.value_or(1); }

    /// What was told of the amounts of `currency`; nothing else is filled in.
    const Amounts& AmountsTold() const;

    /// Whether what a file has of `amounts` stands there under currencies.
    bool HasAmountsByCurrency() const;
};

/// A request has places for so many.
constexpr std::size_t kMostCassettes = 6;

/// The dispense limit that refuses least: more items than the field can hold are over any.
constexpr std::uint16_t kNoLimit = UINT16_MAX;

constexpr std::uint16_t kFirstMix = 1;
constexpr std::uint16_t kLastMix = 10;

/// What stands for a cassette in every table: its label, or else its place in the dispenser.
std::string CassetteLabel(const Dispenser& dispenser, std::size_t index);

/// An amount as it is asked, as money: `amount` times 10 to the power of the exponent.
Money AskedMoney(const Dispenser& dispenser, std::uint32_t amount);

/// Decimals of an amount of this dispenser: those behind the unit in which it is asked.
unsigned AmountDecimals(const Dispenser& dispenser);

/// The amounts of the dispenser's currency with every default filled in: min and step the greatest
/// common divisor of the values of that currency in the unit of an amount, max ten times the
/// largest.
Amounts AmountsWithDefaults(const Dispenser& dispenser);

/// The currencies in which customers can ask: the dispenser's own, those of the cassettes that some
/// mix may draw from, and those of its amounts.
std::vector<std::string> CurrenciesOf(const Dispenser& dispenser);

/// The same dispenser where amounts are asked in another of its currencies.
Dispenser InCurrency(Dispenser dispenser, const std::string& currency);

/// The field of the file that is about the amounts of the dispenser's currency: "/amounts/USD".
std::string AmountsPointer(const Dispenser& dispenser);

}  // namespace qxmix
