#include "SimulationSummary.h"

#include "CashUnitCodes.h"
#include "answers/Dangers.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kWhole = 1000;

std::uint32_t SpreadOf(const Dispenser& before, const Dispenser& after) {
    std::uint64_t least = kWhole;
    std::uint64_t most = 0;
    for (std::size_t index = 0; index < before.cassettes.size(); ++index) {
        const Cassette& cassette = before.cassettes[index];
        if (cassette.count > 0 && cassette.currency == before.currency) {
            const std::uint64_t share = after.cassettes[index].count * kWhole / cassette.count;
            least = std::min(least, share);
            most = std::max(most, share);
        }
    }
    return most > least ? static_cast<std::uint32_t>(most - least) : 0;
}

}  // namespace

std::uint64_t SimulationSummary::Dangerous() const {
    std::uint64_t dangerous = 0;
    for (const Danger& danger : Dangers()) {
        dangerous += Count(danger.outcome);
    }
    return dangerous;
}

std::uint64_t SimulationSummary::TenthsPerWithdrawal() const {
    const std::uint64_t withdrawals = Served() + InPart();
    return withdrawals == 0 ? 0 : ((notes + coins) * 20 + withdrawals) / (withdrawals * 2);
}

void DrainedDispenser::Add(const Withdrawal& asked,
                           const SimulationStep& step,
                           const Money& worth) {
    ++summary_.counts[static_cast<std::size_t>(step.outcome)];
    summary_.misses += step.outcome == Outcome::NoAnswer && !step.isProved ? 1U : 0U;
    if (step.IsTaken()) {
        Pay(asked, step.items, worth);
    } else if (!summary_.firstRefusal) {
        summary_.firstRefusal = {summary_.asked, asked, step.outcome, ValueHeld(now_)};
    }
    ++summary_.asked;
}

SimulationSummary DrainedDispenser::Summary() const {
    SimulationSummary summary = summary_;
    for (const Cassette& cassette : now_.cassettes) {
        summary.end.push_back(cassette.count);
    }
    summary.left = ValueHeld(now_);
    summary.spread = SpreadOf(before_, now_);
    summary.isGivenUp = IsGivenUp();
    return summary;
}

void DrainedDispenser::Pay(const Withdrawal& asked,
                           const CassetteItems& items,
                           const Money& worth) {
    std::array<bool, kMaxCashUnits> wasEmpty{};
    for (std::size_t index = 0; index < now_.cassettes.size(); ++index) {
        wasEmpty[index] = IsEmpty(now_.cassettes[index]);
    }
    TakeItems(now_, items);
    summary_.paid += worth;
    for (std::size_t index = 0; index < now_.cassettes.size(); ++index) {
        const Cassette& cassette = now_.cassettes[index];
        (Contains(kCoinTypes, cassette.type) ? summary_.coins : summary_.notes) += items[index];
        if (!wasEmpty[index] && IsEmpty(cassette)) {
            summary_.emptied.push_back({summary_.asked, asked.time, index});
        }
    }
}

SimulationSummary SummaryOf(const Dispenser& dispenser,
                            const Demand& demand,
                            const std::vector<SimulationStep>& steps) {
    DrainedDispenser draining(dispenser);
    for (std::size_t place = 0; place < steps.size(); ++place) {
        draining.Add(demand.withdrawals[place], steps[place],
                     WorthOf(dispenser, steps[place].items));
    }
    return draining.Summary();
}

}  // namespace qxmix
