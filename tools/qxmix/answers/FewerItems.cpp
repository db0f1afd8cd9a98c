#include "FewerItems.h"

#include "CashUnitCodes.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace qxmix {

namespace {

/// Steps of one search: at most a few hundredths of a second.
constexpr std::uint32_t kMostSteps = 1000000;

constexpr CodeSet kNoteTypes = SetOf(CashUnitType::BillCassette);
constexpr CodeSet kGiving = SetOf(CashUnitStatus::Ok, CashUnitStatus::Low);

struct Stock {
    std::size_t cassette;
    std::uint32_t value;  // in the unit of an amount
    std::uint32_t count;
};

/// Those that may serve, the largest first.
std::vector<Stock> StocksOf(const Dispenser& dispenser) {
    std::vector<Stock> stocks;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        const auto value = cassette.Worth().In(dispenser.exponent);
        if (value && *value > 0 && cassette.currency == dispenser.currency &&
            Contains(kNoteTypes | kCoinTypes, cassette.type) &&
            Contains(kGiving, cassette.status)) {
            stocks.push_back({index, *value, cassette.count});
        }
    }
    std::stable_sort(stocks.begin(), stocks.end(), [](const Stock& left, const Stock& right) {
        return left.value > right.value;
    });
    return stocks;
}

/// Goes through the combinations, many large items first; leaves out what cannot be better than the
/// best so far.
class FewItems {
public:
    FewItems(std::vector<Stock> stocks, std::uint64_t most)
        : stocks_(std::move(stocks)), most_(most) {}

    std::optional<CassetteItems> Find(std::uint32_t amount) {
        if (!stocks_.empty()) {
            levels_.push_back(LevelOf(0, amount, 0));
        }
        for (std::uint32_t steps = 0; steps < kMostSteps && !levels_.empty(); ++steps) {
            Step();
        }
        return best_;
    }

private:
    /// A stock, and what is left to make with it and those behind it.
    struct Level {
        std::size_t place;
        std::uint32_t rest;
        std::uint64_t used;  // items of those before it
        std::uint64_t next;  // items of it to try next, and one more
    };

    Level LevelOf(std::size_t place, std::uint32_t rest, std::uint64_t used) const {
        const Stock& stock = stocks_[place];
        return {place, rest, used, std::min(stock.count, rest / stock.value) + std::uint64_t{1}};
    }

    void Step() {
        Level& level = levels_.back();
        const Stock& stock = stocks_[level.place];
        const std::uint64_t items = level.next - 1;
        const auto left = static_cast<std::uint32_t>(level.rest - items * stock.value);
        const std::uint64_t used = level.used + items;
        // With fewer of these, more of the smaller ones are needed.
        if (level.next == 0 || used + LeastItems(level.place + 1, left) > most_) {
            tried_[stock.cassette] = 0;
            levels_.pop_back();
            return;
        }
        --level.next;
        tried_[stock.cassette] = static_cast<std::uint32_t>(items);
        if (left == 0) {
            best_ = tried_;
            most_ = used == 0 ? 0 : used - 1;
        } else if (level.place + 1 < stocks_.size()) {
            levels_.push_back(LevelOf(level.place + 1, left, used));
        }
    }

    std::uint64_t LeastItems(std::size_t place, std::uint32_t rest) const {
        if (place == stocks_.size()) {
            return 0;
        }
        const std::uint64_t value = stocks_[place].value;
        return (rest + value - 1) / value;
    }

    std::vector<Stock> stocks_;
    std::uint64_t most_;
    std::vector<Level> levels_;
    CassetteItems tried_{};
    std::optional<CassetteItems> best_;
};

}  // namespace

std::optional<CassetteItems>
FewItemsFor(const Dispenser& dispenser, std::uint32_t amount, std::uint64_t most) {
    return FewItems(StocksOf(dispenser), most).Find(amount);
}

std::uint64_t CountOf(const CassetteItems& items) {
    return std::accumulate(items.begin(), items.end(), std::uint64_t{0});
}

}  // namespace qxmix
