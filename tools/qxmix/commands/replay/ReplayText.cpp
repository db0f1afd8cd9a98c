#include "ReplayText.h"

#include "BadLinesText.h"
#include "dispenser/ReadableMoney.h"
#include "json/Json.h"
#include "terminal/Table.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

using Align = Table::Align;

std::string Headline(const ReplayAnswers& answers, bool isBetweenLibraries) {
    const std::size_t different = answers.differences.size();
    const std::string requests = std::to_string(answers.requests);
    if (different == 0) {
        return requests + (answers.requests == 1 ? " request is" : " requests are") +
               (isBetweenLibraries ? " answered alike" : " answered as recorded");
    }
    return std::to_string(different) + " of " + requests +
           (answers.requests == 1 ? " request" : " requests") + (different == 1 ? " is" : " are") +
           " answered differently" + (answers.isStopped ? "; the rest was not asked" : "");
}

std::string ValueText(const Json& value, bool isAnswered) {
    if (value.is_null()) {
        return isAnswered ? "-" : "?";
    }
    if (value.is_string()) {
        return Printable(value.get<std::string>());
    }
    if (!value.is_array()) {
        return value.dump();
    }
    std::vector<std::string> parts;
    for (const Json& part : value) {
        parts.push_back(ValueText(part, isAnswered));
    }
    return Join(parts, " ");
}

/// Whether numbers that are null stand for something unknown.
bool IsAnswered(const Json& result) {
    const auto returned = result.find("returned");
    return returned == result.end() || !returned->is_null();
}

std::string IdText(const RecordedLine& line) {
    return line.id.is_null() ? "" : ", id " + ValueText(line.id, true);
}

std::string DifferenceText(const ReplayDifference& difference,
                           const std::vector<std::string>& libraries,
                           const Painter& painter) {
    const RecordedLine& line = difference.line;
    const Dispenser& dispenser = line.asked.dispenser;
    const bool isBetweenLibraries = libraries.size() > 1;
    Table table({{Align::Left, 1, 11}, {Align::Left, 1, 20}, {Align::Left, 1, 0}});
    table.AddRow({"", isBetweenLibraries ? Printable(libraries[0]) : "recorded",
                  isBetweenLibraries ? Printable(libraries[1]) : "now"});
    for (const auto& field : difference.first.items()) {
        const Json& second = difference.second[field.key()];
        if (nlohmann::json(field.value()) != nlohmann::json(second)) {
            table.AddRow({field.key(), ValueText(field.value(), IsAnswered(difference.first)),
                          ValueText(second, IsAnswered(difference.second))});
        }
    }
    return "line " + std::to_string(line.number) + IdText(line) + ": " +
           ReadableText(AskedMoney(dispenser, line.asked.amount), AmountDecimals(dispenser)) + " " +
           dispenser.currency + ", mix " +
           std::to_string(std::uint16_t{line.asked.request.usMixNumber}) + "\n" +
           table.Text(painter);
}

}  // namespace

std::string ReplayText(const ReplayAnswers& answers,
                       const std::vector<std::string>& libraries,
                       const Painter& painter) {
    std::string text =
        Headline(answers, libraries.size() > 1) + "\n" + BadLinesText(answers.badLines.size());
    std::size_t shown = 0;
    for (const ReplayDifference& difference : answers.differences) {
        if (shown++ == kMostDifferencesShown) {
            text += MoreText(answers.differences.size());
            break;
        }
        text += DifferenceText(difference, libraries, painter);
    }
    if (!answers.isComplete) {
        text += "interrupted at line " + std::to_string(answers.interruptedAt) + ", " +
                std::to_string(answers.requests) + " requests asked\n";
    }
    return text;
}

}  // namespace qxmix
