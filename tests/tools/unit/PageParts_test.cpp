#include "json/Json.h"
#include "pages/PageParts.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

std::string Page(const Envelope& envelope, const Json& page) {
    PageParts parts;
    parts.page = page;
    return PageText(parts, envelope);
}

/// The JSON that a page holds in the element of this name.
Json Held(const std::string& page, const std::string& name) {
    const std::string before = "id=\"" + name + "\">";
    const std::size_t start = page.find(before) + before.size();
    return Json::parse(page.substr(start, page.find("</script>", start) - start));
}

TEST(PageText, HoldsNothingThatMovesOrTurnsAText) {
    // An override of the direction, the end of a line, a control of two bytes, one of one byte, and
    // a byte that is no character.
    const std::string hostile = "a\xe2\x80\xae"
                                "b\xe2\x80\xa8"
                                "c\xc2\x9b"
                                "d\x1b[1m\x9b";
    const std::string shown = "a?b?c?d?[1m?";
    Envelope envelope;
    envelope.input = {{"dispenser", {{"name", hostile}, {"cassettes", {{{"label", hostile}}}}}}};
    envelope.library = hostile;
    const std::string page = Page(envelope, {{"commandLine", hostile}});
    const Json answer = Held(page, "answer");
    EXPECT_EQ(answer["input"]["dispenser"]["name"], shown);
    EXPECT_EQ(answer["input"]["dispenser"]["cassettes"][0]["label"], shown);
    EXPECT_EQ(answer["library"], shown);
    EXPECT_EQ(Held(page, "page")["commandLine"], shown);
    for (const char* part :
         {"\xe2\x80\xae", "\xe2\x80\xa8", "\xc2\x9b", "\x9b", "\x1b", "\\u001b"}) {
        EXPECT_EQ(page.find(part), std::string::npos) << Json(part).dump();
    }
}

TEST(PageText, KeepsEveryOtherCharacter) {
    const std::string name = "B\xc3\xa4rlin <b>&\"\\ \xe2\x82\xac \xf0\x9f\x8f\xa7";
    Envelope envelope;
    envelope.input = {{"name", name}, {"numbers", {1, -2, nullptr, true}}};
    const Json answer = Held(Page(envelope, {}), "answer");
    EXPECT_EQ(answer["input"], envelope.input);
}

}  // namespace
}  // namespace qxmix
