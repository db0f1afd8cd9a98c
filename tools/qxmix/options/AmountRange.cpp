#include "AmountRange.h"

#include "AskOptions.h"
#include "CommonOptions.h"
#include "errors/Errors.h"
#include "json/JsonFields.h"
#include "text/ParseWhole.h"

#include <CLI/App.hpp>
#include <utility>

namespace qxmix {

void AmountRangeOptions::RequireNumbers() const {
    for (const auto& [option, text] : {std::pair{"--from: ", from}, std::pair{"--to: ", to}}) {
        if (!text.empty() && !ParseWhole<std::uint32_t>(text)) {
            throw InputError(option + NotAllowed(text, RangeText(0, UINT32_MAX)));
        }
    }
}

AmountRange AmountRangeOptions::RangeOf(const Dispenser& dispenser) const {
    const Amounts amounts = AmountsWithDefaults(dispenser);
    AmountRange range;
    range.from = from.empty() ? *amounts.min : ParseAmount(from, "--from", dispenser);
    range.to = to.empty() ? *amounts.max : ParseAmount(to, "--to", dispenser);
    range.step = step.value_or(*amounts.step);
    if (range.to < range.from && to.empty() && !from.empty()) {
        throw InputError("--from: " + NotAllowed(std::to_string(range.from),
                                                 "at most " + std::to_string(range.to) +
                                                     ", the last amount, or --to beside it"));
    }
    if (range.to < range.from) {
        throw InputError("--to: " + NotAllowed(std::to_string(range.to),
                                               std::to_string(range.from) + " or more"));
    }
    return range;
}

void AddAmountRangeOptions(CLI::App& command, AmountRangeOptions& options) {
    command.add_option("--from", options.from, "first amount; without it the dispenser's least")
        ->type_name("A");
    command.add_option("--to", options.to, "last amount; without it the dispenser's largest")
        ->type_name("A");
    AddWholeOption(
        command, "--step", 1, UINT32_MAX,
        [&options](std::int64_t number) { options.step = static_cast<std::uint32_t>(number); },
        "from one amount to the next");
}

}  // namespace qxmix
