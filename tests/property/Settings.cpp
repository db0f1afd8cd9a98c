#include "Settings.h"

#include <cstdlib>

namespace property {

std::uint64_t Setting(const char* name, std::uint64_t byDefault) {
    const char* text = std::getenv(name);
    if (text == nullptr) {
        return byDefault;
    }
    char* end = nullptr;
    const std::uint64_t number = std::strtoull(text, &end, 0);
    return end == text || *end != '\0' ? byDefault : number;
}

}  // namespace property
