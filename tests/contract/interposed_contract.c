/* A host that has all the platform's functions itself: the module calls these, not the stand-in's,
 * with exactly the arguments checked here.
 *
 * Usage: interposed_contract <path of the library>. Exits with 0 when everything is as it should
 * be. */

#include "Contract.h"
#include "CreatedObjects.h"

typedef struct Key {
    const char* path;
} Key;

static unsigned calls = 0;
static char written[16];
static Key minimum = {"SOFTWARE\\ATM\\DevInfo\\CDM\\"};
static Key errors = {"SOFTWARE\\ATM\\ErrorCode"};

static int IsText(const uint16_t* text, const char* expected) {
    size_t index = 0;
    while (expected[index] != '\0' && text[index] == (unsigned char)expected[index]) {
        ++index;
    }
    return expected[index] == '\0' && text[index] == 0;
}

int32_t
RegOpenKeyExW(void* key, const uint16_t* path, uint32_t options, uint32_t access, void** opened);
int32_t RegCreateKeyExW(void* key,
                        const uint16_t* path,
                        uint32_t reserved,
                        const uint16_t* keyClass,
                        uint32_t options,
                        uint32_t access,
                        const void* security,
                        void** opened,
                        const uint32_t* disposition);
int32_t RegQueryValueExW(void* key,
                         const uint16_t* name,
                         const uint32_t* reserved,
                         const uint32_t* type,
                         uint8_t* bytes,
                         uint32_t* size);
int32_t RegSetValueExW(void* key,
                       const uint16_t* name,
                       uint32_t reserved,
                       uint32_t type,
                       const uint8_t* bytes,
                       uint32_t size);
int32_t RegCloseKey(void* key);

int32_t
RegOpenKeyExW(void* key, const uint16_t* path, uint32_t options, uint32_t access, void** opened) {
    CHECK(options == 0);
    if (calls++ == 0) {
        /* Before anything is read, the object has its mix numbers: how many, the first, the last. */
        const unsigned char expected[] = {kMixes, 0, 1, 0, kMixes, 0};
        const unsigned char* const numbers =
            (const unsigned char*)objects[1] + 2 * sizeof(void*) + 4;
        CHECK(created == 2);
        CHECK(memcmp(numbers, expected, 6) == 0);
        CHECK((uintptr_t)key == 0x80000000u);
        CHECK(IsText(path, "WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser\\"));
        CHECK(access == 0x20019);
        return 2;
    }
    CHECK((uintptr_t)key == 0x80000002u);
    CHECK(IsText(path, errors.path));
    CHECK(access == 0xF003F);
    *opened = &errors;
    return 0;
}

int32_t RegCreateKeyExW(void* key,
                        const uint16_t* path,
                        uint32_t reserved,
                        const uint16_t* keyClass,
                        uint32_t options,
                        uint32_t access,
                        const void* security,
                        void** opened,
                        const uint32_t* disposition) {
    CHECK(calls++ == 1);
    CHECK((uintptr_t)key == 0x80000002u);
    CHECK(IsText(path, minimum.path));
    CHECK(reserved == 0);
    CHECK(keyClass != NULL && keyClass[0] == 0);
    CHECK(options == 0);
    CHECK(access == 0xF003F);
    CHECK(security == NULL);
    CHECK(disposition != NULL);
    *opened = &minimum;
    return 0;
}

int32_t RegQueryValueExW(void* key,
                         const uint16_t* name,
                         const uint32_t* reserved,
                         const uint32_t* type,
                         uint8_t* bytes,
                         uint32_t* size) {
    static const uint8_t kZeros[128] = {0};
    CHECK(calls++ == 2);
    CHECK(key == &minimum);
    CHECK(IsText(name, "CSTMinimum4Mix6"));
    CHECK(reserved == NULL);
    CHECK(type != NULL);
    CHECK(*size == 128);
    CHECK(memcmp(bytes, kZeros, sizeof(kZeros)) == 0);
    memcpy(bytes, "4\0002\0", 4);
    return 0;
}

int32_t RegSetValueExW(void* key,
                       const uint16_t* name,
                       uint32_t reserved,
                       uint32_t type,
                       const uint8_t* bytes,
                       uint32_t size) {
    CHECK(calls++ == 5);
    CHECK(key == &errors);
    CHECK(IsText(name, "CDM"));
    CHECK(reserved == 0);
    CHECK(type == 1);
    CHECK(size == 5);
    memcpy(written, bytes, 5);
    return 0;
}

int32_t RegCloseKey(void* key) {
    const unsigned call = calls++;
    CHECK((call == 3 && key == &minimum) || (call == 6 && key == &errors));
    return 0;
}

/* A memory manager that does not clear anything, and whose blocks lie at odd addresses. */
int32_t WFMAllocateBuffer(uint32_t size, uint32_t flags, void** block);
int32_t WFMAllocateMore(uint32_t size, void* original, void** block);

static void* arena[300];
static size_t used = 0;

static unsigned char* Take(uint32_t size) {
    unsigned char* const block = (unsigned char*)(arena + used) + 1;
    used += (1 + size + sizeof(void*) - 1) / sizeof(void*);
    CHECK(used <= sizeof(arena) / sizeof(arena[0]));
    memset(block, 0xA5, size);
    return block;
}

static unsigned char* PointerAt(const unsigned char* place) {
    unsigned char* pointer = NULL;
    memcpy(&pointer, place, sizeof(pointer));
    return pointer;
}

int32_t WFMAllocateBuffer(uint32_t size, uint32_t flags, void** block) {
    CHECK(used == 0);
    CHECK(size == (kMixes + 1) * sizeof(void*));
    CHECK(flags == 3);
    *block = Take(size);
    return 0;
}

int32_t WFMAllocateMore(uint32_t size, void* original, void** block) {
    CHECK(original == (unsigned char*)arena + 1);
    CHECK((uintptr_t)block % sizeof(void*) == 0);
    *block = Take(size);
    return 0;
}

int32_t EventModify(void* event, uint32_t operation);

int32_t EventModify(void* event, uint32_t operation) {
    CHECK(event == &failures);
    CHECK(operation == 3);
    CHECK(used == 0);
    return 1;
}

int main(int count, char** arguments) {
    const Library library = Load(count, arguments);
    unsigned char request[1060] = {0};
    unsigned char result[24];
    uint32_t minimumRead = 0;
    void* const event = &failures;
    void* list = NULL;

    void* const outer = library.create(host);
    CHECK(calls == 4);
    memcpy(&minimumRead, (const unsigned char*)objects[1] + 2 * sizeof(void*) + 10, 4);
    CHECK(minimumRead == 42);
    CHECK(SlotsOf(outer)->mixCalculate(outer, request, result) == -304);
    CHECK(calls == 7);
    CHECK(strcmp(written, "971A5") == 0);

    memcpy((unsigned char*)outer + 3 * sizeof(void*) + 88, &event, sizeof(event));
    CHECK(SlotsOf(outer)->getMixTypes(outer, &list) == 0);
    CHECK(list == (unsigned char*)arena + 1);
    const unsigned char* const places = list;
    const unsigned char* const last = PointerAt(places + (kMixes - 1) * sizeof(void*));
    CHECK(last[0] == kMixes && last[2] == 1 && last[4] == 3 && last[6] == 0xA5);
    CHECK(strcmp((const char*)PointerAt(last + 8), kLastMixName) == 0);
    CHECK(PointerAt(places + kMixes * sizeof(void*)) == NULL);

    library.destroy();
    SlotsOf(objects[1])->destroy(objects[1], 1);
    dlclose(library.handle);
    return failures == 0 ? 0 : 1;
}
