#include "Money.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr unsigned kBase = 10;

char Digit(std::uint64_t value) {
    return static_cast<char>(value % kBase);
}

}  // namespace

Money Money::Of(std::uint32_t amount, int exponent) {
    Money money;
    if (exponent > 0) {
        money.digits_.assign(static_cast<std::size_t>(exponent), '\0');
    } else {
        money.decimals_ = static_cast<std::size_t>(-exponent);
    }
    for (std::uint32_t rest = amount; rest != 0; rest /= kBase) {
        money.digits_ += Digit(rest);
    }
    money.Normalize();
    return money;
}

std::optional<Money> Money::Parse(const std::string& text) {
    const std::size_t point = text.find('.');
    const std::string fraction = point == std::string::npos ? "" : text.substr(point + 1);
    const std::string whole = text.substr(0, point);
    const std::string all = whole + fraction;
    const bool onlyDigits = all.find_first_not_of("0123456789") == std::string::npos;
    if (whole.empty() || !onlyDigits || (point != std::string::npos && fraction.empty())) {
        return std::nullopt;
    }
    Money money;
    std::transform(all.rbegin(), all.rend(), std::back_inserter(money.digits_),
                   [](char digit) { return static_cast<char>(digit - '0'); });
    money.decimals_ = fraction.size();
    money.Normalize();
    return money;
}

Money& Money::operator+=(const Money& other) {
    Money addend = other;
    Money& fewer = decimals_ < addend.decimals_ ? *this : addend;
    const std::size_t decimals = std::max(decimals_, addend.decimals_);
    fewer.digits_.insert(0, decimals - fewer.decimals_, '\0');
    fewer.decimals_ = decimals;

    const std::size_t places = std::max(digits_.size(), addend.digits_.size()) + 1;
    digits_.resize(places, '\0');
    addend.digits_.resize(places, '\0');
    unsigned carry = 0;
    for (std::size_t place = 0; place < places; ++place) {
        carry +=
            static_cast<unsigned>(digits_[place]) + static_cast<unsigned>(addend.digits_[place]);
        digits_[place] = Digit(carry);
        carry /= kBase;
    }
    Normalize();
    return *this;
}

Money Money::Times(std::uint32_t count) const {
    Money product = *this;
    std::uint64_t carry = 0;
    for (char& digit : product.digits_) {
        carry += std::uint64_t{count} * static_cast<unsigned>(digit);
        digit = Digit(carry);
        carry /= kBase;
    }
    for (; carry != 0; carry /= kBase) {
        product.digits_ += Digit(carry);
    }
    product.Normalize();
    return product;
}

int Money::Compare(const Money& other) const {
    const std::size_t decimals = std::max(decimals_, other.decimals_);
    const std::size_t shift = decimals - decimals_;
    const std::size_t otherShift = decimals - other.decimals_;
    for (std::size_t place = std::max(digits_.size() + shift, other.digits_.size() + otherShift);
         place-- > 0;) {
        const char mine = place < shift ? '\0' : DigitAt(place - shift);
        const char theirs = place < otherShift ? '\0' : other.DigitAt(place - otherShift);
        if (mine != theirs) {
            return mine - theirs;
        }
    }
    return 0;
}

std::optional<std::uint32_t> Money::In(int exponent) const {
    // Of digits_, the place of the unit.
    const auto unit = static_cast<std::ptrdiff_t>(decimals_) + exponent;
    const auto size = static_cast<std::ptrdiff_t>(digits_.size());
    std::uint64_t count = 0;
    for (std::ptrdiff_t place = size; place-- > std::min<std::ptrdiff_t>(unit, 0);) {
        const char digit = place < 0 ? '\0' : DigitAt(static_cast<std::size_t>(place));
        if (place < unit && digit != '\0') {
            return std::nullopt;
        }
        count = place < unit ? count : count * kBase + static_cast<unsigned>(digit);
        if (count > UINT32_MAX) {
            return std::nullopt;
        }
    }
    return static_cast<std::uint32_t>(count);
}

std::string Money::Text(unsigned atLeastDecimals) const {
    const std::size_t decimals = std::max<std::size_t>(decimals_, atLeastDecimals);
    const std::size_t shift = decimals - decimals_;
    std::string text;
    for (std::size_t place = std::max(digits_.size() + shift, decimals + 1); place-- > 0;) {
        text += static_cast<char>('0' + (place < shift ? '\0' : DigitAt(place - shift)));
        if (place == decimals && place != 0) {
            text += '.';
        }
    }
    return text;
}

void Money::Normalize() {
    const std::size_t highest = digits_.find_last_not_of('\0');
    digits_.resize(highest == std::string::npos ? 0 : highest + 1);
    if (digits_.empty()) {
        decimals_ = 0;
        return;
    }
    const std::size_t surplus = std::min(digits_.find_first_not_of('\0'), decimals_);
    digits_.erase(0, surplus);
    decimals_ -= surplus;
}

char Money::DigitAt(std::size_t place) const {
    return place < digits_.size() ? digits_[place] : '\0';
}

}  // namespace qxmix
