/// The five registry functions of the module: argument checks, then the store.

#include "CallControl.h"
#include "PlatformApi.h"
#include "RegistryStore.h"
#include "TextEncoding.h"

#include <utility>

namespace {

constexpr DWORD kCreatedNewKey = 1;
constexpr DWORD kOpenedExistingKey = 2;

/// Runs a call under control; describe(call) fills in the texts of one that is logged.
template <typename Describe, typename Action>
LONG RunDescribed(ModuleCall* call, Describe describe, Action action) noexcept {
    CallControl& control = CallControl::Instance();
    if (control.IsLogging()) {
        // Before the call, since closing a key takes its name away.
        Guarded([&] { describe(call); });
    }
    return control.Run(call, action);
}

std::string Printable(const PlatformChar* text) {
    return text == nullptr ? std::string() : EncodeUtf8(text);
}

void DescribeSubKey(HKEY key, const PlatformChar* subKey, ModuleCall* call) {
    call->key = RegistryStore::Instance().DescribeKey(key);
    if (subKey != nullptr && subKey[0] != u'\0') {
        call->key += "\\" + EncodeUtf8(subKey);
    }
}

void DescribeValue(HKEY key, const PlatformChar* valueName, ModuleCall* call) {
    call->key = RegistryStore::Instance().DescribeKey(key);
    call->valueName = Printable(valueName);
}

}  // namespace

LONG RegOpenKeyExW(HKEY key,
                   const PlatformChar* subKey,
                   DWORD options,
                   REGSAM access,
                   HKEY* opened) {
    ModuleCall call(kQxmixRegOpenKeyExW);
    call.access = access;
    call.options = options;
    const auto describe = [=](ModuleCall* described) { DescribeSubKey(key, subKey, described); };
    return RunDescribed(&call, describe, [=]() -> LONG {
        if (opened == nullptr || options != 0) {
            return kQxmixErrorInvalidParameter;
        }
        return RegistryStore::Instance().Open(key, subKey, access, opened);
    });
}

// NOLINTNEXTLINE(readability-function-size): the arguments are those of Windows
LONG RegCreateKeyExW(HKEY key,
                     const PlatformChar* subKey,
                     DWORD reserved,
                     [[maybe_unused]] PlatformChar* keyClass,
                     DWORD options,
                     REGSAM access,
                     [[maybe_unused]] void* securityAttributes,
                     HKEY* opened,
                     DWORD* disposition) {
    ModuleCall call(kQxmixRegCreateKeyExW);
    call.access = access;
    call.options = options;
    const auto describe = [=](ModuleCall* described) { DescribeSubKey(key, subKey, described); };
    return RunDescribed(&call, describe, [=]() -> LONG {
        // On purpose as strict as the oldest systems: a caller must name a place for every output.
        if (opened == nullptr || disposition == nullptr || subKey == nullptr || reserved != 0 ||
            options != 0) {
            return kQxmixErrorInvalidParameter;
        }
        bool created = false;
        const LONG result = RegistryStore::Instance().Create(key, subKey, access, opened, &created);
        if (result == ERROR_SUCCESS) {
            *disposition = created ? kCreatedNewKey : kOpenedExistingKey;
        }
        return result;
    });
}

// NOLINTNEXTLINE(readability-function-size): the arguments are those of Windows
LONG RegQueryValueExW(HKEY key,
                      const PlatformChar* valueName,
                      DWORD* reserved,
                      DWORD* type,
                      std::uint8_t* bytes,
                      DWORD* size) {
    ModuleCall call(kQxmixRegQueryValueExW);
    call.size = bytes != nullptr && size != nullptr ? *size : 0;
    const auto describe = [=](ModuleCall* described) { DescribeValue(key, valueName, described); };
    return RunDescribed(&call, describe, [=, &call]() -> LONG {
        if (reserved != nullptr || type == nullptr || (bytes != nullptr && size == nullptr)) {
            return kQxmixErrorInvalidParameter;
        }
        const LONG result =
            RegistryStore::Instance().Query(key, valueName, &call.type, bytes, size);
        if (result == ERROR_SUCCESS || result == kQxmixErrorMoreData) {
            *type = call.type;
        }
        return result;
    });
}

// NOLINTNEXTLINE(readability-function-size): the arguments are those of Windows
LONG RegSetValueExW(HKEY key,
                    const PlatformChar* valueName,
                    DWORD reserved,
                    DWORD type,
                    const std::uint8_t* bytes,
                    DWORD size) {
    ModuleCall call(kQxmixRegSetValueExW);
    call.type = type;
    call.size = size;
    const auto describe = [=](ModuleCall* described) { DescribeValue(key, valueName, described); };
    return RunDescribed(&call, describe, [=]() -> LONG {
        if (reserved != 0 || (bytes == nullptr && size != 0)) {
            return kQxmixErrorInvalidParameter;
        }
        RegistryValue value{type, {}};
        value.bytes.assign(bytes, bytes + size);
        return RegistryStore::Instance().Set(key, valueName, std::move(value));
    });
}

LONG RegCloseKey(HKEY key) {
    ModuleCall call(kQxmixRegCloseKey);
    const auto describe = [=](ModuleCall* described) {
        described->key = RegistryStore::Instance().DescribeKey(key);
    };
    return RunDescribed(&call, describe, [=] { return RegistryStore::Instance().Close(key); });
}
