#include "Answer.h"

#include "CashUnitCodes.h"
#include "ResultCodes.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

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

Outcome OutcomeOfSuccess(const Dispenser& dispenser, const Answer& answer) {
    const std::uint64_t limit = dispenser.maxDispenseItems;
    if (answer.paid > answer.asked) {
        return Outcome::Overpaid;
    }
    if (!answer.isHeld || answer.notes > limit || answer.coins > limit) {
        return Outcome::Overdrawn;
    }
    if (answer.paid == answer.asked) {
        return Outcome::Paid;
    }
    return answer.paid.IsZero() ? Outcome::NothingPaid : Outcome::PaidInPart;
}

}  // namespace

void Answer::AddUp(const Dispenser& dispenser) {
    for (unsigned slot = 0; slot < kMaxCashUnits; ++slot) {
        // The first one if several cassettes of a careless file have this position; what no
        // cassette has is taken where nothing is held.
        const auto owner =
            std::find_if(dispenser.cassettes.begin(), dispenser.cassettes.end(),
                         [slot](const Cassette& cassette) { return cassette.position == slot; });
        if (owner == dispenser.cassettes.end()) {
            notes += values[slot];
            isHeld = isHeld && values[slot] == 0;
        } else {
            taken[static_cast<std::size_t>(owner - dispenser.cassettes.begin())] = values[slot];
        }
    }
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        if (taken[index] == 0) {
            continue;
        }
        paid += cassette.Worth().Times(taken[index]);
        (Contains(kCoinTypes, cassette.type) ? coins : notes) += taken[index];
        isHeld = isHeld && taken[index] <= cassette.count;
    }
}

Answer Judge(const Dispenser& dispenser, const Asking& asking, const Reply& reply) {
    Answer answer(asking);
    answer.asked = AskedMoney(dispenser, asking.amount);
    answer.code = reply.calculation.written;
    if (reply.ending.kind != Ending::Kind::Answered) {
        const bool isCrash = reply.ending.kind == Ending::Kind::Crashed;
        answer.outcome = isCrash ? Outcome::Crashed : Outcome::NoAnswer;
        answer.isProved = reply.ending.kind == Ending::Kind::Endless;
        answer.crash = reply.ending.crash;
        return answer;
    }
    const Calculation& came = reply.calculation;
    answer.returned = came.returned;
    std::copy(std::begin(came.result.aulNotes), std::end(came.result.aulNotes),
              answer.values.begin());
    answer.remainder = came.request.ulRemainder;
    answer.amountAfter = came.request.ulAmount;
    answer.took = came.took;
    answer.AddUp(dispenser);
    answer.outcome = came.returned == kSuccess ? OutcomeOfSuccess(dispenser, answer)
                                               : OutcomeOfRefusal(came.returned);
    return answer;
}

Answer AskSilently(Asker& asker,
                   const Dispenser& dispenser,
                   const MixRequest& request,
                   Milliseconds deadline) {
    return Judge(dispenser, {request.ulAmount, request.usMixNumber, deadline},
                 asker.Ask(request, deadline, Asker::Tracing::Silent));
}

}  // namespace qxmix
