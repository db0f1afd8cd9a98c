#include "StepPath.h"

#include "Json.h"

#include <string>

namespace qxmix {

namespace {

constexpr std::uint64_t kPathBase = 64;
constexpr const char* kPathDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

}  // namespace

Json StepPathJson(const std::vector<std::uint32_t>& path, std::size_t count) {
    std::size_t digits = 1;
    for (std::uint64_t most = kPathBase; most < count; most *= kPathBase) {
        ++digits;
    }
    std::string text(path.size() * digits, ' ');
    std::size_t behind = 0;
    for (std::uint32_t place : path) {
        behind += digits;
        for (std::size_t at = behind; at > behind - digits; place /= kPathBase) {
            text[--at] = kPathDigits[place % kPathBase];
        }
    }
    return {{"digits", digits}, {"path", text}};
}

}  // namespace qxmix
