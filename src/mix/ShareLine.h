#pragma once

#include "MostEven.h"
#include "Shares.h"

/// Finds what is most even on a line of combinations that only exchange items of the last two
/// units: from one to the next so many of the one for so many of the other.
class ShareLine {
public:
    ShareLine(MostEven<Shares>& search, const ExactWalk& walk) noexcept
        : most_(search), n_(search.units.n), taken_(walk.ItemsTaken()), given_(walk.ItemsGiven()),
          fall_(search.evenness.Weight(n_ - 2) * taken_),
          rise_(search.evenness.Weight(n_ - 1) * given_) {}

    /// Keeps the best of a line, unless a better one is known.
    ///
    /// @param chosen  the shares of all units but the last two.
    /// @param head    the combination with the most items of the last unit but one.
    /// @param counts  combinations on the line, 1 at least.
    void Follow(const ChosenShares& chosen, const Counts& head, std::uint32_t counts) noexcept {
        Start(chosen, head, counts);
        if (!most_.isFound) {
            most_.Keep(head, most_.evenness.Score(head));
        }
        if (counts <= kShort || !HasTrueSums(chosen.Bits(n_ - 3))) {
            TryAll();
            return;
        }
        // No sum on the line is below that of the chosen shares, and none comes to 2^33.
        if (chosen.AroundCycle(n_ - 3) <= most_.best) {
            Descend<Direction::Downwards>(0);
        }
        if (most_.evenness.MayReachWord()) {
            Descend<Direction::Downwards>(Shares::kWord);
            Descend<Direction::Upwards>(Shares::kWord);
        }
    }

private:
    /// On longer lines of shares below 2^31 a step changes a sum by less than 2^31, so that the
    /// growth can be read as a signed number. So many are tried sooner, anyway.
    static constexpr std::uint32_t kShort = 4;

    void Start(const ChosenShares& chosen, const Counts& head, std::uint32_t counts) noexcept {
        head_ = &head;
        last_ = counts - 1;
        share_ = most_.evenness.Weight(n_ - 2) * head[n_ - 2];
        lastShare_ = most_.evenness.Weight(n_ - 1) * head[n_ - 1];
        before_ = chosen.At(n_ - 3);
        first_ = chosen.First();
        path_ = chosen.Path(n_ - 3);
    }

    /// Whether every share on the line is below 2^31, so that all magnitudes are distances.
    bool HasTrueSums(std::uint32_t chosenBits) const noexcept {
        const std::uint32_t bits = chosenBits | share_ | (lastShare_ + last_ * rise_);
        return most_.evenness.Whole() < Shares::kWord && (bits >> 31U) == 0;
    }

    void TryAll() noexcept {
        const auto path = static_cast<std::uint32_t>(path_);
        std::uint32_t toOne = share_ - before_;
        std::uint32_t toLast = lastShare_ - share_;
        std::uint32_t toFirst = first_ - lastShare_;
        for (std::uint32_t step = 0;; ++step) {
            const std::uint32_t score =
                path + Magnitude(toOne) + Magnitude(toLast) + Magnitude(toFirst);
            if (score <= most_.best) {
                KeepAt(step, score);
            }
            if (step == last_) {
                return;
            }
            toOne -= fall_;
            toLast += fall_ + rise_;
            toFirst -= rise_;
        }
    }

    /// Keeps what scores as low as the best so far among the sums from `floor` on, going from one
    /// end of the line (Downwards: from its head) to where the sum falls below the floor or rises.
    ///
    /// Sums of distances are convex: ahead of any place they fall no faster than there, and once
    /// they rise they go on rising. So whatever is stepped over lies above.
    template <Direction kDirection>
    void Descend(std::uint64_t floor) noexcept {
        for (std::uint32_t passed = 0;;) {
            const std::uint32_t step = kDirection == Direction::Downwards ? passed : last_ - passed;
            const std::uint32_t share = share_ - step * fall_;
            const std::uint32_t lastShare = lastShare_ + step * rise_;
            const std::uint64_t sum = SumOf(share, lastShare);
            if (sum < floor) {
                return;
            }
            std::uint32_t steps = 1;
            if (sum <= floor + most_.best) {
                KeepAt(step, static_cast<std::uint32_t>(sum - floor));
            } else {
                steps = StepsDown<kDirection>(sum - floor - most_.best, share, lastShare);
            }
            if (steps == 0 || steps > last_ - passed) {
                return;
            }
            passed += steps;
        }
    }

    /// After how many steps at least the sum is lower by `excess`, 0 when it never is.
    template <Direction kDirection>
    std::uint32_t
    StepsDown(std::uint64_t excess, std::uint32_t share, std::uint32_t lastShare) const noexcept {
        const std::uint32_t growth = GrowthAt(share, lastShare);
        const std::uint32_t fall = kDirection == Direction::Downwards ? 0U - growth : growth;
        if (fall == 0 || (fall >> 31U) != 0) {
            return 0;
        }
        return static_cast<std::uint32_t>(std::min(excess - 1, Shares::kWord - 1)) / fall + 1;
    }

    std::uint64_t SumOf(std::uint32_t share, std::uint32_t lastShare) const noexcept {
        return path_ + Magnitude(share - before_) + Magnitude(lastShare - share) +
               Magnitude(first_ - lastShare);
    }

    /// What the sum grows by at the next step, as long as each difference keeps its sign.
    std::uint32_t GrowthAt(std::uint32_t share, std::uint32_t lastShare) const noexcept {
        return WithSignOf(share - before_, 0U - fall_) +
               WithSignOf(lastShare - share, fall_ + rise_) +
               WithSignOf(first_ - lastShare, 0U - rise_);
    }

    static std::uint32_t WithSignOf(std::uint32_t difference, std::uint32_t growth) noexcept {
        return (difference >> 31U) != 0 ? 0U - growth : growth;
    }

    void KeepAt(std::uint32_t step, std::uint32_t score) noexcept {
        Counts combination = *head_;
        combination[n_ - 2] -= step * taken_;
        combination[n_ - 1] += step * given_;
        most_.Keep(combination, score);
    }

    MostEven<Shares>& most_;
    unsigned n_;
    std::uint32_t taken_;
    std::uint32_t given_;
    std::uint32_t fall_;  ///< of the share of the last unit but one at each step
    std::uint32_t rise_;  ///< of the share of the last one
    const Counts* head_ = nullptr;
    std::uint32_t last_{};       ///< the last step
    std::uint32_t share_{};      ///< at the head: of the last unit but one
    std::uint32_t lastShare_{};  ///< and of the last one
    std::uint32_t before_{};     ///< the share that those two follow
    std::uint32_t first_{};
    std::uint64_t path_{};  ///< the differences up to there
};
