#include "requests/RequestReader.h"

#include "ErrorText.h"
#include "TemporaryFolder.h"
#include "json/Json.h"
#include "requests/Request.h"
#include "text/Hex.h"

#include <gtest/gtest.h>

#include <fstream>

namespace qxmix {
namespace {

const Place kHere("line 7");

AskedRequest Read(const char* json, const AskOptions& options = {}) {
    return RequestReader(options, std::nullopt).Read(Json::parse(json), kHere);
}

std::string ErrorOfRequest(const char* json) {
    return ErrorText([json] { Read(json); });
}

TEST(RequestReader, ReadsADispenserBesideItsAmount) {
    const AskedRequest asked = Read(R"({"id":1,"amount":280,"currency":"EUR","mix":4,
                                        "cassettes":[{"value":50,"count":9}]})");
    EXPECT_EQ(asked.amount, 280U);
    EXPECT_EQ(asked.dispenser.currency, "EUR");
    EXPECT_EQ(RawBytes(asked.request), RawBytes(BuildRequest(asked.dispenser, 280, 4)));
    EXPECT_EQ(Read(R"({"amount":4294967295,"dispenser":"EUR:50x9"})").amount, 4294967295U);
    EXPECT_EQ(Read(R"({"amount":0,"dispenser":"EUR:50x9"})").amount, 0U);
}

TEST(RequestReader, LetsARequestSayMoreThanItsDispenser) {
    const AskedRequest inlined =
        Read(R"({"amount":10,"dispenser":"EUR:50x9","maxDispenseItems":7,"mix":2})");
    EXPECT_EQ(inlined.dispenser.maxDispenseItems, 7);
    EXPECT_EQ(inlined.request.usMixNumber, 2);
    const AskedRequest object = Read(R"({"amount":10,"mix":3,"dispenser":
        {"currency":"EUR","mix":2,"cassettes":[{"value":50,"count":9}]}})");
    EXPECT_EQ(object.request.usMixNumber, 3);
    AskOptions options;
    options.mix = "5";
    options.limit = 8;
    const AskedRequest asked =
        Read(R"({"amount":10,"dispenser":"EUR:50x9","maxDispenseItems":7,"mix":2})", options);
    EXPECT_EQ(asked.request.usMixNumber, 5) << "an option wins";
    EXPECT_EQ(asked.request.usMaxDispenseItems, 8);
}

TEST(RequestReader, SaysWhatARequestLacks) {
    EXPECT_EQ(ErrorOfRequest(R"({"dispenser":"EUR:50x9"})"),
              "line 7: /amount: missing; expected 0 to 4294967295");
    EXPECT_EQ(ErrorOfRequest(R"({"amount":10,"currency":"EUR"})"),
              "line 7: /cassettes: missing; expected a list of 1 to 6 cassettes");
    EXPECT_EQ(ErrorOfRequest(R"({"amuont":10,"dispenser":"EUR:50x9"})"),
              "line 7: /amuont: unknown field; did you mean \"amount\"?");
    EXPECT_EQ(ErrorOfRequest(R"({"amount":4294967296,"dispenser":"EUR:50x9"})"),
              "line 7: /amount: 4294967296 is not allowed; expected 0 to 4294967295");
}

TEST(RequestReader, NamesAFileOnlyWhereItMayReadOne) {
    const char* const expected = " is not allowed; expected an object or a dispenser such as "
                                 "\"EUR:50x10,20x10\"";
    for (const char* const name : {"-", "euro.json", "7"}) {
        EXPECT_EQ(
            ErrorOfRequest((R"({"amount":10,"dispenser":")" + std::string(name) + "\"}").c_str()),
            "line 7: /dispenser: \"" + std::string(name) + "\"" + expected);
    }
    const TemporaryFolder folder;
    const std::string file = folder.Name("euro.json");
    std::ofstream(file) << R"({"currency":"EUR","cassettes":[{"value":50,"count":9}]})";
    RequestReader reader(AskOptions(), Milliseconds(2000));
    const Json json = {{"amount", 10}, {"dispenser", file}};
    EXPECT_EQ(reader.Read(json, kHere).dispenser.cassettes.front().value, 50U);
    std::remove(file.c_str());
    EXPECT_EQ(reader.Read(json, kHere).dispenser.cassettes.front().value, 50U) << "read once";
    for (const std::string& name : {std::string("-"), file + std::string(1, '\0')}) {
        const std::string error = ErrorText([&] {
            reader.Read(Json{{"amount", 10}, {"dispenser", name}}, kHere);
        });
        EXPECT_NE(error.find("; expected an object, a file or a dispenser"), std::string::npos)
            << error;
    }
}

TEST(RequestReader, ForgetsFilesWhenTheyAreTooMany) {
    const TemporaryFolder folder;
    RequestReader reader(AskOptions(), Milliseconds(2000));
    const auto write = [&folder](const std::string& name, int value, std::size_t blanks) {
        std::ofstream(folder.Name(name)) << R"({"currency":"EUR","cassettes":[{"value":)" << value
                                         << R"(,"count":9}]})" << std::string(blanks, ' ');
    };
    const auto value = [&](const std::string& name) {
        const Json json = {{"amount", 10}, {"dispenser", folder.Name(name)}};
        return reader.Read(json, kHere).dispenser.cassettes.front().value;
    };
    write("first", 50, 0);
    EXPECT_EQ(value("first"), 50U);
    write("first", 20, 0);
    for (int file = 1; file < 1000; ++file) {
        write(std::to_string(file), 5, 0);
        EXPECT_EQ(value(std::to_string(file)), 5U);
    }
    EXPECT_EQ(value("first"), 50U) << "one of a thousand";
    write("last", 5, 0);
    EXPECT_EQ(value("last"), 5U);
    EXPECT_EQ(value("first"), 20U);
}

TEST(RequestReader, TellsWhereADispenserIsWrong) {
    EXPECT_EQ(ErrorOfRequest(R"({"amount":10,"dispenser":"EUR:50x"})").substr(0, 19),
              "line 7: /dispenser:");
    EXPECT_EQ(ErrorOfRequest(R"({"amount":10,"dispenser":7})").substr(0, 19),
              "line 7: /dispenser:");
}

TEST(CapturedRequest, IsReadFromItsDigits) {
    MixRequest request{};
    request.usMixNumber = 4;
    request.ulAmount = 280;
    request.usNumPhysicalCUs = 2;
    request.cCurrencyID = {{'E', 'U', 'R'}};
    const AskedRequest asked = RequestReader::ReadCaptured(HexText(RawBytes(request)), kHere);
    EXPECT_EQ(asked.amount, 280U);
    EXPECT_EQ(asked.dispenser.cassettes.size(), 2U);
    EXPECT_EQ(asked.dispenser.currency, "EUR");
    EXPECT_EQ(RawBytes(asked.request), RawBytes(request));
}

TEST(CapturedRequest, HasAllDigitsAndNothingElse) {
    const auto error = [](const std::string& digits) {
        return ErrorText([&digits] { RequestReader::ReadCaptured(digits, kHere); });
    };
    EXPECT_EQ(error(std::string(2119, '0')), "line 7: 2119 hex digits; expected 2120");
    EXPECT_EQ(error(std::string(2121, '0')), "line 7: 2121 hex digits; expected 2120");
    EXPECT_EQ(error(std::string(2119, '0') + "g"),
              "line 7: other characters than hex digits; expected 2120 hex digits");
    EXPECT_EQ(error(std::string(2120, 'f')), "accepted");
}

TEST(RequestId, IsTextOrAWholeNumberOrNotThere) {
    const auto id = [](const char* json) { return ReadId(Json::parse(json), kHere).dump(); };
    EXPECT_EQ(id(R"({"id":"a"})"), "\"a\"");
    EXPECT_EQ(id(R"({"id":7})"), "7");
    EXPECT_EQ(id(R"({"amount":7})"), "null");
    EXPECT_EQ(id("[7]"), "null");
    for (const char* const json : {R"({"id":1.5})", R"({"id":null})", R"({"id":[1]})"}) {
        EXPECT_NE(ErrorText([json] {
                      ReadId(Json::parse(json), kHere);
                  }).find("; expected text or a whole number"),
                  std::string::npos)
            << json;
    }
}

/// Bytes in a file, read as a captured request.
class RawRequest : public ::testing::Test {
protected:
    MixRequest Read(const std::string& bytes) const {
        std::ofstream(name_, std::ios::binary) << bytes;
        return ReadRawRequest(name_);
    }

    /// The amount that was asked when a request came back with this one.
    std::uint32_t AmountBefore(std::uint16_t mix, std::int16_t exponent, std::uint32_t back) const {
        MixRequest request{};
        request.usMixNumber = mix;
        request.sExponent = exponent;
        request.ulAmount = back;
        request.ulRemainder = 5;
        const MixRequest asked = Read(RawBytes(request, MixResult{}));
        EXPECT_EQ(asked.ulRemainder, 0U);
        return asked.ulAmount;
    }

    const TemporaryFolder folder_;
    const std::string name_ = folder_.Name("request.bin");
};

TEST_F(RawRequest, IsReadAsItWasAsked) {
    MixRequest request{};
    request.usMixNumber = 1;
    request.sExponent = 2;
    request.ulAmount = 300;
    request.ulRemainder = 5;
    EXPECT_EQ(RawBytes(Read(RawBytes(request))), RawBytes(request));
}

TEST_F(RawRequest, ThatCameBackHasTheAmountThatWasAsked) {
    EXPECT_EQ(AmountBefore(1, 2, 300), 3U);
    EXPECT_EQ(AmountBefore(10, 2, 0), 0U);
    EXPECT_EQ(AmountBefore(kLastMix, 2, 300), 3U);
    EXPECT_EQ(AmountBefore(1, 0, 305), 305U);
    EXPECT_EQ(AmountBefore(1, -2, 300), 300U);
    EXPECT_EQ(AmountBefore(0, 2, 305), 305U) << "no mix has scaled it";
    EXPECT_EQ(AmountBefore(static_cast<std::uint16_t>(kLastMix + 1), 2, 305), 305U);
    EXPECT_EQ(ErrorText([this] { AmountBefore(1, 2, 350); }),
              name_ + ": the amount came back as 350, lowered; expected the 1060 bytes of the "
                      "request as it was asked");
}

TEST_F(RawRequest, HasTheSizeOfARequestOrOfOneWithItsResult) {
    for (const std::size_t size : {0U, 1059U, 1061U, 1083U, 1085U}) {
        EXPECT_EQ(ErrorText([&] { Read(std::string(size, '\0')); }),
                  name_ + ": " + std::to_string(size) +
                      " bytes; expected 1060, or 1084 with a result");
    }
}

}  // namespace
}  // namespace qxmix
