#pragma once

#include "Demand.h"
#include "answers/Outcome.h"
#include "dispenser/Draining.h"
#include "workers/AdaptiveDeadline.h"

#include <array>
#include <cstdint>
#include <optional>
#include <tuple>
#include <vector>

namespace qxmix {

/// What became of one withdrawal.
struct SimulationStep {
    Outcome outcome = Outcome::NoAnswer;
    bool isProved = false;  ///< NoAnswer: none will ever come
    CassetteItems items{};  ///< as answered; 0 where the answer was a refusal or none

    /// Whether the items left the machine; dangerous answers are never carried out.
    bool IsTaken() const { return outcome == Outcome::Paid || outcome == Outcome::PaidInPart; }

    bool operator<(const SimulationStep& other) const {
        return std::tie(outcome, items) < std::tie(other.outcome, other.items);
    }
};

/// How one mix fared with one demand.
struct SimulationSummary {
    struct Refusal {
        std::size_t withdrawal = 0;  ///< counted from 0
        Withdrawal asked;
        Outcome outcome = Outcome::NotDispensable;
        Money left;  ///< what the cassettes of the dispenser's currency held then
    };

    struct Emptied {
        std::size_t withdrawal = 0;  ///< the one after which it was empty, counted from 0
        std::int64_t time = 0;
        std::size_t cassette = 0;
    };

    static constexpr std::size_t kOutcomes = static_cast<std::size_t>(Outcome::PaidInPart) + 1;

    std::array<std::uint64_t, kOutcomes> counts{};  ///< withdrawals by outcome
    std::size_t asked = 0;                          ///< withdrawals; fewer than all if given up
    std::uint64_t misses = 0;                       ///< answers missing that may yet come
    bool isGivenUp = false;
    std::uint64_t notes = 0;  ///< taken
    std::uint64_t coins = 0;
    Money paid;
    std::optional<Refusal> firstRefusal;  ///< the first withdrawal with nothing taken
    std::vector<Emptied> emptied;         ///< cassettes that ran empty, the first one first
    std::vector<std::uint32_t> end;       ///< what each cassette holds then
    Money left;                           ///< what that is worth
    /// How unevenly the cassettes of the dispenser's currency emptied: the largest share left, less
    /// the smallest, in thousandths of what each held at first.
    std::uint32_t spread = 0;

    std::uint64_t Count(Outcome outcome) const { return counts[static_cast<std::size_t>(outcome)]; }

    std::uint64_t Served() const { return Count(Outcome::Paid); }
    std::uint64_t InPart() const { return Count(Outcome::PaidInPart); }

    /// Withdrawals that were honestly refused: nothing paid, and no danger.
    std::uint64_t Refused() const { return asked - Served() - InPart() - Dangerous(); }

    /// Answers that must not reach a customer, and calculations that crashed.
    std::uint64_t Dangerous() const;

    /// Tenths of an item for each withdrawal with something taken, rounded.
    std::uint64_t TenthsPerWithdrawal() const;
};

/// Follows a dispenser from one withdrawal to the next, and sums up.
class DrainedDispenser {
public:
    /// @param before  the dispenser as it is at first.
    explicit DrainedDispenser(const Dispenser& before) : before_(before), now_(before) {}

    const Dispenser& Now() const { return now_; }

    bool IsGivenUp() const { return summary_.misses >= kMissesToGiveUp; }

    /// @param worth  of the step's items.
    void Add(const Withdrawal& asked, const SimulationStep& step, const Money& worth);

    SimulationSummary Summary() const;

private:
    void Pay(const Withdrawal& asked, const CassetteItems& items, const Money& worth);

    Dispenser before_;
    Dispenser now_;
    SimulationSummary summary_;
};

/// Sums up some steps of one mix.
///
/// @param dispenser  as it was at first.
SimulationSummary SummaryOf(const Dispenser& dispenser,
                            const Demand& demand,
                            const std::vector<SimulationStep>& steps);

}  // namespace qxmix
