#include "RegistryStore.h"

#include "HostControl.h"
#include "TextEncoding.h"

#include <string_view>
#include <utility>

namespace {

constexpr std::uint32_t kFirstKeyHandle = 0x0A000004;

// Source: the access rights of Windows.
constexpr REGSAM kQueryValueRight = 0x0001;
constexpr REGSAM kSetValueRight = 0x0002;
constexpr REGSAM kMaximumAllowed = 0x02000000;
constexpr REGSAM kGenericAll = 0x10000000;
constexpr REGSAM kGenericWrite = 0x40000000;
constexpr REGSAM kGenericRead = 0x80000000;

/// The rights to values that an access mask stands for.
REGSAM RightsOf(REGSAM access) noexcept {
    if ((access & (kMaximumAllowed | kGenericAll)) != 0) {
        return kQueryValueRight | kSetValueRight;
    }
    REGSAM rights = access & (kQueryValueRight | kSetValueRight);
    rights |= (access & kGenericRead) != 0 ? kQueryValueRight : 0;
    rights |= (access & kGenericWrite) != 0 ? kSetValueRight : 0;
    return rights;
}

std::u16string_view TextOf(const PlatformChar* text) noexcept {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

}  // namespace

RegistryStore::RegistryStore()
    : content_(RegistryContent::AtStart()), classesRoot_{KeyPath(kClassesRootName), 0,
                                                         kMaximumAllowed,
                                                         KeyPath(kClassesRootName)},
      localMachine_{KeyPath(kLocalMachineName), 0, kMaximumAllowed, KeyPath(kLocalMachineName)},
      openKeys_(kFirstKeyHandle) {
}

RegistryStore& RegistryStore::Instance() {
    // On purpose never destroyed: the module may still be called while the process ends.
    static RegistryStore& store = *new RegistryStore;
    return store;
}

/// Finds what a handle stands for, whether or not its key is still there.
/// @return null for a handle that is no open key.
const RegistryStore::OpenKey* RegistryStore::FindOpenKey(HKEY key) const noexcept {
    if (key == HKEY_CLASSES_ROOT) {
        return &classesRoot_;
    }
    return key == HKEY_LOCAL_MACHINE ? &localMachine_ : openKeys_.Find(key);
}

/// Finds a key that is still there and was opened with the rights needed.
LONG RegistryStore::FindForUse(HKEY key, REGSAM needed, const OpenKey** found) const noexcept {
    const OpenKey* const open = FindOpenKey(key);
    if (open == nullptr) {
        return kQxmixErrorInvalidHandle;
    }
    const RegistryKey* stored = content_.Find(open->path);
    if (stored == nullptr || stored->serial != open->serial) {
        return kQxmixErrorKeyDeleted;
    }
    *found = open;
    return (RightsOf(open->access) & needed) == needed ? ERROR_SUCCESS : kQxmixErrorAccessDenied;
}

/// Finds the path of a sub-key, there or not.
LONG RegistryStore::ResolveSubKey(HKEY key, const PlatformChar* subKey, OpenKey* resolved) const {
    const OpenKey* above = nullptr;
    const LONG result = FindForUse(key, 0, &above);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    *resolved = *above;
    const std::u16string_view text = TextOf(subKey);
    if (!text.empty()) {
        resolved->written += u'\\';
        resolved->written += text;
    }
    return AppendSubKey(text, &resolved->path);
}

HKEY RegistryStore::KeepOpen(OpenKey key, REGSAM access) {
    key.serial = content_.Find(key.path)->serial;
    key.access = access;
    return static_cast<HKEY>(openKeys_.Insert(std::move(key)));
}

LONG RegistryStore::Open(HKEY key, const PlatformChar* subKey, REGSAM access, HKEY* opened) {
    const std::lock_guard<std::mutex> lock(mutex_);
    OpenKey resolved;
    const LONG result = ResolveSubKey(key, subKey, &resolved);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    if (content_.Find(resolved.path) == nullptr) {
        return kQxmixErrorFileNotFound;
    }
    *opened = KeepOpen(std::move(resolved), access);
    return ERROR_SUCCESS;
}

LONG RegistryStore::Create(HKEY key,
                           const PlatformChar* subKey,
                           REGSAM access,
                           HKEY* opened,
                           bool* created) {
    const std::lock_guard<std::mutex> lock(mutex_);
    OpenKey resolved;
    const LONG result = ResolveSubKey(key, subKey, &resolved);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    content_.Create(resolved.path, created);
    *opened = KeepOpen(std::move(resolved), access);
    return ERROR_SUCCESS;
}

LONG RegistryStore::Query(HKEY key,
                          const PlatformChar* name,
                          DWORD* type,
                          std::uint8_t* bytes,
                          DWORD* size) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const OpenKey* open = nullptr;
    const LONG result = FindForUse(key, kQueryValueRight, &open);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    const RegistryValue* value = content_.FindValue(open->path, std::u16string(TextOf(name)));
    if (value == nullptr) {
        return kQxmixErrorFileNotFound;
    }
    return GiveValue(*value, type, bytes, size);
}

LONG RegistryStore::Set(HKEY key, const PlatformChar* name, RegistryValue value) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const OpenKey* open = nullptr;
    const LONG result = FindForUse(key, kSetValueRight, &open);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    const std::u16string_view text = TextOf(name);
    if (text.size() > kMaxRegistryName) {
        return kQxmixErrorInvalidParameter;
    }
    content_.Find(open->path)->values[std::u16string(text)] = std::move(value);
    return ERROR_SUCCESS;
}

LONG RegistryStore::Close(HKEY key) {
    const std::lock_guard<std::mutex> lock(mutex_);
    // The roots are always open, and closing them changes nothing.
    if (key == HKEY_CLASSES_ROOT || key == HKEY_LOCAL_MACHINE) {
        return ERROR_SUCCESS;
    }
    return openKeys_.Erase(key) ? ERROR_SUCCESS : kQxmixErrorInvalidHandle;
}

std::string RegistryStore::DescribeKey(HKEY key) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const OpenKey* const open = FindOpenKey(key);
    return open == nullptr ? "?" : EncodeUtf8(open->written);
}

std::uint32_t RegistryStore::OpenKeys() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return openKeys_.Size();
}

void RegistryStore::ForgetOpenKeys() {
    const std::lock_guard<std::mutex> lock(mutex_);
    openKeys_.Clear();
}

void RegistryStore::Replace(RegistryContent content) {
    const std::lock_guard<std::mutex> lock(mutex_);
    content_ = std::move(content);
}
