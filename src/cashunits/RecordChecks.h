#pragma once

/// Every size and offset of the records, checked when compiled.

#include "Records.h"

#include <cstddef>
#include <type_traits>

#define EXPECT_SIZE(Record, size)                                                                  \
    static_assert(sizeof(Record) == (size) && alignof(Record) == 1);                               \
    static_assert(std::is_trivially_copyable_v<Record> && std::is_standard_layout_v<Record>)
#define EXPECT_FIELD(Record, field, offset, width)                                                 \
    static_assert(offsetof(Record, field) == (offset) && sizeof(Record::field) == (width))

EXPECT_SIZE(PhysicalCashUnit, 172);
EXPECT_FIELD(PhysicalCashUnit, usPosition, 0, 2);
EXPECT_FIELD(PhysicalCashUnit, acHost2, 2, 128);
EXPECT_FIELD(PhysicalCashUnit, usType, 130, 2);
EXPECT_FIELD(PhysicalCashUnit, acHost132, 132, 5);
EXPECT_FIELD(PhysicalCashUnit, cCurrencyID, 137, 3);
EXPECT_FIELD(PhysicalCashUnit, acHost140, 140, 8);
EXPECT_FIELD(PhysicalCashUnit, ulValues, 148, 4);
EXPECT_FIELD(PhysicalCashUnit, ulCount, 152, 4);
EXPECT_FIELD(PhysicalCashUnit, acHost156, 156, 8);
EXPECT_FIELD(PhysicalCashUnit, usStatus, 164, 2);
EXPECT_FIELD(PhysicalCashUnit, acHost166, 166, 6);

EXPECT_SIZE(MixRequest, 1060);
EXPECT_FIELD(MixRequest, usMixNumber, 0, 2);
EXPECT_FIELD(MixRequest, usMaxDispenseItems, 2, 2);
EXPECT_FIELD(MixRequest, bAllowPartial, 4, 4);
EXPECT_FIELD(MixRequest, cCurrencyID, 8, 3);
EXPECT_FIELD(MixRequest, acPad11, 11, 1);
EXPECT_FIELD(MixRequest, sExponent, 12, 2);
EXPECT_FIELD(MixRequest, acPad14, 14, 2);
EXPECT_FIELD(MixRequest, ulAmount, 16, 4);
EXPECT_FIELD(MixRequest, usNumPhysicalCUs, 20, 2);
EXPECT_FIELD(MixRequest, acPad22, 22, 2);
EXPECT_FIELD(MixRequest, aPhysicalCUs, 24, 1032);
EXPECT_FIELD(MixRequest, ulRemainder, 1056, 4);

EXPECT_SIZE(LogicalCashUnit, 1052);
EXPECT_FIELD(LogicalCashUnit, usNumber, 0, 2);
EXPECT_FIELD(LogicalCashUnit, usType, 2, 2);
EXPECT_FIELD(LogicalCashUnit, cCurrencyID, 4, 3);
EXPECT_FIELD(LogicalCashUnit, acPad7, 7, 1);
EXPECT_FIELD(LogicalCashUnit, ulValues, 8, 4);
EXPECT_FIELD(LogicalCashUnit, ulCount, 12, 4);
EXPECT_FIELD(LogicalCashUnit, usStatus, 16, 2);
EXPECT_FIELD(LogicalCashUnit, usNumPhysicalCUs, 18, 2);
EXPECT_FIELD(LogicalCashUnit, aPhysicalCUs, 20, 1032);

EXPECT_SIZE(LcuTable, 6316);
EXPECT_FIELD(LcuTable, usCount, 0, 2);
EXPECT_FIELD(LcuTable, acPad2, 2, 2);
EXPECT_FIELD(LcuTable, aLCUs, 4, 6312);

EXPECT_SIZE(LcuNotes, 24);
EXPECT_FIELD(LcuNotes, aulNotes, 0, 24);

EXPECT_SIZE(MixResult, 24);
EXPECT_FIELD(MixResult, aulNotes, 0, 24);
