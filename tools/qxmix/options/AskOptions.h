#pragma once

#include "Parser.h"
#include "dispenser/Dispenser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// The options of the commands that ask a dispenser: they win over its file.
struct AskOptions {
    std::optional<std::string> currency;
    std::optional<std::int16_t> exponent;
    std::optional<std::uint16_t> limit;
    std::optional<bool> partial;
    std::string mix;    ///< --mix; empty: not given
    std::string mixes;  ///< --mixes; empty: not given

    void ApplyTo(Dispenser& dispenser) const;

    bool AnyGiven() const;

    /// Whether the answer is one for each of a list of mixes, however long the list.
    bool AsksList() const { return mix == "all" || !mixes.empty(); }

    /// The mixes to ask; without an option the dispenser's own.
    ///
    /// @throw InputError
    std::vector<std::uint16_t> Mixes(const Dispenser& dispenser) const;

    /// The mixes to ask; without an option all.
    ///
    /// @throw InputError
    std::vector<std::uint16_t> MixesOrAll(const Dispenser& dispenser) const;
};

void AddAskOptions(CLI::App& command, AskOptions& options);

/// Says of --currency that without it a dispenser is asked in all of its currencies.
void DescribeCurrencyOfEach(CLI::App& command);

/// Reads an amount in the unit of this dispenser's amounts.
///
/// @throw InputError that says what to write instead when the text is an amount of money.
std::uint32_t
ParseAmount(const std::string& text, const std::string& option, const Dispenser& dispenser);

}  // namespace qxmix
