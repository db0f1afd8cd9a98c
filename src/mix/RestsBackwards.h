#pragma once

#include <algorithm>
#include <cstdint>

/// Rests that lie evenly spaced: first, first + distance, and so on.
struct RestSeries {
    std::uint64_t first;
    std::uint64_t number;  ///< of rests, 1 or more; what lies beyond the word counts for nothing
};

/// Finds rests on the lines of a cycle, going backwards: from each line to the one before it the
/// rest falls by the same value, modulo 2^32.
///
/// Divided by the distance of a series, its rests become the numbers below `number`, and the
/// question is when a number that falls evenly round a circle first comes so low. Where it lies
/// below the sum of two distances, `down` and `up`, it next comes there again by going down, if
/// there is room, and else by going up. Euclid's algorithm on the two makes the sum small.
template <unsigned kWordBits>
class RestsBackwards {
public:
    /// @param value     by which the rest falls from line to line backwards, not 0.
    /// @param distance  of the series that are asked for, not 0.
    RestsBackwards(std::uint32_t value, std::uint32_t distance) noexcept
        : distance_(distance), common_(std::min(PowerOfTwoIn(value), PowerOfTwoIn(distance))),
          stride_(PowerOfTwoIn(distance) / common_),
          inverse_(InverseOf(distance / PowerOfTwoIn(distance))), step_(value / common_ * inverse_),
          strideFactor_(InverseOf(step_)), circle_(kWords / PowerOfTwoIn(distance)) {}

    /// How many lines before this one a rest lies in the series; `most` where there is none on so
    /// many lines.
    std::uint64_t
    LinesTo(const RestSeries& series, std::uint32_t rest, std::uint64_t most) const noexcept {
        const std::uint64_t over = (rest - series.first) & (kWords - 1);
        if (series.first >= kWords || over % common_ != 0) {
            return most;
        }
        const std::uint64_t number =
            std::min(series.number, (kWords - 1 - series.first) / distance_ + 1);
        const std::uint64_t word = kWords / common_ - 1;
        const std::uint64_t steps = over / common_ * inverse_ & word;
        // Of so many lines one has a rest that the distance divides, counted from the first.
        const std::uint64_t skipped = steps * strideFactor_ & (stride_ - 1);
        const auto place = static_cast<std::uint32_t>(((steps - skipped * step_) & word) / stride_);
        return std::min(most, skipped + stride_ * TurnsBelow(number, place, most));
    }

private:
    // NOLINTBEGIN(bugprone-dynamic-static-initializers) taken wrongly for what is made at run time
    static constexpr std::uint64_t kWords = std::uint64_t{1} << kWordBits;
    // NOLINTEND(bugprone-dynamic-static-initializers)

    /// A distance round the circle, and after how many turns a number has gone it.
    struct Way {
        std::uint32_t distance;
        std::uint64_t turns;
    };

    /// The greatest power of two that divides a number other than 0.
    static std::uint32_t PowerOfTwoIn(std::uint32_t number) noexcept {
        return number & (0U - number);
    }

    /// The inverse of an odd number modulo 2^32: each line doubles the bits that are right. Of an
    /// even one no bit is used.
    static std::uint32_t InverseOf(std::uint32_t odd) noexcept {
        std::uint32_t inverse = odd;
        inverse *= 2 - odd * inverse;
        inverse *= 2 - odd * inverse;
        inverse *= 2 - odd * inverse;
        inverse *= 2 - odd * inverse;
        return inverse;
    }

    /// A number that falls round the circle.
    struct Fall {
        std::uint32_t place;
        std::uint64_t turns;  ///< gone so far
        Way down;
        Way up;

        /// Makes the way down shorter by ways up, until the number can go it.
        void ShortenDown() noexcept {
            const std::uint32_t ways = down.distance / up.distance;
            const std::uint32_t before =
                place >= down.distance ? 0 : (down.distance - place - 1) / up.distance + 1;
            if (before < ways) {
                place -= down.distance - before * up.distance;
                turns += down.turns + before * up.turns;
            }
            down.distance -= ways * up.distance;
            down.turns += ways * up.turns;
        }

        /// Makes the way up shorter by ways down, and goes down to what is left, or below `number`.
        void ShortenUp(std::uint64_t number) noexcept {
            const std::uint32_t ways = up.distance / down.distance;
            up.distance -= ways * down.distance;
            up.turns += ways * down.turns;
            const std::uint64_t end = std::max(number, std::uint64_t{down.distance} + up.distance);
            if (place >= end) {
                const auto gone = static_cast<std::uint32_t>((place - end) / down.distance + 1);
                place -= gone * down.distance;
                turns += gone * down.turns;
            }
        }
    };

    /// After how many turns of step_ backwards round the circle a number is first below `number`;
    /// `most` or more where that takes longer, or never happens.
    std::uint64_t
    TurnsBelow(std::uint64_t number, std::uint32_t place, std::uint64_t most) const noexcept {
        const auto step = static_cast<std::uint32_t>(step_ & (circle_ - 1));
        Fall fall{place, 0, {step, 1}, {static_cast<std::uint32_t>(circle_ - step), 1}};
        while (fall.place >= number && fall.turns < most) {
            if (fall.down.distance == 0 || fall.up.distance == 0) {
                return most;
            }
            if (fall.down.distance >= fall.up.distance) {
                fall.ShortenDown();
            } else {
                fall.ShortenUp(number);
            }
        }
        return fall.turns;
    }

    std::uint32_t distance_;
    std::uint32_t common_;        ///< power of two in both, the value and the distance
    std::uint32_t stride_;        ///< of so many lines one can have a rest of a series
    std::uint32_t inverse_;       ///< of the odd factor of the distance
    std::uint32_t step_;          ///< from line to line, in distances of a series
    std::uint32_t strideFactor_;  ///< the inverse of step_, where there is a stride
    std::uint64_t circle_;        ///< numbers round it
};
