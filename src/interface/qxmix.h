#ifndef QXMIX_H
#define QXMIX_H

/// The module's binary interface for hosts in plain C (C99): the records, the objects and their
/// slots, and the two exported functions.
///
/// All records are packed and little-endian, and may start at any address. The declarations below
/// read and write them directly on little-endian processors; on others the fields have to be
/// swapped. MixAlgorithm.h, ObjectLayout.h and Records.h say the same in C++.

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The calling convention of the slots. On x86 Windows the object comes in a register.
#if defined(_WIN32) && defined(__i386__)
#define QXMIX_SLOT __attribute__((thiscall))
#else
#define QXMIX_SLOT
#endif

enum { kQxmixMaxCassettes = 6 };

/// What slot 3 returns. Source: the XFS CDM numbering.
enum {
    kQxmixSuccess = 0,              ///< what is missing, even all of it, shows in ulRemainder
    kQxmixInvalidMixNumber = -304,  ///< no mix of this number
    kQxmixNotDispensable = -306,    ///< no combination of items makes the amount
    kQxmixTooManyItems = -307,      ///< the combination has more items than the limit
    kQxmixInvalidCashUnit = -315    ///< more kinds of items than the searches handle
};

/// Types of cassettes that may serve. Coins are totalled apart from everything else.
enum {
    kQxmixBillCassette = 3,
    kQxmixCoinCylinder = 4,
    kQxmixCoinDispenser = 5,
    kQxmixCouponCassette = 7,
    kQxmixRecyclingCassette = 12  ///< mix 9 only
};

/// States of cassettes. Only those that are OK or low give items.
enum {
    kQxmixOk = 0,
    kQxmixFull = 1,
    kQxmixHigh = 2,
    kQxmixLow = 3,
    kQxmixEmpty = 4,
    kQxmixInoperative = 5,
    kQxmixMissing = 6,
    kQxmixNoValue = 7,
    kQxmixNoReference = 8,
    kQxmixManipulated = 9
};

#pragma pack(push, 1)

/// One cassette as the host reports it.
typedef struct QxmixCassette {
    uint16_t usPosition;  ///< slot in QxmixResult, 0 to 5; equal to the cassette's place below
    uint8_t acHost2[128];
    uint16_t usType;
    uint8_t acHost132[5];
    char cCurrencyID[3];  ///< no terminator
    uint8_t acHost140[8];
    uint32_t ulValues;  ///< denomination in whole currency units
    uint32_t ulCount;   ///< items in the cassette now
    uint8_t acHost156[8];
    uint16_t usStatus;
    uint8_t acHost166[6];
} QxmixCassette;

/// What to dispense, and from which cassettes. Owned by the host; read and written.
typedef struct QxmixRequest {
    uint16_t usMixNumber;         ///< 1 to 10
    uint16_t usMaxDispenseItems;  ///< most notes, and most coins, of one dispense
    uint32_t bAllowPartial;       ///< exactly 1: pay less when the amount is out of reach
    char cCurrencyID[3];          ///< only cassettes of this currency serve
    uint8_t acPad11[1];
    int16_t sExponent;  ///< ulAmount counts 10^sExponent currency units
    uint8_t acPad14[2];
    uint32_t ulAmount;          ///< rewritten: scaled by a positive exponent, lowered
    uint16_t usNumPhysicalCUs;  ///< valid entries below
    uint8_t acPad22[2];
    QxmixCassette aPhysicalCUs[kQxmixMaxCassettes];
    uint32_t ulRemainder;  ///< written: what the result leaves unpaid, in the request's terms
} QxmixRequest;

/// Items to take from each cassette, by its usPosition. Owned by the host; written.
typedef struct QxmixResult {
    uint32_t aulNotes[kQxmixMaxCassettes];
} QxmixResult;

struct QxmixObjectSlots;

/// Either object, as far as every host needs it.
typedef struct QxmixObject {
    const struct QxmixObjectSlots* slots;
    const void* self;  ///< the object's own address
} QxmixObject;

/// The object that CreateMixAlgorithm returns. Its bytes are not cleared: the host has to store
/// its event, or null, before it asks for the mix types.
typedef struct QxmixOuterObject {
    QxmixObject object;
    QxmixObject* inner;  ///< the object that calculates; null without memory for it
    uint8_t acHost12[88];
    void* hMixTypesEvent;  ///< the host's event, set before each request for the mix types
    uint8_t acHost104[8];
    uint16_t usMaxCashUnits;  ///< 6
    uint8_t acHost114[2];
} QxmixOuterObject;

/// The object that calculates, second of the two that the host is told of.
typedef struct QxmixInnerObject {
    QxmixObject object;
    uint32_t ulTraceLevel;       ///< registry value TraceLevel; selects nothing
    uint16_t usNumMixTypes;      ///< 10
    uint16_t usFirstMixNumber;   ///< 1
    uint16_t usLastMixNumber;    ///< 10
    uint32_t ulCstMinimum4Mix6;  ///< mixes 6 to 9 leave out cassettes holding no more than this
    uint8_t acHost[102];
} QxmixInnerObject;

#pragma pack(pop)

/// One entry of the list of mix types. Source: WFSCDMMIXTYPE of the XFS CDM interface.
typedef struct QxmixMixType {
    uint16_t usMixNumber;
    uint16_t usMixType;
    uint16_t usSubType;
    char* lpszName;
} QxmixMixType;

/// The slots of an object, in order.
typedef struct QxmixObjectSlots {
    /// Ends the object's life; bit 0 of the flags frees its storage too. Returns its address.
    void*(QXMIX_SLOT* Destroy)(QxmixObject* object, uint32_t flags);
    /// Stores a list of pointers to the mix types, ended by a null pointer. It belongs to the
    /// caller, who frees it with one call of WFMFreeBuffer. Returns 0 or the XFS manager's code.
    int32_t(QXMIX_SLOT* GetMixTypes)(QxmixObject* object, QxmixMixType*** list);
    /// Decides how many items to take from each cassette.
    int32_t(QXMIX_SLOT* MixCalculate)(QxmixObject* object,
                                      QxmixRequest* request,
                                      QxmixResult* result);
} QxmixObjectSlots;

struct QxmixHostSlots;

/// What the host implements; its own data may follow the slots.
typedef struct QxmixHost {
    const struct QxmixHostSlots* slots;
} QxmixHost;

typedef struct QxmixHostSlots {
    void(QXMIX_SLOT* Reserved)(QxmixHost* host);  ///< the host's own, never called
    /// Takes each new object while it is being constructed: first the outer one, then the inner
    /// one. What it returns is ignored.
    int32_t(QXMIX_SLOT* OnObjectCreated)(QxmixHost* host, QxmixObject* object);
} QxmixHostSlots;

/// The types of the two exports, "CreateMixAlgorithm" and "DeleteMixAlgorithm".
typedef QxmixObject* (*QxmixCreateFunction)(QxmixHost* host);
typedef void (*QxmixDeleteFunction)(void);

#ifdef __cplusplus
}
#endif

#endif
