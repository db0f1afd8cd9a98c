/* The shared library as a host in plain C sees it: loaded by its path, two exports, three slots,
 * and bytes at numbered offsets. Nothing here comes from a header of the module.
 *
 * Usage: exports_contract <path of the library>. Exits with 0 when everything is as it should be.
 */

#include "Contract.h"

enum { kPointer = sizeof(void*), kRequestSize = 1060, kCassetteSize = 172, kResultSize = 24 };

typedef struct Host {
    const struct HostSlots* slots;
    void* objects[8];
    unsigned count;
} Host;

struct HostSlots {
    void (*reserved)(Host* host);
    int32_t (*onObjectCreated)(Host* host, void* object);
};

static void* PointerAt(const void* object, size_t offset) {
    void* pointer = NULL;
    memcpy(&pointer, (const unsigned char*)object + offset, sizeof(pointer));
    return pointer;
}

/* Little-endian numbers, byte by byte. */
static uint32_t NumberAt(const void* bytes, size_t offset, unsigned width) {
    const unsigned char* first = (const unsigned char*)bytes + offset;
    uint32_t number = 0;
    while (width-- > 0) {
        number = (number << 8) | first[width];
    }
    return number;
}

static void SetNumber(void* bytes, size_t offset, unsigned width, uint32_t number) {
    unsigned char* first = (unsigned char*)bytes + offset;
    for (unsigned index = 0; index < width; ++index) {
        first[index] = (unsigned char)(number >> (8 * index));
    }
}

static void Reserved(Host* host) {
    (void)host;
    fprintf(stderr, "the host's own slot was called\n");
    ++failures;
}

static int32_t OnObjectCreated(Host* host, void* object) {
    CHECK(PointerAt(object, kPointer) == object);
    CHECK(SlotsOf(object)->destroy != NULL);
    host->objects[host->count++] = object;
    return 0;
}

static const struct HostSlots kHostSlots = {Reserved, OnObjectCreated};

static void CheckFields(const void* outer, const void* inner) {
    CHECK(PointerAt(outer, 2 * kPointer) == inner);
    CHECK(NumberAt(outer, 4 * kPointer + 96, 2) == 6);
    CHECK(NumberAt(inner, 2 * kPointer, 4) == 1);
    CHECK(NumberAt(inner, 2 * kPointer + 4, 2) == kMixes);
    CHECK(NumberAt(inner, 2 * kPointer + 6, 2) == 1);
    CHECK(NumberAt(inner, 2 * kPointer + 8, 2) == kMixes);
    CHECK(NumberAt(inner, 2 * kPointer + 10, 4) == 100);
}

static void AddCassette(unsigned char* request, unsigned index, uint32_t value, uint32_t count) {
    unsigned char* cassette = request + 24 + kCassetteSize * index;
    SetNumber(cassette, 0, 2, index);
    SetNumber(cassette, 130, 2, 3);
    memcpy(cassette + 137, "EUR", 3);
    SetNumber(cassette, 148, 4, value);
    SetNumber(cassette, 152, 4, count);
    SetNumber(cassette, 164, 2, 0);
    SetNumber(request, 20, 2, index + 1);
}

/* 280 from fifties and twenties, in records at odd addresses. */
static void CheckCalculation(void* outer) {
    unsigned char memory[1 + kRequestSize + 2 + kResultSize];
    unsigned char* request = memory + 1;
    unsigned char* result = memory + 1 + kRequestSize + 2;
    memset(memory, 0xEE, sizeof(memory));
    SetNumber(request, 0, 2, 1);
    SetNumber(request, 2, 2, 40);
    SetNumber(request, 4, 4, 0);
    memcpy(request + 8, "EUR", 3);
    SetNumber(request, 12, 2, 0);
    SetNumber(request, 16, 4, 280);
    AddCassette(request, 0, 50, 10);
    AddCassette(request, 1, 20, 10);
    CHECK(SlotsOf(outer)->mixCalculate(outer, request, result) == 0);
    CHECK(NumberAt(result, 0, 4) == 4);
    CHECK(NumberAt(result, 4, 4) == 4);
    CHECK(NumberAt(result, 20, 4) == 0);
    CHECK(NumberAt(request, 16, 4) == 280);
    CHECK(NumberAt(request, 1056, 4) == 0);
    CHECK(memory[0] == 0xEE && memory[1 + kRequestSize] == 0xEE);

    SetNumber(request, 0, 2, kMixes + 1);
    CHECK(SlotsOf(outer)->mixCalculate(outer, request, result) == -304);
    CHECK(NumberAt(result, 0, 4) == 0);
}

static void CheckMixTypes(const Library* library, void* outer) {
    int32_t (*freeBuffer)(void* block) = NULL;
    void* noEvent = NULL;
    void* list = NULL;
    memcpy((unsigned char*)outer + 3 * kPointer + 88, &noEvent, sizeof(noEvent));
    CHECK(SlotsOf(outer)->getMixTypes(outer, &list) == 0);
    for (unsigned index = 0; index < kMixes; ++index) {
        const void* entry = PointerAt(list, index * kPointer);
        uint16_t numbers[3];
        memcpy(numbers, entry, sizeof(numbers));
        CHECK(numbers[0] == index + 1);
        CHECK(numbers[1] == 1);
        CHECK(numbers[2] == kSubTypes[index]);
    }
    CHECK(strcmp(PointerAt(PointerAt(list, 6 * kPointer), 8),
                 "Varnholt Maximum Number of CashUnits") == 0);
    CHECK(PointerAt(list, kMixes * kPointer) == NULL);
    *(void**)&freeBuffer = dlsym(library->handle, "WFMFreeBuffer");
    CHECK(freeBuffer != NULL && freeBuffer(list) == 0);
}

static void CheckLife(const Library* library) {
    Host host = {&kHostSlots, {NULL}, 0};
    library->destroy(); /* nothing there yet */
    void* outer = library->create(&host);
    CHECK(host.count == 2 && host.objects[0] == outer);
    CheckFields(outer, host.objects[1]);
    CheckCalculation(outer);
    CheckMixTypes(library, outer);

    void* second = library->create(&host);
    CHECK(host.count == 4 && host.objects[2] == second && second != outer);
    library->destroy();
    library->destroy(); /* nothing there any more */
    CheckCalculation(outer);

    CHECK(SlotsOf(outer)->destroy(outer, 1) == outer);
    SlotsOf(host.objects[1])->destroy(host.objects[1], 1);
    const Slots* own = SlotsOf(host.objects[3]);
    CHECK(own->destroy(host.objects[3], 0) == host.objects[3]);
    CHECK(SlotsOf(host.objects[3]) != own);
    CHECK(SlotsOf(host.objects[3])->getMixTypes != NULL); /* the runtime's pure-call error */
    SlotsOf(host.objects[3])->destroy(host.objects[3], 1);
}

int main(int count, char** arguments) {
    for (int turn = 0; turn < 2; ++turn) {
        const Library library = Load(count, arguments);
        CheckLife(&library);
        CHECK(dlclose(library.handle) == 0);
    }
    if (failures == 0) {
        puts("all as it should be");
    }
    return failures == 0 ? 0 : 1;
}
