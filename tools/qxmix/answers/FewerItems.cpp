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
        Try(0, amount, 0);
        return best_;
    }

private:
    void Try(std::size_t place, std::uint32_t rest, std::uint64_t used) {
        if (rest == 0) {
            if (used <= most_) {
                best_ = tried_;
                most_ = used == 0 ? 0 : used - 1;
            }
            return;
        }
        if (place == stocks_.size()) {
            return;
        }
        const Stock& stock = stocks_[place];
        for (std::uint64_t items = std::min(stock.count, rest / stock.value) + std::uint64_t{1};
             items-- > 0;) {
            const auto left = static_cast<std::uint32_t>(rest - items * stock.value);
            if (++steps_ > kMostSteps || used + items + LeastItems(place + 1, left) > most_) {
                break;  // with fewer of these, more of the smaller ones are needed
            }
            tried_[stock.cassette] = static_cast<std::uint32_t>(items);
            Try(place + 1, left, used + items);
        }
        tried_[stock.cassette] = 0;
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
    std::uint32_t steps_ = 0;
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
