#include "SheetOptions.h"

#include "dispenser/Money.h"
#include "errors/Errors.h"
#include "errors/NearestName.h"
#include "options/ShellWords.h"
#include "text/TextList.h"

#include <CLI/App.hpp>
#include <algorithm>

namespace qxmix {

namespace {

constexpr const char* kDayFirst = "dmy";
constexpr const char* kMonthFirst = "mdy";

DateOrder ParseDateOrder(const std::string& text) {
    if (text != kDayFirst && text != kMonthFirst) {
        throw InputError("--dates: " +
                         NotAllowed(text, std::string(kDayFirst) + " or " + kMonthFirst));
    }
    return text == kDayFirst ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

WantedColumn& ColumnOf(SheetOptions& options, const std::string& name) {
    std::vector<std::string> names;
    for (WantedColumn& column : options.columns) {
        if (column.name == name) {
            return column;
        }
        names.push_back(column.name);
    }
    if (options.takesNotes && Money::Parse(name)) {
        options.columns.push_back({name, "", false});
        return options.columns.back();
    }
    throw InputError("--columns: unknown column \"" + name + "\"" + DidYouMean(name, names));
}

/// "time=Zeit,amount=Betrag". A part without "=" belongs to the heading before it, in which a
/// comma may stand.
void ParseColumns(const std::string& text, SheetOptions& options) {
    WantedColumn* column = nullptr;
    for (const std::string& part : Split(text, ',')) {
        const std::size_t at = part.find('=');
        if (at == std::string::npos && column != nullptr) {
            column->heading += "," + part;
            continue;
        }
        column = &ColumnOf(options, part.substr(0, at));
        if (!column->heading.empty()) {
            throw InputError("--columns: " + column->name + " given twice; expected once");
        }
        column->heading = at == std::string::npos ? "" : part.substr(at + 1);
        if (column->heading.empty()) {
            throw InputError("--columns: " + part + " names no column; expected " + column->name +
                             "=NAME");
        }
    }
}

}  // namespace

void AddSheetOptions(CLI::App& command, SheetOptions& options, const std::string& example) {
    command
        .add_option_function<std::string>(
            "--columns",
            [&options](const std::string& text) {
                options.columnsGiven = text;
                ParseColumns(text, options);
            },
            "columns of a CSV that have other names: " + example)
        ->type_name("LIST");
    command
        .add_option_function<std::string>(
            "--dates",
            [&options](const std::string& text) { options.dates = ParseDateOrder(text); },
            "dmy or mdy: what comes first in dates such as 03/04/2026")
        ->type_name("ORDER");
}

std::string GivenSheetOption(const SheetOptions& options) {
    return !options.columnsGiven.empty() ? "--columns" : options.dates ? "--dates" : "";
}

std::string SheetWords(const SheetOptions& options) {
    const std::string columns =
        options.columnsGiven.empty() ? "" : " --columns " + ShellWord(options.columnsGiven);
    if (!options.dates) {
        return columns;
    }
    return columns + " --dates " +
           (*options.dates == DateOrder::DayFirst ? kDayFirst : kMonthFirst);
}

}  // namespace qxmix
