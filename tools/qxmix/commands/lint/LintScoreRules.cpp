#include "CashUnitCodes.h"
#include "LintRules.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kWrap = std::uint64_t{1} << 32U;
constexpr std::uint64_t kExactInSinglePrecision = 16777216;

bool HasSeveralUnits(const LintMix& mix) {
    return mix.kept.size() >= 2 && mix.kept.size() <= mix.Traits().mostUnits;
}

/// A product that is held to 2^32: what is beyond that does not matter.
class HeldProduct {
public:
    HeldProduct& Times(std::uint64_t factor) {
        value_ = std::min(kWrap, value_ * std::min(kWrap - 1, factor));
        return *this;
    }

    bool Wraps() const { return value_ == kWrap; }

private:
    std::uint64_t value_ = 1;
};

/// Whether the term of a unit and its neighbour can reach 2^32 in the score of even emptying.
bool CanImbalanceWrap(const LintMix& mix, std::size_t place, std::uint16_t limit) {
    const std::size_t next = (place + 1) % mix.kept.size();
    HeldProduct product;
    product.Times(mix.kept.size()).Times(limit);
    product.Times(std::max(mix.kept[place].counted, mix.kept[next].counted));
    for (std::size_t other = 0; other < mix.kept.size(); ++other) {
        if (other != place && other != next) {
            product.Times(mix.kept[other].counted);
        }
    }
    return product.Wraps();
}

bool CanImbalanceWrap(const LintMix& mix, std::uint16_t limit) {
    bool canWrap = false;
    for (std::size_t place = 0; place < mix.kept.size(); ++place) {
        canWrap = canWrap || CanImbalanceWrap(mix, place, limit);
    }
    return canWrap;
}

bool CanSpreadWrap(const LintMix& mix, std::uint16_t limit) {
    const bool hasCoins = std::any_of(mix.kept.begin(), mix.kept.end(), [](const Unit& unit) {
        return Contains(kCoinTypes, unit.type);
    });
    const std::uint64_t most = std::uint64_t{limit} * (hasCoins ? 2 : 1);
    const std::uint64_t units = mix.kept.size();
    return HeldProduct().Times(units).Times(units - 1).Times(most).Times(most).Wraps();
}

/// Mixes that compare the shares of even emptying, and those that compare how even a payment is.
bool ComparesWrapped(const LintMix& mix, std::uint16_t limit) {
    return HasSeveralUnits(mix) && ((mix.Traits().comparesShares && CanImbalanceWrap(mix, limit)) ||
                                    (mix.Traits().comparesEvenness && CanSpreadWrap(mix, limit)));
}

/// The largest limit under which no comparison can wrap.
std::uint16_t HarmlessLimit(const LintMix& mix, std::uint16_t limit) {
    std::uint16_t harmless = limit;
    while (CanSpreadWrap(mix, harmless)) {
        --harmless;
    }
    return harmless;
}

/// Most notes, or most coins, of what a mix pays; more than any limit if one stops it already.
std::uint64_t MostItems(const LintCase& lint, const LintMix& mix) {
    std::uint64_t most = 0;
    ForEachAnswer(lint, mix, [&](const LintAnswer& answer) {
        if (answer.cell.outcome == Outcome::Paid) {
            const Answer paid = Unpacked(lint, answer);
            most = std::max({most, paid.notes, paid.coins});
        }
        most = IsOverLimit(mix, answer) ? kWrap : most;
    });
    return most;
}

/// Whether a mix took too much, or did not answer, wherever it was asked.
bool IsDangerous(const LintCase& lint, const LintMix& mix) {
    const MapRow& row = mix.row;
    return row.Count(Outcome::Overpaid) + row.Count(Outcome::Overdrawn) +
                   row.Count(Outcome::NoAnswer) + row.Count(Outcome::Crashed) !=
               0 ||
           std::any_of(lint.payers.begin(), lint.payers.end(), [&mix](const auto& amount) {
               return amount.second.dangerous.count(mix.mix) != 0;
           });
}

/// What the units hold, in the unit of the amount: six products below 2^64 may need more.
Money WorthOf(const LintMix& mix) {
    Money worth;
    for (const Unit& unit : mix.kept) {
        worth += Money::Of(unit.searched, 0).Times(unit.counted);
    }
    return worth;
}

}  // namespace

bool IsAdvisable(const LintCase& lint, std::uint16_t number) {
    if (Traits(number).isFirstFit) {
        return false;
    }
    const auto isIt = [number](const LintMix& mix) { return mix.mix == number; };
    auto found = std::find_if(lint.mixes.begin(), lint.mixes.end(), isIt);
    if (found == lint.mixes.end()) {
        found = std::find_if(lint.unasked.begin(), lint.unasked.end(), isIt);
    }
    return found->row.SlowestAnswer().took <= lint.slow && !IsDangerous(lint, *found) &&
           !ComparesWrapped(*found, lint.TheDispenser().maxDispenseItems);
}

void CheckImbalanceScores(const LintCase& lint, LintReport& report) {
    const std::uint16_t limit = lint.TheDispenser().maxDispenseItems;
    report.Add("/mix", "shares may be compared as wrapped numbers: uneven emptying",
               MixesWhere(lint, [limit](const LintMix& mix) {
                   return mix.Traits().comparesShares && ComparesWrapped(mix, limit);
               }));
}

void CheckSpreadScores(const LintCase& lint, LintReport& report) {
    std::uint16_t harmless = lint.TheDispenser().maxDispenseItems;
    bool losesNothing = true;
    const std::vector<std::uint16_t> mixes = MixesWhere(lint, [&lint](const LintMix& mix) {
        return mix.Traits().comparesEvenness &&
               ComparesWrapped(mix, lint.TheDispenser().maxDispenseItems);
    });
    for (const LintMix& mix : lint.mixes) {
        if (std::count(mixes.begin(), mixes.end(), mix.mix) != 0) {
            harmless = HarmlessLimit(mix, harmless);
            losesNothing = losesNothing && MostItems(lint, mix) <= harmless;
        }
    }
    report.Add("/maxDispenseItems", "evenness may be compared as wrapped numbers", mixes,
               losesNothing ? "lower the limit to " + std::to_string(harmless) : "");
}

void CheckRoundedTotal(const LintCase& lint, LintReport& report) {
    const Money exact = Money::Of(kExactInSinglePrecision, 0);
    report.Add("/cassettes",
               "the units hold more than " + exact.Text() +
                   ": the total is rounded to single precision, and amounts near it, and partial "
                   "amounts, are off",
               MixesWhere(lint, [&exact](const LintMix& mix) { return WorthOf(mix) > exact; }));
}

}  // namespace qxmix
