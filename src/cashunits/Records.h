#pragma once

/// The records of a calculation, byte for byte.
///
/// MixRequest, PhysicalCashUnit and MixResult are shared with the service provider; the others are
/// the module's own working records. Every field is little-endian and unaligned, so a record may
/// start at any address. Money is in whole currency units unless a field says otherwise; counts are
/// items. `ac` marks bytes that the module does not interpret; the number is their offset.

#include "LittleEndian.h"

constexpr unsigned kMaxCashUnits = 6;  ///< cassettes of a request, and units of a table

/// Three characters, no terminator, compared byte for byte.
struct CurrencyId {
    char cCharacters[3];
};

/// One cassette as the service provider reports it.
struct PhysicalCashUnit {
    u16le usPosition;            ///< slot in MixResult::aulNotes, 0 to 5
    unsigned char acHost2[128];  ///< the service provider's
    u16le usType;                ///< see CashUnitCodes.h
    unsigned char acHost132[5];  ///< the service provider's
    CurrencyId cCurrencyID;      ///< currency of the items
    unsigned char acHost140[8];  ///< the service provider's
    u32le ulValues;              ///< denomination in whole currency units
    u32le ulCount;               ///< items in the cassette now
    unsigned char acHost156[8];  ///< the service provider's
    u16le usStatus;              ///< see CashUnitCodes.h
    unsigned char acHost166[6];  ///< the service provider's
};

/// What to dispense, and from which cassettes. Owned by the service provider; read and written.
struct MixRequest {
    u16le usMixNumber;         ///< 1 to 10
    u16le usMaxDispenseItems;  ///< most notes, and most coins, of one dispense
    u32le bAllowPartial;       ///< exactly 1: pay less when the amount is out of reach
    CurrencyId cCurrencyID;    ///< only cassettes of this currency serve
    unsigned char acPad11[1];
    s16le sExponent;  ///< ulAmount counts 10^sExponent currency units
    unsigned char acPad14[2];
    u32le ulAmount;          ///< rewritten: scaled by a positive exponent, reduced
    u16le usNumPhysicalCUs;  ///< valid entries below, 0 to 6; more are read as 6
    unsigned char acPad22[2];
    PhysicalCashUnit aPhysicalCUs[kMaxCashUnits];  ///< entry k has usPosition k
    u32le ulRemainder;                             ///< written: what the result leaves unpaid
};

/// The cassettes that hold the same item, as one unit ("LCU").
struct LogicalCashUnit {
    u16le usNumber;  ///< index in the table when it was created
    u16le usType;    ///< type of its first cassette
    CurrencyId cCurrencyID;
    unsigned char acPad7[1];  ///< always 0
    u32le ulValues;           ///< denomination; the orderings may rescale it
    u32le ulCount;            ///< items that count as available
    u16le usStatus;           ///< the best status of its cassettes, see StatusRank.h
    u16le usNumPhysicalCUs;   ///< cassettes below, 0 to 6
    PhysicalCashUnit aPhysicalCUs[kMaxCashUnits];  ///< copies of the cassettes
};

/// The logical units of a request.
struct LcuTable {
    u16le usCount;  ///< valid entries below, 0 to 6
    unsigned char acPad2[2];
    LogicalCashUnit aLCUs[kMaxCashUnits];
};

/// Items to take from each unit of an ordered table, by table index.
struct LcuNotes {
    u32le aulNotes[kMaxCashUnits];
};

/// Items to take from each cassette, by its usPosition. Owned by the service provider; written.
struct MixResult {
    u32le aulNotes[kMaxCashUnits];
};
