#include "UnitOrdering.h"

#include <algorithm>
#include <utility>

#include "Arithmetic.h"
#include "RawBytes.h"

namespace reference {
namespace {

bool AcceptsType(Ordering ordering, std::uint16_t type) {
    if (type == 12) {
        return ordering == Ordering::ByTotalAmountWithoutBelowMinimum;
    }
    return type == 3 || type == 4 || type == 5 || type == 7;
}

bool DropsStatus(Ordering ordering, std::uint16_t status) {
    if (status == 3) {
        return ordering == Ordering::ByDenominationWithoutLow;
    }
    if (status == 9) {
        return ordering == Ordering::ByTotalAmountWithoutBelowMinimum;
    }
    return status >= 4 && status <= 8;
}

bool HoldsEnough(Ordering ordering, const Object& object, std::uint32_t count) {
    switch (ordering) {
    case Ordering::ByDenomination:
    case Ordering::ByTotalAmount:
    case Ordering::ByDenominationWithoutLow:
        return Signed(count) > 0;
    case Ordering::ByDenominationWithoutBelowMinimum:
        return count > object.cstMinimum && Signed(count) > 0;
    case Ordering::ByTotalAmountWithoutBelowMinimum:
        return count > object.cstMinimum;
    }
    return false;
}

bool Keeps(Ordering ordering,
           const Object& object,
           const std::uint8_t* request,
           const LogicalUnit& unit) {
    return AcceptsType(ordering, unit.type) && !DropsStatus(ordering, unit.status) &&
           HoldsEnough(ordering, object, unit.count) && (unit.value != 0 || unit.type == 7) &&
           std::equal(unit.currency.begin(), unit.currency.end(), request + 8);
}

void BringToUnitOfAmount(LogicalUnit& unit, int exponent) {
    if (unit.type == 4 || unit.type == 5 || exponent >= 0) {
        return;
    }
    unit.value = ToU32(static_cast<double>(unit.value) * PowerOfTen(-exponent));
}

bool OutOfOrder(Ordering ordering, bool ascending, const LogicalUnit& a, const LogicalUnit& b) {
    if (ordering == Ordering::ByTotalAmount ||
        ordering == Ordering::ByTotalAmountWithoutBelowMinimum) {
        return a.value * a.count < b.value * b.count;
    }
    return ascending ? a.value > b.value : a.value < b.value;
}

void SortUnits(Ordering ordering, bool ascending, UnitTable& table) {
    const int n = static_cast<int>(table.size());
    for (int i = 0; i < n; ++i) {
        for (int j = n - 1; j > i; --j) {
            LogicalUnit& earlier = table[static_cast<std::size_t>(i)];
            LogicalUnit& later = table[static_cast<std::size_t>(j)];
            if (OutOfOrder(ordering, ascending, earlier, later)) {
                std::swap(earlier, later);
            }
        }
    }
}

void SwapWhenLess(std::vector<Cassette>& cassettes, std::size_t i, std::size_t j) {
    if (cassettes[i].count < cassettes[j].count) {
        std::swap(cassettes[i], cassettes[j]);
    }
}

void SortCassettesScanningDown(std::vector<Cassette>& cassettes) {
    for (std::size_t i = 0; i < cassettes.size(); ++i) {
        for (std::size_t j = cassettes.size() - 1; j > i; --j) {
            SwapWhenLess(cassettes, i, j);
        }
    }
}

void SortCassettesScanningUp(std::vector<Cassette>& cassettes) {
    for (std::size_t i = 0; i < cassettes.size(); ++i) {
        for (std::size_t j = i + 1; j < cassettes.size(); ++j) {
            SwapWhenLess(cassettes, i, j);
        }
    }
}

}  // namespace

UnitTable OrderedUnits(Ordering ordering, const Object& object, const std::uint8_t* request) {
    const bool totalBelowMinimum = ordering == Ordering::ByTotalAmountWithoutBelowMinimum;
    const int exponent = ReadS16(request + 12);
    UnitTable kept;
    for (const LogicalUnit& unit : BuildTable(request)) {
        if (!Keeps(ordering, object, request, unit)) {
            continue;
        }
        kept.push_back(unit);
        if (!totalBelowMinimum) {  // on purpose: this ordering alone leaves the values as they are
            BringToUnitOfAmount(kept.back(), exponent);
        }
    }
    const bool ascending = ordering == Ordering::ByDenomination && ReadU16(request) == 10;
    SortUnits(ordering, ascending, kept);
    for (LogicalUnit& unit : kept) {
        if (totalBelowMinimum) {
            SortCassettesScanningUp(unit.cassettes);
        } else {
            SortCassettesScanningDown(unit.cassettes);
        }
    }
    return kept;
}

}  // namespace reference
