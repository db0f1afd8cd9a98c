// A module that crashes in each calculation. The objects are laid out by hand: a pointer to three
// slots, then as many bytes as a host may touch.

#include <cstdint>

namespace {

#define SLOT __attribute__((thiscall))

SLOT void* Destroy(void* object, std::uint32_t) {
    return object;
}

SLOT std::int32_t GetMixTypes(void*, void*) {
    return -1;
}

SLOT std::int32_t MixCalculate(void*, void*, void*) {
    *reinterpret_cast<volatile int*>(4) = 0;
    return 0;
}

struct Slots {
    void*(SLOT* destroy)(void*, std::uint32_t);
    std::int32_t(SLOT* getMixTypes)(void*, void*);
    std::int32_t(SLOT* mixCalculate)(void*, void*, void*);
};

const Slots kSlots{&Destroy, &GetMixTypes, &MixCalculate};

struct Object {
    const Slots* slots;
    unsigned char rest[120];
};

Object object{&kSlots, {}};

}  // namespace

extern "C" {
__declspec(dllexport) void* CreateMixAlgorithm(void*) {
    return &object;
}
__declspec(dllexport) void DeleteMixAlgorithm() {
}
}
