#include "AskOptions.h"

#include "CommonOptions.h"
#include "MixChoice.h"
#include "MixList.h"
#include "dispenser/ReadableMoney.h"
#include "errors/Errors.h"
#include "json/JsonFields.h"
#include "mixes/MixTraits.h"
#include "text/ParseWhole.h"

#include <CLI/App.hpp>
#include <algorithm>

namespace qxmix {

namespace {

std::string ParseCurrency(const std::string& text) {
    if (!IsCurrency(text)) {
        throw InputError("--currency: " + NotAllowed(text, kCurrencyExpected));
    }
    return text;
}

}  // namespace

void AskOptions::ApplyTo(Dispenser& dispenser) const {
    dispenser.currency = currency.value_or(dispenser.currency);
    dispenser.exponent = exponent.value_or(dispenser.exponent);
    dispenser.maxDispenseItems = limit.value_or(dispenser.maxDispenseItems);
    dispenser.partial = partial.value_or(dispenser.partial);
}

bool AskOptions::AnyGiven() const {
    return currency || exponent || limit || partial || !mix.empty() || !mixes.empty();
}

std::vector<std::uint16_t> AskOptions::Mixes(const Dispenser& dispenser) const {
    if (!mix.empty() && !mixes.empty()) {
        throw InputError("--mixes: given beside --mix; expected one of them");
    }
    if (!mixes.empty()) {
        return ParseMixList(mixes, "--mixes");
    }
    if (mix == "all") {
        return AllMixes();
    }
    if (mix.empty()) {
        return {dispenser.MixOrDefault()};
    }
    const auto number = ParseWhole<std::uint16_t>(mix);
    if (!number || *number < kFirstMix || *number > kLastMix) {
        throw InputError("--mix: " + NotAllowed(mix, RangeText(kFirstMix, kLastMix) + " or all"));
    }
    return {*number};
}

std::vector<std::uint16_t> AskOptions::MixesOrAll(const Dispenser& dispenser) const {
    return mix.empty() && mixes.empty() ? AllMixes() : Mixes(dispenser);
}

void AddAskOptions(CLI::App& command, AskOptions& options) {
    AddAskOptions(command, options, MixChoice::Several);
}

void AddAskOptions(CLI::App& command, AskOptions& options, MixChoice choice) {
    command
        .add_option_function<std::string>(
            "--currency",
            [&options](const std::string& text) { options.currency = ParseCurrency(text); },
            "currency of the amount")
        ->type_name("CUR");
    AddWholeOption(
        command, "--exponent", INT16_MIN, INT16_MAX,
        [&options](std::int64_t number) { options.exponent = static_cast<std::int16_t>(number); },
        "amounts are in units of 10 to this power");
    AddWholeOption(
        command, "--limit", 0, UINT16_MAX,
        [&options](std::int64_t number) { options.limit = static_cast<std::uint16_t>(number); },
        "most notes, and most coins, of one dispense");
    command.add_flag_function(
        "--partial,!--no-partial",
        [&options](std::int64_t count) {
            // Each counts against the other.
            if (count == 0) {
                throw InputError("--no-partial: given beside --partial; expected one of them");
            }
            options.partial = count > 0;
        },
        "pay what is there when the amount is out of reach, or do not");
    const bool isOne = choice == MixChoice::One;
    command.add_option("--mix", options.mix, isOne ? "mix to ask" : "mix to ask, or all")
        ->type_name("N");
    CLI::Option* const mixes =
        command.add_option("--mixes", options.mixes, "mixes to ask, such as 1,3-5, or all")
            ->type_name("LIST");
    if (isOne) {
        mixes->group("");  // known, so that its error says what to write instead
    }
}

void DescribeCurrencyOfEach(CLI::App& command) {
    command.get_option("--currency")
        ->description("currency of the amounts; without it all that the dispenser has");
}

std::uint32_t
ParseAmount(const std::string& text, const std::string& option, const Dispenser& dispenser) {
    if (const auto amount = ParseWhole<std::uint32_t>(text)) {
        return *amount;
    }
    const std::string unit =
        ReadableText(Money::Of(1, dispenser.exponent)) + " " + dispenser.currency;
    const std::optional<Money> money = Money::Parse(text);
    if (!money || text.find('.') == std::string::npos) {
        throw InputError(option + ": " +
                         NotAllowed(text, RangeText(0, UINT32_MAX) + " in units of " + unit));
    }
    const auto instead = dispenser.exponent < 0 ? money->In(dispenser.exponent) : std::nullopt;
    throw InputError(option + ": " + text + " is not a whole number; " +
                     (instead ? "in units of " + unit + " write " + std::to_string(*instead)
                              : "expected whole units of " + unit));
}

}  // namespace qxmix
