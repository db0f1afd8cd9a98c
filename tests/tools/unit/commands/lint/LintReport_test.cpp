#include "commands/lint/LintReport.h"

#include "LintOf.h"
#include "json/Json.h"
#include "terminal/Terminal.h"

namespace qxmix {
namespace {

using Mixes = std::vector<std::uint16_t>;

Finding Pattern() {
    Finding pattern;
    pattern.id = "QX999";
    pattern.severity = Severity::Warning;
    pattern.advice = "mend it";
    return pattern;
}

/// Three mixes that were asked for 10, 20, ... 200.
LintCase ThreeMixes() {
    std::vector<std::uint32_t> amounts;
    for (std::uint32_t amount = 10; amount <= 200; amount += 10) {
        amounts.push_back(amount);
    }
    return LintOf("EUR:10x100").Mixes({1, 2, 3}).Amounts(amounts).Case();
}

/// What a rule finds that has nothing else to do.
template <typename Check>
std::vector<LintFinding> Found(const Check& check, const Finding& pattern = Pattern()) {
    static const LintCase lint = ThreeMixes();
    std::vector<LintFinding> findings;
    LintReport report(lint, pattern, findings);
    check(lint, report);
    return findings;
}

LintFinding Added(const std::optional<Mixes>& mixes, const std::string& message = "wrong") {
    const auto found =
        Found([&](const LintCase&, LintReport& report) { report.Add("/mix", message, mixes); });
    return found.empty() ? LintFinding() : found.front();
}

TEST(LintReport, TellsTheMixesWhereTheyAreNotAll) {
    EXPECT_EQ(Added(std::nullopt).message, "wrong");
    EXPECT_EQ(Added(std::nullopt).mix, std::nullopt);
    EXPECT_EQ(Added(Mixes{}).message, "") << "nothing is found";
    EXPECT_EQ(Added(Mixes{2}).message, "wrong (mix 2)");
    EXPECT_EQ(Added(Mixes{2}).mix, 2);
    EXPECT_EQ(Added(Mixes{1, 3}).message, "wrong (mixes 1 3)");
    EXPECT_EQ(Added(Mixes{1, 3}).mix, std::nullopt);
    EXPECT_EQ(Added(Mixes{1, 2, 3}).message, "wrong");
    EXPECT_EQ(Added(Mixes{1, 3}, "mixes 1 3 are wrong").message, "mixes 1 3 are wrong");
}

TEST(LintReport, TakesWhatTheRuleSaysUnlessTheFindingSaysMore) {
    const auto found = Found([](const LintCase&, LintReport& report) {
        report.Add("/a", "one");
        report.Become(Severity::Error);
        report.Add("/b", "two", std::nullopt, "another");
        EXPECT_FALSE(report.Has("QX999", 1));
        report.Add("/c", "three", Mixes{1});
        EXPECT_TRUE(report.Has("QX999", 1));
        EXPECT_FALSE(report.Has("QX999", 2));
        EXPECT_FALSE(report.Has("QX998", 1));
    });
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].id, "QX999");
    EXPECT_EQ(found[0].pointer, "/a");
    EXPECT_EQ(found[0].severity, Severity::Warning);
    EXPECT_EQ(found[0].advice, "mend it");
    EXPECT_EQ(found[0].amounts.has_value(), false);
    EXPECT_EQ(found[1].severity, Severity::Error);
    EXPECT_EQ(found[1].advice, "another");
}

TEST(LintReport, TellsTheCurrencyOfItsRule) {
    Finding pattern = Pattern();
    pattern.currency = "USD";
    const auto found = Found(
        [](const LintCase& lint, LintReport& report) {
            report.Add("/a", "wrong");
            LintAnswersText text;
            text.before = "mix 1 is wrong";
            text.tell = AmountsOf(lint);
            report.AddAnswers(lint.mixes[0], {{50, 1, {}}}, text);
        },
        pattern);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].message, "USD: wrong");
    EXPECT_EQ(found[1].message, "USD: mix 1 is wrong on 1 amount: 50");
    EXPECT_EQ(found[1].currency, "USD");
}

TEST(LintReport, TakesOfForeignFindingsItsOwn) {
    Finding other = Pattern();
    other.id = "QX998";
    other.message = "other";
    Finding own = Pattern();
    own.message = "own";
    const auto found = Found([&](const LintCase&, LintReport& report) {
        report.AddOwn(other);
        report.AddOwn(own);
    });
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].message, "own");
}

TEST(LintReport, KeepsTheCuresOfAFinding) {
    LintCures cures;
    cures.count = 2;
    cures.payers = {2, 5};
    const auto found = Found([&cures](const LintCase& lint, LintReport& report) {
        report.AddCured(lint.mixes[1], "/mix", "wrong", "do this", cures);
        LintAnswersText text;
        text.before = "mix 3 is wrong";
        text.tell = AmountsOf(lint);
        report.AddAnswers(lint.mixes[2], {{50, 3, {}}}, text);
        text.cures = &cures;
        text.advice = "do that";
        text.pointer = "/amounts";
        report.AddAnswers(lint.mixes[2], {{50, 3, {}}}, text);
    });
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].mix, 2);
    EXPECT_EQ(found[0].advice, "do this");
    EXPECT_EQ(found[0].cures, Json::parse(R"([{"mixes":[2,5]}])"));
    EXPECT_EQ(found[1].cures, Json::array());
    EXPECT_EQ(found[1].pointer, "/mix");
    EXPECT_EQ(found[1].advice, "mend it");
    EXPECT_EQ(found[2].cures, found[0].cures);
    EXPECT_EQ(found[2].advice, "do that");
    EXPECT_EQ(found[2].pointer, "/amounts");
}

/// A finding about the first answers of mix 1, which was asked for 20 amounts.
LintFinding AboutAnswers(std::size_t count, bool tellsAll, const std::string& before = "mix 1") {
    const auto found = Found([&](const LintCase& lint, LintReport& report) {
        std::vector<LintAnswer> answers;
        ForEachAnswer(lint, lint.mixes[0], [&](const LintAnswer& answer) {
            if (answers.size() < count) {
                answers.push_back(answer);
            }
        });
        LintAnswersText text;
        text.before = before;
        text.tellsAll = tellsAll;
        text.tell = AmountsOf(lint);
        report.AddAnswers(lint.mixes[0], answers, text);
    });
    return found.empty() ? LintFinding() : found.front();
}

TEST(LintReport, CountsAnswersAndListsTheFirstTen) {
    EXPECT_EQ(AboutAnswers(0, false).message, "") << "nothing is found";
    EXPECT_EQ(AboutAnswers(1, false).message, "mix 1 on 1 amount: 10");
    EXPECT_EQ(AboutAnswers(2, false).message, "mix 1 on 2 amounts: 10, 20");
    EXPECT_EQ(AboutAnswers(1, true).message, "mix 1 1 of 20 amounts: 10");
    for (const std::size_t count : {1U, 9U, 10U, 11U, 20U}) {
        const LintFinding finding = AboutAnswers(count, false);
        ASSERT_TRUE(finding.amounts);
        EXPECT_EQ(finding.amounts->count, count);
        EXPECT_EQ(finding.amounts->of, 20U);
        EXPECT_EQ(finding.amounts->first.size(), std::min<std::size_t>(count, 10));
        EXPECT_EQ(finding.amounts->first[0],
                  Json::parse(R"({"amount":10,"outcome":"paid","paid":"10"})"));
    }
}

/// As many of the amounts are told as fit into the line; where not even one does, into two.
TEST(LintReport, ListsAsManyAnswersAsFit) {
    const std::string all =
        "10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 150, 160, "
        "170, 180, 190, 200";
    bool wasWhole = false;
    bool wasCut = false;
    for (std::size_t size = 1; size < 90; ++size) {
        const std::string before = std::string(size, 'a') + " on 20 amounts: ";
        const std::string message = AboutAnswers(20, false, std::string(size, 'a')).message;
        const std::string list = message.substr(before.size());
        const std::size_t used = kLeftOfFinding + std::string("/mix").size() + 2 + before.size();
        std::size_t width = kPlainWidth - std::min(used, kPlainWidth);
        width += std::string("10, ...").size() > width ? kPlainWidth - kLeftOfFinding : 0;
        EXPECT_LE(list.size(), width) << size;
        if (list == all) {
            wasWhole = true;
            continue;
        }
        wasCut = true;
        ASSERT_EQ(list.substr(list.size() - 5), ", ...");
        const std::size_t told = list.size() - 5;
        EXPECT_EQ(list.substr(0, told), all.substr(0, told));
        const std::size_t next = std::min(all.find(',', told + 1), all.size());
        EXPECT_GT(next + (next == all.size() ? 0 : 5), width) << "one more would fit: " << size;
    }
    EXPECT_TRUE(wasCut);
    EXPECT_FALSE(wasWhole) << "20 amounts are too long for a line and a half";
    const auto lastIs = [](const std::string& last) {
        const auto found = Found([&](const LintCase& lint, LintReport& report) {
            LintAnswersText text;
            text.before = std::string(31, 'a');
            text.tell = [&](const LintAnswer& answer) {
                return answer.amount == 40 ? last : std::to_string(answer.amount);
            };
            report.AddAnswers(lint.mixes[0], {{10, 1, {}}, {20, 1, {}}, {30, 1, {}}, {40, 1, {}}},
                              text);
        });
        return found.front().message.substr(46);
    };
    EXPECT_EQ(lastIs("abc"), "10, 20, 30, abc") << "15 columns, which are left";
    EXPECT_EQ(lastIs("abcd"), "10, 20, 30, ...");
    const auto four = [](std::size_t size) {
        return AboutAnswers(4, false, std::string(size, 'a')).message.substr(size + 15);
    };
    EXPECT_EQ(four(32), "10, 20, ...");
    EXPECT_EQ(four(31), "10, 20, 30, 40") << "behind the last no mark that there are more";
    EXPECT_EQ(four(35), "10, 20, ...");
    EXPECT_EQ(four(36), "10, ...");
    EXPECT_EQ(four(39), "10, ...");
    EXPECT_EQ(four(40), "10, 20, 30, 40") << "in the next line";
}

}  // namespace
}  // namespace qxmix
