#pragma once

#include <cstdint>

/// Cash-unit types (usType). Source: the XFS CDM numbering.
enum class CashUnitType : std::uint16_t {
    NotApplicable = 1,
    RejectCassette = 2,
    BillCassette = 3,
    CoinCylinder = 4,
    CoinDispenser = 5,
    RetractCassette = 6,
    CouponCassette = 7,
    RecyclingCassette = 12,
};

/// Cash-unit statuses (usStatus). Source: the XFS CDM numbering.
enum class CashUnitStatus : std::uint16_t {
    Ok = 0,
    Full = 1,
    High = 2,
    Low = 3,
    Empty = 4,
    Inoperative = 5,
    Missing = 6,
    NoValue = 7,
    NoReference = 8,
    Manipulated = 9,
};

/// A set of small numbers, one bit each.
using CodeSet = std::uint32_t;

/// The set of one type or status.
template <typename Code>
constexpr CodeSet SetOf(Code code) noexcept {
    return CodeSet{1} << static_cast<unsigned>(code);
}

/// The set of the given types or statuses.
template <typename Code, typename... Codes>
constexpr CodeSet SetOf(Code first, Codes... others) noexcept {
    return SetOf(first) | SetOf(others...);
}

/// The statuses from `first` to `last`, both included.
constexpr CodeSet StatusRange(CashUnitStatus first, CashUnitStatus last) noexcept {
    return (SetOf(last) << 1U) - SetOf(first);
}

/// Whether the set holds a code that a host wrote; codes above 31 are in no set.
constexpr bool Contains(CodeSet set, std::uint16_t code) noexcept {
    return code < 32 && ((set >> code) & 1U) != 0;
}

/// Coins are totalled apart from notes and are never rescaled; everything else counts as a note.
constexpr CodeSet kCoinTypes = SetOf(CashUnitType::CoinCylinder, CashUnitType::CoinDispenser);
