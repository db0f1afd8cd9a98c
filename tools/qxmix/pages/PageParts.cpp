#include "PageParts.h"

#include "answers/Outcome.h"

namespace qxmix {

std::string FillPage(std::string_view page, const std::map<std::string, std::string>& parts) {
    constexpr std::string_view kOpen = "{{";
    constexpr std::string_view kClose = "}}";
    std::string filled;
    std::size_t at = 0;
    for (std::size_t open = page.find(kOpen); open != std::string_view::npos;
         open = page.find(kOpen, at)) {
        const std::size_t close = page.find(kClose, open);
        const std::size_t begin = open + kOpen.size();
        filled += page.substr(at, open - at);
        filled += parts.at(std::string(page.substr(begin, close - begin)));
        at = close + kClose.size();
    }
    filled += page.substr(at);
    return filled;
}

std::string JsonInPage(const std::string& json) {
    std::string text;
    text.reserve(json.size());
    for (const char character : json) {
        if (character == '<') {
            text += "\\u003c";
        } else {
            text += character;
        }
    }
    return text;
}

std::string OutcomeStyles() {
    std::string styles;
    for (const OutcomeRow& row : OutcomeTable()) {
        styles += std::string(".o-") + row.name + " { background-color: " + row.htmlColour +
                  "; color: " + (row.whiteLetter ? "#ffffff" : "#000000") + "; }\n";
    }
    return styles;
}

Json OutcomesJson() {
    Json json = Json::array();
    for (const OutcomeRow& row : OutcomeTable()) {
        json.push_back({{"name", row.name},
                        {"letter", std::string(1, row.letter)},
                        {"words", row.words},
                        {"badness", row.badness}});
    }
    return json;
}

}  // namespace qxmix
