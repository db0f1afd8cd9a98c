#include "CashUnitCodes.h"
#include "LintRules.h"
#include "dispenser/UnitNames.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr CodeSet kCountsButGivesNothing = SetOf(CashUnitStatus::Full, CashUnitStatus::High);
constexpr CodeSet kUnusable = StatusRange(CashUnitStatus::Empty, CashUnitStatus::NoReference);
constexpr std::uint16_t kLastStatus = static_cast<std::uint16_t>(CashUnitStatus::Manipulated);

/// A manipulated cassette, or one of a status that nobody knows.
bool IsSuspect(const Cassette& cassette) {
    return cassette.status >= kLastStatus;
}

/// The unit of a cassette, if this mix draws from it.
const Unit* KeptUnitOf(const LintMix& mix, std::size_t cassette) {
    for (const Unit& unit : mix.kept) {
        if (std::count(unit.cassettes.begin(), unit.cassettes.end(), cassette) != 0) {
            return &unit;
        }
    }
    return nullptr;
}

/// The mixes that draw from the unit of a cassette.
///
/// @param onlyFirst  those of whose unit it is the first cassette.
std::vector<std::uint16_t>
MixesThatKeep(const LintCase& lint, std::size_t cassette, bool onlyFirst) {
    return MixesWhere(lint, [cassette, onlyFirst](const LintMix& mix) {
        const Unit* const unit = KeptUnitOf(mix, cassette);
        return unit != nullptr && (!onlyFirst || unit->cassettes.front() == cassette);
    });
}

/// "20 EUR is empty"
std::string StatusText(const Cassette& cassette) {
    return NoteText(cassette) + " is " + (cassette.status > kLastStatus ? "of status " : "") +
           StatusNames().Text(cassette.status);
}

/// What a coupon that is worth nothing makes of every amount.
std::string RefusalText(const LintMix& mix) {
    if (mix.kept.front().value == 0 && mix.Traits().refusesInSilence) {
        return "every amount is refused, without a code";
    }
    return mix.kept.size() > mix.Traits().mostUnits ? "every amount is refused with -315"
                                                    : "every amount is refused, code 971A2";
}

/// Mixes by what they have in common.
using MixGroups = std::map<std::string, std::vector<std::uint16_t>>;

MixGroups RefusalsOf(const LintCase& lint, std::size_t coupon) {
    MixGroups groups;
    for (const LintMix& mix : lint.mixes) {
        const Unit* const unit = KeptUnitOf(mix, coupon);
        if (unit != nullptr && unit->cassettes.front() == coupon) {
            groups[RefusalText(mix)].push_back(mix.mix);
        }
    }
    return groups;
}

/// Why a mix passes over a unit that another mix would draw from; empty: it does not.
std::string PassedOverText(const LintMix& mix, const Unit& unit) {
    const bool isLow = unit.status == static_cast<std::uint16_t>(CashUnitStatus::Low);
    if (mix.Traits().passesOverLow && unit.dropped == Dropped::Status && isLow) {
        return "it is low";
    }
    if (unit.dropped == Dropped::Minimum) {
        return "it counts " + std::to_string(unit.counted) + ", the minimum is " +
               std::to_string(mix.units.Minimum());
    }
    return "";
}

}  // namespace

void CheckFullCassettes(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        const Cassette& cassette = cassettes[index];
        if (Contains(kCountsButGivesNothing, cassette.status) && cassette.count > 0) {
            report.Add(CassettePointer(index, "status"),
                       StatusText(cassette) + ": its " + std::to_string(cassette.count) +
                           " are counted, not given",
                       MixesThatKeep(lint, index, false));
        }
    }
}

void CheckManipulatedCassettes(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        const Cassette& cassette = cassettes[index];
        if (IsSuspect(cassette) && cassette.count > 0) {
            report.Add(CassettePointer(index, "status"),
                       StatusText(cassette) + ": its " + std::to_string(cassette.count) +
                           " are counted, never given",
                       MixesThatKeep(lint, index, true));
        }
    }
}

void CheckUnusableFirstCassettes(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        const Cassette& cassette = cassettes[index];
        if (Contains(kUnusable, cassette.status) && cassette.count > 0) {
            report.Add(CassettePointer(index, "count"),
                       StatusText(cassette) + ", but being first its " +
                           std::to_string(cassette.count) + " count",
                       MixesThatKeep(lint, index, true));
        }
    }
}

void CheckWorthlessCoupons(const LintCase& lint, LintReport& report) {
    const std::vector<Cassette>& cassettes = lint.TheDispenser().cassettes;
    for (std::size_t index = 0; index < cassettes.size(); ++index) {
        if (cassettes[index].value != 0) {
            continue;
        }
        for (const auto& [refusal, mixes] : RefusalsOf(lint, index)) {
            report.Add(CassettePointer(index, "value"), "worth nothing: " + refusal, mixes);
        }
    }
}

void CheckUnitsPassedOver(const LintCase& lint, LintReport& report) {
    for (std::size_t place = 0; place < lint.mixes.front().units.All().size(); ++place) {
        MixGroups groups;
        for (const LintMix& mix : lint.mixes) {
            groups[PassedOverText(mix, mix.units.All()[place])].push_back(mix.mix);
        }
        groups.erase("");
        const std::size_t first = lint.mixes.front().units.All()[place].cassettes.front();
        const Cassette& cassette = lint.TheDispenser().cassettes[first];
        if (cassette.currency != lint.TheDispenser().currency) {
            continue;  // no filling would help
        }
        const std::string note = NoteText(cassette);
        for (const auto& [reason, mixes] : groups) {
            const bool isLow = reason == "it is low";
            report.Add(CassettePointer(first, isLow ? "status" : "count"),
                       note + " is passed over: " + reason, mixes, isLow ? "refill" : "");
        }
    }
}

void CheckUnitCount(const LintCase& lint, LintReport& report) {
    for (const LintMix& mix : lint.mixes) {
        const auto refused = AnswersWhere(lint, mix, [](const LintAnswer& answer) {
            return answer.cell.outcome == Outcome::TooManyUnits;
        });
        LintAnswersText text;
        text.before = "six different notes: mix " + std::to_string(mix.mix) +
                      " returns -315, no cassette fault,";
        text.pointer = "/cassettes";
        text.tell = [&lint](const LintAnswer& answer) { return AmountText(lint, answer.amount); };
        report.AddAnswers(mix, refused, text);
    }
}

}  // namespace qxmix
