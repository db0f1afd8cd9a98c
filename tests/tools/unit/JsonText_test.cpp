#include "json/JsonText.h"

#include "ErrorText.h"
#include "json/Json.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

std::string ErrorOfJson(const std::string& text) {
    return ErrorText([&text] { ParseJson(text, "f.json"); });
}

TEST(JsonText, ReadsEveryKindOfValueInOrder) {
    const std::string text =
        R"({"b":[1,-2,3.5,18446744073709551615,true,null,"x"],"a":{"deep":[[],{}]}})";
    EXPECT_EQ(ParseJson(text, "f").dump(), text);
}

TEST(JsonText, NamesLineAndColumnOfASyntaxError) {
    EXPECT_EQ(ErrorOfJson("{\n  \"a\": 1,\n  \"b\": }\n").substr(0, 26),
              "f.json:3:8: syntax error w");
    EXPECT_EQ(ErrorOfJson("[1,").substr(0, 25), "f.json:1:4: syntax error ");
    EXPECT_EQ(ErrorOfJson("[1]\n\n x").substr(0, 25), "f.json:3:2: syntax error ");
}

TEST(JsonText, RefusesTextThatIsNoUtf8) {
    EXPECT_EQ(ErrorOfJson("[\"\xff\"]").substr(0, 12), "f.json:1:3: ");
    EXPECT_EQ(ErrorOfJson("\xff\xfe{"), "f.json:1:1: UTF-16; expected JSON in UTF-8");
    EXPECT_EQ(ErrorOfJson("\xfe\xff{"), "f.json:1:1: UTF-16; expected JSON in UTF-8");
}

TEST(JsonText, SaysThatNothingIsThere) {
    EXPECT_EQ(ErrorOfJson(""), "f.json:1:1: empty; expected JSON");
    EXPECT_EQ(ErrorOfJson(" \r\n\t\n"), "f.json:3:1: empty; expected JSON");
}

TEST(JsonText, RefusesANumberBeyondAllBounds) {
    EXPECT_EQ(ErrorOfJson("[5, 1e999]"), "f.json:1:9: 1e999 is too large a number");
}

TEST(JsonText, RefusesAKeyGivenTwiceWhereverItStands) {
    EXPECT_EQ(ErrorOfJson(R"({"a":1,"a":1})"), "f.json: /a: given twice; expected once");
    EXPECT_EQ(ErrorOfJson(R"({"l":[0,{"x":{"k":1,"k":2}}]})"),
              "f.json: /l/1/x/k: given twice; expected once");
    EXPECT_EQ(ErrorOfJson(R"([{"a":1},{"a":1}])"), "accepted");
    EXPECT_EQ(ErrorOfJson(R"([[{"a/b~c":{},"a/b~c":0}]])"),
              "f.json: /0/0/a~1b~0c: given twice; expected once");
}

TEST(JsonText, RefusesTwoFieldsOfOneNameAmongMany) {
    std::string fields = "\"0\":0";
    for (int number = 1; number < 200000; ++number) {
        fields += ",\"" + std::to_string(number) + "\":0";
    }
    EXPECT_EQ(ErrorOfJson("{" + fields + "}"), "accepted");
    EXPECT_EQ(ErrorOfJson("{" + fields + ",\"31\":0}"), "f.json: /31: given twice; expected once");
    EXPECT_EQ(ErrorOfJson("{" + fields + ",\"150000\":0}"),
              "f.json: /150000: given twice; expected once");
}

TEST(JsonText, LimitsNestingWhileItReads) {
    const auto nested = [](std::size_t depth, const std::string& inner) {
        return std::string(depth, '[') + inner + std::string(depth, ']');
    };
    EXPECT_EQ(ErrorOfJson(nested(64, "")), "accepted");
    EXPECT_EQ(ErrorOfJson(nested(63, "{\"a\":1}")), "accepted");
    const std::string end =
        ": nested too deep; expected at most 64 lists and objects in each other";
    std::string pointer;
    for (int level = 0; level < 64; ++level) {
        pointer += "/0";
    }
    EXPECT_EQ(ErrorOfJson(nested(64, "{}")), "f.json: " + pointer + end);
    // What stands behind the limit is not read: it need not even be JSON.
    EXPECT_EQ(ErrorOfJson(std::string(65, '[') + "rubbish"), "f.json: " + pointer + end);
}

TEST(JsonText, TakesNoZeroByteForTheEnd) {
    const std::string zero(1, '\0');
    const std::string wrong = "a zero byte; expected JSON in UTF-8";
    EXPECT_EQ(ErrorOfJson("[1]" + zero + " rubbish"), "f.json:1:4: " + wrong);
    EXPECT_EQ(ErrorOfJson("[1]\n " + zero), "f.json:2:2: " + wrong);
    EXPECT_EQ(ErrorOfJson("[1," + zero + "2]"), "f.json:1:4: " + wrong);
    EXPECT_EQ(ErrorOfJson(zero), "f.json:1:1: " + wrong);
    EXPECT_EQ(ErrorOfJson("{" + zero + "\"" + zero), "f.json:1:2: " + wrong);
}

TEST(JsonText, NamesAFieldWithAZeroByteInOneWholeLine) {
    EXPECT_EQ(ErrorOfJson(R"({"a\u0000b":1,"a\u0000b":1})"),
              "f.json: /a?b: given twice; expected once");
}

TEST(DescribeJson, KeepsErrorLinesShortAndPlain) {
    EXPECT_EQ(DescribeJson(Json::array({1})), "a list");
    EXPECT_EQ(DescribeJson(Json::object()), "an object");
    EXPECT_EQ(DescribeJson(70.5), "70.5");
    EXPECT_EQ(DescribeJson("a\nb"), "\"a\\nb\"");
    EXPECT_EQ(DescribeJson(std::string(100, 'x')), "\"" + std::string(35, 'x') + "...\"");
}

}  // namespace
}  // namespace qxmix
