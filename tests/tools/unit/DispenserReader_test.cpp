#include "dispenser/DispenserReader.h"

#include "ErrorText.h"
#include "NumberedName.h"
#include "dispenser/DispenserJson.h"
#include "dispenser/StoredValues.h"
#include "json/Json.h"
#include "json/JsonText.h"
#include "mixes/MixTraits.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Dispenser DispenserOf(const std::string& text) {
    return ReadDispenser(ParseJson(text, "f.json"), Place("f.json"));
}

/// A dispenser of one cassette with further fields of its own.
Cassette ReadCassette(const std::string& fields) {
    return DispenserOf(R"({"currency":"EUR","cassettes":[{"value":10,"count":100)" + fields + "}]}")
        .cassettes.front();
}

TEST(DispenserReader, TakesAMillionButtons) {
    std::string buttons = "1";
    for (int amount = 2; amount <= 1000000; ++amount) {
        buttons += "," + std::to_string(amount);
    }
    const std::string text =
        R"({"currency":"EUR","cassettes":[{"value":1,"count":1}],"amounts":{"buttons":[)" +
        buttons + "]}}";
    EXPECT_EQ(ReadDispenser(ParseJson(text, "f"), Place("f")).AmountsTold().buttons.size(),
              1000000U);
}

TEST(DispenserReader, TakesTenDigitsOfMoneyAndFourBehindThePoint) {
    EXPECT_EQ(ReadCassette(R"(,"worth":"9999999999.9999")").worth, Money::Parse("9999999999.9999"));
    EXPECT_EQ(ReadCassette(R"(,"worth":"9999999999")").worth, Money::Parse("9999999999"));
}

TEST(DispenserReader, HoldsACapacityToTheCount) {
    EXPECT_EQ(ReadCassette(R"(,"capacity":100)").capacity, 100U);
    EXPECT_EQ(ReadCassette("").capacity, std::nullopt);
    EXPECT_EQ(ErrorText([] { ReadCassette(R"(,"capacity":99)"); }),
              "f.json: /cassettes/0/capacity: 99 is not allowed; expected the count, 100, or more");
}

TEST(DispenserReader, FillsInEveryDefault) {
    const Dispenser dispenser = DispenserOf(
        R"({"currency":"EUR","cassettes":[{"value":50,"count":1},{"value":20,"count":2}]})");
    EXPECT_EQ(dispenser.name, "");
    EXPECT_EQ(dispenser.currency, "EUR");
    EXPECT_EQ(dispenser.exponent, 0);
    EXPECT_FALSE(dispenser.partial);
    EXPECT_EQ(dispenser.maxDispenseItems, 40);
    EXPECT_FALSE(dispenser.mix);
    EXPECT_EQ(dispenser.MixOrDefault(), 1);
    EXPECT_TRUE(dispenser.registry.empty());
    const Cassette& second = dispenser.cassettes.at(1);
    EXPECT_EQ(second.position, 1);
    EXPECT_EQ(second.type, 3);
    EXPECT_EQ(second.status, 0);
    EXPECT_EQ(second.currency, "EUR");
    EXPECT_EQ(second.Worth().Text(), "20");
    EXPECT_EQ(CassetteLabel(dispenser, 1), "1");
}

TEST(DispenserReader, ReadsEveryField) {
    const Dispenser dispenser = DispenserOf(R"({
        "$schema": "urn:qxmix:dispenser:1", "x-note": {"any": [1.5]}, "name": "Lobby",
        "currency": "CHF", "exponent": -2, "partial": true, "mix": 9, "maxDispenseItems": 30,
        "amounts": {"min": 5, "max": 7, "step": 2, "buttons": [6, 7]},
        "registry": {"TraceLevel": 258, "CSTMinimum4Mix6": "25"},
        "cassettes": [{"label": "coins", "position": 3, "type": "coinDispenser", "status": "low",
            "currency": "EUR", "value": 50, "count": 400, "worth": "0.50", "lowThreshold": 8,
            "emptyThreshold": 2, "x-own": 1}]})");
    EXPECT_EQ(dispenser.name, "Lobby");
    EXPECT_EQ(dispenser.exponent, -2);
    EXPECT_TRUE(dispenser.partial);
    EXPECT_EQ(dispenser.mix, 9);
    EXPECT_EQ(dispenser.maxDispenseItems, 30);
    EXPECT_EQ(dispenser.AmountsTold().min, 5U);
    EXPECT_EQ(dispenser.AmountsTold().max, 7U);
    EXPECT_EQ(dispenser.AmountsTold().step, 2U);
    EXPECT_EQ(dispenser.AmountsTold().buttons, (std::vector<std::uint32_t>{6, 7}));
    const Cassette& cassette = dispenser.cassettes.front();
    EXPECT_EQ(cassette.position, 3);
    EXPECT_EQ(cassette.type, 5);
    EXPECT_EQ(cassette.status, 3);
    EXPECT_EQ(cassette.currency, "EUR");
    EXPECT_EQ(cassette.Worth().Text(2), "0.50");
    EXPECT_EQ(cassette.lowThreshold, 8U);
    EXPECT_EQ(cassette.emptyThreshold, 2U);
    EXPECT_EQ(CassetteLabel(dispenser, 0), "coins");
}

TEST(DispenserReader, StoresRegistryValuesAsTheModuleReadsThem) {
    const std::vector<StoredValue> values =
        DispenserOf(R"({"currency":"EUR","cassettes":[{"value":1,"count":1}],
                 "registry":{"TraceLevel":258,"CSTMinimum4Mix6":"25"}})")
            .registry;
    ASSERT_EQ(values.size(), 2U);
    EXPECT_EQ(values[0].type, 4U);
    EXPECT_EQ(values[0].bytes, std::string("\x02\x01\x00\x00", 4));
    EXPECT_EQ(values[1].type, 1U);
    EXPECT_EQ(values[1].bytes, std::string("2\0005\0\0\0", 6));
}

TEST(DispenserReader, StoresRawRegistryValuesAsTheyStand) {
    const std::vector<StoredValue> values =
        DispenserOf(R"({"currency":"EUR","cassettes":[{"value":1,"count":1}],
                 "registry":{"CSTMinimum4Mix6":{"type":4,"hex":"fA00"}}})")
            .registry;
    ASSERT_EQ(values.size(), 1U);
    EXPECT_EQ(values[0].type, 4U);
    EXPECT_EQ(values[0].bytes, std::string("\xfa\x00", 2));
}

TEST(DispenserReader, TakesTypesByEitherNameOrNumber) {
    EXPECT_EQ(ReadCassette(R"(,"type":"coupon")").type, 7);
    EXPECT_EQ(ReadCassette(R"(,"type":"WFS_CDM_TYPECOUPON")").type, 7);
    EXPECT_EQ(ReadCassette(R"(,"type":7)").type, 7);
    EXPECT_EQ(ReadCassette(R"(,"type":"WFS_CDM_TYPEDOCUMENT")").type, 8);
    EXPECT_EQ(ReadCassette(R"(,"type":65535)").type, 65535);
}

TEST(DispenserReader, TakesStatusesByEitherNameOrNumber) {
    EXPECT_EQ(ReadCassette(R"(,"status":"noReference")").status, 8);
    EXPECT_EQ(ReadCassette(R"(,"status":"WFS_CDM_STATCUNOREF")").status, 8);
    EXPECT_EQ(ReadCassette(R"(,"status":8)").status, 8);
}

TEST(DispenserReader, ReadsBackWhatAnAnswerShows) {
    const Dispenser dispenser = DispenserOf(R"({"currency":"CHF","exponent":-2,"mix":4,"cassettes":[
        {"value":50,"count":1,"type":8,"status":77},{"value":50,"count":4,"type":5,"worth":"0.5"}],
        "registry":{"CSTMinimum4Mix6":"25"}})");
    const Json shown = DispenserJson(dispenser);
    EXPECT_EQ(DispenserJson(ReadDispenser(shown, Place("again"))), shown);
    EXPECT_EQ(shown["cassettes"][1]["worth"], "0.50");
    EXPECT_EQ(shown["cassettes"][0]["type"], 8);
}

TEST(DispenserReader, RefusesANumberThatNoMixHas) {
    for (const int mix : {0, kLastMix + 1}) {
        const std::string text = R"({"currency":"EUR","cassettes":[{"value":1,"count":1}],"mix":)" +
                                 std::to_string(mix) + "}";
        EXPECT_EQ(ErrorText([&text] { DispenserOf(text); }),
                  "f.json: /mix: " + std::to_string(mix) + " is not allowed; expected 1 to " +
                      std::to_string(kLastMix));
    }
}

struct WrongDispenser {
    const char* fields;  // of the dispenser, beside currency and cassettes
    const char* error;
};

std::string NameOfWrong(const testing::TestParamInfo<WrongDispenser>& one) {
    return NumberedName(one.index, one.param.fields);
}

class DispenserFields : public testing::TestWithParam<WrongDispenser> {};

TEST_P(DispenserFields, AreRefusedWithTheirPlaceAndWhatIsExpected) {
    const std::string text =
        std::string(R"({"currency":"EUR","cassettes":[{"value":1,"count":1}],)") +
        GetParam().fields + "}";
    EXPECT_EQ(ErrorText([&text] { DispenserOf(text); }),
              std::string("f.json: ") + GetParam().error);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Wrong, DispenserFields, testing::Values(
    WrongDispenser{R"("curency":"EUR")", R"(/curency: unknown field; did you mean "currency"?)"},
    WrongDispenser{R"("Mix":1)", R"(/Mix: unknown field; did you mean "mix"?)"},
    WrongDispenser{R"("colour":1)", "/colour: unknown field; expected one of: currency, exponent, partial, "
            "mix, maxDispenseItems, amounts, cassettes, registry, costs, lint, name, $schema"},
    WrongDispenser{R"("a/b~":1)", "/a~1b~0: unknown field; expected one of: currency, exponent, partial, "
            "mix, maxDispenseItems, amounts, cassettes, registry, costs, lint, name, $schema"},
    WrongDispenser{R"("exponent":-32769)", "/exponent: -32769 is not allowed; expected -32768 to 32767"},
    WrongDispenser{R"("exponent":0.5)", "/exponent: 0.5 is not allowed; expected a whole number, -32768 to 32767"},
    WrongDispenser{R"("exponent":"2")", "/exponent: \"2\" is not allowed; expected a whole number, -32768 to 32767"},
    WrongDispenser{R"("partial":1)", "/partial: 1 is not allowed; expected true or false"},
    WrongDispenser{R"("maxDispenseItems":65536)", "/maxDispenseItems: 65536 is not allowed; expected 0 to 65535"},
    WrongDispenser{R"("name":7)", "/name: 7 is not allowed; expected text of at most 120 characters"},
    WrongDispenser{R"("$schema":7)", "/$schema: 7 is not allowed; expected text"},
    WrongDispenser{R"("amounts":7)", "/amounts: 7 is not allowed; expected an object"},
    WrongDispenser{R"("amounts":{"mim":7})", R"(/amounts/mim: unknown field; did you mean "min"?)"},
    WrongDispenser{R"("amounts":{"min":7,"max":5})", "/amounts/max: 5 is not allowed; expected 7 or more"},
    WrongDispenser{R"("amounts":{"step":0})", "/amounts/step: 0 is not allowed; expected 1 to 4294967295"},
    WrongDispenser{R"("amounts":{"buttons":7})", "/amounts/buttons: 7 is not allowed; expected a list of amounts"},
    WrongDispenser{R"("amounts":{"buttons":[1,0]})", "/amounts/buttons/1: 0 is not allowed; expected 1 to 4294967295"},
    WrongDispenser{R"("amounts":{"buttons":[1,2,1]})", "/amounts/buttons/2: 1 given twice; expected once"},
    WrongDispenser{R"("registry":[])", "/registry: a list is not allowed; expected an object"},
    WrongDispenser{R"("registry":{"x-a":1})", "/registry/x-a: unknown field; expected one of: TraceLevel, CSTMinimum4Mix6"},
    WrongDispenser{R"("registry":{"TraceLevel":"3"})", "/registry/TraceLevel: \"3\" is not allowed; expected a whole number, 0 to 4294967295"},
    WrongDispenser{R"("registry":{"CSTMinimum4Mix6":250})", "/registry/CSTMinimum4Mix6: 250 is not allowed; expected text, \"250\""},
    WrongDispenser{R"("registry":{"TraceLevel":{"type":4}})", "/registry/TraceLevel/hex: missing; expected hexadecimal digits in pairs"},
    WrongDispenser{R"("registry":{"TraceLevel":{"hex":""}})", "/registry/TraceLevel/type: missing; expected 0 to 4294967295"},
    WrongDispenser{R"("registry":{"TraceLevel":{"type":4,"hex":"0"}})", "/registry/TraceLevel/hex: \"0\" is not allowed; expected hexadecimal digits in pairs"}), NameOfWrong);

class CassetteFields : public testing::TestWithParam<WrongDispenser> {};

TEST_P(CassetteFields, AreRefusedWithTheirPlaceAndWhatIsExpected) {
    const std::string text = std::string(R"({"currency":"EUR","cassettes":[{"value":1,"count":1},{)") +
                             GetParam().fields + "}]}";
    EXPECT_EQ(ErrorText([&text] { DispenserOf(text); }), std::string("f.json: /cassettes/1") + GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Wrong, CassetteFields, testing::Values(
    WrongDispenser{R"("value":1)", "/count: missing; expected 0 to 4294967295"},
    WrongDispenser{R"("count":1)", "/value: missing; expected 0 to 4294967295"},
    WrongDispenser{R"("value":1,"count":-1)", "/count: -1 is not allowed; expected 0 to 4294967295"},
    WrongDispenser{R"("value":4294967296,"count":1)", "/value: 4294967296 is not allowed; expected 0 to 4294967295"},
    WrongDispenser{R"("value":18446744073709551615,"count":1)", "/value: 18446744073709551615 is not allowed; expected 0 to 4294967295"},
    WrongDispenser{R"("value":true,"count":1)", "/value: true is not allowed; expected a whole number, 0 to 4294967295"},
    WrongDispenser{R"("value":1,"count":1,"type":"bilCassette")", R"(/type: unknown type "bilCassette"; did you mean "billCassette"?)"},
    WrongDispenser{R"("value":1,"count":1,"type":"WFS_CDM_TYPEBILLCASETTE")", R"(/type: unknown type "WFS_CDM_TYPEBILLCASETTE"; did you mean "WFS_CDM_TYPEBILLCASSETTE"?)"},
    WrongDispenser{R"("value":1,"count":1,"type":65536)", "/type: 65536 is not allowed; expected 0 to 65535"},
    WrongDispenser{R"("value":1,"count":1,"status":"zzzz")", R"(/status: unknown status "zzzz"; expected one of: ok, full, high, low, empty, inoperative, missing, noValue, noReference, manipulated)"},
    WrongDispenser{R"("value":1,"count":1,"status":null)", "/status: null is not allowed; expected a whole number, 0 to 65535"},
    WrongDispenser{R"("value":1,"count":1,"currency":"eur")", "/currency: \"eur\" is not allowed; expected three capital letters such as EUR"},
    WrongDispenser{R"("value":1,"count":1,"worth":0.5)", "/worth: 0.5 is not allowed; expected decimal text such as \"0.50\""},
    WrongDispenser{R"("value":1,"count":1,"worth":"0.12345")", "/worth: \"0.12345\" is not allowed; expected decimal text such as \"0.50\""},
    WrongDispenser{R"("value":1,"count":1,"worth":"12345678901")", "/worth: \"12345678901\" is not allowed; expected decimal text such as \"0.50\""},
    WrongDispenser{R"("value":1,"count":1,"position":-1)", "/position: -1 is not allowed; expected 0 to 65535"}), NameOfWrong);
// clang-format on

TEST(DispenserReader, RefusesWhatIsNoDispenser) {
    EXPECT_EQ(ErrorText([] { DispenserOf("[]"); }),
              "f.json: a list is not allowed; expected an object");
    EXPECT_EQ(ErrorText([] { DispenserOf("{}"); }),
              "f.json: /currency: missing; expected three capital letters such as EUR");
    EXPECT_EQ(ErrorText([] { DispenserOf(R"({"currency":"EUR"})"); }),
              "f.json: /cassettes: missing; expected a list of 1 to 6 cassettes");
    EXPECT_EQ(ErrorText([] { DispenserOf(R"({"currency":"EUR","cassettes":[]})"); }),
              "f.json: /cassettes: 0 cassettes; expected 1 to 6");
    EXPECT_EQ(ErrorText([] { DispenserOf(R"({"currency":"EUR","cassettes":[1,1,1,1,1,1,1]})"); }),
              "f.json: /cassettes: 7 cassettes; expected 1 to 6");
}

TEST(DispenserReader, CountsCharactersNotBytes) {
    const auto dispenserWith = [](std::size_t length) {
        std::string label;
        for (std::size_t letter = 0; letter < length; ++letter) {
            label += "\xc3\xa9";
        }
        return R"({"currency":"EUR","cassettes":[{"value":1,"count":1,"label":")" + label +
               R"("}]})";
    };
    EXPECT_EQ(ErrorText([&] { DispenserOf(dispenserWith(40)); }), "accepted");
    EXPECT_EQ(ErrorText([&] { DispenserOf(dispenserWith(41)); }),
              "f.json: /cassettes/0/label: 41 characters; expected text of at most 40 characters");
}

TEST(DispenserReader, AcceptsFindingsByTheirIdWithAReason) {
    const auto error = [](const std::string& accepted) {
        return ErrorText([&] {
            DispenserOf(
                R"({"currency":"EUR","cassettes":[{"value":1,"count":1}],"lint":{"accept":)" +
                accepted + "}}");
        });
    };
    EXPECT_EQ(error(R"({"QX205":"why","QX901":"so"})"), "accepted");
    for (const char* const id : {"QX20", "QX2055", "QY205", "XX205", "QX20a", "QXa05", "qx205"}) {
        EXPECT_EQ(error("{\"" + std::string(id) + "\":\"why\"}"),
                  "f.json: /lint/accept/" + std::string(id) +
                      ": no id of a finding; expected one such as QX205");
    }
    EXPECT_EQ(error(R"({"QX205":""})"),
              "f.json: /lint/accept/QX205: empty; expected the reason why it is accepted");
    EXPECT_EQ(error("7"), "f.json: /lint/accept: 7 is not allowed; expected an object");
    EXPECT_NE(error(R"({"QX205":7})"), "accepted");
}

TEST(DispenserReader, TellsAnInlineDispenserInSmallLetters) {
    const auto error = [](const std::string& name) {
        return ErrorText([&name] { OpenDispenser(name); });
    };
    EXPECT_EQ(error("eur:50x10"),
              "eur:50x10: \"eur\" is not allowed; expected three capital letters such as EUR");
    EXPECT_EQ(error("Euro:5x1,2x1"),
              "Euro:5x1,2x1: \"Euro\" is not allowed; expected three capital letters such as EUR");
    for (const char* const name : {"eur:x10", "eur:50", "eur50x10", "50x10:", "eur:"}) {
        EXPECT_EQ(error(name), std::string(name) + ": cannot be opened: No such file or directory");
    }
}

TEST(DispenserReader, NamesTheFileThatIsNotThere) {
    EXPECT_EQ(ErrorText([] { OpenDispenser("/no/such.json"); }),
              "/no/such.json: cannot be opened: No such file or directory");
}

}  // namespace
}  // namespace qxmix
