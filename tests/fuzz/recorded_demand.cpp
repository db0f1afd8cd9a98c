// A recorded list of withdrawals: refused in one line, or read in order; and read the same again
// when it is written out plainly.
#include "Expect.h"
#include "FuzzInput.h"
#include "demand/RecordedDemand.h"
#include "errors/Errors.h"
#include "sheets/SheetText.h"

namespace {

using fuzz::Expect;

qxmix::Demand Read(const std::string& text, const qxmix::Dispenser& dispenser) {
    return qxmix::ReadRecordedDemand("f", text, dispenser, qxmix::RecordedSheet());
}

std::string Plain(const qxmix::Demand& demand) {
    std::string text = "time,amount,currency\n";
    for (const qxmix::Withdrawal& withdrawal : demand.withdrawals) {
        text += demand.calendar.Text(withdrawal.time) + "," + std::to_string(withdrawal.amount) +
                "," + demand.currencies[withdrawal.currency] + "\n";
    }
    return text;
}

void ExpectOrder(const qxmix::Demand& demand) {
    std::int64_t last = 0;
    for (const qxmix::Withdrawal& withdrawal : demand.withdrawals) {
        Expect(withdrawal.time >= last, "in order, from the first midnight on");
        last = withdrawal.time;
    }
}

/// Whether the years can be read again: another offset can make them 0 or 10000.
bool HasFourDigits(const qxmix::Demand& demand) {
    const std::string first = demand.calendar.Text(demand.withdrawals.front().time);
    const std::string last = demand.calendar.Text(demand.withdrawals.back().time);
    return first.compare(0, 5, "0000-") != 0 && last.compare(0, 6, "10000-") != 0;
}

void ExpectSame(const qxmix::Demand& demand, const qxmix::Demand& again) {
    Expect(demand.withdrawals.size() == again.withdrawals.size(), "as many withdrawals");
    for (std::size_t place = 0; place < demand.withdrawals.size(); ++place) {
        const qxmix::Withdrawal& one = demand.withdrawals[place];
        const qxmix::Withdrawal& other = again.withdrawals[place];
        Expect(one.time - one.time % 60 == other.time, "the same minute");
        Expect(one.amount == other.amount, "the same amount");
        Expect(demand.currencies[one.currency] == again.currencies[other.currency],
               "the same currency");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    // The first byte says what the amounts of the dispenser count.
    static constexpr std::int16_t exponents[] = {0, -2, -3, 3};
    qxmix::Dispenser dispenser;
    dispenser.currency = "EUR";
    dispenser.exponent = exponents[bytes[0] % 4];
    const std::string content(reinterpret_cast<const char*>(bytes) + 1, size - 1);
    qxmix::Demand demand;
    try {
        demand = Read(qxmix::SheetText({"f", content}), dispenser);
    } catch (const qxmix::InputError&) {
        return 0;  // the only way to be refused; everything else ends the process
    }
    ExpectOrder(demand);
    if (HasFourDigits(demand)) {
        ExpectSame(demand, Read(Plain(demand), dispenser));
    }
    return 0;
}
