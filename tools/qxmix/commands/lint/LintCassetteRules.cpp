#include "CashUnitCodes.h"
#include "LintRules.h"
#include "Numbers.h"
#include "dispenser/UnitNames.h"

#include <algorithm>

namespace qxmix {

namespace {

bool IsForeign(const LintCase& lint, const Cassette& cassette) {
    return cassette.currency != lint.TheDispenser().currency;
}

/// The first cassette that holds the same note under another type.
std::optional<std::size_t> OtherType(const std::vector<Cassette>& cassettes, std::size_t index) {
    const Cassette& cassette = cassettes[index];
    for (std::size_t other = 0; other < index; ++other) {
        const Cassette& before = cassettes[other];
        if (before.currency == cassette.currency && before.value == cassette.value &&
            before.type != cassette.type) {
            return other;
        }
    }
    return std::nullopt;
}

/// The mixes that pass the unit of a cassette over for this reason.
std::vector<std::uint16_t>
MixesThatDrop(const LintCase& lint, std::size_t cassette, Dropped reason) {
    return MixesWhere(lint, [cassette, reason](const LintMix& mix) {
        const std::vector<Unit>& units = mix.units.All();
        return std::any_of(units.begin(), units.end(), [cassette, reason](const Unit& unit) {
            return unit.dropped == reason &&
                   std::count(unit.cassettes.begin(), unit.cassettes.end(), cassette) != 0;
        });
    });
}

}  // namespace

void CheckPositionOrder(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        const std::size_t position = cassettes[index].position;
        if (position == index || position >= kMaxCashUnits) {
            continue;
        }
        const std::string slot = std::to_string(position);
        report.Add(CassettePointer(index, "position"),
                   "items go to slot " + slot +
                       (position < cassettes.size()
                            ? ", the remainder counts them at cassette " + slot + "'s value"
                            : ", the remainder does not count them"));
    }
}

void CheckPositionUse(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        const std::uint16_t position = cassettes[index].position;
        const auto end = cassettes.begin() + static_cast<std::ptrdiff_t>(index);
        const bool isTaken =
            std::any_of(cassettes.begin(), end,
                        [position](const Cassette& before) { return before.position == position; });
        const std::string pointer = CassettePointer(index, "position");
        if (position >= kMaxCashUnits) {
            report.Add(pointer, "there is no slot " + std::to_string(position) +
                                    ": it never receives an item");
        } else if (isTaken) {
            report.Add(pointer, "slot " + std::to_string(position) +
                                    " is written twice, the later replaces");
        }
    }
}

void CheckTypesOfOneNote(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        if (const auto other = OtherType(cassettes, index)) {
            report.Add(CassettePointer(index, "type"),
                       std::to_string(cassettes[index].value) + " " + cassettes[index].currency +
                           " is " + TypeNames().Text(cassettes[index].type) + " here, " +
                           TypeNames().Text(cassettes[*other].type) + " in cassette " +
                           std::to_string(*other) + ": two units instead of one");
        }
    }
}

void CheckCurrencies(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    if (std::all_of(cassettes.begin(), cassettes.end(),
                    [&lint](const Cassette& cassette) { return IsForeign(lint, cassette); })) {
        report.Raise(Severity::Error);
    }
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        if (IsForeign(lint, cassettes[index])) {
            report.Add(CassettePointer(index, "currency"), cassettes[index].currency + " is not " +
                                                               lint.TheDispenser().currency +
                                                               ": passed over in silence");
        }
    }
}

void CheckDrawable(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        const Cassette& cassette = cassettes[index];
        report.Add(CassettePointer(index, "type"),
                   TypeNames().Text(cassette.type) + " is never drawn from",
                   MixesThatDrop(lint, index, Dropped::Type));
        if (AsSigned(cassette.count) < 0) {
            report.Add(CassettePointer(index, "count"),
                       std::to_string(cassette.count) + " reads as negative: never drawn from",
                       MixesWhere(lint, [](const LintMix& mix) { return mix.mix != 9; }));
        }
        if (cassette.value == 0 && !Contains(SetOf(CashUnitType::CouponCassette), cassette.type)) {
            report.Add(CassettePointer(index, "value"), "worth nothing: never drawn from");
        }
    }
}

}  // namespace qxmix
