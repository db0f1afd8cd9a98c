#include "ExactWalk.h"

#include "CommonDivisor.h"

namespace {

std::uint32_t DivideRoundingUp(std::uint32_t dividend, std::uint32_t divisor) noexcept {
    return dividend / divisor + (dividend % divisor != 0 ? 1 : 0);
}

}  // namespace

ExactWalk ExactWalk::WithShortfall(const SearchUnits& units) noexcept {
    std::uint32_t divisor = units.values[0];
    for (unsigned unit = 1; unit < units.n; ++unit) {
        divisor = CommonDivisorOf(units.values[unit], divisor).divisor;
    }
    const std::uint32_t leftOver = units.amount % divisor;
    SearchUnits extended = units;
    extended.values[units.n] = divisor;
    extended.counts[units.n] = (units.values[units.n - 1] - 1 - leftOver) / divisor;
    const bool hasRoom = extended.counts[units.n] != 0;
    ExactWalk walk(extended, units.amount - leftOver, hasRoom ? units.n + 1 : units.n);
    walk.passesOverWhole_ = leftOver == 0;
    if (walk.passesOverWhole_ && !hasRoom) {
        walk.capacities_[0] = 0;  // the last unit fills up every rest: nothing falls short
    }
    return walk;
}

void ExactWalk::Prepare() noexcept {
    std::uint32_t divisor = values_[last_];
    std::uint64_t capacity = 0;
    for (unsigned level = last_ + 1; level-- > 0;) {
        const CommonDivisor common = CommonDivisorOf(values_[level], divisor);
        strides_[level] = divisor / common.divisor;
        factors_[level] = common.factor;
        divisor = common.divisor;
        divisors_[level] = divisor;
        capacity = std::min(capacity + std::uint64_t{values_[level]} * counts_[level],
                            std::uint64_t{0xFFFFFFFFU});
        capacities_[level] = static_cast<std::uint32_t>(capacity);
    }
}

/// A count of the last unit has to leave a rest that the divisor of the others divides. As in
/// KeepDivisible, value * n = amount modulo that divisor, with everything divided by that of all.
bool ExactWalk::HoldsLeastOfLast() const noexcept {
    std::uint32_t others = values_[0];
    for (unsigned level = 1; level < last_; ++level) {
        others = CommonDivisorOf(values_[level], others).divisor;
    }
    const CommonDivisor common = CommonDivisorOf(values_[last_], others);
    const std::uint32_t modulus = others / common.divisor;
    const std::uint64_t residue = amount_ / common.divisor % modulus;
    return residue * common.factor % modulus <= counts_[last_];
}

CountRange ExactWalk::RangeAt(unsigned level, std::uint32_t rest) const noexcept {
    const std::uint32_t others = capacities_[level + 1];
    const std::uint32_t low = rest > others ? DivideRoundingUp(rest - others, values_[level]) : 0;
    return {low, std::min(rest / values_[level], counts_[level])};
}

/// Keeps the counts n for which the divisor of the levels after divides rest - value * n.
///
/// With everything divided by the divisor of this level, value * n = rest modulo the stride; the
/// factor is the inverse of the value, so n = rest * factor modulo the stride.
void ExactWalk::KeepDivisible(unsigned level,
                              std::uint32_t rest,
                              CountRange& range) const noexcept {
    const std::uint32_t stride = strides_[level];
    if (stride == 1 || range.low > range.high) {
        return;
    }
    const std::uint64_t product = std::uint64_t{rest / divisors_[level] % stride} * factors_[level];
    const auto residue = static_cast<std::uint32_t>(product % stride);
    const std::uint32_t lowResidue = range.low % stride;
    const std::uint32_t step =
        residue >= lowResidue ? residue - lowResidue : stride - (lowResidue - residue);
    if (step > range.high - range.low) {
        range = {1, 0};
        return;
    }
    range.low += step;
    range.high -= (range.high - range.low) % stride;
}
