#include "PageParts.h"

#include "PageHtml.h"
#include "Pages.h"
#include "ToolVersion.h"
#include "json/Json.h"
#include "terminal/Terminal.h"

#include <map>
#include <string_view>

namespace qxmix {

namespace {

/// A page with its parts filled in; every {{name}} of it must be among them.
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

/// Puts what may be shown in the place of every text: what a script shows is clean already.
void MakePrintable(Json& json) {
    std::vector<Json*> waiting = {&json};
    while (!waiting.empty()) {
        Json& next = *waiting.back();
        waiting.pop_back();
        if (next.is_string()) {
            next = Printable(next.get_ref<const std::string&>());
        } else if (next.is_structured()) {
            for (Json& part : next) {
                waiting.push_back(&part);
            }
        }
    }
}

/// JSON text that may stand in a script element: "<" is written \u003c, so that nothing in it can
/// end the element.
std::string JsonInPage(Json json) {
    MakePrintable(json);
    std::string text;
    for (const char character : json.dump(-1, ' ', false, Json::error_handler_t::replace)) {
        if (character == '<') {
            text += "\\u003c";
        } else {
            text += character;
        }
    }
    return text;
}

/// The colours of the outcomes as style rules, one class "o-NAME" for each.
std::string OutcomeStyles() {
    std::string styles;
    for (const OutcomeRow& row : OutcomeTable()) {
        styles += std::string(".o-") + row.name + " { background-color: " + row.htmlColour +
                  "; color: " + (row.whiteLetter ? "#ffffff" : "#000000") + "; }\n";
    }
    return styles;
}

std::string VersionsText(const Envelope& envelope) {
    return std::string("qxmix ") + kToolVersion + ", module " +
           (envelope.module.empty() ? "without a version" : envelope.module) + " (" +
           envelope.library + ")";
}

}  // namespace

std::string PageText(const PageParts& parts, const Envelope& envelope) {
    std::string text = FillPage(
        kPageHtml,
        {{"title", HtmlText(parts.title)},
         {"heading", parts.heading},
         {"style", std::string(kPartsCss) + parts.style},
         {"colours", OutcomeStyles()},
         {"withoutScript", parts.withoutScript},
         {"summary", parts.summary},
         {"main", FillPage(parts.main, {{"dispenser", parts.dispenser}})},
         {"versions", HtmlText(VersionsText(envelope))},
         {"answer", JsonInPage(EnvelopeJson(envelope))},
         {"page", JsonInPage(parts.page)},
         {"script", std::string(kStandaloneScript) + std::string(kPartsScript) + parts.script}});
    if (text.size() > kMostPageBytes) {
        throw InputError("--output: a page of " + std::to_string(text.size()) +
                         " bytes is too large; expected at most " + std::to_string(kMostPageBytes) +
                         ", " + parts.fitting(text.size()));
    }
    return text;
}

std::string
OutcomeCountTable(const std::string& caption,
                  const std::vector<std::uint16_t>& mixes,
                  const std::function<std::uint64_t(std::size_t place, Outcome outcome)>& count,
                  const OutcomeWords& words) {
    std::vector<std::string> headings = {"mix"};
    for (const OutcomeRow& outcome : OutcomeTable()) {
        headings.push_back(std::string(words(outcome)) + "#");
    }
    std::vector<std::vector<std::string>> lines;
    for (std::size_t place = 0; place < mixes.size(); ++place) {
        lines.push_back({std::to_string(mixes[place])});
        for (const OutcomeRow& outcome : OutcomeTable()) {
            lines.back().push_back(std::to_string(count(place, outcome.outcome)));
        }
    }
    return HtmlTable("", caption, headings, lines);
}

Json OutcomesJson(const OutcomeWords& words) {
    Json json = Json::array();
    for (const OutcomeRow& row : OutcomeTable()) {
        json.push_back({{"name", row.name},
                        {"letter", std::string(1, row.letter)},
                        {"words", words(row)},
                        {"badness", row.badness}});
    }
    return json;
}

}  // namespace qxmix
