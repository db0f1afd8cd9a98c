#include "DynamicProgram.h"

#include <algorithm>
#include <numeric>

namespace bench {
namespace {

constexpr std::uint32_t kNever = 0xFFFFFFFFU / 2;

/// Enough of the unit for every amount: one more item than for the amount that it completes.
void AddPlentiful(std::vector<std::uint32_t>& fewest, std::uint32_t value) {
    for (std::size_t amount = value; amount < fewest.size(); ++amount) {
        fewest[amount] = std::min(fewest[amount], fewest[amount - value] + 1);
    }
}

/// What the window holds: an amount, in steps of the value, and the items without the steps.
struct Candidate {
    std::uint32_t step;
    std::uint32_t items;  // plus kNever, so that they stay positive
};

/// At most `count` items: along the amounts that leave one remainder, the least within a window.
void AddLimited(std::vector<std::uint32_t>& fewest, const Unit& unit) {
    static thread_local std::vector<Candidate> window;
    window.resize(fewest.size() / unit.value + 1);
    for (std::uint32_t remainder = 0; remainder < unit.value; ++remainder) {
        std::size_t first = 0;
        std::size_t end = 0;
        std::uint32_t step = 0;
        for (std::size_t amount = remainder; amount < fewest.size(); amount += unit.value, ++step) {
            const std::uint32_t items = fewest[amount] + (kNever - step);
            while (end > first && window[end - 1].items >= items) {
                --end;
            }
            window[end++] = {step, items};
            while (step - window[first].step > unit.count) {
                ++first;
            }
            fewest[amount] = std::min(kNever, window[first].items - (kNever - step));
        }
    }
}

}  // namespace

FewestItems FewestItemsByTable(const Question& question) {
    std::uint32_t divisor = 0;
    for (const Unit& unit : question.units) {
        divisor = std::gcd(divisor, unit.value);
    }
    if (question.amount % divisor != 0) {
        return {FewestItems::Kind::None};
    }
    const std::uint32_t amount = question.amount / divisor;
    static thread_local std::vector<std::uint32_t> fewest;
    fewest.assign(amount + 1, kNever);
    fewest[0] = 0;
    for (const Unit& unit : question.units) {
        const Unit scaled{unit.value / divisor, unit.count};
        if (scaled.count >= amount / scaled.value) {
            AddPlentiful(fewest, scaled.value);
        } else {
            AddLimited(fewest, scaled);
        }
    }
    return {fewest[amount] < kNever ? FewestItems::Kind::Found : FewestItems::Kind::None,
            fewest[amount]};
}

}  // namespace bench
