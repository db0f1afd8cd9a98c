/* What every host in this folder does: it counts what is not so, loads the library by its path and
 * calls slots. Nothing here comes from a header of the module. */

#ifndef CONTRACT_H
#define CONTRACT_H

#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* As hosts know the module: so many mixes, their sub-types, and the name of the last. */
enum { kMixes = 10 };
static const char kSubTypes[] __attribute__((unused)) = {1, 3, 2, 2, 1, 1, 3, 2, 2, 3};
static const char kLastMixName[] __attribute__((unused)) = "Varnholt Maximum Notes";

static int failures = 0;

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition);                \
            ++failures;                                                                            \
        }                                                                                          \
    } while (0)

typedef struct Slots {
    void* (*destroy)(void* object, uint32_t flags);
    int32_t (*getMixTypes)(void* object, void** list);
    int32_t (*mixCalculate)(void* object, void* request, void* result);
} Slots;

static const Slots* SlotsOf(const void* object) {
    const Slots* slots = NULL;
    memcpy(&slots, object, sizeof(slots));
    return slots;
}

typedef struct Library {
    void* handle;
    void* (*create)(const void* host);
    void (*destroy)(void);
} Library;

/* Ends the program when the library or an export is missing. */
static Library Load(int count, char** arguments) {
    Library library;
    if (count != 2) {
        fprintf(stderr, "usage: %s <library>\n", arguments[0]);
        exit(2);
    }
    library.handle = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (library.handle == NULL) {
        fprintf(stderr, "%s\n", dlerror());
        exit(1);
    }
    *(void**)&library.create = dlsym(library.handle, "CreateMixAlgorithm");
    *(void**)&library.destroy = dlsym(library.handle, "DeleteMixAlgorithm");
    if (library.create == NULL || library.destroy == NULL) {
        fprintf(stderr, "an export is missing\n");
        exit(1);
    }
    return library;
}

#endif
