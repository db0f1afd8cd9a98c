#include "tables/MixTableFile.h"

#include "ErrorText.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace qxmix {
namespace {

/// What becomes of a file with this content.
class MixTableReader : public testing::Test {
protected:
    MixTable TableOf(const std::string& content) const {
        std::ofstream(name_, std::ios::binary) << content;
        return OpenMixTable(name_);
    }

    /// What it says behind the file's name.
    std::string Error(const std::string& content) const {
        const std::string error = ErrorText([&] { TableOf(content); });
        return error == "accepted" ? error : error.substr(name_.size());
    }

    std::string ErrorOfRow(const std::string& row) const {
        return Error(R"({"mixHeader":[50,20],"mixRows":[)" + row + "]}");
    }

private:
    const TemporaryFolder folder_;
    const std::string name_ = folder_.Name("table");
};

/// "70: 1 1".
std::vector<std::string> RowsOfTable(const MixTable& table) {
    std::vector<std::string> rows;
    for (const MixTable::Row& row : table.rows) {
        rows.push_back(std::to_string(row.amount) + ":");
        for (const std::uint16_t count : row.counts) {
            rows.back() += " " + std::to_string(count);
        }
    }
    return rows;
}

using Strings = std::vector<std::string>;

TEST_F(MixTableReader, ReadsWhatIsWritten) {
    MixTable table;
    table.number = 7;
    table.name = "Hall \"A\"";
    table.header = {4294967295, 1};
    table.rows = {{65535, {0, 65535}}, {4294967295, {1, 0}}, {1, {0, 1}}};
    const MixTable json = TableOf(" \t\r\n" + MixTableJson(table));
    EXPECT_EQ(json.number, 7);
    EXPECT_EQ(json.name, "Hall \"A\"");
    const MixTable csv = TableOf(MixTableCsv(table));
    EXPECT_EQ(csv.number, 0);
    EXPECT_EQ(csv.name, "");
    for (const MixTable& read : {json, csv}) {
        EXPECT_EQ(read.header, table.header);
        EXPECT_EQ(RowsOfTable(read), (Strings{"65535: 0 65535", "4294967295: 1 0", "1: 0 1"}));
    }
}

TEST_F(MixTableReader, TakesATableWithoutNumberNameAndRows) {
    const MixTable table = TableOf(R"({"mixHeader":[5],"mixRows":[],"$schema":"x"})");
    EXPECT_EQ(table.number, 0);
    EXPECT_EQ(table.name, "");
    EXPECT_TRUE(table.rows.empty());
    EXPECT_EQ(Error("[1]"), ": a list is not allowed; expected an object");
    EXPECT_EQ(Error(R"({"mixHeader":[5],"mixRows":3})"),
              ": /mixRows: 3 is not allowed; expected a list of rows");
}

TEST_F(MixTableReader, HoldsNumberAndNameToTheirSize) {
    const auto errorOf = [this](const std::string& field) {
        return Error("{" + field + R"(,"mixHeader":[5],"mixRows":[]})");
    };
    EXPECT_EQ(errorOf(R"("mixNumber":65535)"), "accepted");
    EXPECT_EQ(errorOf(R"("mixNumber":65536)"),
              ": /mixNumber: 65536 is not allowed; expected 0 to 65535");
    EXPECT_EQ(errorOf("\"name\":\"" + std::string(1024, 'a') + "\""), "accepted");
    EXPECT_EQ(errorOf("\"name\":\"" + std::string(1025, 'a') + "\""),
              ": /name: 1025 characters; expected text of at most 1024 characters");
    EXPECT_EQ(errorOf(R"("naem":"a")"), ": /naem: unknown field; did you mean \"name\"?");
    EXPECT_EQ(Error(R"({"mixHeader":[5],"mixRows":[{"amount":5,"mixture":[1],"x":1}]})"),
              ": /mixRows/0/x: unknown field; expected one of: amount, mixture");
    EXPECT_EQ(Error(R"({"mixHeader":[5],"mixRows":[{"amount":5,"mixture":1}]})"),
              ": /mixRows/0/mixture: 1 is not allowed; expected a list of the number of each note");
    EXPECT_EQ(Error(R"({"mixRows":[]})"),
              ": /mixHeader: missing; expected a list of what each note is worth");
    EXPECT_EQ(Error(R"({"mixHeader":[5]})"), ": /mixRows: missing; expected a list of rows");
    EXPECT_EQ(Error("amount\n5\n"), ":1: a column without a heading, or amount alone; expected "
                                    "amount and then what each note is worth");
}

TEST_F(MixTableReader, WantsEachNoteOnce) {
    const auto errorOf = [this](const std::string& header) {
        return Error(R"({"mixHeader":)" + header + R"(,"mixRows":[]})");
    };
    EXPECT_EQ(errorOf("[50,20,50]"),
              ": /mixHeader/2: a note of 50 given twice; expected each note once");
    EXPECT_EQ(errorOf("[]"), ": /mixHeader: no notes; expected what each note is worth");
    EXPECT_EQ(errorOf("5"),
              ": /mixHeader: 5 is not allowed; expected a list of what each note is worth");
    EXPECT_EQ(errorOf("[50,0]"), ": /mixHeader/1: 0 is not allowed; expected 1 to 4294967295");
    EXPECT_EQ(Error("amount,50,50\n"), ":1: a note of 50 given twice; expected each note once");
    EXPECT_EQ(Error("amount,50,0\n"),
              ":1: \"0\" is not allowed; expected a whole number, 1 to 4294967295");
}

TEST_F(MixTableReader, HoldsEachRowToItsAmount) {
    EXPECT_EQ(ErrorOfRow(R"({"amount":70,"mixture":[1,1]})"), "accepted");
    EXPECT_EQ(ErrorOfRow(R"({"amount":60,"mixture":[1,1]})"),
              ": /mixRows/0: the notes make 70; expected the amount, 60");
    EXPECT_EQ(ErrorOfRow(R"({"amount":50,"mixture":[1,0]},{"amount":50,"mixture":[1,0]})"),
              ": /mixRows/1: a second row for 50; expected each amount once");
    EXPECT_EQ(ErrorOfRow(R"({"amount":60,"mixture":[1]})"),
              ": /mixRows/0/mixture: 1 numbers; expected 2, one for each note of mixHeader");
    EXPECT_EQ(ErrorOfRow(R"({"amount":0,"mixture":[0,0]})"),
              ": /mixRows/0/amount: 0 is not allowed; expected 1 to 4294967295");
    EXPECT_EQ(ErrorOfRow(R"({"mixture":[0,0]})"),
              ": /mixRows/0/amount: missing; expected 1 to 4294967295");
    EXPECT_EQ(ErrorOfRow(R"({"amount":50,"mixture":[65536,0]})"),
              ": /mixRows/0/mixture/0: 65536 is not allowed; expected 0 to 65535");
    // Sums do not wrap.
    EXPECT_EQ(Error("amount,65536\n4294901760,65535\n"), "accepted");
    EXPECT_EQ(Error("amount,65537,1\n4294967295,65535,0\n"), "accepted");
    EXPECT_EQ(Error("amount,65538,1\n65534,65535,0\n"),
              ":2: the notes make 4295032830; expected the amount, 65534");
}

TEST_F(MixTableReader, NamesTheLineOfACsvFile) {
    EXPECT_EQ(Error("amount,50,20\n70,1,1\n70,1,1\n"),
              ":3: a second row for 70; expected each amount once");
    EXPECT_EQ(Error("50,amount,20\n70,1,1\n"),
              ":1: the first column is not amount; expected amount and then what each note is "
              "worth");
    for (const char* heading : {"amount\n", "amount,,20\n"}) {
        EXPECT_EQ(Error(heading), ":1: a column without a heading, or amount alone; expected "
                                  "amount and then what each note is worth");
    }
    EXPECT_EQ(Error("amount,50,20\n0,0,0\n"),
              ":2: \"0\" is not allowed; expected a whole number, 1 to 4294967295");
    EXPECT_EQ(Error("amount,50,20\n100,65536,0\n"),
              ":2: \"65536\" is not allowed; expected a whole number, 0 to 65535");
    EXPECT_EQ(Error("amount,50,20\n100,2\n"),
              ":2: \"\" is not allowed; expected a whole number, 0 to 65535");
}

TEST_F(MixTableReader, TakesAsManyRowsAsAService) {
    std::string text = "amount,1,65536\n";
    for (int amount = 1; amount <= 65535; ++amount) {
        const std::string number = std::to_string(amount);
        text += number + "," + number + ",0\n";
    }
    EXPECT_EQ(TableOf(text).rows.size(), MixTable::kMostRows);
    EXPECT_EQ(Error(text + "65536,0,1\n"), ":65537: more rows; expected at most 65535");
}

}  // namespace
}  // namespace qxmix
