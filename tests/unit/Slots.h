#pragma once

#include "MixAlgorithm.h"

#include <cstring>

/// The table of slots that an object carries at this moment, as a host in plain C sees it.
struct Slots {
    void* (*destroy)(IMixAlgorithm*, std::uint32_t);
    std::int32_t (*getMixTypes)(IMixAlgorithm*, WFSCDMMIXTYPE***);
    std::int32_t (*mixCalculate)(IMixAlgorithm*, MixRequest*, MixResult*);
};

inline const Slots* SlotsOf(const void* object) {
    const Slots* slots = nullptr;
    std::memcpy(&slots, object, sizeof(slots));
    return slots;
}

inline void SetSlots(void* object, const Slots* slots) {
    std::memcpy(object, &slots, sizeof(slots));
}
