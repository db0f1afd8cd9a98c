#include "ArmTerminal.h"

#include "ArmSystem.h"
#include "PlatformApi.h"

namespace {

unsigned char errorCode[8];

// Numbers that no system gives, so that a wrong one is seen.
HKEY const kErrorKey = reinterpret_cast<HKEY>(0x5151);
HKEY const kSettingsKey = reinterpret_cast<HKEY>(0x5252);
constexpr LONG kNotFound = 2;

bool AreEqualWide(const char16_t* left, const char16_t* right) noexcept {
    while (*left != 0 && *left == *right) {
        ++left;
        ++right;
    }
    return *left == *right;
}

}  // namespace

// The names are those that the library imports.
LONG RegOpenKeyExW(HKEY root, const PlatformChar* subKey, DWORD, REGSAM, HKEY* opened) {
    if (root != HKEY_LOCAL_MACHINE || !AreEqualWide(subKey, TEXT("SOFTWARE\\ATM\\ErrorCode"))) {
        return kNotFound;
    }
    *opened = kErrorKey;
    return ERROR_SUCCESS;
}

LONG RegCreateKeyExW(HKEY,
                     const PlatformChar*,
                     DWORD,
                     PlatformChar*,
                     DWORD,
                     REGSAM,
                     void*,
                     HKEY* opened,
                     DWORD*) {
    *opened = kSettingsKey;
    return ERROR_SUCCESS;
}

LONG RegQueryValueExW(HKEY key, const PlatformChar*, DWORD*, DWORD*, std::uint8_t*, DWORD*) {
    if (key != kSettingsKey) {
        arm::Fail("a key is read that is not open");
    }
    return kNotFound;
}

LONG RegSetValueExW(HKEY key,
                    const PlatformChar* name,
                    DWORD,
                    DWORD type,
                    const std::uint8_t* bytes,
                    DWORD size) {
    if (key != kErrorKey || !AreEqualWide(name, TEXT("CDM")) || type != REG_SZ ||
        size > sizeof(errorCode)) {
        arm::Fail("a value is written that the module has not");
    }
    for (DWORD index = 0; index < sizeof(errorCode); ++index) {
        errorCode[index] = index < size ? bytes[index] : 0;
    }
    return ERROR_SUCCESS;
}

LONG RegCloseKey(HKEY key) {
    if (key != kErrorKey && key != kSettingsKey) {
        arm::Fail("a key is closed that is not open");
    }
    return ERROR_SUCCESS;
}

BOOL EventModify(HANDLE, DWORD) {
    return 1;
}

HRESULT WFMAllocateBuffer(ULONG size, ULONG, void** block) {
    *block = arm::Allocate(size);
    return 0;
}

HRESULT WFMAllocateMore(ULONG size, void*, void** block) {
    *block = arm::Allocate(size);
    return 0;
}

extern "C" {
void* malloc(std::size_t size);
void free(void* memory);
void* memset(void* memory, int byte, std::size_t size);
void* memcpy(void* to, const void* from, std::size_t size);
}

void* malloc(std::size_t size) {
    return arm::Allocate(size);
}

void free(void*) {
}

void* memset(void* memory, int byte, std::size_t size) {
    auto* const bytes = static_cast<unsigned char*>(memory);
    for (std::size_t index = 0; index < size; ++index) {
        bytes[index] = static_cast<unsigned char>(byte);
    }
    return memory;
}

void* memcpy(void* to, const void* from, std::size_t size) {
    auto* const target = static_cast<unsigned char*>(to);
    const auto* const source = static_cast<const unsigned char*>(from);
    for (std::size_t index = 0; index < size; ++index) {
        target[index] = source[index];
    }
    return to;
}

namespace arm {

namespace {

struct Function {
    const char* name;
    void* address;
};

template <typename Signature>
void* AddressOf(Signature* function) noexcept {
    return reinterpret_cast<void*>(function);
}

}  // namespace

void* FindFunction(const char* name) noexcept {
    const Function functions[] = {
        {"RegOpenKeyExW", AddressOf(RegOpenKeyExW)},
        {"RegCreateKeyExW", AddressOf(RegCreateKeyExW)},
        {"RegQueryValueExW", AddressOf(RegQueryValueExW)},
        {"RegSetValueExW", AddressOf(RegSetValueExW)},
        {"RegCloseKey", AddressOf(RegCloseKey)},
        {"EventModify", AddressOf(EventModify)},
        {"WFMAllocateBuffer", AddressOf(WFMAllocateBuffer)},
        {"WFMAllocateMore", AddressOf(WFMAllocateMore)},
        {"malloc", AddressOf(malloc)},
        {"free", AddressOf(free)},
        {"memset", AddressOf(memset)},
        {"memcpy", AddressOf(memcpy)},
    };
    for (const Function& function : functions) {
        if (AreEqual(function.name, name)) {
            return function.address;
        }
    }
    return nullptr;
}

void TakeErrorCode(unsigned char* code) noexcept {
    for (unsigned index = 0; index < sizeof(errorCode); ++index) {
        code[index] = errorCode[index];
        errorCode[index] = 0;
    }
}

bool AreEqual(const char* left, const char* right) noexcept {
    while (*left != '\0' && *left == *right) {
        ++left;
        ++right;
    }
    return *left == *right;
}

}  // namespace arm
