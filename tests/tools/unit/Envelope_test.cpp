#include "answers/Envelope.h"

#include "ToolVersion.h"
#include "json/Json.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Envelope Whole() {
    Envelope envelope;
    envelope.version = 2;
    envelope.module = "1.0";
    envelope.library = "libQXMIX.so";
    envelope.command = "lint";
    envelope.complete = false;
    envelope.input = {{"a", 1}};
    envelope.result = {{"b", 2}};
    envelope.warnings.emplace_back().id = "QX701";
    envelope.exitStatus = ExitStatus::Interrupted;
    return envelope;
}

TEST(Envelope, HasTheseFieldsInThisOrder) {
    EXPECT_EQ(EnvelopeText(Whole()),
              std::string(R"({"format":"qxmix/answer/2","tool":")") + kToolVersion +
                  R"(","module":"1.0","library":"libQXMIX.so","command":"lint","complete":false,)"
                  R"("input":{"a":1},"result":{"b":2},"warnings":[{"id":"QX701",)"
                  R"("severity":"note","mix":null,"pointer":null,"message":"","advice":null}],)"
                  R"("exitStatus":130})"
                  "\n");
    const Json plain = EnvelopeJson(Envelope());
    EXPECT_EQ(plain["format"], "qxmix/answer/1");
    EXPECT_TRUE(plain["module"].is_null());
    EXPECT_TRUE(plain["library"].is_null());
    EXPECT_EQ(plain["complete"], true);
    EXPECT_EQ(plain["exitStatus"], 0);
}

TEST(Envelope, IsTheSameInPieces) {
    const Envelope envelope = Whole();
    std::string text;
    WriteEnvelope(
        envelope, [&text](const std::string& part) { text += part; },
        [&text] { text += R"({"b":2})"; });
    EXPECT_EQ(text, EnvelopeText(envelope));
}

TEST(Envelope, ReplacesBytesThatAreNoText) {
    Envelope envelope;
    envelope.library = "lib\xFF";
    EXPECT_NE(EnvelopeText(envelope).find("\"lib\xEF\xBF\xBD\""), std::string::npos);
}

}  // namespace
}  // namespace qxmix
