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

/// The mixes that keep the unit of a cassette, but count less in it than the cassette alone holds.
std::vector<std::uint16_t> MixesThatMiscount(const LintCase& lint, std::size_t cassette) {
    const std::uint32_t count = lint.TheDispenser().cassettes[cassette].count;
    return MixesWhere(lint, [cassette, count](const LintMix& mix) {
        return std::any_of(mix.kept.begin(), mix.kept.end(), [&](const Unit& unit) {
            return unit.counted < count &&
                   std::count(unit.cassettes.begin(), unit.cassettes.end(), cassette) != 0;
        });
    });
}

/// Whether some mix draws from cassettes of this type.
bool IsDrawnFrom(const LintCase& lint, std::size_t cassette) {
    return MixesThatDrop(lint, cassette, Dropped::Type).size() < lint.mixes.size();
}

/// Whether the value of a cassette counts units of the amount, and not of the currency.
bool IsUnscaled(const LintCase& lint, const Cassette& cassette) {
    return lint.TheDispenser().exponent < 0 && Contains(kCoinTypes, cassette.type);
}

/// The first cassette that holds the same note under another type, so that one type would make
/// both one unit.
std::optional<std::size_t> OtherType(const LintCase& lint, std::size_t index) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    const Cassette& cassette = cassettes[index];
    for (std::size_t other = 0; other < index; ++other) {
        const Cassette& before = cassettes[other];
        if (before.currency == cassette.currency && before.value == cassette.value &&
            before.Worth() == cassette.Worth() && before.type != cassette.type &&
            IsUnscaled(lint, before) == IsUnscaled(lint, cassette) && IsDrawnFrom(lint, other) &&
            IsDrawnFrom(lint, index)) {
            return other;
        }
    }
    return std::nullopt;
}

/// Whether the positions are those from 0 on, each once.
bool CanBeSorted(const std::vector<Cassette>& cassettes) {
    std::set<std::size_t> positions;
    for (const Cassette& cassette : cassettes) {
        positions.insert(cassette.position);
    }
    return positions.size() == cassettes.size() && *positions.rbegin() + 1 == cassettes.size();
}

}  // namespace

void CheckPositionOrder(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    const char* const advice = CanBeSorted(cassettes) ? "" : "use 0 to 5 once each, from 0 on";
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
                            : ", the remainder does not count them"),
                   std::nullopt, advice);
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
        const auto other = OtherType(lint, index);
        if (other && lint.TellsOf(cassettes[index])) {
            report.Add(CassettePointer(index, "type"),
                       NoteText(cassettes[index]) + " is " +
                           TypeNames().Text(cassettes[index].type) + " here, " +
                           TypeNames().Text(cassettes[*other].type) + " in cassette " +
                           std::to_string(*other) + ": two units instead of one");
        }
    }
}

void CheckCurrencies(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    const bool areAll =
        std::all_of(cassettes.begin(), cassettes.end(),
                    [&lint](const Cassette& cassette) { return IsForeign(lint, cassette); });
    if (areAll) {
        report.Become(Severity::Error);
    }
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        if (IsForeign(lint, cassettes[index]) && (areAll || lint.TellsOf(cassettes[index]))) {
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
        if (!lint.TellsOf(cassette)) {
            continue;
        }
        report.Add(CassettePointer(index, "type"),
                   TypeNames().Text(cassette.type) + " is never drawn from",
                   MixesThatDrop(lint, index, Dropped::Type));
        if (AsSigned(cassette.count) < 0) {
            const std::string count = std::to_string(cassette.count);
            report.Add(CassettePointer(index, "count"),
                       count + " reads as negative: never drawn from",
                       MixesThatDrop(lint, index, Dropped::Count));
            report.Add(CassettePointer(index, "count"),
                       count + " wraps with what the others of its unit hold: its unit counts less",
                       MixesThatMiscount(lint, index));
        }
        if (cassette.value == 0 && !Contains(SetOf(CashUnitType::CouponCassette), cassette.type)) {
            report.Add(CassettePointer(index, "value"), "worth nothing: never drawn from");
        }
    }
}

}  // namespace qxmix
