#include "ShellWords.h"

#include "text/Duration.h"
#include "text/TextList.h"

namespace qxmix {

std::string ShellWord(const std::string& word) {
    const char* const harmless =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_./:,=+@%";
    if (!word.empty() && word.find_first_not_of(harmless) == std::string::npos) {
        return word;
    }
    std::string quoted = "'";
    for (const char letter : word) {
        quoted += letter == '\'' ? "'\\''" : std::string(1, letter);
    }
    return quoted + "'";
}

std::string MixListWord(const std::vector<std::uint16_t>& mixes) {
    std::vector<std::string> numbers;
    for (const std::uint16_t mix : mixes) {
        numbers.push_back(std::to_string(mix));
    }
    return Join(numbers, ",");
}

std::string AskingWords(const AskOptions& ask, const CommonOptions& options) {
    std::string words;
    const auto add = [&words](const std::string& name, const std::string& value) {
        words += " " + name + " " + ShellWord(value);
    };
    if (ask.currency) {
        add("--currency", *ask.currency);
    }
    if (ask.exponent) {
        add("--exponent", std::to_string(*ask.exponent));
    }
    if (ask.limit) {
        add("--limit", std::to_string(*ask.limit));
    }
    if (ask.partial) {
        words += *ask.partial ? " --partial" : " --no-partial";
    }
    if (options.deadline) {
        add("--deadline", DurationText(*options.deadline));
    }
    if (!options.registry.empty()) {
        add("--registry", options.registry);
    }
    return words;
}

}  // namespace qxmix
