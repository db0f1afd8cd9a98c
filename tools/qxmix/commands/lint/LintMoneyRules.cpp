#include "CashUnitCodes.h"
#include "LintRules.h"
#include "dispenser/ReadableMoney.h"
#include "options/MixList.h"

namespace qxmix {

namespace {

bool IsCoin(const Cassette& cassette) {
    return Contains(kCoinTypes, cassette.type);
}

/// "0.01 CHF"
std::string UnitText(const Dispenser& dispenser) {
    return ReadableText(AskedMoney(dispenser, 1)) + " " + dispenser.currency;
}

/// Whether a number scaled by a power of ten is beyond 32 bits; by a negative one it never is.
bool Wraps(std::uint32_t number, int power) {
    return Money::Of(number, power) > Money::Of(UINT32_MAX, 0);
}

std::string WrapText(std::uint32_t number, int power) {
    return std::to_string(number) + " times 10^" + std::to_string(power) + " wraps at 2^32";
}

bool Rescales(const LintMix& mix) {
    return mix.Traits().rescalesNotes;
}

}  // namespace

void CheckRemainderUnits(const LintCase& lint, LintReport& report) {
    const Dispenser& dispenser = lint.TheDispenser();
    if (dispenser.exponent < 0) {
        report.Add("/exponent", "the remainder subtracts whole " + dispenser.currency +
                                    " from units of " + UnitText(dispenser));
    }
}

void CheckUnscaledNotes(const LintCase& lint, LintReport& report) {
    const Dispenser& dispenser = lint.TheDispenser();
    if (dispenser.exponent < 0) {
        const std::vector<std::uint16_t> unscaled = MixesWithout(&MixTraits::rescalesNotes);
        report.Add("/exponent",
                   MixesText(unscaled) +
                       (unscaled.size() == 1 ? " does not rescale notes: it pays"
                                             : " do not rescale notes: they pay") +
                       " 10^" + std::to_string(-dispenser.exponent) + " times as much",
                   MixesWhere(lint, [](const LintMix& mix) { return !Rescales(mix); }));
    }
}

void CheckCoinWorth(const LintCase& lint, LintReport& report) {
    const Dispenser& dispenser = lint.TheDispenser();
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        if (dispenser.exponent < 0 && IsCoin(cassette) && !cassette.worth &&
            lint.TellsOf(cassette)) {
            report.Add(CassettePointer(index, "value"),
                       "a coin without worth: the search counts it as " +
                           std::to_string(cassette.value) + " units of " + UnitText(dispenser));
        }
    }
}

void CheckWrappedAmounts(const LintCase& lint, LintReport& report) {
    const Dispenser& dispenser = lint.TheDispenser();
    const int exponent = dispenser.exponent;
    const std::uint32_t most = *AmountsWithDefaults(dispenser).max;
    if (Wraps(most, exponent)) {
        report.Add(AmountsPointer(dispenser) + "/max",
                   WrapText(most, exponent) + ": another amount is paid");
    }
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        if (!IsCoin(cassette) && Wraps(cassette.value, -exponent) && lint.TellsOf(cassette)) {
            report.Add(CassettePointer(index, "value"),
                       WrapText(cassette.value, -exponent) + ": another amount is paid",
                       MixesWhere(lint, Rescales));
        }
    }
}

void CheckPartialRemainder(const LintCase& lint, LintReport& report) {
    if (lint.TheDispenser().partial) {
        report.Add("/partial", "remainder 0 can mean a reduced amount");
    }
}

}  // namespace qxmix
