#include "FleetPage.h"

#include "PageParts.h"
#include "Pages.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

/// Rows that a reader without scripts sees.
constexpr std::size_t kMostPlainRows = 200;

Json KindsJson(const std::vector<FleetPageKind>& kinds) {
    Json json = Json::array();
    for (const FleetPageKind& kind : kinds) {
        json.push_back({{"words", kind.words},
                        {"letter", std::string(1, kind.letter)},
                        {"name", RowOf(kind.colour).name}});
    }
    return json;
}

std::string VerdictHtml(const std::string& verdict) {
    std::string html;
    for (const std::string& line : Split(verdict, '\n')) {
        if (!line.empty()) {
            html += (html.empty() ? "<p id=\"verdict\">" : "<p>") + HtmlText(line) + "</p>\n";
        }
    }
    return html;
}

std::string AskedHtml(const Facts& facts, const std::string& commandLine) {
    std::string html =
        "<section aria-label=\"Asked\" id=\"about\">\n<h2>Asked</h2>\n<dl id=\"asked\">\n";
    for (const auto& [name, text] : facts) {
        html += "<dt>" + HtmlText(name) + "</dt><dd>" + HtmlText(text) + "</dd>\n";
    }
    return html + "<dt>Command</dt><dd><code>" + HtmlText(commandLine) +
           "</code></dd>\n</dl>\n</section>\n";
}

}  // namespace

void FleetPage::Add(const FleetPageRow& row) {
    Json details = Json::array();
    for (const std::vector<std::string>& line : row.details) {
        details.push_back(Packed(line));
    }
    rows_.push_back(Json::array({row.kind, Packed(row.cells), details}));
    if (first_.size() < kMostPlainRows) {
        first_.push_back(row.cells);
    }
}

std::string FleetPage::Text(const Envelope& envelope,
                            const Facts& facts,
                            const std::string& commandLine) const {
    PageParts parts;
    parts.title = title;
    parts.heading = VerdictHtml(verdict);
    parts.withoutScript =
        "This page sorts and opens dispensers with a script. Without it, here are " +
        (first_.size() < rows_.size() ? "the worst " + std::to_string(first_.size()) + " of them."
                                      : std::string("all of them."));
    parts.summary = "<div class=\"wide\">" +
                    HtmlTable("", "Dispensers, the worst first", columns, first_) + "</div>";
    parts.main = kFleetHtml;
    parts.dispenser = AskedHtml(facts, commandLine);
    parts.style = kFleetCss;
    parts.script = kFleetScript;
    parts.page = {{"outcomes", Json::array()}, {"columns", columns},
                  {"kinds", KindsJson(kinds)}, {"caption", caption},
                  {"nothing", nothing},        {"detailColumns", detailColumns},
                  {"texts", texts_},           {"rows", rows_}};
    parts.fitting = [](std::size_t) { return std::string("as with fewer dispensers"); };
    return PageText(parts, envelope);
}

Json FleetPage::Packed(const std::vector<std::string>& texts) {
    Json packed = Json::array();
    for (const std::string& text : texts) {
        const auto [place, isNew] = places_.emplace(text, places_.size());
        if (isNew) {
            texts_.push_back(text);
        }
        packed.push_back(place->second);
    }
    return packed;
}

}  // namespace qxmix
