// A stand-in for the XFS manager's library on desktop Windows, for tests and for the tool on a
// desk: the two functions that the module imports, and the one that frees what they gave.

#include <windows.h>

namespace {

/// What stands before every block: the next block of its list.
struct Link {
    Link* next;
};

HRESULT Allocate(ULONG size, ULONG heapFlags, Link*& link, void** block) {
    constexpr HRESULT kOutOfMemory = -17;
    link = static_cast<Link*>(HeapAlloc(GetProcessHeap(), heapFlags, sizeof(Link) + size));
    if (link == nullptr) {
        return kOutOfMemory;
    }
    link->next = nullptr;
    *block = link + 1;
    return 0;
}

Link* LinkOf(void* block) {
    return static_cast<Link*>(block) - 1;
}

}  // namespace

extern "C" {
HRESULT WINAPI WFMAllocateBuffer(ULONG size, ULONG flags, void** block);
HRESULT WINAPI WFMAllocateMore(ULONG size, void* original, void** block);
HRESULT WINAPI WFMFreeBuffer(void* block);
}

HRESULT WINAPI WFMAllocateBuffer(ULONG size, ULONG flags, void** block) {
    constexpr ULONG kCleared = 2;
    Link* link = nullptr;
    return Allocate(size, (flags & kCleared) != 0 ? HEAP_ZERO_MEMORY : 0, link, block);
}

HRESULT WINAPI WFMAllocateMore(ULONG size, void* original, void** block) {
    Link* link = nullptr;
    const HRESULT result = Allocate(size, 0, link, block);
    if (link != nullptr) {
        link->next = LinkOf(original)->next;
        LinkOf(original)->next = link;
    }
    return result;
}

HRESULT WINAPI WFMFreeBuffer(void* block) {
    for (Link* link = LinkOf(block); link != nullptr;) {
        Link* const next = link->next;
        HeapFree(GetProcessHeap(), 0, link);
        link = next;
    }
    return 0;
}
