#include "LintOf.h"
#include "commands/lint/LintForms.h"
#include "findings/RuleTexts.h"

#include <set>
#include <string>

namespace qxmix {
namespace {

TEST(LintRules, HaveEachIdOnceAndInOrder) {
    std::string before;
    for (const LintRule& rule : LintRules()) {
        EXPECT_LT(before, rule.id);
        before = rule.id;
    }
    EXPECT_EQ(LintRules().size(), 40U);
}

TEST(LintRules, AllHaveTexts) {
    for (const LintRule& rule : LintRules()) {
        const bool takesItsAdviceFromTheFinding =
            std::set<std::string>{"QX301", "QX303", "QX501", "QX508"}.count(rule.id) != 0;
        EXPECT_EQ(FindingOf(rule.id).advice.empty(), takesItsAdviceFromTheFinding) << rule.id;
    }
}

TEST(LintText, SaysTheSameOfSeveralMixesOnce) {
    const LintCase lint = LintOf("EUR:50x400,20x400").Mixes({1, 2, 3}).Amounts({10}).Case();
    const std::string text =
        LintText({lint}, CheckAll(lint), false, false, Painter(ColorMode::Never));
    EXPECT_NE(text.find("pays nothing on 1 amount: 10; the same in\n             mixes 2 3"),
              std::string::npos)
        << text;
    EXPECT_EQ(
        LintText({lint}, CheckAll(lint), true, false, Painter(ColorMode::Never)).find("\nnote"),
        std::string::npos);
}

}  // namespace
}  // namespace qxmix
