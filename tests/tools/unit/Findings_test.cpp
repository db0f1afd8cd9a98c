#include "findings/Findings.h"

#include "answers/Dangers.h"
#include "json/Json.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Finding Of(Severity severity) {
    Finding finding;
    finding.id = "QX123";
    finding.severity = severity;
    finding.pointer = "/mix";
    finding.message = "wrong";
    finding.advice = "mend it";
    return finding;
}

std::string Text(const Finding& finding, FindingPlace place = FindingPlace::Untold) {
    return FindingText(finding, place, Painter(ColorMode::Never));
}

TEST(Findings, EndWithTheStatusOfTheWorst) {
    EXPECT_EQ(ExitStatusOf(Severity::Note), ExitStatus::Well);
    EXPECT_EQ(ExitStatusOf(Severity::Warning), ExitStatus::HonestNo);
    EXPECT_EQ(ExitStatusOf(Severity::Error), ExitStatus::Danger);
    EXPECT_EQ(ExitStatusOf(std::vector<Finding>{}), ExitStatus::Well);
    EXPECT_EQ(ExitStatusOf({Of(Severity::Error), Of(Severity::Note), Of(Severity::Warning)}),
              ExitStatus::Danger);
    EXPECT_EQ(ExitStatusOf({Of(Severity::Note), Of(Severity::Warning)}), ExitStatus::HonestNo);
}

TEST(Findings, AreALineAndWhatToDo) {
    EXPECT_EQ(Text(Of(Severity::Error)), "error QX123  wrong\n      do     mend it\n");
    EXPECT_EQ(Text(Of(Severity::Warning), FindingPlace::Told),
              "warn  QX123  /mix  wrong\n      do     mend it\n");
    EXPECT_EQ(Text(Of(Severity::Note)), "note  QX123  wrong\n");
    Finding finding = Of(Severity::Error);
    finding.advice.clear();
    finding.pointer.clear();
    EXPECT_EQ(Text(finding, FindingPlace::Told), "error QX123  wrong\n");
}

TEST(Findings, BreakACommandAsShellsTakeIt) {
    Finding finding = Of(Severity::Error);
    finding.advice = "qxmix " + std::string(50, 'a') + " " + std::string(20, 'b');
    EXPECT_EQ(Text(finding), "error QX123  wrong\n      do     qxmix " + std::string(50, 'a') +
                                 " \\\n" + std::string(15, ' ') + std::string(20, 'b') + "\n");
    finding.advice = "try qxmix " + std::string(50, 'a') + " " + std::string(20, 'b');
    EXPECT_EQ(Text(finding), "error QX123  wrong\n      do     try qxmix " + std::string(50, 'a') +
                                 "\n" + std::string(13, ' ') + std::string(20, 'b') + "\n")
        << "that is no command";
    finding.advice = std::string(66, 'a') + " " + std::string(20, 'b');
    EXPECT_EQ(Text(finding), "error QX123  wrong\n      do     " + std::string(66, 'a') + "\n" +
                                 std::string(13, ' ') + std::string(20, 'b') + "\n");
}

TEST(Findings, AreToldWithoutNotesWhereThatIsAsked) {
    const std::vector<Finding> findings = {Of(Severity::Note), Of(Severity::Warning)};
    const Painter painter(ColorMode::Never);
    EXPECT_EQ(FindingsText(findings, true, painter), Text(findings[1]));
    EXPECT_EQ(FindingsText(findings, false, painter), Text(findings[0]) + Text(findings[1]));
}

TEST(Findings, HaveNothingWhereNothingIsSaid) {
    Finding finding = Of(Severity::Warning);
    EXPECT_EQ(FindingJson(finding).dump(),
              R"({"id":"QX123","severity":"warning","mix":null,"pointer":"/mix",)"
              R"("message":"wrong","advice":"mend it"})");
    finding.severity = Severity::Note;
    finding.mix = 4;
    finding.pointer.clear();
    finding.advice.clear();
    finding.isProved = false;
    EXPECT_EQ(FindingsJson({finding}).dump(),
              R"([{"id":"QX123","severity":"note","mix":4,"pointer":null,)"
              R"("message":"wrong","advice":null,"proved":false}])");
}

/// Each of these outcomes once, of ten answers.
std::vector<Finding> Findings(const std::vector<Outcome>& outcomes, bool isProved) {
    const auto count = [&outcomes](Outcome outcome) {
        return static_cast<std::uint64_t>(std::count(outcomes.begin(), outcomes.end(), outcome));
    };
    return DangerFindings(4, count, "10 amounts", isProved);
}

TEST(Dangers, AreFoundWhereSomeAnswersAreDangerous) {
    EXPECT_TRUE(Findings({Outcome::Paid, Outcome::Crashed, Outcome::NotDispensable}, true).empty());
    const std::vector<Finding> found = Findings(
        {Outcome::Overdrawn, Outcome::NoAnswer, Outcome::NoAnswer, Outcome::Overpaid}, false);
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].id, "QX402");
    EXPECT_EQ(found[0].message, "mix 4 gives no answer on 2 of 10 amounts");
    EXPECT_EQ(found[0].isProved, false);
    EXPECT_EQ(found[1].id, "QX401");
    EXPECT_EQ(found[1].message, "mix 4 overpays on 1 of 10 amounts");
    EXPECT_EQ(found[1].isProved, std::nullopt);
    EXPECT_EQ(found[2].message, "mix 4 overdraws on 1 of 10 amounts");
    for (const Finding& finding : found) {
        EXPECT_EQ(finding.severity, Severity::Error);
        EXPECT_EQ(finding.mix, 4);
        EXPECT_EQ(finding.pointer, "/mix");
        EXPECT_NE(finding.advice, "");
    }
}

TEST(Dangers, NeverAnswerWhereThatIsProved) {
    const std::vector<Finding> found = Findings({Outcome::NoAnswer}, true);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].message, "mix 4 never answers on 1 of 10 amounts");
    EXPECT_EQ(found[0].isProved, true);
}

}  // namespace
}  // namespace qxmix
