#include "Judgement.h"

#include "CashUnitCodes.h"
#include "ResultCodes.h"

#include <algorithm>

namespace qxmix {

namespace {

/// Hands the items of each slot to the cassette that has this position: the first one if a careless
/// file has several. Items of a slot that no cassette has are taken where nothing is held.
void AssignItems(const Dispenser& dispenser, const MixResult& result, Judgement& judgement) {
    for (unsigned slot = 0; slot < kMaxCashUnits; ++slot) {
        const auto owner =
            std::find_if(dispenser.cassettes.begin(), dispenser.cassettes.end(),
                         [slot](const Cassette& cassette) { return cassette.position == slot; });
        const std::uint32_t items = result.aulNotes[slot];
        if (owner == dispenser.cassettes.end()) {
            judgement.notes += items;
            judgement.isHeld = judgement.isHeld && items == 0;
        } else {
            judgement.taken[static_cast<std::size_t>(owner - dispenser.cassettes.begin())] = items;
        }
    }
}

void AddUp(const Dispenser& dispenser, Judgement& judgement) {
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        const std::uint32_t taken = judgement.taken[index];
        judgement.paid += cassette.Worth().Times(taken);
        (Contains(kCoinTypes, cassette.type) ? judgement.coins : judgement.notes) += taken;
        judgement.isHeld = judgement.isHeld && taken <= cassette.count;
    }
}

Outcome OutcomeOfRefusal(std::int32_t returned) {
    switch (returned) {
    case kInvalidMixNumber:
        return Outcome::InvalidMixNumber;
    case kNotDispensable:
        return Outcome::NotDispensable;
    case kTooManyItems:
        return Outcome::TooManyItems;
    case kInvalidCashUnit:
        return Outcome::TooManyUnits;
    default:
        return Outcome::Failed;
    }
}

Outcome OutcomeOfSuccess(const Judgement& judgement, bool isOverdrawn) {
    if (judgement.paid > judgement.asked) {
        return Outcome::Overpaid;
    }
    if (isOverdrawn) {
        return Outcome::Overdrawn;
    }
    if (judgement.paid == judgement.asked) {
        return Outcome::Paid;
    }
    return judgement.paid.IsZero() ? Outcome::NothingPaid : Outcome::PaidInPart;
}

}  // namespace

Judgement Judge(const Dispenser& dispenser, std::uint32_t amount, const Reply& reply) {
    Judgement judgement;
    judgement.asked = AskedMoney(dispenser, amount);
    if (reply.ending.kind != Ending::Kind::Answered) {
        judgement.outcome =
            reply.ending.kind == Ending::Kind::Crashed ? Outcome::Crashed : Outcome::NoAnswer;
        judgement.isProved = reply.ending.kind == Ending::Kind::Endless;
        return judgement;
    }
    AssignItems(dispenser, reply.calculation.result, judgement);
    AddUp(dispenser, judgement);
    const std::int32_t returned = reply.calculation.returned;
    const std::uint64_t limit = dispenser.maxDispenseItems;
    const bool isOverdrawn =
        !judgement.isHeld || judgement.notes > limit || judgement.coins > limit;
    judgement.outcome = returned == kSuccess ? OutcomeOfSuccess(judgement, isOverdrawn)
                                             : OutcomeOfRefusal(returned);
    return judgement;
}

}  // namespace qxmix
