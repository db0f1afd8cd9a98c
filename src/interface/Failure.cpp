#include "Failure.h"

#include "CMixAlgorithm.h"
#include "PlatformApi.h"
#include "ResultCodes.h"
#include "Trace.h"

namespace {

struct FailureRow {
    std::int32_t result;
    char code[6];
};

// By Failure, in its order.
constexpr FailureRow kFailures[] = {
    {kInvalidMixNumber, "971A5"}, {kNotDispensable, "971A2"},  {kTooManyItems, "971A3"},
    {kTooManyItems, "971A4"},     {kInvalidCashUnit, "97194"},
};

DWORD LengthOf(const char* text) noexcept {
    DWORD length = 0;
    while (text[length] != '\0') {
        ++length;
    }
    return length;
}

}  // namespace

std::int32_t Fail(Failure failure) noexcept {
    const FailureRow& row = kFailures[static_cast<unsigned>(failure)];
    CMixAlgorithm::RegWriteError(row.code);
    return row.result;
}

void CMixAlgorithm::RegWriteError(const char* code) noexcept {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, TEXT("SOFTWARE\\ATM\\ErrorCode"), 0, KEY_ALL_ACCESS,
                      &key) != ERROR_SUCCESS) {
        return;
    }
    // On purpose: the bare 8-bit characters, not widened and not terminated, though the type is
    // that of wide text. The readers of this value expect exactly these bytes.
    RegSetValueExW(key, TEXT("CDM"), 0, REG_SZ, reinterpret_cast<const std::uint8_t*>(code),
                   LengthOf(code));
    Trace("CMixAlgorithm::RegWriteError() Error Code is %s.", code);
    RegCloseKey(key);
}
