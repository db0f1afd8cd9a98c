#include "PageHtml.h"

#include "dispenser/UnitNames.h"
#include "terminal/Terminal.h"

namespace qxmix {

namespace {

/// The name of a type, shorter for that of nearly all cassettes.
std::string TypeText(std::uint16_t type) {
    const std::string name = TypeNames().Text(type);
    return name == "billCassette" ? "bills" : name;
}

std::string FactHtml(const std::string& name, const std::string& html) {
    return "<dt>" + HtmlText(name) + "</dt><dd>" + html + "</dd>\n";
}

}  // namespace

std::string HtmlText(const std::string& text) {
    std::string html;
    for (const char character : Printable(text)) {
        switch (character) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += character;
        }
    }
    return html;
}

std::string HtmlTable(const std::string& id,
                      const std::string& caption,
                      const std::vector<std::string>& headings,
                      const std::vector<std::vector<std::string>>& lines) {
    const auto isNumber = [&headings](std::size_t column) {
        return headings[column].back() == '#';
    };
    std::string table = "<table" + (id.empty() ? "" : " id=\"" + id + "\"") + "><caption>" +
                        HtmlText(caption) + "</caption>\n<thead><tr>";
    for (std::size_t column = 0; column < headings.size(); ++column) {
        const std::string& heading = headings[column];
        table += std::string("<th scope=\"col\"") +
                 (isNumber(column) ? " class=\"number\">" : ">") +
                 HtmlText(heading.substr(0, heading.find('#'))) + "</th>";
    }
    table += "</tr></thead>\n<tbody>\n";
    for (const std::vector<std::string>& line : lines) {
        table += "<tr><th scope=\"row\">" + HtmlText(line.front()) + "</th>";
        for (std::size_t column = 1; column < line.size(); ++column) {
            table += std::string("<td") + (isNumber(column) ? " class=\"number\">" : ">") +
                     HtmlText(line[column]) + "</td>";
        }
        table += "</tr>\n";
    }
    return table + "</tbody></table>\n";
}

std::string
DispenserHtml(const Dispenser& dispenser, const Facts& facts, const std::string& commandLine) {
    std::vector<std::vector<std::string>> lines;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        lines.push_back({CassetteLabel(dispenser, index),
                         cassette.Worth().ShortText() + " " + cassette.currency,
                         std::to_string(cassette.count), StatusNames().Text(cassette.status),
                         TypeText(cassette.type)});
    }
    const std::string most = std::to_string(dispenser.maxDispenseItems) +
                             (dispenser.maxDispenseItems == 1 ? " item" : " items");
    std::string html =
        "<section aria-label=\"Dispenser\" id=\"about\">\n<h2>Dispenser</h2>\n<div "
        "class=\"wide\">" +
        HtmlTable("dispenser",
                  "Cassettes in " + dispenser.currency + ", at most " + most + " at a time",
                  {"cassette", "item#", "holds#", "status", "type"}, lines) +
        "</div>\n<dl id=\"asked\">\n";
    for (const auto& [name, text] : facts) {
        html += FactHtml(name, HtmlText(text));
    }
    return html + FactHtml("Command", "<code>" + HtmlText(commandLine) + "</code>") +
           "</dl>\n</section>\n";
}

}  // namespace qxmix
