#include "LintCures.h"

#include "LintRules.h"
#include "requests/Request.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostQuestions = 6000;
constexpr unsigned kMostMisses = 5;

/// The mixes that pay some of these amounts and are safe to change to, each with how many it pays.
std::map<std::uint16_t, std::size_t>
CountPaid(const LintCase& lint, const LintMix& mix, const std::vector<std::uint32_t>& unpaid) {
    std::map<std::uint16_t, std::size_t> paid;
    for (const std::uint32_t amount : unpaid) {
        const auto known = lint.payers.find(amount);
        if (known == lint.payers.end()) {
            continue;
        }
        for (const std::uint16_t payer : known->second.payers) {
            if (payer != mix.mix && IsAdvisable(lint, payer)) {
                ++paid[payer];
            }
        }
    }
    return paid;
}

void FindPayers(const LintCase& lint,
                const LintMix& mix,
                const std::vector<std::uint32_t>& unpaid,
                LintCures& cures) {
    for (const auto& [payer, count] : CountPaid(lint, mix, unpaid)) {
        if (count == unpaid.size()) {
            cures.payers.push_back(payer);
        } else if (count > cures.paidByBest) {
            cures.bestPayer = payer;
            cures.paidByBest = count;
        }
    }
}

/// What the values of the units have in common, in the unit of an amount.
std::uint32_t CommonDivisor(const LintMix& mix, int exponent) {
    std::uint32_t divisor = 0;
    for (const Unit& unit : mix.kept) {
        divisor = std::gcd(divisor, unit.searched);
    }
    for (int power = 0; power < exponent; ++power) {
        divisor /= 10;
    }
    return divisor;
}

/// The longest stretch of the amounts asked that the mix pays throughout, in steps of what its
/// notes have in common; none of a single amount. Buttons between the steps are no part of it.
std::optional<AmountRange> PaidRange(const LintCase& lint, const LintMix& mix) {
    const std::uint32_t divisor = CommonDivisor(mix, lint.TheDispenser().exponent);
    const MapQuestions& asked = lint.questions;
    const std::uint64_t step =
        divisor == 0 ? 0 : std::lcm(std::uint64_t{divisor}, std::uint64_t{asked.step});
    if (step == 0 || step > UINT32_MAX) {
        return std::nullopt;
    }
    AmountRange best{0, 0, static_cast<std::uint32_t>(step)};
    AmountRange current = best;
    ForEachAnswer(lint, mix, [&](const LintAnswer& answer) {
        const std::uint32_t amount = answer.amount;
        const bool isStep = amount >= asked.from && amount <= asked.to &&
                            (amount - asked.from) % asked.step == 0 && amount % divisor == 0;
        if (!isStep) {
            return;
        }
        if (answer.cell.outcome != Outcome::Paid) {
            current.from = 0;
        } else {
            current.from = current.from == 0 ? amount : current.from;
            current.to = amount;
            best =
                best.from == 0 || current.to - current.from > best.to - best.from ? current : best;
        }
    });
    return best.from == best.to ? std::nullopt : std::make_optional(best);
}

}  // namespace

LintCures CureFinder::Find(const LintMix& mix, const std::vector<std::uint32_t>& unpaid) {
    questionsLeft_ = kMostQuestions;
    missesLeft_ = kMostMisses;
    LintCures cures;
    cures.count = unpaid.size();
    FindPayers(lint_, mix, unpaid, cures);
    if (mix.kept.empty()) {
        FindBestLoading(mix, unpaid, cures);
    } else if (!mix.Traits().isFirstFit) {  // whatever is loaded, those two are not to be trusted
        cures.loading = FindLoading(mix, unpaid);
        cures.paidByLoading = cures.loading ? unpaid.size() : 0;
    }
    cures.amounts = PaidRange(lint_, mix);
    return cures;
}

std::optional<std::uint16_t> CureFinder::FindLimit(const LintMix& mix,
                                                   const std::vector<std::uint32_t>& unpaid) {
    Dispenser changed = lint_.TheDispenser();
    changed.maxDispenseItems = kNoLimit;
    std::uint64_t most = 0;
    for (const std::uint32_t amount : unpaid) {
        const std::optional<Answer> asked = Ask(changed, mix.mix, amount);
        if (!asked || asked->outcome != Outcome::Paid) {
            return std::nullopt;
        }
        most = std::max({most, asked->notes, asked->coins});
    }
    changed.maxDispenseItems = static_cast<std::uint16_t>(most);
    return Cures(changed, mix, unpaid) ? std::make_optional(changed.maxDispenseItems)
                                       : std::nullopt;
}

std::optional<Loading> CureFinder::FindLoading(const LintMix& mix,
                                               const std::vector<std::uint32_t>& unpaid) {
    for (const Loading& loading : LoadingsToTry(lint_, mix, unpaid.back())) {
        if (Cures(WithLoading(lint_.TheDispenser(), loading), mix, unpaid)) {
            return loading;
        }
    }
    return std::nullopt;
}

/// Of the loadings that make a mix pay anything at all, the one with which it pays most; what is
/// there already comes before anything new.
void CureFinder::FindBestLoading(const LintMix& mix,
                                 const std::vector<std::uint32_t>& unpaid,
                                 LintCures& cures) {
    for (const Loading& loading : LoadingsToTry(lint_, mix, unpaid.back())) {
        const bool isNew =
            loading.kind == Loading::Kind::Add || loading.kind == Loading::Kind::Replace;
        if (cures.paidByLoading == unpaid.size() || (isNew && cures.loading)) {
            return;
        }
        const Dispenser changed = WithLoading(lint_.TheDispenser(), loading);
        std::size_t paid = 0;
        const bool isHarmless =
            std::all_of(unpaid.begin(), unpaid.end(), [&](std::uint32_t amount) {
                const auto asked = Ask(changed, mix.mix, amount);
                paid += asked && asked->outcome == Outcome::Paid ? 1U : 0U;
                return asked && !asked->IsDangerous();
            });
        if (isHarmless && paid > cures.paidByLoading) {
            cures.loading = loading;
            cures.paidByLoading = paid;
        }
    }
}

/// Whether the mix pays these amounts then, still pays what it paid, and refuses nothing that it
/// did not refuse.
bool CureFinder::Cures(const Dispenser& changed,
                       const LintMix& mix,
                       const std::vector<std::uint32_t>& unpaid) {
    const auto isPaid = [&](std::uint32_t amount) {
        const auto asked = Ask(changed, mix.mix, amount);
        return asked && asked->outcome == Outcome::Paid;
    };
    // The ends first: most of what does not help fails there.
    if (!isPaid(unpaid.front()) || !isPaid(unpaid.back()) ||
        !std::all_of(unpaid.begin(), unpaid.end(), isPaid)) {
        return false;
    }
    bool isBetter = true;
    ForEachAnswer(lint_, mix, [&](const LintAnswer& answer) {
        const Outcome before = answer.cell.outcome;
        if (isBetter && before == Outcome::Paid) {
            isBetter = isPaid(answer.amount);
        } else if (isBetter && before == Outcome::NothingPaid) {
            const auto asked = Ask(changed, mix.mix, answer.amount);
            isBetter = asked &&
                       (asked->outcome == Outcome::Paid || asked->outcome == Outcome::NothingPaid);
        }
    });
    return isBetter;
}

/// What the mix makes of an amount there; none when too much was asked already.
std::optional<Answer>
CureFinder::Ask(const Dispenser& changed, std::uint16_t mix, std::uint32_t amount) {
    if (questionsLeft_ == 0 || missesLeft_ == 0) {
        return std::nullopt;
    }
    --questionsLeft_;
    const Answer answer =
        AskSilently(asker_, changed, BuildRequest(changed, amount, mix), kSideDeadline);
    missesLeft_ -= answer.IsAnswered() ? 0U : 1U;
    return answer;
}

}  // namespace qxmix
