// A module that does whatever the amount of the request says, to show what the tool makes of it.
// The objects are laid out by hand: a pointer to three slots, then the fields.

#include "FakeModule.h"

#include "HostControl.h"
#include "MixAlgorithm.h"
#include "ObjectLayout.h"
#include "Records.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

extern "C" {
std::int32_t WFMAllocateBuffer(std::uint32_t size, std::uint32_t flags, void** block);
std::int32_t WFMAllocateMore(std::uint32_t size, void* original, void** block);
void QxmixTraceLine(const char* line);
}

namespace {

struct Slots {
    void* (*destroy)(void* object, std::uint32_t flags);
    std::int32_t (*getMixTypes)(void* object, WFSCDMMIXTYPE*** list);
    std::int32_t (*mixCalculate)(void* object, MixRequest* request, MixResult* result);
};

struct FakeObject {
    const Slots* slots;
    union {
        MixAlgorithmFields inner;
        MixAlgorithmProxyFields outer;
    } fields;
};

void* Destroy(void* object, std::uint32_t) {
    return object;
}

/// Two whole records and one without its name, then no more memory.
std::int32_t GetMixTypes(void*, WFSCDMMIXTYPE*** list) {
    void* block = nullptr;
    WFMAllocateBuffer(11 * sizeof(void*), 3, &block);
    *list = static_cast<WFSCDMMIXTYPE**>(block);
    for (unsigned index = 0; index < 3; ++index) {
        void* record = nullptr;
        WFMAllocateMore(sizeof(WFSCDMMIXTYPE), block, &record);
        (*list)[index] = static_cast<WFSCDMMIXTYPE*>(record);
    }
    return -1;
}

/// Never ends, and never stops telling so.
[[noreturn]] void TraceForEver() {
    for (;;) {
        QxmixTraceLine("still searching");
    }
}

std::int32_t MixCalculate(void*, MixRequest* request, MixResult* result) {
    std::memset(static_cast<void*>(result), 0, sizeof(*result));
    switch (static_cast<FakeBehaviour>(std::uint32_t{request->ulAmount})) {
    case FakeBehaviour::Crash:
        std::raise(SIGSEGV);
        return 0;
    case FakeBehaviour::Hang:
        for (;;) {
            pause();
        }
    case FakeBehaviour::TraceForEver:
        TraceForEver();
    case FakeBehaviour::Leave:
        std::_Exit(7);
    case FakeBehaviour::OddCode:
        return -14;
    case FakeBehaviour::Print:
        std::puts("printed by the library");
        std::fflush(stdout);
        result->aulNotes[0] = static_cast<std::uint32_t>(std::getchar() == EOF ? 1 : 2);
        return 0;
    case FakeBehaviour::PayFromNowhere:
        result->aulNotes[5] = 1;
        return 0;
    case FakeBehaviour::TakeAll:
        result->aulNotes[0] = 1000;
        return 0;
    case FakeBehaviour::Refuse:
        QxmixRegistrySetValue("HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode", "CDM", 1, "971A2", 5);
        return -306;
    default:
        result->aulNotes[0] = request->ulAmount;
        return 0;
    }
}

const Slots kSlots = {&Destroy, &GetMixTypes, &MixCalculate};
FakeObject outer = {&kSlots, {}};
FakeObject inner = {&kSlots, {}};

}  // namespace

extern "C" IMixAlgorithm* CreateMixAlgorithm(MixAlgorithmHost* host) {
    switch (static_cast<FakeCreation>(QXMIX_FAKE_CREATION)) {
    case FakeCreation::NoObject:
        return nullptr;
    case FakeCreation::Crash:
        std::raise(SIGSEGV);
        break;
    case FakeCreation::Usual:
        break;
    }
    host->OnObjectCreated(reinterpret_cast<IMixAlgorithm*>(&outer));
    host->OnObjectCreated(reinterpret_cast<IMixAlgorithm*>(&inner));
    inner.fields.inner.usNumMixTypes = 10;
    inner.fields.inner.ulTraceLevel = 5;
    inner.fields.inner.ulCstMinimum4Mix6 = 77;
    return reinterpret_cast<IMixAlgorithm*>(&outer);
}

#if !defined(QXMIX_FAKE_WITHOUT_DELETE)
extern "C" void DeleteMixAlgorithm() {
}
#endif
