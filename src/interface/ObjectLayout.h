#pragma once

/// The fields of the two objects, as the host may read and write them.
///
/// They follow the slot-table pointer without a gap. The offsets hold where pointers have four
/// bytes; where they are wider, the fields keep their order and stay packed.

#include "LittleEndian.h"
#include "MixAlgorithm.h"

#include <cstddef>

/// What follows the slot table of the object that calculates.
struct MixAlgorithmFields {
    const void* self;           ///< the object's own address; nothing in the module reads it
    u32le ulTraceLevel;         ///< registry value TraceLevel, 1 without it; selects nothing
    u16le usNumMixTypes;        ///< entries in the list of mix types: 10
    u16le usFirstMixNumber;     ///< lowest mix number accepted: 1
    u16le usLastMixNumber;      ///< highest mix number accepted: 10
    u32le ulCstMinimum4Mix6;    ///< registry value CSTMinimum4Mix6, 100 without it
    unsigned char acHost[102];  ///< never written or read
};

/// What follows the slot table of the object that the host holds.
struct MixAlgorithmProxyFields {
    const void* self;            ///< the object's own address; nothing in the module reads it
    IMixAlgorithm* inner;        ///< the object that calculates; null without memory for it
    unsigned char acHost12[88];  ///< never written or read
    void* hMixTypesEvent;        ///< the host's event, set before each request for the mix types
    unsigned char acHost104[8];  ///< never written or read
    u16le usMaxCashUnits;        ///< 6; the module never reads it
    unsigned char acHost114[2];  ///< never written or read
};

#define EXPECT_OBJECT_SIZE(Object, size)                                                           \
    static_assert(sizeof(void*) != 4 || sizeof(Object) == (size))
#define EXPECT_OBJECT_FIELD(Fields, field, offset)                                                 \
    static_assert(sizeof(void*) != 4 || sizeof(void*) + offsetof(Fields, field) == (offset))

EXPECT_OBJECT_FIELD(MixAlgorithmFields, self, 4);
EXPECT_OBJECT_FIELD(MixAlgorithmFields, ulTraceLevel, 8);
EXPECT_OBJECT_FIELD(MixAlgorithmFields, usNumMixTypes, 12);
EXPECT_OBJECT_FIELD(MixAlgorithmFields, usFirstMixNumber, 14);
EXPECT_OBJECT_FIELD(MixAlgorithmFields, usLastMixNumber, 16);
EXPECT_OBJECT_FIELD(MixAlgorithmFields, ulCstMinimum4Mix6, 18);
EXPECT_OBJECT_FIELD(MixAlgorithmFields, acHost, 22);

EXPECT_OBJECT_FIELD(MixAlgorithmProxyFields, self, 4);
EXPECT_OBJECT_FIELD(MixAlgorithmProxyFields, inner, 8);
EXPECT_OBJECT_FIELD(MixAlgorithmProxyFields, acHost12, 12);
EXPECT_OBJECT_FIELD(MixAlgorithmProxyFields, hMixTypesEvent, 100);
EXPECT_OBJECT_FIELD(MixAlgorithmProxyFields, acHost104, 104);
EXPECT_OBJECT_FIELD(MixAlgorithmProxyFields, usMaxCashUnits, 112);
EXPECT_OBJECT_FIELD(MixAlgorithmProxyFields, acHost114, 114);
static_assert(sizeof(void*) != 8 ||
              sizeof(void*) + offsetof(MixAlgorithmProxyFields, hMixTypesEvent) == 112);

static_assert(sizeof(WFSCDMMIXTYPE) == 8 + sizeof(void*));
static_assert(offsetof(WFSCDMMIXTYPE, usMixNumber) == 0);
static_assert(offsetof(WFSCDMMIXTYPE, usMixType) == 2);
static_assert(offsetof(WFSCDMMIXTYPE, usSubType) == 4);
static_assert(offsetof(WFSCDMMIXTYPE, lpszName) == 8);
static_assert(alignof(WFSCDMMIXTYPE) == 1);
