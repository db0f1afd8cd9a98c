#include "MixTableFile.h"

#include "files/InputFile.h"
#include "json/Json.h"
#include "json/JsonFields.h"
#include "json/JsonText.h"
#include "sheets/SheetColumns.h"
#include "sheets/SheetText.h"
#include "text/ParseWhole.h"

#include <algorithm>
#include <functional>
#include <set>

namespace qxmix {

namespace {

constexpr std::size_t kLongestName = 1024;  // characters
constexpr const char* kHeaderExpected = "what each note is worth";

/// Fails at the place that is read.
using Fail = std::function<void(const std::string& wrong)>;

/// Takes a table part by part, and holds each to those before it.
class TableBuilder {
public:
    TableBuilder(std::uint16_t number, const std::string& name) {
        table_.number = number;
        table_.name = name;
    }

    void AddNote(std::uint32_t note, const Fail& fail) {
        if (std::count(table_.header.begin(), table_.header.end(), note) != 0) {
            fail("a note of " + std::to_string(note) + " given twice; expected each note once");
        }
        if (table_.header.size() == MixTable::kMostNotes) {
            fail("more notes; expected at most " + std::to_string(MixTable::kMostNotes));
        }
        table_.header.push_back(note);
    }

    void AddRow(const MixTable::Row& row, const Fail& fail) {
        std::uint64_t sum = 0;
        for (std::size_t column = 0; column < row.counts.size(); ++column) {
            sum += std::uint64_t{table_.header[column]} * row.counts[column];
        }
        if (sum != row.amount) {
            fail("the notes make " + std::to_string(sum) + "; expected the amount, " +
                 std::to_string(row.amount));
        }
        if (!amounts_.insert(row.amount).second) {
            fail("a second row for " + std::to_string(row.amount) + "; expected each amount once");
        }
        if (table_.rows.size() == MixTable::kMostRows) {
            fail("more rows; expected at most " + std::to_string(MixTable::kMostRows));
        }
        table_.rows.push_back(row);
    }

    std::size_t NoteCount() const { return table_.header.size(); }

    const MixTable& Table() const { return table_; }

private:
    MixTable table_;
    std::set<std::uint32_t> amounts_;
};

Fail FailAt(const Place& place) {
    return [place](const std::string& wrong) { throw place.Error(wrong); };
}

const Json& ListOf(const JsonFields& fields, const std::string& name, const std::string& expected) {
    const Json& list = fields.Required(name, expected);
    if (!list.is_array()) {
        throw fields.Here().Below(name).Error(NotAllowed(DescribeJson(list), expected));
    }
    return list;
}

void ReadHeader(const JsonFields& fields, TableBuilder& builder) {
    const Json& header = ListOf(fields, "mixHeader", std::string("a list of ") + kHeaderExpected);
    const Place here = fields.Here().Below("mixHeader");
    if (header.empty()) {
        throw here.Error(std::string("no notes; expected ") + kHeaderExpected);
    }
    for (std::size_t index = 0; index < header.size(); ++index) {
        const Place place = here.Below(index);
        builder.AddNote(
            static_cast<std::uint32_t>(WholeNumber(header[index], place, 1, UINT32_MAX)),
            FailAt(place));
    }
}

MixTable::Row ReadRow(const Json& json, const Place& place, std::size_t noteCount) {
    const JsonFields fields(json, place, {"amount", "mixture"});
    fields.Required("amount", RangeText(1, UINT32_MAX));
    MixTable::Row row{*fields.Whole32("amount", 1), {}};
    const Json& counts = ListOf(fields, "mixture", "a list of the number of each note");
    const Place here = place.Below("mixture");
    if (counts.size() != noteCount) {
        throw here.Error(std::to_string(counts.size()) + " numbers; expected " +
                         std::to_string(noteCount) + ", one for each note of mixHeader");
    }
    for (std::size_t index = 0; index < counts.size(); ++index) {
        row.counts.push_back(static_cast<std::uint16_t>(
            WholeNumber(counts[index], here.Below(index), 0, UINT16_MAX)));
    }
    return row;
}

MixTable ReadJson(const Json& json, const std::string& file) {
    const JsonFields fields(json, Place(file),
                            {"mixNumber", "name", "mixHeader", "mixRows", "$schema"});
    TableBuilder builder(fields.Whole16("mixNumber").value_or(0),
                         fields.Text("name", kLongestName).value_or(""));
    ReadHeader(fields, builder);
    const Json& rows = ListOf(fields, "mixRows", "a list of rows");
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const Place place = fields.Here().Below("mixRows").Below(index);
        builder.AddRow(ReadRow(rows[index], place, builder.NoteCount()), FailAt(place));
    }
    return builder.Table();
}

/// A cell that is a whole number.
std::uint32_t
NumberOf(const std::string& text, std::uint32_t least, std::uint32_t most, const Fail& fail) {
    const auto number = ParseWhole<std::uint32_t>(text);
    if (!number || *number < least || *number > most) {
        fail(NotAllowed("\"" + text + "\"", "a whole number, " + RangeText(least, most)));
    }
    return *number;
}

MixTable ReadCsv(const std::string& file, const std::string& text) {
    SheetColumns columns = FindColumns(file, text, {{"amount", "", false}});
    const auto failHere = [&columns, &file](const std::string& wrong) {
        throw InputError(file + ":" + std::to_string(columns.rows.RowLine()) + ": " + wrong);
    };
    if (columns.places.front() != 0) {
        failHere("the first column is not amount; expected amount and then " +
                 std::string(kHeaderExpected));
    }
    if (columns.count < 2 || columns.others.size() + 1 != columns.count) {
        failHere("a column without a heading, or amount alone; expected amount and then " +
                 std::string(kHeaderExpected));
    }
    TableBuilder builder(0, "");
    for (const std::string& heading : columns.others) {
        builder.AddNote(NumberOf(heading, 1, UINT32_MAX, failHere), failHere);
    }
    std::vector<SheetCell> cells;
    while (columns.rows.Next(cells)) {
        columns.CheckLength(cells, file);
        cells.resize(columns.count);
        MixTable::Row row{NumberOf(cells.front().text, 1, UINT32_MAX, failHere), {}};
        for (std::size_t column = 1; column < columns.count; ++column) {
            row.counts.push_back(
                static_cast<std::uint16_t>(NumberOf(cells[column].text, 0, UINT16_MAX, failHere)));
        }
        builder.AddRow(row, failHere);
    }
    return builder.Table();
}

}  // namespace

MixTable OpenMixTable(const std::string& name) {
    return ReadMixTable(ReadInput(name));
}

MixTable ReadMixTable(const InputFile& file) {
    const std::string text = SheetText(file);
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    const bool isJson = first != std::string::npos && (text[first] == '{' || text[first] == '[');
    return isJson ? ReadJson(ParseJson(text, file.name), file.name) : ReadCsv(file.name, text);
}

}  // namespace qxmix
