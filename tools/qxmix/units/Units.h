#pragma once

#include "Records.h"
#include "dispenser/Dispenser.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Why a mix passes a unit over.
enum class Dropped { Type, Status, Minimum, Count, Value, Currency };

/// Cassettes that the module takes for one.
struct Unit {
    std::vector<std::size_t> cassettes;  ///< places in the dispenser, in its order
    std::uint16_t type = 0;
    std::uint16_t status = 0;        ///< what it keeps of its cassettes' statuses
    std::uint32_t value = 0;         ///< as the cassettes have it
    std::uint32_t counted = 0;       ///< items that count as available
    std::optional<Dropped> dropped;  ///< none: the mix draws from it
    std::size_t order = 0;           ///< kept: its place in the mix's order, from 0
    std::uint32_t searched = 0;      ///< kept: its value in the unit of the amount
};

/// What the module's own operations make of a request before they search.
class Units {
public:
    /// @param minimum  most items of a unit that mixes with a minimum pass over.
    Units(const MixRequest& request, std::uint32_t minimum);

    /// All of them, in the order of their first cassettes.
    const std::vector<Unit>& All() const { return units_; }

    /// Those that the mix draws from, in its order.
    std::vector<Unit> Kept() const;

    /// Most items of a unit that mixes with a minimum pass over.
    std::uint32_t Minimum() const { return minimum_; }

    /// The amount as the mix searches for it: a positive exponent is in it.
    std::uint32_t Amount() const { return amount_; }

    /// Another amount, as the mix searches for it.
    std::uint32_t SearchedAmount(std::uint32_t asked) const;

    /// The value that the amount must reach; none when the mix does not ask, or keeps no unit.
    std::optional<std::uint32_t> ValueToReach() const;

    /// Whether a combination passes the module's check of the dispense limit.
    ///
    /// @param items  of each unit kept, in the mix's order.
    bool PassesLimit(const std::vector<std::uint32_t>& items) const;

    /// The same units, each as one cassette that is ok and gives whatever is taken from it: its
    /// answer tells what the search took of each. Entry k is unit k of those kept, in the order of
    /// All().
    MixRequest OneCassettePerUnit() const;

private:
    void TellDrops();

    MixRequest request_;
    std::uint32_t minimum_;
    std::uint32_t amount_;
    LcuTable kept_;
    std::vector<Unit> units_;
};

/// A value or a total of an amount's unit as money: 7050 under exponent -2 is 70.50.
Money SearchedMoney(const Dispenser& dispenser, std::uint32_t value);

}  // namespace qxmix
