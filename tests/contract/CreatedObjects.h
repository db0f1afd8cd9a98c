/* A host that keeps the objects that it is told of. */

#ifndef CREATED_OBJECTS_H
#define CREATED_OBJECTS_H

#include <stddef.h>
#include <stdint.h>

static void* objects[2];
static unsigned created = 0;

static int32_t OnObjectCreated(void* host, void* object) {
    (void)host;
    objects[created++] = object;
    return 0;
}

static int32_t (*const hostSlots[2])(void*, void*) = {NULL, OnObjectCreated};
static const void* const host[1] = {(const void*)hostSlots};

#endif
