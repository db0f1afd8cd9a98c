#include "TerminalLife.h"

#include <algorithm>

namespace property {
namespace {

constexpr std::uint32_t kNotes[] = {5, 10, 20, 50, 100, 200};
constexpr std::uint16_t kFaults[] = {5, 6, 7, 8, 9};  // inoperative to manipulated
constexpr std::uint16_t kLow = 3;
constexpr std::uint16_t kEmpty = 4;
constexpr std::uint32_t kLowThreshold = 60;

}  // namespace

TerminalLife::TerminalLife(std::uint64_t seed) : draw_(seed, 0) {
    for (Cassette& cassette : cassettes_) {
        cassette.value = draw_.Pick(kNotes);
        Load(cassette);
    }
}

TerminalLife::Morning TerminalLife::BeginDay() {
    for (Cassette& cassette : cassettes_) {
        if (cassette.count < kLowThreshold ? draw_.Percent(40) : draw_.Percent(3)) {
            Load(cassette);
        }
        if (cassette.fault != 0) {
            cassette.fault = draw_.Percent(50) ? 0 : cassette.fault;
        } else if (draw_.Percent(3)) {
            cassette.fault = draw_.Pick(kFaults);
        }
    }
    if (draw_.Percent(20)) {
        mix_ = static_cast<std::uint16_t>(draw_.Between(1, reference::kLastMix));
        limit_ = static_cast<std::uint16_t>(draw_.Between(20, 60));
        partial_ = draw_.Percent(20);
    }
    Morning morning;
    morning.restarts = draw_.Percent(25);
    morning.minimum = draw_.Percent(50) ? 100 : draw_.Below(400);
    morning.failingCall = draw_.Percent(30) ? draw_.Between(1, 6) : 0;
    return morning;
}

RandomCase TerminalLife::NextCustomer() {
    RandomCase customer;
    customer.request.Mix(mix_).Limit(limit_).Partial(partial_ ? 1 : 0);
    for (const Cassette& cassette : cassettes_) {
        customer.request.Bill(cassette.value, cassette.count, StatusOf(cassette));
    }
    customer.request.Amount(draw_.Percent(90) ? 10 * draw_.Between(2, 50) : draw_.Below(1000));
    return customer;
}

void TerminalLife::Dispense(const std::uint8_t* result) {
    for (std::size_t place = 0; place < cassettes_.size(); ++place) {
        // First fit may name more than there is: then the cassette is empty.
        std::uint32_t& count = cassettes_[place].count;
        count -= std::min(count, reference::ReadU32(result + 4 * place));
    }
}

std::uint64_t TerminalLife::Held() const {
    std::uint64_t held = 0;
    for (const Cassette& cassette : cassettes_) {
        held += std::uint64_t{cassette.value} * cassette.count;
    }
    return held;
}

void TerminalLife::Load(Cassette& cassette) {
    const std::uint32_t items = 100 * draw_.Between(1, 20);
    cassette.count += items;
    loaded_ += std::uint64_t{cassette.value} * items;
}

std::uint16_t TerminalLife::StatusOf(const Cassette& cassette) {
    return cassette.fault != 0              ? cassette.fault
           : cassette.count == 0            ? kEmpty
           : cassette.count < kLowThreshold ? kLow
                                            : 0;
}

}  // namespace property
