#include "commands/lint/LintAccept.h"

#include "ErrorText.h"
#include "TemporaryFolder.h"
#include "findings/RuleTexts.h"

#include <gtest/gtest.h>

#include <fstream>

namespace qxmix {
namespace {

LintFinding Found(const std::string& id, const std::string& pointer) {
    LintFinding finding;
    static_cast<Finding&>(finding) = FindingOf(id.c_str());
    finding.pointer = pointer;
    return finding;
}

LintFinding FoundOf(const std::string& id, std::uint16_t mix) {
    LintFinding finding = Found(id, "/mix");
    finding.mix = mix;
    return finding;
}

TEST(LintAccept, MarksAllFindingsOfARuleWithTheReason) {
    Dispenser dispenser;
    dispenser.accepted = {{"QX201", "the cassette is new"}};
    std::vector<LintFinding> findings = {Found("QX201", "/cassettes/0/status"),
                                         Found("QX202", "/cassettes/0/status"),
                                         Found("QX201", "/cassettes/1/status")};
    AcceptFindings(dispenser, findings);
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_EQ(findings[0].accepted, "the cassette is new");
    EXPECT_EQ(findings[1].accepted, std::nullopt);
    EXPECT_EQ(findings[2].accepted, "the cassette is new");
}

TEST(LintAccept, TellsOfWhatIsAcceptedInVain) {
    Dispenser dispenser;
    dispenser.accepted = {{"QX201", "why"}, {"QX203", "gone"}};
    std::vector<LintFinding> findings = {Found("QX201", "/cassettes/0/status")};
    AcceptFindings(dispenser, findings);
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(findings[1].id, "QX801");
    EXPECT_EQ(findings[1].message, "QX203 is accepted, and no longer found: gone");
    EXPECT_EQ(findings[1].pointer, "/lint/accept/QX203");
    EXPECT_EQ(findings[1].accepted, std::nullopt);
}

class Baseline : public ::testing::Test {
protected:
    LintBaseline Read(const std::string& answer, bool isMany = false) const {
        std::ofstream(name_) << answer;
        return LintBaseline(name_, isMany);
    }

    std::string ErrorOf(const std::string& answer, bool isMany = false) const {
        std::string text = ErrorText([&] { Read(answer, isMany); });
        const std::size_t at = text.find(name_);
        return at == std::string::npos ? text : text.replace(at, name_.size(), "FILE");
    }

    /// Which of these a baseline accepts, in a dispenser of euros: "yes no ...".
    static std::string Accepted(const LintBaseline& baseline,
                                const std::string& dispenser,
                                std::vector<LintFinding> findings) {
        baseline.Accept(dispenser, "EUR", findings);
        std::string text;
        for (const LintFinding& finding : findings) {
            text += std::string(text.empty() ? "" : " ") + (finding.accepted ? "yes" : "no");
        }
        return text;
    }

    const TemporaryFolder folder_;
    const std::string name_ = folder_.Name("baseline.json");
};

TEST_F(Baseline, OfNoFileAcceptsNothing) {
    EXPECT_EQ(Accepted(LintBaseline("", true), "a.json", {FoundOf("QX401", 4)}), "no");
}

TEST_F(Baseline, AcceptsWhatHasTheSameRuleMixAndField) {
    const LintBaseline baseline = Read(R"({"command":"lint","result":{"findings":[
        {"id":"QX401","mix":4,"pointer":"/mix","message":"of other amounts"},
        {"id":"QX201","mix":null,"pointer":"/cassettes/0/status"}, "what is this"]}})");
    EXPECT_EQ(
        Accepted(baseline, "whatever it is called now",
                 {FoundOf("QX401", 4), FoundOf("QX401", 9), FoundOf("QX402", 4),
                  Found("QX201", "/cassettes/0/status"), Found("QX201", "/cassettes/1/status")}),
        "yes no no yes no");
}

TEST_F(Baseline, KeepsTheReasonThatTheDispenserHas) {
    LintFinding known = FoundOf("QX401", 4);
    known.accepted = "why";
    std::vector<LintFinding> findings = {known, FoundOf("QX401", 4)};
    Read(R"({"command":"lint","result":{"findings":[
         {"id":"QX401","mix":4,"pointer":"/mix"}]}})")
        .Accept("a.json", "EUR", findings);
    EXPECT_EQ(findings[0].accepted, "why");
    EXPECT_NE(findings[1].accepted, "why");
    EXPECT_TRUE(findings[1].accepted);
}

TEST_F(Baseline, TakesTheDispensersOwnCurrencyForTheOneThatIsNotTold) {
    const auto accepted = [this](const std::string& then, const std::string& now) {
        LintFinding finding = FoundOf("QX512", 1);
        finding.currency = now;
        return Accepted(Read(R"({"command":"lint","result":{"findings":[
                {"id":"QX512","mix":1,"pointer":"/mix","currency":)" +
                             then + "}]}}"),
                        "a.json", {finding});
    };
    EXPECT_EQ(accepted("null", ""), "yes");
    EXPECT_EQ(accepted("null", "EUR"), "yes") << "asked in its own alone before";
    EXPECT_EQ(accepted("\"EUR\"", ""), "yes") << "asked in all before";
    EXPECT_EQ(accepted("\"EUR\"", "EUR"), "yes");
    EXPECT_EQ(accepted("\"USD\"", "USD"), "yes");
    EXPECT_EQ(accepted("null", "USD"), "no");
    EXPECT_EQ(accepted("\"USD\"", ""), "no");
    EXPECT_EQ(accepted("\"USD\"", "EUR"), "no");
}

TEST_F(Baseline, OfManyGoesByTheNameOfTheFile) {
    const LintBaseline baseline = Read(R"({"command":"lint","result":{"dispensers":[
        {"file":"a.json","findings":[{"id":"QX401","mix":4,"pointer":"/mix"}]},
        {"file":"b.json","error":"could not be read"}, "what is this"]}})",
                                       true);
    EXPECT_EQ(Accepted(baseline, "a.json", {FoundOf("QX401", 4)}), "yes");
    EXPECT_EQ(Accepted(baseline, "b.json", {FoundOf("QX401", 4)}), "no");
    EXPECT_EQ(Accepted(baseline, "c.json", {FoundOf("QX401", 4)}), "no");
}

TEST_F(Baseline, IsAnAnswerOfLint) {
    const std::string other = "--baseline: FILE is no answer of lint; expected what --json gave";
    for (const char* const answer :
         {"[]", "7", "{}", R"({"command":"lint"})", R"({"command":"lint","result":[]})",
          R"({"command":"lint","result":{}})", R"({"command":"map","result":{"findings":[]}})",
          R"({"command":["lint"],"result":{"findings":[]}})"}) {
        EXPECT_EQ(ErrorOf(answer), other) << answer;
    }
    EXPECT_EQ(ErrorOf(R"({"command":"lint","result":{"findings":[]}})"), "accepted");
    EXPECT_EQ(ErrorOf(R"({"command":"lint","result":{"findings":[]}})", true),
              "--baseline: FILE is of one dispenser; expected the answer of a run over many");
    EXPECT_EQ(ErrorOf(R"({"command":"lint","result":{"dispensers":[]}})"), "accepted")
        << "one of them alone";
}

}  // namespace
}  // namespace qxmix
