/// The host's side of the registry: its content at once, single keys and values.

#include "Guarded.h"
#include "HostControl.h"
#include "RegistryStore.h"
#include "TextEncoding.h"

#include <optional>
#include <utility>

namespace {

/// @return the text, or nothing when it is missing or not UTF-8.
std::optional<std::u16string> Decode(const char* text) {
    return text == nullptr ? std::nullopt : DecodeUtf8(text);
}

/// Runs use(content, path) for a key as a host writes it.
template <typename Use>
std::int32_t WithPath(const char* key, Use use) noexcept {
    return Guarded<std::int32_t>(kQxmixErrorOutOfMemory, [&]() -> std::int32_t {
        const auto text = Decode(key);
        KeyPath path;
        if (!text || ReadFullPath(*text, &path) != 0) {
            return kQxmixErrorInvalidParameter;
        }
        return RegistryStore::Instance().WithContent(
            [&](RegistryContent& content) -> std::int32_t { return use(content, path); });
    });
}

/// Runs use(content, path, valueName) for a key and a value as a host writes them.
template <typename Use>
std::int32_t WithValueName(const char* key, const char* name, Use use) noexcept {
    return WithPath(key, [&](RegistryContent& content, const KeyPath& path) -> std::int32_t {
        const auto text = Decode(name == nullptr ? "" : name);
        if (!text || text->size() > kMaxRegistryName) {
            return kQxmixErrorInvalidParameter;
        }
        return use(content, path, *text);
    });
}

std::int32_t SetValue(const char* key, const char* name, RegistryValue value) noexcept {
    return WithValueName(key, name,
                         [&](RegistryContent& content, const KeyPath& path,
                             const std::u16string& valueName) -> std::int32_t {
                             content.Create(path).values[valueName] = std::move(value);
                             return 0;
                         });
}

}  // namespace

void QxmixRegistryReset() {
    Guarded([] { RegistryStore::Instance().Replace(RegistryContent::AtStart()); });
}

void QxmixRegistryClear() {
    Guarded([] { RegistryStore::Instance().Replace(RegistryContent()); });
}

std::int32_t QxmixRegistrySetValue(const char* key,
                                   const char* name,
                                   std::uint32_t type,
                                   const void* bytes,
                                   std::uint32_t size) {
    if (bytes == nullptr && size != 0) {
        return kQxmixErrorInvalidParameter;
    }
    return Guarded<std::int32_t>(kQxmixErrorOutOfMemory, [=] {
        const auto* const first = static_cast<const std::uint8_t*>(bytes);
        return SetValue(key, name, {type, {first, first + size}});
    });
}

std::int32_t QxmixRegistrySetText(const char* key, const char* name, const char* text) {
    return Guarded<std::int32_t>(kQxmixErrorOutOfMemory, [=]() -> std::int32_t {
        const auto decoded = Decode(text);
        return decoded ? SetValue(key, name, TextValue(*decoded)) : kQxmixErrorInvalidParameter;
    });
}

std::int32_t QxmixRegistrySetNumber(const char* key, const char* name, std::uint32_t number) {
    return Guarded<std::int32_t>(kQxmixErrorOutOfMemory,
                                 [=] { return SetValue(key, name, NumberValue(number)); });
}

std::int32_t QxmixRegistryGetValue(const char* key,
                                   const char* name,
                                   std::uint32_t* type,
                                   void* bytes,
                                   std::uint32_t* size) {
    if (bytes != nullptr && size == nullptr) {
        return kQxmixErrorInvalidParameter;
    }
    return WithValueName(key, name,
                         [=](RegistryContent& content, const KeyPath& path,
                             const std::u16string& valueName) -> std::int32_t {
                             const RegistryValue* value = content.FindValue(path, valueName);
                             return value == nullptr
                                        ? kQxmixErrorFileNotFound
                                        : GiveValue(*value, type, static_cast<std::uint8_t*>(bytes),
                                                    size);
                         });
}

std::int32_t QxmixRegistryDeleteValue(const char* key, const char* name) {
    return WithValueName(key, name,
                         [](RegistryContent& content, const KeyPath& path,
                            const std::u16string& valueName) -> std::int32_t {
                             RegistryKey* stored = content.Find(path);
                             const bool removed =
                                 stored != nullptr && stored->values.erase(valueName) != 0;
                             return removed ? 0 : kQxmixErrorFileNotFound;
                         });
}

int QxmixRegistryKeyExists(const char* key) {
    const std::int32_t missing =
        WithPath(key, [](const RegistryContent& content, const KeyPath& path) {
            return content.Find(path) == nullptr ? kQxmixErrorFileNotFound : 0;
        });
    return missing == 0 ? 1 : 0;
}

std::int32_t QxmixRegistryCreateKey(const char* key) {
    return WithPath(key, [](RegistryContent& content, const KeyPath& path) {
        content.Create(path);
        return 0;
    });
}

std::int32_t QxmixRegistryDeleteKey(const char* key) {
    return WithPath(key, [](RegistryContent& content, const KeyPath& path) -> std::int32_t {
        return content.Delete(path) ? 0 : kQxmixErrorFileNotFound;
    });
}

std::uint32_t QxmixRegistryOpenKeys() {
    return RegistryStore::Instance().OpenKeys();
}
