#pragma once

#include "HandleTable.h"
#include "KeptLocks.h"
#include "PlatformApi.h"
#include "RegistryContent.h"

#include <mutex>
#include <string>

/// The registry of the process: its content and the keys that the module has open.
///
/// Safe under threads. Results are the error numbers of Windows; what an operation gives back is
/// written only when it succeeds, but for the size that ERROR_MORE_DATA tells. A key that was
/// deleted or replaced after it was opened stays open, and everything but closing it fails with
/// kQxmixErrorKeyDeleted.
class RegistryStore {
public:
    /// The store; it lives until the process ends, so that late callers find it too.
    static RegistryStore& Instance();

    LONG Open(HKEY key, const PlatformChar* subKey, REGSAM access, HKEY* opened);

    /// @param created  receives whether the key was missing.
    LONG Create(HKEY key, const PlatformChar* subKey, REGSAM access, HKEY* opened, bool* created);

    /// @param type, bytes, size  as RegQueryValueExW takes them; size is there when bytes is.
    LONG Query(HKEY key, const PlatformChar* name, DWORD* type, std::uint8_t* bytes, DWORD* size);

    LONG Set(HKEY key, const PlatformChar* name, RegistryValue value);

    LONG Close(HKEY key);

    /// Path of an open key as it was written when it was opened, or "?".
    std::string DescribeKey(HKEY key);

    std::uint32_t OpenKeys();

    /// Makes the handles of all open keys unknown.
    void ForgetOpenKeys();

    /// Replaces the whole content at once.
    void Replace(RegistryContent content);

    /// Runs use(content) while nobody else has the content, and gives its result.
    template <typename Use>
    auto WithContent(Use use) {
        const std::lock_guard<std::mutex> lock(mutex_);
        return use(content_);
    }

private:
    /// A key as one handle sees it.
    struct OpenKey {
        KeyPath path;
        std::uint64_t serial;
        REGSAM access;
        std::u16string written;  ///< the path as it was written when the key was opened
    };

    RegistryStore();

    const OpenKey* FindOpenKey(HKEY key) const noexcept;
    LONG FindForUse(HKEY key, REGSAM needed, const OpenKey** found) const noexcept;
    LONG ResolveSubKey(HKEY key, const PlatformChar* subKey, OpenKey* resolved) const;
    HKEY KeepOpen(OpenKey key, REGSAM access);

    std::mutex& mutex_ = LockOf(Kept::Registry);
    RegistryContent content_;
    OpenKey classesRoot_;
    OpenKey localMachine_;
    HandleTable<OpenKey> openKeys_;
};
