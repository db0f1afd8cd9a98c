/* A complete host of the module in plain C (C89): what a service provider does with it, from
 * loading the library to unloading it.
 *
 * It loads the library at run time, asks for the mixes, pays 280 EUR out of three cassettes, and
 * checks the answer before it would move money.
 *
 *   host <path of libQXMIX.so>
 *
 * Exit status 0: everything was as a service provider expects it. */

#include "qxmix.h"

#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

/* ---------------------------------------------------------------- the host's own object */

/* The module calls back through the slots; what follows them is the host's. */
typedef struct Host {
    QxmixHost base;
    QxmixObject* objects[2];
    unsigned count;
} Host;

/* The module tells of two objects: first of the outer one, which is also what CreateMixAlgorithm
 * returns, then of the inner one. Neither is complete yet: they may be kept, but not called. */
static void TakeObject(QxmixHost* base, QxmixObject* object) {
    Host* const host = (Host*)base;
    if (host->count < 2) {
        host->objects[host->count++] = object;
    }
}

QXMIX_HOST_SLOTS(kHostSlots, TakeObject);

/* ---------------------------------------------------------------- the library */

typedef struct Module {
    void* library;
    QxmixCreateFunction create;
    QxmixDeleteFunction destroy;
    QxmixS32 (*freeBuffer)(void* block); /* the XFS manager's */
} Module;

/* On the device this is LoadLibrary and GetProcAddress. */
static int Load(const char* path, Module* module) {
    module->library = dlopen(path, RTLD_NOW);
    if (module->library == NULL) {
        fprintf(stderr, "no module: %s\n", dlerror());
        return 0;
    }
    *(void**)&module->create = dlsym(module->library, "CreateMixAlgorithm");
    *(void**)&module->destroy = dlsym(module->library, "DeleteMixAlgorithm");
    *(void**)&module->freeBuffer = dlsym(module->library, "WFMFreeBuffer");
    return module->create != NULL && module->destroy != NULL && module->freeBuffer != NULL;
}

/* ---------------------------------------------------------------- the mixes */

/* Lists the mixes, as the service provider hands them on to applications. */
static int ShowMixTypes(const Module* module, QxmixObject* outer) {
    QxmixMixType** list = NULL;
    unsigned count = 0;
    if (QxmixGetMixTypes(outer, &list) != kQxmixSuccess) {
        return 0;
    }
    for (; list[count] != NULL; ++count) {
        printf("%3u  %s\n", (unsigned)list[count]->usMixNumber, list[count]->lpszName);
    }
    /* The list, its records and its names are one linked allocation. */
    return module->freeBuffer(list) == 0 && count != 0;
}

/* ---------------------------------------------------------------- a calculation */

/* One cassette of whole euros. Its place in the request and its position are the same. */
static void AddCassette(QxmixRequest* request, QxmixU32 value, QxmixU32 count) {
    QxmixCassette* const cassette = &request->aPhysicalCUs[request->usNumPhysicalCUs];
    cassette->usPosition = request->usNumPhysicalCUs;
    cassette->usType = kQxmixBillCassette;
    memcpy(cassette->cCurrencyID, "EUR", 3);
    cassette->ulValues = value;
    cassette->ulCount = count;
    cassette->usStatus = kQxmixOk;
    ++request->usNumPhysicalCUs;
}

static QxmixRequest RequestFor(QxmixU16 mix, QxmixU32 amount) {
    QxmixRequest request;
    memset(&request, 0, sizeof(request));
    request.usMixNumber = mix;
    request.usMaxDispenseItems = 40;
    memcpy(request.cCurrencyID, "EUR", 3);
    request.ulAmount = amount;
    AddCassette(&request, 50, 100);
    AddCassette(&request, 20, 300);
    AddCassette(&request, 10, 20);
    return request;
}

/* Whether an answer may move money: no more than was asked, no more items than the limit and than
 * each cassette holds. Mixes 4 and 9 can answer otherwise, so this is no formality. Nothing here
 * wraps: each step is held to what is left of the amount and of the limit.
 *
 * The request is the one as it was before the call: the module rewrites amount and remainder. */
static int IsSafe(const QxmixRequest* asked, const QxmixResult* result) {
    QxmixU32 amountLeft = asked->ulAmount;
    QxmixU32 itemsLeft = asked->usMaxDispenseItems;
    unsigned place;
    for (place = 0; place < asked->usNumPhysicalCUs; ++place) {
        const QxmixCassette* const cassette = &asked->aPhysicalCUs[place];
        const QxmixU32 taken = result->aulNotes[place];
        if (taken > cassette->ulCount || taken > itemsLeft ||
            (cassette->ulValues != 0 && taken > amountLeft / cassette->ulValues)) {
            return 0;
        }
        amountLeft -= taken * cassette->ulValues;
        itemsLeft -= taken;
    }
    return 1;
}

/* Pays an amount of whole euros with minimum notes. A request goes into one call only. With mixes 4
 * and 9 the call belongs into a worker with a deadline: their search does not always end. */
static int Pay(QxmixObject* outer, QxmixU32 amount) {
    const QxmixRequest asked = RequestFor(1, amount);
    QxmixRequest request = asked;
    QxmixResult result;
    unsigned place;
    const QxmixS32 code = QxmixMixCalculate(outer, &request, &result);
    if (code != kQxmixSuccess) {
        printf("%u EUR: refused with %d\n", (unsigned)amount, (int)code);
        return 0;
    }
    if (!IsSafe(&asked, &result)) {
        printf("%u EUR: an answer that must not be carried out\n", (unsigned)amount);
        return 0;
    }
    printf("%u EUR:", (unsigned)amount);
    for (place = 0; place < asked.usNumPhysicalCUs; ++place) {
        printf(" %u x %u", (unsigned)result.aulNotes[place],
               (unsigned)asked.aPhysicalCUs[place].ulValues);
    }
    /* 0 does not mean that everything was paid. */
    printf(", %u unpaid\n", (unsigned)request.ulRemainder);
    return request.ulRemainder == 0;
}

static int UseModule(const Module* module, QxmixObject* outer) {
    int listed;
    int paid;
    int refused;
    /* The object is not cleared: before the first request for the mix types the host stores its
     * event, or null. */
    ((QxmixOuterObject*)outer)->hMixTypesEvent = NULL;
    listed = ShowMixTypes(module, outer);
    paid = Pay(outer, 280);
    refused = !Pay(outer, 285); /* nothing holds five euros */
    return listed && paid && refused;
}

int main(int count, char** arguments) {
    Module module;
    Host host = {{&kHostSlots}, {NULL, NULL}, 0};
    QxmixObject* outer;
    int succeeded;
    if (!Load(count > 1 ? arguments[1] : "libQXMIX.so", &module)) {
        return 1;
    }
    outer = module.create(&host.base);
    if (outer == NULL) {
        fprintf(stderr, "no memory\n");
        return 1;
    }
    succeeded = UseModule(&module, outer);

    /* This ends the outer object and leaves the inner one to the host, by design. A host that lives
     * as long as the terminal may leave it where it is; one that comes and goes destroys it. */
    module.destroy();
    if (host.count == 2) {
        QxmixObject* const inner = host.objects[1];
        QxmixDestroy(inner, 1);
    }
    dlclose(module.library);
    return succeeded ? 0 : 1;
}
