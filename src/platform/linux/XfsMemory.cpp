/// The memory functions of the XFS manager.

#include "CallControl.h"
#include "HostControl.h"
#include "KeptLocks.h"
#include "PlatformApi.h"

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace {

/// A wild size must not eat the memory of the machine.
constexpr ULONG kLargestBlock = 16UL * 1024 * 1024;

/// Every block is memory of its own, so that a write beyond it is seen by the usual checkers.
struct Block {
    ULONG size = 0;
    bool isRoot = false;
    std::vector<void*> linked;
};

class Blocks {
public:
    /// The blocks of the process; the bookkeeping lives until it ends.
    static Blocks& Instance() {
        static Blocks& blocks = *new Blocks;
        return blocks;
    }

    HRESULT Allocate(ULONG size, bool cleared, void** block) {
        const std::lock_guard<std::mutex> lock(mutex_);
        return Add(size, cleared, true, block);
    }

    HRESULT AllocateLinked(ULONG size, void* root, void** block) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto original = blocks_.find(root);
        if (original == blocks_.end() || !original->second.isRoot) {
            return kQxmixXfsInvalidBuffer;
        }
        // Room in the list first: when there is none, nothing may have been allocated yet.
        std::vector<void*>& linked = original->second.linked;
        linked.push_back(nullptr);
        const HRESULT result = Add(size, false, false, &linked.back());
        if (result == kQxmixXfsSuccess) {
            *block = linked.back();
        } else {
            linked.pop_back();
        }
        return result;
    }

    HRESULT Free(void* root) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto found = blocks_.find(root);
        if (found == blocks_.end() || !found->second.isRoot) {
            return kQxmixXfsInvalidBuffer;
        }
        for (void* linked : found->second.linked) {
            blocks_.erase(linked);
            std::free(linked);
        }
        blocks_.erase(found);
        std::free(root);
        return kQxmixXfsSuccess;
    }

    void FreeAll() {
        const std::lock_guard<std::mutex> lock(mutex_);
        for (const auto& entry : blocks_) {
            std::free(entry.first);
        }
        blocks_.clear();
    }

    std::uint32_t Count(bool rootsOnly) {
        const std::lock_guard<std::mutex> lock(mutex_);
        std::uint32_t count = 0;
        for (const auto& entry : blocks_) {
            count += entry.second.isRoot || !rootsOnly ? 1 : 0;
        }
        return count;
    }

    bool FindSize(const void* block, std::uint32_t* size) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto found = blocks_.find(const_cast<void*>(block));
        if (found == blocks_.end()) {
            return false;
        }
        *size = found->second.size;
        return true;
    }

private:
    HRESULT Add(ULONG size, bool cleared, bool isRoot, void** block) noexcept {
        if (size > kLargestBlock) {
            return kQxmixXfsOutOfMemory;
        }
        // A block of no bytes still has an address of its own.
        const std::size_t bytes = size == 0 ? 1 : size;
        void* memory = std::malloc(bytes);
        if (memory == nullptr) {
            return kQxmixXfsOutOfMemory;
        }
        std::memset(memory, cleared ? 0 : kQxmixUnwrittenByte, bytes);
        const HRESULT kept = Guarded<HRESULT>(kQxmixXfsOutOfMemory, [&]() -> HRESULT {
            blocks_.emplace(memory, Block{size, isRoot, {}});
            return kQxmixXfsSuccess;
        });
        if (kept != kQxmixXfsSuccess) {
            std::free(memory);
            return kept;
        }
        *block = memory;
        return kept;
    }

    std::mutex& mutex_ = LockOf(Kept::Memory);
    std::unordered_map<void*, Block> blocks_;
};

// Made when the library is loaded: a fork amid the first call would leave it half made in the
// child.
[[maybe_unused]] const Blocks& madeAtLoad = Blocks::Instance();

}  // namespace

HRESULT WFMAllocateBuffer(ULONG size, ULONG flags, void** block) {
    ModuleCall call(kQxmixWFMAllocateBuffer);
    call.size = size;
    call.options = flags;
    return CallControl::Instance().Run(&call, [=]() -> HRESULT {
        if (block == nullptr) {
            return kQxmixXfsInvalidPointer;
        }
        const bool cleared = (flags & WFS_MEM_ZEROINIT) != 0;
        return Blocks::Instance().Allocate(size, cleared, block);
    });
}

HRESULT WFMAllocateMore(ULONG size, void* original, void** block) {
    ModuleCall call(kQxmixWFMAllocateMore);
    call.size = size;
    return CallControl::Instance().Run(&call, [=]() -> HRESULT {
        if (original == nullptr || block == nullptr) {
            return kQxmixXfsInvalidPointer;
        }
        return Blocks::Instance().AllocateLinked(size, original, block);
    });
}

std::int32_t WFMFreeBuffer(void* block) {
    return block == nullptr ? kQxmixXfsInvalidPointer : Blocks::Instance().Free(block);
}

std::uint32_t QxmixMemoryLiveBlocks() {
    return Blocks::Instance().Count(false);
}

std::uint32_t QxmixMemoryLiveBuffers() {
    return Blocks::Instance().Count(true);
}

int QxmixMemoryBlockSize(const void* block, std::uint32_t* size) {
    return Blocks::Instance().FindSize(block, size) ? 1 : 0;
}

void QxmixMemoryFreeAll() {
    Blocks::Instance().FreeAll();
}
