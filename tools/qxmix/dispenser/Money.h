#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// An amount of money in whole currency units: exact, not negative, of any size and any number of
/// decimals.
class Money {
public:
    /// Zero.
    Money() = default;

    /// `amount` times 10 to the power `exponent`.
    static Money Of(std::uint32_t amount, int exponent);

    /// Reads decimal digits with at most one point between them; nothing else is accepted.
    static std::optional<Money> Parse(const std::string& text);

    Money& operator+=(const Money& other);

    Money Times(std::uint32_t count) const;

    /// Below 0, 0 or above 0 as this amount is less than, equal to or more than the other.
    int Compare(const Money& other) const;

    bool IsZero() const { return digits_.empty(); }
    bool IsWhole() const { return decimals_ == 0; }

    /// How many times 10 to the power `exponent` it is; none when that is not a whole number of 32
    /// bits.
    std::optional<std::uint32_t> In(int exponent) const;

    /// Decimal text with as many decimals as the amount needs, and never fewer than asked for.
    std::string Text(unsigned atLeastDecimals = 0) const;

    /// As Text, for people: nothing behind a whole number, cents in full.
    std::string ShortText() const { return Text(IsWhole() ? 0 : 2); }

private:
    void Normalize();
    char DigitAt(std::size_t place) const;

    std::string digits_;        // '\0' to '\9', the lowest place first, none above the highest
    std::size_t decimals_ = 0;  // how many of the places stand behind the point
};

inline bool operator<(const Money& left, const Money& right) {
    return left.Compare(right) < 0;
}
inline bool operator>(const Money& left, const Money& right) {
    return left.Compare(right) > 0;
}
inline bool operator==(const Money& left, const Money& right) {
    return left.Compare(right) == 0;
}

}  // namespace qxmix
