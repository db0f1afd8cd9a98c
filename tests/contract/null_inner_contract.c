/* What a host sees of an outer object whose inner one found no memory: both calls go through the
 * null pointer, and a request for the mix types sets the event before that.
 *
 * Usage: null_inner_contract <path of the library>. Exits with 0 when everything is as it should
 * be. */

#define _DEFAULT_SOURCE /* MAP_ANONYMOUS */

#include "Contract.h"
#include "CreatedObjects.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

/* What is left of a process that has died: the events that it has set. */
static void** lastEvent = NULL;

/* In front of the stand-in's. */
int32_t EventModify(void* event, uint32_t operation);

int32_t EventModify(void* event, uint32_t operation) {
    CHECK(operation == 3);
    *lastEvent = event;
    return 1;
}

typedef void (*Call)(void* outer);

static void GetMixTypes(void* outer) {
    void* list = NULL;
    SlotsOf(outer)->getMixTypes(outer, &list);
}

static void MixCalculate(void* outer) {
    unsigned char request[1060] = {0};
    unsigned char result[24];
    SlotsOf(outer)->mixCalculate(outer, request, result);
}

/* Whether a process that makes a call dies of it. */
static int Dies(Call call, void* outer) {
    int status = 0;
    const pid_t child = fork();
    if (child == 0) {
        call(outer);
        _exit(0);
    }
    CHECK(child > 0 && waitpid(child, &status, 0) == child);
    return !WIFEXITED(status) || WEXITSTATUS(status) != 0;
}

int main(int count, char** arguments) {
    const Library library = Load(count, arguments);
    void* const event = &failures;
    void* inner = NULL;
    void* const outer = library.create(host);
    unsigned char* const fields = outer;
    lastEvent =
        mmap(NULL, sizeof(*lastEvent), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    CHECK(lastEvent != MAP_FAILED);
    memcpy(fields + 3 * sizeof(void*) + 88, &event, sizeof(event));
    CHECK(!Dies(GetMixTypes, outer) && *lastEvent == event);
    CHECK(!Dies(MixCalculate, outer));

    *lastEvent = NULL;
    memcpy(fields + 2 * sizeof(void*), &inner, sizeof(inner));
    CHECK(Dies(GetMixTypes, outer) && *lastEvent == event);
    *lastEvent = NULL;
    CHECK(Dies(MixCalculate, outer) && *lastEvent == NULL);

    library.destroy();
    SlotsOf(objects[1])->destroy(objects[1], 1);
    dlclose(library.handle);
    return failures == 0 ? 0 : 1;
}
