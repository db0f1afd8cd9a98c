#ifndef QXMIX_H
#define QXMIX_H

/* The module's binary interface: all that a host includes, and nothing else is needed with it.
 *
 * C from C89 and C++ from C++98 on, by Microsoft's compilers from those of Windows CE 4 and Visual
 * C++ 6 on, by GCC and by clang. In C++ the objects are classes, IMixAlgorithm and
 * MixAlgorithmHost; in C they are tables of slots, and the helpers at the end call them.
 *
 * The records are packed little-endian memory without gaps, and may start at any address. */

#if defined(__ARMEB__) || defined(__BIG_ENDIAN__) || defined(__AARCH64EB__) ||                     \
    (defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__)
#error "qxmix.h: the records are little-endian: build the host for a little-endian processor"
#endif
#if defined(_WIN64)
#error "qxmix.h: QXMIX.dll is a 32-bit library: build the host as a 32-bit program"
#elif (defined(_M_IX86) || defined(__i386__)) && (defined(_WIN32) || defined(__CYGWIN__))
#define QXMIX_X86_WINDOWS
#elif !defined(_M_ARM) && !defined(_ARM_) && !defined(__arm__) && !defined(__aarch64__) &&         \
    !defined(__i386__) && !defined(__x86_64__)
#error "qxmix.h: the module runs on x86 and ARM only: build the host for one of them"
#endif

/* Calling conventions. On x86 Windows the exports are __cdecl and the slots __thiscall: the object
 * in ecx, the rest on the stack, which the slot takes down. C has no word for that; there a slot is
 * a __fastcall function with a second parameter, which travels in edx and is never read: it is
 * called in the very same way. Elsewhere there is only one convention. */
#if !defined(QXMIX_X86_WINDOWS)
#define QXMIX_CDECL
#define QXMIX_SLOT
#elif defined(_MSC_VER)
#define QXMIX_CDECL __cdecl
#if !defined(__cplusplus)
#define QXMIX_SLOT __fastcall
#elif _MSC_VER >= 1400
#define QXMIX_SLOT __thiscall
#else
#define QXMIX_SLOT /* that of member functions anyway; the word came later */
#endif
#elif defined(__clang__) || (defined(__GNUC__) && __GNUC__ * 100 + __GNUC_MINOR__ >= 406)
#define QXMIX_CDECL __attribute__((cdecl))
#if !defined(__cplusplus)
#define QXMIX_SLOT __attribute__((fastcall))
#else
#define QXMIX_SLOT __attribute__((thiscall))
#endif
#else
#error "qxmix.h: use Microsoft's compiler, GCC 4.6 or clang: slots are __thiscall on x86 Windows"
#endif

/* Integers of exact width. Where the compiler does not offer them, those that have it on all of the
 * processors above. */
#if defined(__UINT32_TYPE__) && defined(__INT32_TYPE__)
typedef __UINT16_TYPE__ QxmixU16;
typedef __INT16_TYPE__ QxmixS16;
typedef __UINT32_TYPE__ QxmixU32;
typedef __INT32_TYPE__ QxmixS32;
#else
typedef unsigned short QxmixU16;
typedef short QxmixS16;
typedef unsigned int QxmixU32;
typedef int QxmixS32;
#endif

enum { kQxmixMaxCassettes = 6 };

/* What slot 3 returns. Source: the XFS CDM numbering. */
enum {
    kQxmixSuccess = 0,             /* what is missing, even all of it, shows in ulRemainder */
    kQxmixInvalidMixNumber = -304, /* no mix of this number */
    kQxmixNotDispensable = -306,   /* no combination of items makes the amount */
    kQxmixTooManyItems = -307,     /* the combination has more items than the limit */
    kQxmixInvalidCashUnit = -315   /* more kinds of items than the searches handle */
};

/* Types of cassettes that may serve. Coins are totalled apart from everything else. */
enum {
    kQxmixBillCassette = 3,
    kQxmixCoinCylinder = 4,
    kQxmixCoinDispenser = 5,
    kQxmixCouponCassette = 7,
    kQxmixRecyclingCassette = 12 /* mix 9 only */
};

/* States of cassettes. Only those that are OK or low give items. */
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

#ifdef __cplusplus
class IMixAlgorithm;
typedef IMixAlgorithm QxmixObject;
#else
struct QxmixObjectSlots;

/* Either object, as far as every host needs it. */
typedef struct QxmixObject {
    const struct QxmixObjectSlots* slots;
    const void* self; /* the object's own address */
} QxmixObject;
#endif

#pragma pack(push, 1)

/* One cassette as the host reports it. */
typedef struct QxmixCassette {
    QxmixU16 usPosition; /* slot in QxmixResult, 0 to 5; equal to the cassette's place below */
    unsigned char acHost2[128];
    QxmixU16 usType;
    unsigned char acHost132[5];
    char cCurrencyID[3]; /* no terminator */
    unsigned char acHost140[8];
    QxmixU32 ulValues; /* denomination in whole currency units */
    QxmixU32 ulCount;  /* items in the cassette now */
    unsigned char acHost156[8];
    QxmixU16 usStatus;
    unsigned char acHost166[6];
} QxmixCassette;

/* What to dispense, and from which cassettes. Owned by the host; read and written. */
typedef struct QxmixRequest {
    QxmixU16 usMixNumber;        /* 1 to 10 */
    QxmixU16 usMaxDispenseItems; /* most notes, and most coins, of one dispense */
    QxmixU32 bAllowPartial;      /* exactly 1: pay less when the amount is out of reach */
    char cCurrencyID[3];         /* only cassettes of this currency serve */
    unsigned char acPad11[1];
    QxmixS16 sExponent; /* ulAmount counts 10^sExponent currency units */
    unsigned char acPad14[2];
    QxmixU32 ulAmount;         /* rewritten: scaled by a positive exponent, lowered */
    QxmixU16 usNumPhysicalCUs; /* valid entries below */
    unsigned char acPad22[2];
    QxmixCassette aPhysicalCUs[kQxmixMaxCassettes];
    QxmixU32 ulRemainder; /* written: what the result leaves unpaid, in the request's terms */
} QxmixRequest;

/* Items to take from each cassette, by its usPosition. Owned by the host; written. */
typedef struct QxmixResult {
    QxmixU32 aulNotes[kQxmixMaxCassettes];
} QxmixResult;

/* One entry of the list of mix types. Source: WFSCDMMIXTYPE of the XFS CDM interface. */
typedef struct QxmixMixType {
    QxmixU16 usMixNumber;
    QxmixU16 usMixType; /* 1: a mix algorithm */
    QxmixU16 usSubType; /* 1 minimum bills, 2 equal emptying, 3 maximum cash units */
    unsigned char acPad6[2];
    char* lpszName; /* ended by a zero */
} QxmixMixType;

/* The object that CreateMixAlgorithm returns, as memory. Its bytes are not cleared: the host has to
 * store its event, or null, before it asks for the mix types. */
typedef struct QxmixOuterObject {
    const void* slots;
    const void* self;   /* the object's own address */
    QxmixObject* inner; /* the object that calculates; null without memory for it */
    unsigned char acHost12[88];
    void* hMixTypesEvent; /* the host's event, set before each request for the mix types */
    unsigned char acHost104[8];
    QxmixU16 usMaxCashUnits; /* 6 */
    unsigned char acHost114[2];
} QxmixOuterObject;

/* The object that calculates, second of the two that the host is told of, as memory. */
typedef struct QxmixInnerObject {
    const void* slots;
    const void* self;
    QxmixU32 ulTraceLevel;      /* registry value TraceLevel; selects nothing */
    QxmixU16 usNumMixTypes;     /* 10 */
    QxmixU16 usFirstMixNumber;  /* 1 */
    QxmixU16 usLastMixNumber;   /* 10 */
    QxmixU32 ulCstMinimum4Mix6; /* mixes 6 to 9 leave out cassettes holding no more than this */
    unsigned char acHost[102];
} QxmixInnerObject;

#pragma pack(pop)

/* Every size and offset, checked with what C89 has: a wrong one would be an array of -1 elements.
 */
#define QXMIX_EXPECT(name, condition) typedef char QxmixExpect##name[(condition) ? 1 : -1]
#if defined(__clang__) || (defined(__GNUC__) && __GNUC__ >= 4)
#define QXMIX_OFFSET(record, field) __builtin_offsetof(record, field)
#else /* as Microsoft's compilers have it in their own stddef.h */
#define QXMIX_OFFSET(record, field) ((unsigned long)&((record*)0)->field)
#endif
#define QXMIX_EXPECT_SIZE(type, size) QXMIX_EXPECT(type, sizeof(type) == (size))
#define QXMIX_EXPECT_FIELD(record, field, offset)                                                  \
    QXMIX_EXPECT(record##_##field, QXMIX_OFFSET(record, field) == (offset))

QXMIX_EXPECT_SIZE(QxmixU16, 2);
QXMIX_EXPECT_SIZE(QxmixS16, 2);
QXMIX_EXPECT_SIZE(QxmixU32, 4);
QXMIX_EXPECT_SIZE(QxmixS32, 4);

QXMIX_EXPECT_SIZE(QxmixCassette, 172);
QXMIX_EXPECT_FIELD(QxmixCassette, usPosition, 0);
QXMIX_EXPECT_FIELD(QxmixCassette, acHost2, 2);
QXMIX_EXPECT_FIELD(QxmixCassette, usType, 130);
QXMIX_EXPECT_FIELD(QxmixCassette, acHost132, 132);
QXMIX_EXPECT_FIELD(QxmixCassette, cCurrencyID, 137);
QXMIX_EXPECT_FIELD(QxmixCassette, acHost140, 140);
QXMIX_EXPECT_FIELD(QxmixCassette, ulValues, 148);
QXMIX_EXPECT_FIELD(QxmixCassette, ulCount, 152);
QXMIX_EXPECT_FIELD(QxmixCassette, acHost156, 156);
QXMIX_EXPECT_FIELD(QxmixCassette, usStatus, 164);
QXMIX_EXPECT_FIELD(QxmixCassette, acHost166, 166);

QXMIX_EXPECT_SIZE(QxmixRequest, 1060);
QXMIX_EXPECT_FIELD(QxmixRequest, usMixNumber, 0);
QXMIX_EXPECT_FIELD(QxmixRequest, usMaxDispenseItems, 2);
QXMIX_EXPECT_FIELD(QxmixRequest, bAllowPartial, 4);
QXMIX_EXPECT_FIELD(QxmixRequest, cCurrencyID, 8);
QXMIX_EXPECT_FIELD(QxmixRequest, acPad11, 11);
QXMIX_EXPECT_FIELD(QxmixRequest, sExponent, 12);
QXMIX_EXPECT_FIELD(QxmixRequest, acPad14, 14);
QXMIX_EXPECT_FIELD(QxmixRequest, ulAmount, 16);
QXMIX_EXPECT_FIELD(QxmixRequest, usNumPhysicalCUs, 20);
QXMIX_EXPECT_FIELD(QxmixRequest, acPad22, 22);
QXMIX_EXPECT_FIELD(QxmixRequest, aPhysicalCUs, 24);
QXMIX_EXPECT_FIELD(QxmixRequest, ulRemainder, 1056);

QXMIX_EXPECT_SIZE(QxmixResult, 24);
QXMIX_EXPECT_FIELD(QxmixResult, aulNotes, 0);

QXMIX_EXPECT_SIZE(QxmixMixType, 8 + sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixMixType, usMixNumber, 0);
QXMIX_EXPECT_FIELD(QxmixMixType, usMixType, 2);
QXMIX_EXPECT_FIELD(QxmixMixType, usSubType, 4);
QXMIX_EXPECT_FIELD(QxmixMixType, lpszName, 8);

/* 116 and 124 bytes where pointers have four; where they have eight, the fields stay packed. */
QXMIX_EXPECT_SIZE(QxmixOuterObject, 100 + 4 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixOuterObject, self, sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixOuterObject, inner, 2 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixOuterObject, acHost12, 3 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixOuterObject, hMixTypesEvent, 88 + 3 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixOuterObject, acHost104, 88 + 4 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixOuterObject, usMaxCashUnits, 96 + 4 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixOuterObject, acHost114, 98 + 4 * sizeof(void*));

QXMIX_EXPECT_SIZE(QxmixInnerObject, 116 + 2 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixInnerObject, self, sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixInnerObject, ulTraceLevel, 2 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixInnerObject, usNumMixTypes, 4 + 2 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixInnerObject, usFirstMixNumber, 6 + 2 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixInnerObject, usLastMixNumber, 8 + 2 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixInnerObject, ulCstMinimum4Mix6, 10 + 2 * sizeof(void*));
QXMIX_EXPECT_FIELD(QxmixInnerObject, acHost, 14 + 2 * sizeof(void*));

#undef QXMIX_EXPECT_FIELD
#undef QXMIX_EXPECT_SIZE
#undef QXMIX_EXPECT
#undef QXMIX_OFFSET

#ifdef __cplusplus

/* What the host holds and calls. Slots do not throw. */
class IMixAlgorithm {
public:
    /* Slot 1. Ends the object's life; bit 0 of the flags frees its storage too. Returns its
     * address, freed or not. */
    virtual void* QXMIX_SLOT Destroy(QxmixU32 flags) = 0;

    /* Slot 2. Stores a list of pointers to the mix types, ended by a null pointer. It belongs to
     * the caller, who frees it with one WFMFreeBuffer. Returns 0 or the XFS manager's code. */
    virtual QxmixS32 QXMIX_SLOT GetMixTypes(QxmixMixType*** list) = 0;

    /* Slot 3. Decides how many items to take from each cassette. */
    virtual QxmixS32 QXMIX_SLOT MixCalculate(QxmixRequest* request, QxmixResult* result) = 0;

protected:
    ~IMixAlgorithm() {}
};

/* What the host implements; its own data may follow. */
class MixAlgorithmHost {
public:
    /* Slot 1. The host's own, never called. */
    virtual void QXMIX_SLOT Reserved() = 0;

    /* Slot 2. Takes each new object while it is being constructed: first the outer one, then the
     * inner one. What it returns is ignored. It must not throw. */
    virtual QxmixS32 QXMIX_SLOT OnObjectCreated(IMixAlgorithm* object) = 0;

protected:
    ~MixAlgorithmHost() {}
};

typedef MixAlgorithmHost QxmixHost;

extern "C" {

#else /* C */

#if defined(QXMIX_X86_WINDOWS)
#define QXMIX_EDX_PARAMETER , void* edx
#define QXMIX_EDX_ARGUMENT , 0
#define QXMIX_EDX_UNUSED (void)edx;
#else
#define QXMIX_EDX_PARAMETER
#define QXMIX_EDX_ARGUMENT
#define QXMIX_EDX_UNUSED
#endif

/* The slots of an object, in order; QxmixDestroy and its like call them. */
typedef struct QxmixObjectSlots {
    /* Ends the object's life; bit 0 of the flags frees its storage too. Returns its address. */
    void*(QXMIX_SLOT* Destroy)(QxmixObject* object QXMIX_EDX_PARAMETER, QxmixU32 flags);
    /* Stores a list of pointers to the mix types, ended by a null pointer. It belongs to the
     * caller, who frees it with one call of WFMFreeBuffer. Returns 0 or the XFS manager's code. */
    QxmixS32(QXMIX_SLOT* GetMixTypes)(QxmixObject* object QXMIX_EDX_PARAMETER,
                                      QxmixMixType*** list);
    /* Decides how many items to take from each cassette. */
    QxmixS32(QXMIX_SLOT* MixCalculate)(QxmixObject* object QXMIX_EDX_PARAMETER,
                                       QxmixRequest* request,
                                       QxmixResult* result);
} QxmixObjectSlots;

struct QxmixHostSlots;

/* What the host implements; its own data may follow the slots. */
typedef struct QxmixHost {
    const struct QxmixHostSlots* slots;
} QxmixHost;

typedef struct QxmixHostSlots {
    void(QXMIX_SLOT* Reserved)(QxmixHost* host); /* the host's own, never called */
    /* Takes each new object while it is being constructed: first the outer one, then the inner one.
     * What it returns is ignored. */
    QxmixS32(QXMIX_SLOT* OnObjectCreated)(QxmixHost* host QXMIX_EDX_PARAMETER, QxmixObject* object);
} QxmixHostSlots;

/* Calls of the slots, the same for every compiler. `object` is evaluated twice. */
#define QxmixDestroy(object, flags) ((object)->slots->Destroy((object)QXMIX_EDX_ARGUMENT, (flags)))
#define QxmixGetMixTypes(object, list)                                                             \
    ((object)->slots->GetMixTypes((object)QXMIX_EDX_ARGUMENT, (list)))
#define QxmixMixCalculate(object, request, result)                                                 \
    ((object)->slots->MixCalculate((object)QXMIX_EDX_ARGUMENT, (request), (result)))

/* Defines the slots of a host, `table`, over a plain function of its own,
 * void take(QxmixHost* host, QxmixObject* object), for every compiler. */
#define QXMIX_HOST_SLOTS(table, take)                                                              \
    static void QXMIX_SLOT table##Reserved(QxmixHost* host) {                                      \
        (void)host;                                                                                \
    }                                                                                              \
    static QxmixS32 QXMIX_SLOT table##OnObjectCreated(QxmixHost* host QXMIX_EDX_PARAMETER,         \
                                                      QxmixObject* object) {                       \
        QXMIX_EDX_UNUSED                                                                           \
        take(host, object);                                                                        \
        return 0;                                                                                  \
    }                                                                                              \
    static const QxmixHostSlots table = {table##Reserved, table##OnObjectCreated}

#endif

/* The two exports. A host links to the import library for them, or asks the loaded file for
 * "CreateMixAlgorithm" and "DeleteMixAlgorithm".
 *
 * The first creates a pair of objects, calls the host back once for each of them, and returns the
 * outer one; null without memory for it. The second destroys the outer object that was created
 * last; the inner one stays the host's, who may destroy it through its slot 1 with flag 1. */
QxmixObject* QXMIX_CDECL CreateMixAlgorithm(QxmixHost* host);
void QXMIX_CDECL DeleteMixAlgorithm(void);

typedef QxmixObject*(QXMIX_CDECL* QxmixCreateFunction)(QxmixHost* host);
typedef void(QXMIX_CDECL* QxmixDeleteFunction)(void);

#ifdef __cplusplus
}
#endif

#endif
