#include "ErrorText.h"
#include "dispenser/DispenserJson.h"
#include "dispenser/DispenserReader.h"
#include "json/Json.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

/// A dispenser with every field there is, none of them as it is without it.
Json WholeDispenser() {
    return Json::parse(R"({
        "$schema": "urn:qxmix:dispenser:1", "name": "Lobby", "currency": "CHF", "exponent": -2,
        "partial": true, "maxDispenseItems": 30, "mix": 9,
        "amounts": {"min": 5, "max": 7, "step": 2, "buttons": [6, 7]},
        "cassettes": [
            {"label": "A", "position": 3, "type": "coinDispenser", "status": "low",
             "currency": "EUR", "value": 50, "count": 400, "worth": "0.50", "lowThreshold": 8,
             "emptyThreshold": 2, "capacity": 500, "bundle": 25},
            {"value": 20, "count": 7}],
        "registry": {"TraceLevel": {"type": 4, "hex": "02010000"},
                     "CSTMinimum4Mix6": {"type": 1, "hex": "32000000"}},
        "lint": {"accept": {"QX205": "why"}},
        "costs": {"interestPerYear": "2.50", "refill": "80", "bundle": "0.10"}})");
}

Dispenser DispenserFrom(const Json& json) {
    return ReadDispenser(json, Place("f.json"));
}

std::string ErrorFrom(const Json& json) {
    return ErrorText([&json] { DispenserFrom(json); });
}

/// Pointers to places of a file.
struct Places {
    std::vector<std::string> leaves;   ///< what holds nothing further
    std::vector<std::string> objects;  ///< what holds fields
};

void Collect(const Json& json, const std::string& pointer, Places& places) {
    if (json.is_object()) {
        places.objects.push_back(pointer);
    }
    for (const auto& field : json.items()) {
        const std::string below = pointer + "/" + field.key();
        if (field.value().is_structured()) {
            Collect(field.value(), below, places);
        } else {
            places.leaves.push_back(below);
        }
    }
}

Places PlacesOfAll() {
    Places places;
    Collect(WholeDispenser(), "", places);
    return places;
}

TEST(DispenserFields, AreAllRead) {
    Json read = DispenserJson(DispenserFrom(WholeDispenser()));
    Json expected = WholeDispenser();
    expected.erase("$schema");  // an editor's alone
    expected["cassettes"][1] = Json::parse(
        R"({"position": 1, "type": "billCassette", "status": "ok", "currency": "CHF", "value": 20,
            "count": 7, "worth": "20", "lowThreshold": 0, "emptyThreshold": 0})");
    EXPECT_EQ(read, expected);
}

TEST(DispenserFields, AreRefusedAtTheirPlace) {
    const std::vector<std::string> leaves = PlacesOfAll().leaves;
    EXPECT_EQ(leaves.size(), 34U);
    for (const std::string& leaf : leaves) {
        Json wrong = WholeDispenser();
        wrong[Json::json_pointer(leaf)] = Json::array({Json::object()});
        EXPECT_EQ(ErrorFrom(wrong).substr(0, leaf.size() + 10), "f.json: " + leaf + ": ");
    }
}

TEST(DispenserFields, HaveNoOthersBesideThem) {
    const std::vector<std::string> objects = PlacesOfAll().objects;
    EXPECT_EQ(objects.size(), 10U);
    for (const std::string& object : objects) {
        Json wrong = WholeDispenser();
        wrong[Json::json_pointer(object)]["zzzzzzzz"] = 1;
        const std::string expected = "f.json: " + object + "/zzzzzzzz: ";
        EXPECT_EQ(ErrorFrom(wrong).substr(0, expected.size()), expected);
    }
    for (const auto& [object, isOwnAllowed] : std::map<std::string, bool>{{"", true},
                                                                          {"/cassettes/1", true},
                                                                          {"/amounts", false},
                                                                          {"/costs", false},
                                                                          {"/lint", false},
                                                                          {"/registry", false}}) {
        Json own = WholeDispenser();
        own[Json::json_pointer(object)]["x-own"] = 1;
        EXPECT_EQ(ErrorFrom(own) == "accepted", isOwnAllowed) << object;
    }
}

TEST(DispenserFields, HoldNumbersToTheirRange) {
    struct Range {
        const char* pointer;
        std::int64_t least;
        std::int64_t most;
    };
    for (const Range& range : {Range{"/exponent", INT16_MIN, INT16_MAX},
                               {"/maxDispenseItems", 0, UINT16_MAX},
                               {"/mix", kFirstMix, kLastMix},
                               {"/amounts/min", 1, UINT32_MAX},
                               {"/amounts/max", 1, UINT32_MAX},
                               {"/amounts/step", 1, UINT32_MAX},
                               {"/amounts/buttons/0", 1, UINT32_MAX},
                               {"/cassettes/0/position", 0, UINT16_MAX},
                               {"/cassettes/0/type", 0, UINT16_MAX},
                               {"/cassettes/0/status", 0, UINT16_MAX},
                               {"/cassettes/0/value", 0, UINT32_MAX},
                               {"/cassettes/0/count", 0, UINT32_MAX},
                               {"/cassettes/0/lowThreshold", 0, UINT32_MAX},
                               {"/cassettes/0/emptyThreshold", 0, UINT32_MAX},
                               {"/cassettes/0/bundle", 1, UINT32_MAX},
                               {"/registry/TraceLevel", 0, UINT32_MAX},
                               {"/registry/TraceLevel/type", 0, UINT32_MAX}}) {
        const auto error = [&range](std::int64_t number) {
            Json json = WholeDispenser();
            json["cassettes"][0].erase("capacity");
            json["amounts"] = {{"buttons", {2}}};
            json[Json::json_pointer(range.pointer)] = number;
            return ErrorFrom(json);
        };
        const std::string expected = ": " + std::string(range.pointer) + ": ";
        EXPECT_EQ(error(range.least), "accepted") << range.pointer;
        EXPECT_EQ(error(range.most), "accepted") << range.pointer;
        for (const std::int64_t beyond : {range.least - 1, range.most + 1}) {
            EXPECT_EQ(error(beyond), "f.json" + expected + std::to_string(beyond) +
                                         " is not allowed; expected " +
                                         RangeText(range.least, range.most));
        }
    }
}

TEST(DispenserFields, MayLackWhatHasADefault) {
    const Json whole = WholeDispenser();
    for (const auto& field : whole.items()) {
        Json without = WholeDispenser();
        without.erase(field.key());
        const bool isNeeded = field.key() == "currency" || field.key() == "cassettes";
        EXPECT_EQ(ErrorFrom(without) == "accepted", !isNeeded) << field.key();
    }
    for (const char* const object : {"/amounts", "/costs", "/registry", "/lint"}) {
        Json empty = WholeDispenser();
        empty[Json::json_pointer(object)] = Json::object();
        EXPECT_EQ(ErrorFrom(empty), "accepted") << object;
    }
}

TEST(DispenserFields, HoldAmountsBetweenTheirEnds) {
    const auto error = [](const char* amounts) {
        Json json = WholeDispenser();
        json["amounts"] = Json::parse(amounts);
        return ErrorFrom(json);
    };
    EXPECT_EQ(error(R"({"min":7,"max":7})"), "accepted");
    EXPECT_EQ(error(R"({"min":7,"max":6})"),
              "f.json: /amounts/max: 6 is not allowed; expected 7 or more");
    EXPECT_EQ(error(R"({"min":7})"), "accepted") << "one end alone";
    EXPECT_EQ(error(R"({"max":7})"), "accepted");
}

TEST(DispenserFields, HoldTextsToTheirLength) {
    const auto error = [](const char* pointer, std::size_t size) {
        Json json = WholeDispenser();
        json[Json::json_pointer(pointer)] = std::string(size, 'a');
        return ErrorFrom(json);
    };
    for (const auto& [pointer, longest] :
         std::map<const char*, std::size_t>{{"/name", 120},
                                            {"/cassettes/0/label", 40},
                                            {"/lint/accept/QX205", 200},
                                            {"/registry/CSTMinimum4Mix6", 63}}) {
        EXPECT_EQ(error(pointer, longest), "accepted") << pointer;
        EXPECT_EQ(error(pointer, longest + 1), "f.json: " + std::string(pointer) + ": " +
                                                   std::to_string(longest + 1) +
                                                   " characters; expected text of at most " +
                                                   std::to_string(longest) + " characters");
    }
}

TEST(DispenserFields, HoldMoneyToItsDigits) {
    for (const char* const pointer :
         {"/cassettes/0/worth", "/costs/interestPerYear", "/costs/refill", "/costs/bundle"}) {
        const auto error = [pointer](const char* text) {
            Json json = WholeDispenser();
            json[Json::json_pointer(pointer)] = text;
            return ErrorFrom(json);
        };
        for (const char* const text : {"0", "9999999999", "9999999999.9999", "0.0001"}) {
            EXPECT_EQ(error(text), "accepted") << pointer << text;
        }
        for (const char* const text : {"10000000000", "10000000000.0", "0.00001", "-1", "", "1."}) {
            EXPECT_EQ(error(text), "f.json: " + std::string(pointer) + ": \"" + text +
                                       "\" is not allowed; expected decimal text such as \"0.50\"");
        }
    }
}

}  // namespace
}  // namespace qxmix
