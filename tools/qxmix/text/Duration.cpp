#include "Duration.h"

#include "ParseWhole.h"

#include <cstdint>

namespace qxmix {

namespace {

constexpr std::int64_t kMillisecondsInSecond = 1000;
constexpr std::int64_t kMillisecondsInDay = 86400 * kMillisecondsInSecond;

std::string Spell(std::chrono::milliseconds duration, const std::string& between) {
    const std::int64_t count = duration.count();
    return count % kMillisecondsInSecond == 0
               ? std::to_string(count / kMillisecondsInSecond) + between + "s"
               : std::to_string(count) + between + "ms";
}

}  // namespace

std::optional<std::chrono::milliseconds> ParseDuration(const std::string& text) {
    const std::size_t unit = text.find_first_not_of("0123456789");
    const auto number = ParseWhole<std::int64_t>(text.substr(0, unit));
    const std::string name = unit == std::string::npos ? "" : text.substr(unit);
    if (!number || (name != "s" && name != "ms") || *number > kMillisecondsInDay) {
        return std::nullopt;
    }
    const std::int64_t count = *number * (name == "s" ? kMillisecondsInSecond : 1);
    if (count < 1 || count > kMillisecondsInDay) {
        return std::nullopt;
    }
    return std::chrono::milliseconds(count);
}

std::string DurationText(std::chrono::milliseconds duration) {
    return Spell(duration, "");
}

std::string DurationWords(std::chrono::milliseconds duration) {
    return Spell(duration, " ");
}

}  // namespace qxmix
