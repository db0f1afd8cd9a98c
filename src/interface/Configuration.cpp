#include "Configuration.h"

#include "CMixAlgorithm.h"
#include "PlatformApi.h"
#include "Trace.h"

namespace {

constexpr std::uint32_t kDefaultTraceLevel = 1;
constexpr std::uint32_t kDefaultCstMinimum4Mix6 = 100;
constexpr unsigned kTextCharacters = 64;

/// The bytes of a value, whatever type they are stored under.
///
/// @param size  room for them.
LONG QueryBytes(HKEY key, const PlatformChar* name, void* bytes, DWORD size) noexcept {
    // Nothing reads the type, but older systems refuse a call that names no place for it.
    DWORD type{};
    return RegQueryValueExW(key, name, nullptr, &type, static_cast<std::uint8_t*>(bytes), &size);
}

bool IsWhiteSpace(std::uint16_t character) noexcept {
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

bool IsDigit(std::uint16_t character) noexcept {
    return character >= u'0' && character <= u'9';
}

}  // namespace

std::uint32_t ParseDecimal(const u16le* text, unsigned length) noexcept {
    const u16le* const end = text + length;
    while (text != end && IsWhiteSpace(*text)) {
        ++text;
    }
    const bool negative = text != end && *text == u'-';
    if (negative || (text != end && *text == u'+')) {
        ++text;
    }
    const std::uint32_t largest = negative ? 0x80000000U : 0x7FFFFFFFU;
    std::uint32_t magnitude = 0;
    for (; text != end && IsDigit(*text); ++text) {
        const std::uint32_t digit = *text - std::uint32_t{u'0'};
        magnitude = magnitude > (largest - digit) / 10 ? largest : magnitude * 10 + digit;
    }
    return negative ? 0U - magnitude : magnitude;
}

void CMixAlgorithm::ReadTraceLevel() noexcept {
    ulTraceLevel = kDefaultTraceLevel;
    // On purpose: the key stays open, and the forward slash is part of its name.
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, TEXT("WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser\\"),
                      0, KEY_READ, &key) != ERROR_SUCCESS) {
        return;
    }
    u32le stored = 0;
    if (QueryBytes(key, TEXT("TraceLevel"), &stored, sizeof(stored)) == ERROR_SUCCESS) {
        ulTraceLevel = stored;
    }
}

void CMixAlgorithm::ReadCstMinimum4Mix6() noexcept {
    ulCstMinimum4Mix6 = kDefaultCstMinimum4Mix6;
    HKEY key = nullptr;
    PlatformChar noClass[] = TEXT("");
    DWORD disposition{};  // unread, but older systems want a place for it
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, TEXT("SOFTWARE\\ATM\\DevInfo\\CDM\\"), 0, noClass, 0,
                        KEY_ALL_ACCESS, nullptr, &key, &disposition) == ERROR_SUCCESS) {
        u16le text[kTextCharacters] = {};
        if (QueryBytes(key, TEXT("CSTMinimum4Mix6"), text, sizeof(text)) == ERROR_SUCCESS) {
            ulCstMinimum4Mix6 = ParseDecimal(text, kTextCharacters);
        }
        RegCloseKey(key);
    }
    Trace("CMixAlgorithm::CMixAlgorithm() CSTMinimum4Mix6 = %d.", TraceNumber(ulCstMinimum4Mix6));
}
