/* What a calculation leaves alone: the allocator, the two objects, and every variable of the
 * library. The host has all the platform's functions itself, and none of them allocates.
 *
 * Usage: no_state_contract <path of the library>. Exits with 0 when everything is as it should be.
 */

#define _GNU_SOURCE
#include "Contract.h"
#include "CreatedObjects.h"

#include <link.h>

static int isWatched = 0;
static unsigned allocations = 0;

/* The C library's own names of its allocator, behind the ones that stand in front of it here. */
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* memory);

static void Count(void) {
    allocations += isWatched ? 1u : 0u;
}

void* malloc(size_t size) {
    Count();
    return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    Count();
    return __libc_calloc(count, size);
}

void* realloc(void* memory, size_t size) {
    Count();
    return __libc_realloc(memory, size);
}

void* aligned_alloc(size_t alignment, size_t size) {
    Count();
    return __libc_memalign(alignment, size);
}

int posix_memalign(void** memory, size_t alignment, size_t size) {
    Count();
    *memory = __libc_memalign(alignment, size);
    return *memory != NULL ? 0 : 12;
}

void free(void* memory) {
    Count();
    __libc_free(memory);
}

/* The platform. */
static char written[6];
static unsigned writes = 0;

int32_t
RegOpenKeyExW(void* key, const uint16_t* path, uint32_t options, uint32_t access, void** opened);
int32_t RegCreateKeyExW(void);
int32_t RegQueryValueExW(void);
int32_t RegSetValueExW(void* key,
                       const uint16_t* name,
                       uint32_t reserved,
                       uint32_t type,
                       const uint8_t* bytes,
                       uint32_t size);
int32_t RegCloseKey(void* key);
int32_t EventModify(void* event, uint32_t operation);
int32_t WFMAllocateBuffer(void);
int32_t WFMAllocateMore(void);
int QxmixTraceWanted(void);
void QxmixTraceLine(const char* line);

int32_t
RegOpenKeyExW(void* key, const uint16_t* path, uint32_t options, uint32_t access, void** opened) {
    (void)path;
    (void)options;
    (void)access;
    *opened = written;
    return (uintptr_t)key == 0x80000002u ? 0 : 2;
}

int32_t RegCreateKeyExW(void) {
    return 2;
}

int32_t RegQueryValueExW(void) {
    return 2;
}

int32_t RegSetValueExW(void* key,
                       const uint16_t* name,
                       uint32_t reserved,
                       uint32_t type,
                       const uint8_t* bytes,
                       uint32_t size) {
    (void)key;
    (void)name;
    (void)reserved;
    (void)type;
    CHECK(size == 5);
    memcpy(written, bytes, 5);
    ++writes;
    return 0;
}

int32_t RegCloseKey(void* key) {
    (void)key;
    return 0;
}

int32_t EventModify(void* event, uint32_t operation) {
    (void)event;
    (void)operation;
    return 1;
}

int32_t WFMAllocateBuffer(void) {
    return -1;
}

int32_t WFMAllocateMore(void) {
    return -1;
}

int QxmixTraceWanted(void) {
    return 0;
}

void QxmixTraceLine(const char* line) {
    (void)line;
}

/* The library's variables: its writable segments, all bound when it was loaded. */
typedef struct Variables {
    const char* path;
    unsigned char bytes[65536];
    size_t size;
} Variables;

static int AddVariables(struct dl_phdr_info* info, size_t size, void* data) {
    Variables* const variables = data;
    (void)size;
    if (strstr(info->dlpi_name, "libQXMIX") == NULL) {
        return 0;
    }
    for (unsigned index = 0; index < info->dlpi_phnum; ++index) {
        const ElfW(Phdr)* const header = info->dlpi_phdr + index;
        if (header->p_type == PT_LOAD && (header->p_flags & PF_W) != 0) {
            CHECK(variables->size + header->p_memsz <= sizeof(variables->bytes));
            memcpy(variables->bytes + variables->size,
                   (const void*)(info->dlpi_addr + header->p_vaddr), header->p_memsz);
            variables->size += header->p_memsz;
        }
    }
    return 0;
}

static Variables before;
static Variables after;

static void SetNumber(unsigned char* first, unsigned width, uint32_t number) {
    for (unsigned index = 0; index < width; ++index) {
        first[index] = (unsigned char)(number >> (8 * index));
    }
}

static void
AddCassette(unsigned char* request, unsigned index, unsigned type, uint32_t value, uint32_t count) {
    unsigned char* const cassette = request + 24 + 172 * index;
    SetNumber(cassette, 2, index);
    SetNumber(cassette + 130, 2, type);
    memcpy(cassette + 137, "EUR", 3);
    SetNumber(cassette + 148, 4, value);
    SetNumber(cassette + 152, 4, count);
    SetNumber(cassette + 164, 2, 0);
    SetNumber(request + 20, 2, index + 1);
}

static void MakeRequest(unsigned char* request, unsigned mix, unsigned units, uint32_t amount) {
    static const uint32_t kValues[6] = {50, 20, 10, 5, 100, 200};
    memset(request, 0, 1060);
    SetNumber(request, 2, mix);
    SetNumber(request + 2, 2, 30);
    memcpy(request + 8, "EUR", 3);
    SetNumber(request + 16, 4, amount);
    for (unsigned index = 0; index < units; ++index) {
        AddCassette(request, index, index == 3 ? 4 : 3, kValues[index], 400 - 20 * index);
    }
}

static unsigned results[2]; /* successes and failures */

static void Calculate(unsigned char* request) {
    unsigned char result[24];
    unsigned char bytesBefore[2][256];
    const size_t sizes[2] = {100 + 4 * sizeof(void*), 116 + 2 * sizeof(void*)};
    for (unsigned index = 0; index < 2; ++index) {
        memcpy(bytesBefore[index], objects[index], sizes[index]);
    }
    before.size = 0;
    dl_iterate_phdr(AddVariables, &before);
    CHECK(before.size != 0);
    const unsigned writesBefore = writes;
    isWatched = 1;
    const int32_t returned = SlotsOf(objects[0])->mixCalculate(objects[0], request, result);
    isWatched = 0;
    ++results[returned != 0];
    CHECK(writes - writesBefore <= 1);
    after.size = 0;
    dl_iterate_phdr(AddVariables, &after);
    CHECK(before.size == after.size && memcmp(before.bytes, after.bytes, before.size) == 0);
    for (unsigned index = 0; index < 2; ++index) {
        CHECK(memcmp(bytesBefore[index], objects[index], sizes[index]) == 0);
    }
}

int main(int count, char** arguments) {
    const Library library = Load(count, arguments);
    unsigned char request[1060];
    isWatched = 1;
    library.create(host);
    isWatched = 0;
    CHECK(created == 2);
    CHECK(allocations == 2); /* the two objects: what counts does count */
    allocations = 0;

    for (unsigned mix = 0; mix <= 11; ++mix) {
        /* The amounts that mixes 4 and 9 can make at once; from the second on others as well. */
        static const uint32_t kAmounts[5] = {385, 50, 7, 12345, 4000000};
        for (unsigned units = 0; units <= 6; ++units) {
            const int isFirstFit = (mix == 4 || mix == 9) && units > 2;
            for (unsigned index = 0; index < (isFirstFit ? 1u : 5u); ++index) {
                for (uint32_t partial = 0; partial <= 1; ++partial) {
                    MakeRequest(request, mix, units, isFirstFit ? 50 : kAmounts[index]);
                    SetNumber(request + 4, 4, partial);
                    Calculate(request);
                }
            }
        }
    }
    CHECK(allocations == 0);
    CHECK(results[0] > 100 && results[1] > 100 && writes > 100);

    library.destroy();
    SlotsOf(objects[1])->destroy(objects[1], 1);
    dlclose(library.handle);
    return failures == 0 ? 0 : 1;
}
