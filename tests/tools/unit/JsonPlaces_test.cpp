#include "json/JsonPlaces.h"

#include <gtest/gtest.h>

#include <utility>

namespace qxmix {
namespace {

constexpr const char* kText = " {\"a\": 1,\n"
                              "\t\"b/c\" : [ {\"x\":\"]}\\\"\"}, [], {}, \n"
                              "  -1.5e3 ], \"\xC3\xA4\": {\"d~\": \"\xC3\xA4\", \"e\": null}}\n";

std::pair<std::size_t, std::size_t> PairOf(const std::string& pointer) {
    const TextPlace place = PlaceOf(kText, pointer);
    return {place.line, place.column};
}

using Pair = std::pair<std::size_t, std::size_t>;

TEST(PlaceOf, IsThatOfTheValue) {
    EXPECT_EQ(PairOf(""), Pair(1, 2));
    EXPECT_EQ(PairOf("/a"), Pair(1, 8));
    EXPECT_EQ(PairOf("/b~1c"), Pair(2, 10));
    EXPECT_EQ(PairOf("/b~1c/0"), Pair(2, 12));
    EXPECT_EQ(PairOf("/b~1c/0/x"), Pair(2, 17));
    EXPECT_EQ(PairOf("/b~1c/1"), Pair(2, 26));
    EXPECT_EQ(PairOf("/b~1c/2"), Pair(2, 30));
    EXPECT_EQ(PairOf("/b~1c/3"), Pair(3, 3));
}

TEST(PlaceOf, CountsCharactersAndNotBytes) {
    EXPECT_EQ(PairOf("/\xC3\xA4"), Pair(3, 18));
    EXPECT_EQ(PairOf("/\xC3\xA4/d~0"), Pair(3, 25));
    EXPECT_EQ(PairOf("/\xC3\xA4/e"), Pair(3, 35));
}

TEST(PlaceOf, IsThatOfWhatIsAroundAFieldThatIsNotThere) {
    EXPECT_EQ(PairOf("/mix"), Pair(1, 2));
    EXPECT_EQ(PairOf("/b~1c/4"), Pair(2, 10));
    EXPECT_EQ(PairOf("/b~1c/1/0"), Pair(2, 26));
    EXPECT_EQ(PairOf("/a/below"), Pair(1, 8));
    EXPECT_EQ(PairOf("/b~1c/0/y/z"), Pair(2, 12));
}

TEST(PlaceOf, IsTheBeginningOfATextThatIsNoneOrCutShort) {
    EXPECT_EQ(PlaceOf("", "/a").line, 1U);
    EXPECT_EQ(PlaceOf("{\"a", "/b").column, 1U);
    EXPECT_EQ(PlaceOf("[1, 2", "/1").column, 5U);
    EXPECT_EQ(PlaceOf("[[", "/0/0").column, 2U);
}

}  // namespace
}  // namespace qxmix
