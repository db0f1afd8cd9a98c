#pragma once

#include "LintOf.h"
#include "RandomDispenser.h"
#include "answers/Answer.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "options/MixList.h"
#include "requests/Request.h"

#include <map>
#include <set>

namespace qxmix {

constexpr Milliseconds kPatience{500};

using Amounts32 = std::vector<std::uint32_t>;

/// A dispenser as drawn, what lint says of it, and the module to ask whether that is true.
class Claims {
public:
    Claims(const Dispenser& dispenser,
           const std::vector<std::uint16_t>& mixes,
           const AmountRange& range,
           const std::vector<std::string>& currencies = {})
        : currencies_(currencies), registry_(RegistryOf(dispenser.registry)),
          asker_(QXMIX_MODULE, registry_), lint_(Linted(dispenser, mixes, range)),
          findings_(CheckAll(lint_)) {
        for (const std::uint16_t mix : mixes) {
            for (const std::uint32_t amount : lint_.questions.listed) {
                answers_[mix].emplace(amount, Ask(dispenser, mix, amount));
            }
        }
    }

    void Check() {
        for (const LintFinding& finding : findings_) {
            SCOPED_TRACE(finding.id + " " + finding.message + " / " + finding.advice);
            CheckAmounts(finding);
            CheckCures(finding);
            CheckRemainder(finding);
            CheckChoice(finding);
            CheckNeverGives(finding);
            CheckMended(finding);
        }
        for (const std::uint16_t mix : lint_.questions.mixes) {
            CheckReasons(mix);
        }
    }

    const LintCase& Case() const { return lint_; }

    /// What is found in the other currencies of the same dispenser.
    void Hear(const std::vector<LintFinding>& findings) { all_ = findings; }

    /// What is advised for another currency takes nothing from this one.
    void CheckAdviceFor(const Claims& other) {
        for (const LintMix& mix : other.lint_.mixes) {
            for (const LintCures* const cures : {&mix.forRefused, &mix.forOverLimit}) {
                if (cures->loading) {
                    const Dispenser changed =
                        WithLoading(other.lint_.TheDispenser(), *cures->loading);
                    SCOPED_TRACE("loading " + DispenserJson(changed).dump());
                    CheckNothingLost(InCurrency(changed, lint_.TheDispenser().currency), mix.mix);
                }
            }
        }
    }

private:
    struct Asked {
        Answer judgement;
        Reply reply;
    };

    LintCase Linted(const Dispenser& dispenser,
                    const std::vector<std::uint16_t>& mixes,
                    const AmountRange& range) {
        LintQuestions questions = QuestionsOf(dispenser, mixes, range, kPatience, kPatience);
        questions.map.listed = AmountsAndButtons(questions.map);
        questions.registry = registry_;
        questions.currencies = currencies_;
        return AskLint(questions, {QXMIX_MODULE, registry_}, asker_, nullptr,
                       [](const WorkProgress&) {});
    }

    Asked Ask(const Dispenser& dispenser, std::uint16_t mix, std::uint32_t amount) {
        const Reply reply = asker_.Ask(BuildRequest(dispenser, amount, mix), kPatience);
        return {Judge(dispenser, amount, reply), reply};
    }

    Outcome OutcomeOf(const Dispenser& dispenser, std::uint16_t mix, std::uint32_t amount) {
        return Ask(dispenser, mix, amount).judgement.outcome;
    }

    bool Has(const std::string& id, std::uint16_t mix) const {
        const auto isIt = [&](const LintFinding& finding) {
            return finding.id == id && (!finding.mix || finding.mix == mix);
        };
        return std::any_of(findings_.begin(), findings_.end(), isIt) ||
               std::any_of(all_.begin(), all_.end(), [&](const LintFinding& finding) {
                   return finding.currency.empty() && isIt(finding);
               });
    }

    bool IsOverLimit(std::uint16_t mix, std::uint32_t amount, Outcome outcome) {
        Dispenser unlimited = lint_.TheDispenser();
        unlimited.maxDispenseItems = kNoLimit;
        return outcome == Outcome::TooManyItems ||
               (outcome == Outcome::NotDispensable &&
                OutcomeOf(unlimited, mix, amount) == Outcome::Paid);
    }

    bool IsBelowSmallest(std::uint16_t mix, std::uint32_t amount) {
        const Units units(BuildRequest(lint_.TheDispenser(), amount, mix), lint_.taken.minimum);
        for (const Unit& unit : units.Kept()) {
            if (unit.searched <= units.Amount()) {
                return false;
            }
        }
        return !units.Kept().empty();
    }

    /// Whether an answer is one of those that a rule counts; none for a rule that counts none.
    std::optional<bool> Counts(const std::string& id, std::uint16_t mix, std::uint32_t amount) {
        const Asked& asked = answers_.at(mix).at(amount);
        const Outcome outcome = asked.judgement.outcome;
        const bool isTooLittle = outcome == Outcome::NothingPaid || outcome == Outcome::PaidInPart;
        if (id == "QX206") {
            return outcome == Outcome::TooManyUnits;
        }
        if (id == "QX501") {
            return isTooLittle && !IsBelowSmallest(mix, amount);
        }
        if (id == "QX502") {
            return outcome == Outcome::NothingPaid && IsBelowSmallest(mix, amount);
        }
        if (id == "QX504") {
            return IsOverLimit(mix, amount, outcome);
        }
        if (id == "QX506") {
            return outcome == Outcome::Paid && !asked.reply.calculation.written.empty();
        }
        if (id == "QX512") {
            return outcome == Outcome::NotDispensable && !IsOverLimit(mix, amount, outcome);
        }
        return std::nullopt;
    }

    Amounts32 AmountsOf(const LintFinding& finding) {
        Amounts32 amounts;
        for (const auto& [amount, asked] : answers_.at(*finding.mix)) {
            if (Counts(finding.id, *finding.mix, amount).value_or(false)) {
                amounts.push_back(amount);
            }
        }
        return amounts;
    }

    /// How many amounts a finding is about, of how many, and which come first.
    void CheckAmounts(const LintFinding& finding) {
        if (!finding.amounts || !finding.mix) {
            return;
        }
        for (const Json& first : finding.amounts->first) {
            const Asked& asked = answers_.at(*finding.mix).at(first["amount"]);
            EXPECT_EQ(first["outcome"], RowOf(asked.judgement.outcome).name) << first;
        }
        if (!Counts(finding.id, *finding.mix, lint_.questions.listed.front())) {
            return;
        }
        const Amounts32 amounts = AmountsOf(finding);
        EXPECT_EQ(finding.amounts->count, amounts.size());
        EXPECT_EQ(finding.amounts->of, lint_.questions.listed.size());
        ASSERT_LE(finding.amounts->first.size(), amounts.size());
        for (std::size_t index = 0; index < finding.amounts->first.size(); ++index) {
            EXPECT_EQ(finding.amounts->first[index]["amount"], amounts[index]);
        }
    }

    void CheckCures(const LintFinding& finding) {
        if (finding.cures.empty()) {
            return;
        }
        Amounts32 amounts;
        for (const auto& [amount, asked] : answers_.at(*finding.mix)) {
            const auto counts = Counts(finding.id, *finding.mix, amount);
            if (counts.value_or(asked.judgement.outcome == Outcome::NotDispensable)) {
                amounts.push_back(amount);
            }
        }
        const LintMix& mix = *std::find_if(
            lint_.mixes.begin(), lint_.mixes.end(),
            [&finding](const LintMix& candidate) { return candidate.mix == finding.mix; });
        CheckCures(finding.id == "QX504" ? mix.forOverLimit : mix.forRefused, mix.mix, amounts);
    }

    void CheckCures(const LintCures& cures, std::uint16_t mix, const Amounts32& amounts) {
        const Dispenser& dispenser = lint_.TheDispenser();
        EXPECT_EQ(cures.count, amounts.size());
        for (const std::uint16_t payer : cures.payers) {
            EXPECT_EQ(CountPaid(dispenser, payer, amounts), amounts.size()) << payer;
        }
        if (cures.bestPayer != 0) {
            EXPECT_EQ(CountPaid(dispenser, cures.bestPayer, amounts), cures.paidByBest);
        }
        if (cures.loading) {
            const Dispenser changed = WithLoading(dispenser, *cures.loading);
            EXPECT_EQ(CountPaid(changed, mix, amounts), cures.paidByLoading);
            CheckNothingLost(changed, mix);
        }
        if (cures.limit) {
            Dispenser changed = dispenser;
            changed.maxDispenseItems = *cures.limit;
            EXPECT_EQ(CountPaid(changed, mix, amounts), amounts.size());
            CheckNothingLost(changed, mix);
        }
        if (cures.amounts) {
            std::uint64_t amount = cures.amounts->from;
            for (; amount <= cures.amounts->to; amount += cures.amounts->step) {
                EXPECT_EQ(OutcomeOf(dispenser, mix, static_cast<std::uint32_t>(amount)),
                          Outcome::Paid)
                    << amount;
            }
            EXPECT_EQ(amount, std::uint64_t{cures.amounts->to} + cures.amounts->step);
        }
    }

    std::size_t CountPaid(const Dispenser& dispenser, std::uint16_t mix, const Amounts32& amounts) {
        return static_cast<std::size_t>(
            std::count_if(amounts.begin(), amounts.end(), [&](std::uint32_t amount) {
                return OutcomeOf(dispenser, mix, amount) == Outcome::Paid;
            }));
    }

    /// What was paid is paid still.
    void CheckNothingLost(const Dispenser& changed, std::uint16_t mix) {
        for (const auto& [amount, asked] : answers_.at(mix)) {
            if (asked.judgement.outcome == Outcome::Paid) {
                EXPECT_EQ(OutcomeOf(changed, mix, amount), Outcome::Paid) << amount;
            }
        }
    }

    /// The remainder is recommended exactly where it is what was not paid.
    void CheckRemainder(const LintFinding& finding) {
        if (finding.id != "QX501" && finding.id != "QX502") {
            return;
        }
        bool isRight = true;
        for (const std::uint32_t amount : AmountsOf(finding)) {
            const Asked& asked = answers_.at(*finding.mix).at(amount);
            Money sum = asked.judgement.paid;
            const int exponent = std::min<int>(lint_.TheDispenser().exponent, 0);
            sum += Money::Of(asked.reply.calculation.request.ulRemainder, exponent);
            isRight = isRight && sum == asked.judgement.asked;
        }
        const bool isAdvised =
            finding.advice.find("book what the remainder leaves") != std::string::npos ||
            finding.advice.find("read the remainder") != std::string::npos;
        EXPECT_EQ(isAdvised, isRight);
    }

    /// No rule advises to choose what another warns of.
    void CheckChoice(const LintFinding& finding) const {
        for (const Json& cure : finding.cures) {
            for (const std::uint16_t mix : cure.value("mixes", std::vector<std::uint16_t>())) {
                for (const char* id : {"QX401", "QX402", "QX403", "QX404", "QX405", "QX507",
                                       "QX509", "QX510", "QX602"}) {
                    EXPECT_FALSE(mix != 0 && HasOwn(id, mix)) << id << " of mix " << mix;
                }
            }
        }
    }

    bool HasOwn(const std::string& id, std::uint16_t mix) const {
        return std::any_of(findings_.begin(), findings_.end(), [&](const LintFinding& finding) {
            return finding.id == id && finding.mix == mix;
        });
    }

    std::size_t CassetteOf(const LintFinding& finding) const {
        return std::strtoul(finding.pointer.substr(std::string("/cassettes/").size()).c_str(),
                            nullptr, 10);
    }

    /// A cassette of which that is said gives nothing whatever is asked.
    void CheckNeverGives(const LintFinding& finding) {
        if (finding.message.find("wraps with") != std::string::npos) {
            return;
        }
        static const std::set<std::string> rules = {"QX105", "QX201", "QX202", "QX203", "QX205"};
        if (rules.count(finding.id) == 0 || Has("QX102", 0)) {
            return;  // who gives the items of a slot that two cassettes have is not known
        }
        const std::size_t cassette = CassetteOf(finding);
        for (const auto& [mix, answers] : answers_) {
            const bool isPart = finding.message.find("(mix") != std::string::npos;
            if (finding.mix ? finding.mix != mix : isPart) {
                continue;
            }
            for (const auto& [amount, asked] : answers) {
                EXPECT_EQ(asked.judgement.taken[cassette], 0U) << mix << " " << amount;
            }
        }
    }

    /// What is done as advised makes the finding go.
    void CheckMended(const LintFinding& finding) {
        Dispenser mended = lint_.TheDispenser();
        std::vector<Cassette>& cassettes = mended.cassettes;
        if (finding.id == "QX101") {
            if (finding.advice == "list cassettes by position") {
                std::sort(cassettes.begin(), cassettes.end(),
                          [](const Cassette& left, const Cassette& right) {
                              return left.position < right.position;
                          });
            } else {
                std::uint16_t position = 0;
                for (Cassette& cassette : cassettes) {
                    cassette.position = position++;
                }
            }
        } else if (finding.id == "QX103") {
            for (Cassette& cassette : cassettes) {
                const Cassette& named = lint_.TheDispenser().cassettes[CassetteOf(finding)];
                cassette.type = cassette.value == named.value ? named.type : cassette.type;
            }
        } else if (finding.id == "QX201") {
            cassettes[CassetteOf(finding)].status = 0;
        } else if (finding.id == "QX202") {
            cassettes[CassetteOf(finding)].status = 0;
        } else if (finding.id == "QX203") {
            cassettes[CassetteOf(finding)].count = 0;
        } else if (finding.id == "QX510" && finding.advice.find("lower") == 0) {
            mended.maxDispenseItems =
                static_cast<std::uint16_t>(std::stoul(finding.advice.substr(19)));
            CheckNothingLost(mended, finding.mix.value_or(lint_.questions.mixes.front()));
        } else {
            return;
        }
        const std::string id = finding.id;
        const LintCase again =
            Linted(mended, {finding.mix.value_or(lint_.questions.mixes.front())}, {50, 50, 50});
        for (const LintFinding& left : CheckAll(again)) {
            EXPECT_FALSE(left.id == id && left.pointer == finding.pointer) << left.message;
        }
    }

    /// Whatever a mix does not pay, a rule says why.
    void CheckReasons(std::uint16_t mix) {
        bool paysAny = false;
        const bool hasUnits =
            !Units(BuildRequest(lint_.TheDispenser(), 0, mix), lint_.taken.minimum).Kept().empty();
        for (const auto& [amount, asked] : answers_.at(mix)) {
            const Outcome outcome = asked.judgement.outcome;
            paysAny = paysAny || outcome == Outcome::Paid;
            SCOPED_TRACE("mix " + std::to_string(mix) + ", " + std::to_string(amount));
            for (const char* id : {"QX206", "QX501", "QX502", "QX504", "QX506", "QX512"}) {
                const bool isOff = (std::string(id) == "QX501" && lint_.TheDispenser().partial) ||
                                   (std::string(id) == "QX512" && !hasUnits);
                EXPECT_TRUE(isOff || !*Counts(id, mix, amount) || Has(id, mix)) << id;
            }
            EXPECT_TRUE((outcome != Outcome::Overpaid && outcome != Outcome::Overdrawn) ||
                        Has("QX401", mix));
            EXPECT_TRUE(outcome != Outcome::NoAnswer || Has("QX402", mix));
        }
        EXPECT_EQ(HasOwn("QX508", mix), !paysAny) << "mix " << mix;
        EXPECT_TRUE(hasUnits || HasOwn("QX508", mix));
    }

    std::vector<std::string> currencies_;  // empty: one is asked
    std::string registry_;
    Asker asker_;
    LintCase lint_;
    std::vector<LintFinding> findings_;
    std::vector<LintFinding> all_;
    std::map<std::uint16_t, std::map<std::uint32_t, Asked>> answers_;
};

inline std::string Described(const Dispenser& dispenser) {
    return DispenserJson(dispenser).dump();
}

/// Units of an amount in one of the currency.
inline std::uint32_t ScaleOf(const Dispenser& dispenser) {
    return dispenser.exponent == -2 ? 100 : dispenser.exponent == -1 ? 10 : 1;
}

}  // namespace qxmix
