#include "answers/LineError.h"

#include "errors/Errors.h"
#include "json/Json.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(LineError, TellsTheFieldApartFromWhatIsWrong) {
    const LineError error(7, "a", FieldError("line 7", "/mix", "7 is not allowed"));
    EXPECT_EQ(error.text, "line 7: /mix: 7 is not allowed");
    EXPECT_EQ(LineErrorJson(error), Json::parse(R"({"id":"a","error":
                  {"line":7,"pointer":"/mix","message":"7 is not allowed"}})"));
}

TEST(LineError, OfAWholeLineHasNoField) {
    EXPECT_EQ(LineErrorJson(LineError(7, Json(), FieldError("line 7", "", "a list"))),
              Json::parse(R"({"error":{"line":7,"pointer":null,"message":"a list"}})"));
    EXPECT_EQ(LineErrorJson(LineError(8, 3, InputError("too long"))),
              Json::parse(R"({"id":3,"error":{"line":8,"pointer":null,"message":"too long"}})"));
}

TEST(LineError, TellsTheColumnWhereALineIsNoJson) {
    const LineError error(2, Json(), SyntaxError("f", 2, 9, "expected a comma"));
    EXPECT_EQ(error.message, "column 9: expected a comma");
    EXPECT_EQ(LineErrorsJson({error, error}).size(), 2U);
}

}  // namespace
}  // namespace qxmix
