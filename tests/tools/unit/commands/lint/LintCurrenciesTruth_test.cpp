#include "LintClaims.h"

namespace qxmix {
namespace {

/// What is the same whatever currency is asked.
const std::set<std::string> kOfDispenser = {"QX101", "QX102", "QX301", "QX303", "QX304",
                                            "QX305", "QX306", "QX601", "QX602", "QX605"};

/// What a finding is, without the numbers that its message has room for.
std::string KeyOf(const LintFinding& finding) {
    return finding.currency + " " + finding.id + " " +
           (finding.mix ? std::to_string(*finding.mix) : "") + " " + finding.pointer + " " +
           (finding.amounts ? std::to_string(finding.amounts->count) : finding.message);
}

/// What is told of a dispenser in several currencies is what is told in each, and says which.
void CheckMerged(const std::vector<LintFinding>& merged, const LintCases& cases) {
    std::map<std::string, std::size_t> left;
    for (const LintFinding& finding : merged) {
        ++left[KeyOf(finding)];
        const std::string mark = finding.currency + ": ";
        EXPECT_EQ(finding.message.compare(0, mark.size(), mark) == 0, !finding.currency.empty());
    }
    for (const LintCase& lint : cases) {
        LintCase alone = lint;
        alone.currencies.clear();
        const std::string& currency = lint.TheDispenser().currency;
        for (LintFinding finding : CheckAll(alone)) {
            SCOPED_TRACE(currency + " " + finding.id + " " + finding.message);
            const bool isOfCassette = finding.pointer.compare(0, 11, "/cassettes/") == 0;
            const bool isOfFile = kOfDispenser.count(finding.id) != 0;
            const bool isElsewhere =
                isOfCassette && !isOfFile && finding.id != "QX104" &&
                lint.TheDispenser().cassettes[std::stoul(finding.pointer.substr(11))].currency !=
                    currency;
            if (isElsewhere || finding.id == "QX104" || (isOfFile && &lint != &cases.front())) {
                continue;
            }
            if (!isOfFile) {
                TellCurrency(finding, currency);
            }
            const std::string told = KeyOf(finding);
            EXPECT_EQ(left.count(told), 1U) << "of " << merged.size();
            left.erase(told);
        }
    }
    for (const auto& [told, count] : left) {
        EXPECT_TRUE(told.find("QX104") != std::string::npos) << told;
    }
}

TEST(LintCurrenciesTruth, HoldsInEachOfTwoCurrencies) {
    constexpr int kDispensers = 30;
    const std::vector<std::string> currencies = {"EUR", "USD"};
    for (int number = 0; number < kDispensers && !HasFailure(); ++number) {
        RandomDispensers random(static_cast<std::uint64_t>(1000 + number));
        Dispenser dispenser = random.Next();
        for (Cassette& cassette : dispenser.cassettes) {
            cassette.currency = random.Pick(currencies);
        }
        const std::uint32_t scale = ScaleOf(dispenser);
        dispenser.amounts["USD"].buttons = {40 * scale, 50 * scale};
        const std::uint32_t step = random.Pick<std::uint32_t>({5, 10, 20, 50}) * scale;
        const std::vector<std::uint16_t> mixes = {
            random.Pick<std::uint16_t>({1, 2, 3, 5, 6, 7, 8})};
        SCOPED_TRACE(std::to_string(number) + ": mixes " + MixesText(mixes) + " step " +
                     std::to_string(step) + " " + Described(dispenser));
        Claims own(dispenser, mixes, {step, step * 12, step}, currencies);
        Claims other(InCurrency(dispenser, "USD"), mixes, {step, step * 12, step}, currencies);
        const LintCases cases = {own.Case(), other.Case()};
        const std::vector<LintFinding> merged = CheckAll(cases);
        CheckMerged(merged, cases);
        for (Claims* const claims : {&own, &other}) {
            claims->Hear(merged);
            claims->Check();
            claims->CheckAdviceFor(claims == &own ? other : own);
        }
    }
}

}  // namespace
}  // namespace qxmix
