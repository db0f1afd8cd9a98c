#pragma once

#include "HostControl.h"
#include "PlatformApi.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

constexpr const char* kErrorCodeKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode";

/// Every test begins with the stand-in as it is loaded, and gives back all memory.
class PlatformTest : public testing::Test {
protected:
    PlatformTest() { QxmixReset(); }
    PlatformTest(const PlatformTest&) = delete;
    PlatformTest& operator=(const PlatformTest&) = delete;

    ~PlatformTest() override {
        QxmixReset();
        QxmixMemoryFreeAll();
    }
};

/// Opens a sub-key and gives its handle; the test fails when it cannot be opened.
inline HKEY Open(HKEY key, const PlatformChar* subKey, REGSAM access = KEY_ALL_ACCESS) {
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExW(key, subKey, 0, access, &opened), ERROR_SUCCESS);
    return opened;
}

inline HKEY OpenErrorCode(REGSAM access = KEY_ALL_ACCESS) {
    return Open(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\ErrorCode", access);
}

/// Creates a sub-key without looking at its disposition.
inline LONG Create(HKEY key, const PlatformChar* subKey, HKEY* created) {
    DWORD disposition = 0;
    return RegCreateKeyExW(key, subKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, created,
                           &disposition);
}

/// Reads a value without looking at its type.
inline LONG QueryNamed(HKEY key, const PlatformChar* name, std::uint8_t* bytes, DWORD* size) {
    DWORD type = 0;
    return RegQueryValueExW(key, name, nullptr, &type, bytes, size);
}

inline LONG Set(HKEY key, const PlatformChar* name, DWORD type, const Bytes& bytes) {
    return RegSetValueExW(key, name, 0, type, bytes.data(), static_cast<DWORD>(bytes.size()));
}

/// The bytes of a value as the host reads them; the test fails when there is none.
inline Bytes StoredBytes(const char* key, const char* name) {
    std::uint32_t size = 0;
    EXPECT_EQ(QxmixRegistryGetValue(key, name, nullptr, nullptr, &size), 0) << key << " " << name;
    Bytes bytes(size);
    if (size != 0) {
        EXPECT_EQ(QxmixRegistryGetValue(key, name, nullptr, bytes.data(), &size), 0);
    }
    return bytes;
}

inline std::uint32_t StoredType(const char* key, const char* name) {
    std::uint32_t type = 0xFFFFFFFF;
    EXPECT_EQ(QxmixRegistryGetValue(key, name, &type, nullptr, nullptr), 0) << key << " " << name;
    return type;
}

inline Bytes BytesOf(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

/// UTF-16LE bytes of ASCII text, without terminator.
inline Bytes WideBytes(const std::string& ascii) {
    Bytes bytes;
    for (const char character : ascii) {
        bytes.push_back(static_cast<std::uint8_t>(character));
        bytes.push_back(0);
    }
    return bytes;
}

/// The content as the library writes it.
inline std::string SavedText() {
    std::size_t size = 0;
    EXPECT_EQ(QxmixRegistrySaveText(nullptr, 0, &size), kQxmixErrorMoreData);
    std::string text(size, '\0');
    EXPECT_EQ(QxmixRegistrySaveText(text.data(), text.size(), &size), 0);
    return text;
}

/// The content as the library writes it, its ASCII characters one byte each.
inline std::string SavedAscii() {
    const std::string text = SavedText();
    std::string ascii;
    for (std::size_t at = 2; at < text.size(); at += 2) {
        ascii.push_back(text[at]);
    }
    return ascii;
}

inline std::int32_t Load(const std::string& text, QxmixTextError* error = nullptr) {
    return QxmixRegistryLoadText(text.data(), text.size(), error);
}

/// A logged call as text.
inline std::string LoggedText(std::uint32_t index) {
    char text[2048];
    return QxmixGetLoggedCallText(index, text, sizeof(text)) == 1 ? text : "(none)";
}
