/* A host in C89 with nothing but the header: every record, slot and export once. It is compiled for
 * each system and compiler that the header serves, and run where the module runs. */

#include "Hosts.h"

/* A record may start at any address, so that nothing comes between it and what is before it. */
typedef struct BehindAByte {
    char byte;
    QxmixRequest request;
    QxmixResult result;
} BehindAByte;
typedef char ExpectAnyAddress[sizeof(BehindAByte) == 1 + 1060 + 24 ? 1 : -1];

typedef struct Host {
    QxmixHost base;
    QxmixObject* objects[3];
    unsigned count;
} Host;

static void Take(QxmixHost* base, QxmixObject* object) {
    Host* const host = (Host*)base;
    if (host->count < 3) {
        host->objects[host->count++] = object;
    }
}

QXMIX_HOST_SLOTS(kHostSlots, Take);

static void AddCassette(QxmixRequest* request, QxmixU32 value, QxmixU32 count) {
    QxmixCassette* const cassette = &request->aPhysicalCUs[request->usNumPhysicalCUs];
    cassette->usPosition = request->usNumPhysicalCUs;
    cassette->usType = kQxmixBillCassette;
    cassette->cCurrencyID[0] = 'E';
    cassette->cCurrencyID[1] = 'U';
    cassette->cCurrencyID[2] = 'R';
    cassette->ulValues = value;
    cassette->ulCount = count;
    cassette->usStatus = kQxmixOk;
    ++request->usNumPhysicalCUs;
}

/* 50, 20 and 10 EUR. */
static void Prepare(QxmixRequest* request, QxmixU16 mix, QxmixU32 amount) {
    static const QxmixRequest kNothing = {0};
    *request = kNothing;
    request->usMixNumber = mix;
    request->usMaxDispenseItems = 40;
    request->cCurrencyID[0] = 'E';
    request->cCurrencyID[1] = 'U';
    request->cCurrencyID[2] = 'R';
    request->ulAmount = amount;
    AddCassette(request, 50, 100);
    AddCassette(request, 20, 300);
    AddCassette(request, 10, 20);
}

/* Each check has a number, and the first that fails is the answer. */
static unsigned CheckFields(const Host* host, QxmixObject* outer) {
    const QxmixOuterObject* const fields = (const QxmixOuterObject*)outer;
    const QxmixInnerObject* const inner = (const QxmixInnerObject*)host->objects[1];
    if (host->count != 2 || host->objects[0] != outer) {
        return 1;
    }
    if (fields->self != outer || fields->inner != host->objects[1] || fields->usMaxCashUnits != 6) {
        return 2;
    }
    if (inner->self != inner || inner->usNumMixTypes != MIXES || inner->usFirstMixNumber != 1 ||
        inner->usLastMixNumber != MIXES) {
        return 3;
    }
    return inner->ulTraceLevel != 1 || inner->ulCstMinimum4Mix6 != 100 ? 4 : 0;
}

static unsigned CheckCalculations(QxmixObject* outer) {
    QxmixRequest request;
    QxmixResult result;
    Prepare(&request, 1, 28);
    request.sExponent = 1;
    if (QxmixMixCalculate(outer, &request, &result) != kQxmixSuccess) {
        return 5;
    }
    if (result.aulNotes[0] != 5 || result.aulNotes[1] != 1 || result.aulNotes[2] != 1 ||
        result.aulNotes[3] != 0 || request.ulAmount != 280 || request.ulRemainder != 0) {
        return 6;
    }
    Prepare(&request, 1, 2);
    request.ulRemainder = 9;
    if (QxmixMixCalculate(outer, &request, &result) != kQxmixSuccess || request.ulRemainder != 2) {
        return 7;
    }
    Prepare(&request, MIXES + 1, 280);
    if (QxmixMixCalculate(outer, &request, &result) != kQxmixInvalidMixNumber) {
        return 8;
    }
    Prepare(&request, 1, 20000);
    if (QxmixMixCalculate(outer, &request, &result) != kQxmixNotDispensable) {
        return 9;
    }
    request.bAllowPartial = 1;
    if (QxmixMixCalculate(outer, &request, &result) != kQxmixTooManyItems ||
        request.ulAmount != 11200) {
        return 10;
    }
    return 0;
}

static unsigned CheckMixTypes(QxmixObject* outer, void* event, QxmixMixType*** list) {
    unsigned index;
    ((QxmixOuterObject*)outer)->hMixTypesEvent = event;
    if (QxmixGetMixTypes(outer, list) != kQxmixSuccess) {
        return 11;
    }
    for (index = 0; index < MIXES; ++index) {
        const QxmixMixType* const type = (*list)[index];
        if (type->usMixNumber != index + 1 || type->usMixType != 1) {
            return 12;
        }
    }
    if ((*list)[1]->usSubType != 3 || (*list)[1]->lpszName[0] != 'E' ||
        (*list)[1]->lpszName[10] != 's' || (*list)[1]->lpszName[11] != '\0') {
        return 13;
    }
    return (*list)[MIXES] != 0 ? 14 : 0;
}

unsigned QXMIX_CDECL RunHostInC(void* event, QxmixMixType*** list) {
    Host host;
    QxmixObject* outer;
    QxmixObject* inner;
    unsigned failed;
    host.base.slots = &kHostSlots;
    host.count = 0;
    outer = CreateMixAlgorithm(&host.base);
    failed = CheckFields(&host, outer);
    if (failed == 0) {
        failed = CheckCalculations(outer);
    }
    if (failed == 0) {
        failed = CheckMixTypes(outer, event, list);
    }
    inner = host.objects[1];
    DeleteMixAlgorithm();
    if (QxmixDestroy(inner, 0) != inner || QxmixDestroy(inner, 1) != inner) {
        failed = 15;
    }
    return failed;
}
