#pragma once

#include "CashUnitCodes.h"
#include "ExchangeSort.h"

/// What a unit must hold to serve. "Positive" reads the count as a signed number.
enum class CountTest {
    Positive,
    AboveMinimumAndPositive,  ///< above ulCstMinimum4Mix6 first, and then positive
    AboveMinimum,             ///< above ulCstMinimum4Mix6 alone
};

/// What units are ordered by. The total is value times count, wrapping at 32 bits.
enum class SortKey {
    ValueDescending,
    ValueAscendingInMix10,  ///< descending in every other mix
    TotalDescending,
};

/// One ordering: which units it keeps, how it brings values to the unit of the amount, its order.
struct OrderingRule {
    const char* tracePrefix;
    CodeSet types;            ///< types that serve
    CodeSet droppedStatuses;  ///< statuses that do not
    CountTest countTest;
    bool rescales;  ///< multiplies the values of notes by the power of a negative exponent
    SortKey sortKey;
    Scan cassetteScan;  ///< for sorting the cassettes of a unit, fullest first
};

constexpr CodeSet kCashTypes =
    SetOf(CashUnitType::BillCassette, CashUnitType::CouponCassette) | kCoinTypes;
constexpr CodeSet kAlsoRecycling = kCashTypes | SetOf(CashUnitType::RecyclingCassette);

constexpr CodeSet kUnusable = StatusRange(CashUnitStatus::Empty, CashUnitStatus::NoReference);
constexpr CodeSet kLowToo = kUnusable | SetOf(CashUnitStatus::Low);
constexpr CodeSet kManipulatedToo = kUnusable | SetOf(CashUnitStatus::Manipulated);

// clang-format off
//                           trace prefix, types, dropped statuses, count test, rescales, sort key, cassette scan
constexpr OrderingRule kByDenomination = {
    "SortLCUByDenomination() : ",
    kCashTypes, kUnusable, CountTest::Positive, true, SortKey::ValueAscendingInMix10, Scan::Downwards};
constexpr OrderingRule kByTotalAmount = {
    "SortLCUByTotalAmount() : ",
    kCashTypes, kUnusable, CountTest::Positive, true, SortKey::TotalDescending, Scan::Downwards};
constexpr OrderingRule kByDenominationWithoutLOWCST = {
    "SortLCUByDenominationWithoutLOWCST() : ",
    kCashTypes, kLowToo, CountTest::Positive, true, SortKey::ValueDescending, Scan::Downwards};
constexpr OrderingRule kByDenomWithoutCSTBelowCSTMin = {
    "SortLCUByDenomWithoutCSTBelowCSTMin() : ",
    kCashTypes, kUnusable, CountTest::AboveMinimumAndPositive, true, SortKey::ValueDescending, Scan::Downwards};
constexpr OrderingRule kByTotalAmountWithoutCSTBelowCSTMin = {
    "CMixAlgorithm::SortLCUByTotalAmountWithoutCSTBelowCSTMin() ",
    kAlsoRecycling, kManipulatedToo, CountTest::AboveMinimum, false, SortKey::TotalDescending, Scan::Upwards};
// clang-format on
