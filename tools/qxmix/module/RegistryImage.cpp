#include "RegistryImage.h"

#include "HostControl.h"
#include "dispenser/StoredValues.h"
#include "errors/Errors.h"
#include "files/InputFile.h"

#include <algorithm>
#include <cctype>

namespace qxmix {

namespace {

constexpr const char* kTraceLevelKey =
    "HKEY_CLASSES_ROOT\\WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser";
constexpr const char* kDispenserKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM";
constexpr const char* kErrorCodeKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode";

void Store(const StoredValue& value) {
    const std::int32_t result =
        QxmixRegistrySetValue(KeyOf(value.name), value.name.c_str(), value.type, value.bytes.data(),
                              static_cast<std::uint32_t>(value.bytes.size()));
    if (result != 0) {
        throw WorkError("registry value " + value.name + ": error " + std::to_string(result));
    }
}

std::optional<StoredValue> Find(const std::string& name) {
    StoredValue value{name, 0, ""};
    std::uint32_t size = 0;
    if (QxmixRegistryGetValue(KeyOf(name), name.c_str(), &value.type, nullptr, &size) != 0) {
        return std::nullopt;
    }
    value.bytes.resize(size);
    if (QxmixRegistryGetValue(KeyOf(name), name.c_str(), &value.type, value.bytes.data(), &size) !=
        0) {
        return std::nullopt;
    }
    return value;
}

/// The lines of a registry as it is saved: UTF-16 with a mark. Other characters become "?".
std::vector<std::string> LinesOf(const std::string& saved) {
    std::vector<std::string> lines(1);
    for (std::size_t at = 2; at + 1 < saved.size(); at += 2) {
        if (saved[at] == '\n') {
            lines.emplace_back();
        } else if (saved[at] != '\r') {
            lines.back() += saved[at + 1] == 0 ? saved[at] : '?';
        }
    }
    return lines;
}

bool IsSameName(const std::string& left, const std::string& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) {
                          return std::toupper(static_cast<unsigned char>(one)) ==
                                 std::toupper(static_cast<unsigned char>(other));
                      });
}

}  // namespace

const char* KeyOf(const std::string& name) {
    return name == kTraceLevel        ? kTraceLevelKey
           : name == kCstMinimum4Mix6 ? kDispenserKey
                                      : kErrorCodeKey;
}

std::vector<std::string> KeysWith(const std::string& registry, const std::string& name) {
    LoadRegistry(registry);
    std::vector<std::string> keys;
    std::string key;
    for (const std::string& line : LinesOf(SaveRegistry())) {
        if (!line.empty() && line.front() == '[') {
            key = line.substr(1, line.size() - 2);
        }
        const bool isIt = IsSameName(line.substr(0, name.size() + 3), "\"" + name + "\"=");
        if (isIt && !IsSameName(key, KeyOf(name))) {
            keys.push_back(key);
        }
    }
    return keys;
}

std::string RegistryOf(const std::vector<StoredValue>& values) {
    QxmixRegistryReset();
    for (const StoredValue& value : values) {
        Store(value);
    }
    return SaveRegistry();
}

std::string ReadRegistryFile(const std::string& file) {
    const InputFile input = ReadInput(file);
    QxmixTextError error{};
    if (QxmixRegistryLoadText(input.content.data(), input.content.size(), &error) != 0) {
        const std::string line = error.line == 0 ? "" : ":" + std::to_string(error.line);
        throw InputError(input.name + line + ": " + error.message);
    }
    return SaveRegistry();
}

std::optional<StoredValue> FindStored(const std::string& registry, const std::string& name) {
    LoadRegistry(registry);
    return Find(name);
}

std::vector<StoredValue> TakenValues(const std::string& registry) {
    std::vector<StoredValue> values;
    for (const char* name : {kTraceLevel, kCstMinimum4Mix6}) {
        if (const auto value = FindStored(registry, name)) {
            values.push_back(*value);
        }
    }
    return values;
}

std::string WithStored(const std::string& registry, const StoredValue& value) {
    LoadRegistry(registry);
    Store(value);
    return SaveRegistry();
}

std::string WithoutStored(const std::string& registry, const std::string& name) {
    LoadRegistry(registry);
    QxmixRegistryDeleteValue(KeyOf(name), name.c_str());
    return SaveRegistry();
}

std::string WithErrorCode(const std::string& registry, const std::string& code) {
    return code.empty() ? registry : WithStored(registry, {kErrorCodeName, kRegSz, code});
}

bool HasErrorCodeKey(const std::string& registry) {
    LoadRegistry(registry);
    return QxmixRegistryKeyExists(kErrorCodeKey) != 0;
}

void LoadRegistry(const std::string& registry) {
    if (registry.empty()) {
        QxmixRegistryReset();
        return;
    }
    QxmixTextError error{};
    if (QxmixRegistryLoadText(registry.data(), registry.size(), &error) != 0) {
        throw WorkError(std::string("registry: ") + error.message);
    }
}

std::string SaveRegistry() {
    std::size_t size = 0;
    QxmixRegistrySaveText(nullptr, 0, &size);
    std::string text(size, '\0');
    if (QxmixRegistrySaveText(text.data(), text.size(), &size) != 0) {
        throw WorkError("the registry cannot be written as text");
    }
    return text;
}

std::string ErrorCodeBytes() {
    const std::optional<StoredValue> code = Find(kErrorCodeName);
    return code ? code->bytes : "";
}

std::optional<StoredValue> TakeErrorCode() {
    std::optional<StoredValue> taken = Find(kErrorCodeName);
    QxmixRegistryDeleteValue(kErrorCodeKey, kErrorCodeName);
    return taken;
}

void RestoreErrorCode(const std::optional<StoredValue>& taken) {
    if (taken) {
        Store(*taken);
    }
}

}  // namespace qxmix
