#include "module/RegistryImage.h"

#include "WindowsApi.h"
#include "dispenser/StoredValues.h"
#include "errors/Errors.h"

#include <initializer_list>

namespace qxmix {

namespace {

/// Where the module looks for a value.
struct KeyPlace {
    HKEY root;
    const char* path;
};

constexpr const char* kErrorCodeKey = "SOFTWARE\\ATM\\ErrorCode";

KeyPlace PlaceOf(const std::string& name) {
    if (name == kTraceLevel) {
        return {HKEY_CLASSES_ROOT, "WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser"};
    }
    return {HKEY_LOCAL_MACHINE,
            name == kCstMinimum4Mix6 ? "SOFTWARE\\ATM\\DevInfo\\CDM" : kErrorCodeKey};
}

/// An open key of the system's registry, or none.
class RegistryKey {
public:
    RegistryKey(const KeyPlace& place, REGSAM access) {
        if (RegOpenKeyExA(place.root, place.path, 0, access, &key_) != ERROR_SUCCESS) {
            key_ = nullptr;
        }
    }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey() {
        if (key_ != nullptr) {
            RegCloseKey(key_);
        }
    }

    HKEY Get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

std::wstring Wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

std::optional<StoredValue> Find(const std::string& name) {
    const RegistryKey key(PlaceOf(name), KEY_QUERY_VALUE);
    BYTE bytes[1024];
    DWORD size = sizeof(bytes);
    DWORD type = 0;
    // The wide function: the other one would change the bytes of a text.
    if (key.Get() == nullptr || RegQueryValueExW(key.Get(), Wide(name).c_str(), nullptr, &type,
                                                 bytes, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return StoredValue{name, type, std::string(bytes, bytes + size)};
}

[[noreturn]] void RefuseValues(const std::string& what) {
    throw InputError(what + ": not on Windows: the module uses the system's own registry");
}

/// Whether the error code is out of the way; else nobody may write it, the module neither.
bool isTaken = false;

}  // namespace

std::string RegistryOf(const std::vector<StoredValue>& values) {
    if (!values.empty()) {
        RefuseValues("the dispenser's registry, " + values.front().name);
    }
    return "";
}

std::string ReadRegistryFile(const std::string& file) {
    RefuseValues(file);
}

std::optional<StoredValue> FindStored(const std::string&, const std::string& name) {
    return Find(name);
}

std::vector<StoredValue> TakenValues(const std::string&) {
    std::vector<StoredValue> values;
    for (const char* name : {kTraceLevel, kCstMinimum4Mix6}) {
        if (const auto value = Find(name)) {
            values.push_back(*value);
        }
    }
    return values;
}

void LoadRegistry(const std::string&) {
}

std::string SaveRegistry() {
    return "";
}

std::string ErrorCodeBytes() {
    const std::optional<StoredValue> code = Find(kErrorCodeName);
    return code && isTaken ? code->bytes : "";
}

std::optional<StoredValue> TakeErrorCode() {
    std::optional<StoredValue> taken = Find(kErrorCodeName);
    const RegistryKey key(PlaceOf(kErrorCodeName), KEY_SET_VALUE);
    isTaken = key.Get() != nullptr &&
              (!taken || RegDeleteValueA(key.Get(), kErrorCodeName) == ERROR_SUCCESS);
    return taken;
}

void RestoreErrorCode(const std::optional<StoredValue>& taken) {
    const RegistryKey key(PlaceOf(kErrorCodeName), KEY_SET_VALUE);
    if (taken && key.Get() != nullptr) {
        RegSetValueExW(key.Get(), Wide(kErrorCodeName).c_str(), 0, taken->type,
                       reinterpret_cast<const BYTE*>(taken->bytes.data()),
                       static_cast<DWORD>(taken->bytes.size()));
    }
}

}  // namespace qxmix
