#include "FillLoading.h"

#include "OrderingRules.h"
#include "dispenser/Draining.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr CodeSet kTellsTheCount = StatusRange(CashUnitStatus::Ok, CashUnitStatus::Empty);

/// Above it a count is read as negative.
constexpr std::uint32_t kMostItems = INT32_MAX;

/// What the customers of one run ask for.
Money AskedIn(const Dispenser& dispenser, const Demand& demand) {
    Money asked;
    for (const Withdrawal& withdrawal : demand.withdrawals) {
        asked += AskedMoney(dispenser, withdrawal.amount);
    }
    return asked;
}

/// The least count of things of one worth that come to a sum; at most `most`.
std::uint32_t CountFor(const Money& sum, const Money& worth, std::uint32_t most) {
    std::uint32_t enough = most;
    for (std::uint32_t tooFew = 0; tooFew < enough;) {
        const std::uint32_t middle = tooFew + (enough - tooFew) / 2;
        if (worth.Times(middle) < sum) {
            tooFew = middle + 1;
        } else {
            enough = middle;
        }
    }
    return enough;
}

}  // namespace

bool IsLoaded(const Dispenser& dispenser, const Cassette& cassette) {
    return cassette.currency == dispenser.currency && Contains(kAlsoRecycling, cassette.type) &&
           Contains(kTellsTheCount, cassette.status) && cassette.value != 0 &&
           !cassette.Worth().IsZero();
}

FillLoading::FillLoading(const Dispenser& dispenser,
                         std::uint32_t bundle,
                         const RunDemands& demands)
    : dispenser_(dispenser) {
    Money asked;
    for (const auto& demand : demands) {
        const Money sum = AskedIn(dispenser_, *demand);
        asked = sum > asked ? sum : asked;
    }
    for (std::size_t index = 0; index < dispenser_.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser_.cassettes[index];
        if (!IsLoaded(dispenser_, cassette)) {
            const bool counts = cassette.currency == dispenser_.currency;
            unloaded_ += counts ? cassette.Worth().Times(cassette.count) : Money();
            continue;
        }
        LoadedCassette loaded;
        loaded.cassette = index;
        loaded.bundle = std::min(cassette.bundle.value_or(bundle), kMostItems);
        loaded.worth = cassette.Worth().Times(loaded.bundle);
        const std::uint32_t room = std::min(cassette.capacity.value_or(kMostItems), kMostItems);
        loaded.most = CountFor(asked, loaded.worth, room / loaded.bundle);
        cassettes_.push_back(loaded);
    }
}

Dispenser FillLoading::With(const Bundles& bundles) const {
    Dispenser loaded = dispenser_;
    for (std::size_t place = 0; place < cassettes_.size(); ++place) {
        Cassette& cassette = loaded.cassettes[cassettes_[place].cassette];
        cassette.count = bundles[place] * cassettes_[place].bundle;
        cassette.status = StatusByCount(cassette);
    }
    return loaded;
}

Money FillLoading::WorthOf(const Bundles& bundles) const {
    Money worth;
    for (std::size_t place = 0; place < cassettes_.size(); ++place) {
        worth += cassettes_[place].worth.Times(bundles[place]);
    }
    return worth;
}

Bundles FillLoading::Most() const {
    Bundles bundles;
    for (const LoadedCassette& cassette : cassettes_) {
        bundles.push_back(cassette.most);
    }
    return bundles;
}

Bundles FillLoading::Holding(const std::vector<std::uint64_t>& items) const {
    Bundles bundles;
    for (const LoadedCassette& cassette : cassettes_) {
        const std::uint64_t wanted =
            (items[cassette.cassette] + cassette.bundle - 1) / cassette.bundle;
        bundles.push_back(
            static_cast<std::uint32_t>(std::min<std::uint64_t>(wanted, cassette.most)));
    }
    return bundles;
}

Money LeastWorth(const FillQuestions& questions,
                 const RunDemands& demands,
                 const ServedShare& service) {
    std::vector<Money> sums;
    for (const auto& demand : demands) {
        Demand served = *demand;
        std::vector<Withdrawal>& asked = served.withdrawals;
        std::sort(asked.begin(), asked.end(), [](const Withdrawal& left, const Withdrawal& right) {
            return left.amount < right.amount;
        });
        asked.resize(asked.size() - static_cast<std::size_t>(service.MostUnserved(asked.size())));
        sums.push_back(AskedIn(questions.dispenser, served));
    }
    std::sort(sums.begin(), sums.end());
    return sums[sums.size() - 1 - questions.MostMisses()];
}

}  // namespace qxmix
