#include "LastError.h"

#include "WindowsApi.h"

namespace qxmix {

std::string LastErrorText() {
    const DWORD error = GetLastError();
    char text[512] = "";
    const DWORD size = FormatMessageA(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, error, MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), text, sizeof(text), nullptr);
    std::string said(text, size);
    while (!said.empty() && (said.back() == ' ' || said.back() == '.')) {
        said.pop_back();
    }
    return said.empty() ? "error " + std::to_string(error) : said;
}

}  // namespace qxmix
