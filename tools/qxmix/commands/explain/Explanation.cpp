#include "Explanation.h"

#include "ResultCodes.h"
#include "units/SearchedItems.h"

#include <algorithm>

namespace qxmix {

namespace {

/// What the units hold together, as they count.
Money Counted(const Dispenser& dispenser, const Units& units) {
    Money total;
    for (const Unit& unit : units.Kept()) {
        total += SearchedMoney(dispenser, unit.searched).Times(unit.counted);
    }
    return total;
}

/// Asks the module again, in other words.
class SecondQuestions {
public:
    SecondQuestions(const MixQuestions& questions, const Units& units, Asker& asker)
        : questions_(questions), units_(units), asker_(asker) {}

    /// @param sought  the amount that was searched for.
    bool IsPaidWithoutLimit(std::uint32_t sought) const {
        MixRequest request = questions_.requests.front();
        request.usMaxDispenseItems = kNoLimit;
        Dispenser dispenser = questions_.dispenser;
        dispenser.maxDispenseItems = kNoLimit;
        const Answer answer = AskSilently(asker_, dispenser, request, kSideDeadline);
        return answer.outcome == Outcome::Paid || (answer.outcome == Outcome::PaidInPart &&
                                                   answer.paid == SearchedMoney(dispenser, sought));
    }

    /// Whether the units hold less than the amount. With a partial amount allowed the module lowers
    /// the amount to what they hold; where it does not answer that, the counts have to tell.
    bool IsBeyondCapacity() const {
        MixRequest request = questions_.requests.front();
        if (request.bAllowPartial == 1U) {
            return false;
        }
        request.bAllowPartial = 1;
        const Answer answer = AskSilently(asker_, questions_.dispenser, request, kSideDeadline);
        if (answer.amountAfter) {
            return *answer.amountAfter != units_.Amount();
        }
        return Counted(questions_.dispenser, units_) <
               AskedMoney(questions_.dispenser, questions_.amount);
    }

private:
    const MixQuestions& questions_;
    const Units& units_;
    Asker& asker_;
};

DecidedBy WhatRefused(const SecondQuestions& again, const Explanation& story) {
    switch (story.answer.returned) {
    case kInvalidMixNumber:
        return DecidedBy::MixNumber;
    case kTooManyItems:
        return DecidedBy::Limit;
    case kInvalidCashUnit:
        return DecidedBy::UnitCount;
    case kNotDispensable:
        return story.units.Kept().empty()               ? DecidedBy::NoUnits
               : again.IsBeyondCapacity()               ? DecidedBy::Capacity
               : again.IsPaidWithoutLimit(story.sought) ? DecidedBy::Limit
                                                        : DecidedBy::Search;
    default:
        return DecidedBy::Nothing;
    }
}

DecidedBy
WhatPaid(const MixQuestions& questions, const SecondQuestions& again, const Explanation& story) {
    const auto smallest = story.units.ValueToReach();
    if (smallest && story.units.Amount() < *smallest) {
        return DecidedBy::SmallestNote;
    }
    const Answer& answer = story.answer;
    const Money searched = SearchedMoney(questions.dispenser, story.units.Amount());
    if (!(answer.asked == searched) && answer.paid == searched) {
        return DecidedBy::Amount;
    }
    switch (answer.outcome) {
    case Outcome::Paid:
        return DecidedBy::Nothing;
    case Outcome::Overpaid:
    case Outcome::Overdrawn:
        return DecidedBy::Search;
    default:
        break;
    }
    if (!story.taken.empty() && story.taken != story.given) {
        return DecidedBy::Spreading;
    }
    return answer.paid == SearchedMoney(questions.dispenser, story.sought) ? DecidedBy::Capacity
           : again.IsPaidWithoutLimit(story.sought)                        ? DecidedBy::Limit
                                                                           : DecidedBy::Search;
}

}  // namespace

bool Explanation::HasWorthlessUnit() const {
    const std::vector<Unit> kept = units.Kept();
    return std::any_of(kept.begin(), kept.end(),
                       [](const Unit& unit) { return unit.searched == 0; });
}

const char* NameOf(DecidedBy decidedBy) {
    static const char* const names[] = {"none",         "mixNumber", "none",      "noUnits",
                                        "smallestNote", "capacity",  "unitCount", "search",
                                        "limit",        "none"};
    return names[static_cast<std::size_t>(decidedBy)];
}

Explanation Explain(const MixQuestions& questions, const Answer& answer, Asker& asker) {
    const MixRequest& request = questions.requests.front();
    Explanation story(answer, Units(request, asker.Open().minimum));
    const SecondQuestions again(questions, story.units, asker);
    story.given = GivenItems(story.units, answer);
    story.sought = answer.amountAfter.value_or(story.units.Amount());
    if (!answer.IsAnswered()) {
        story.decidedBy = DecidedBy::Search;
    } else if (answer.returned == kSuccess) {
        story.taken = SearchedItems(story.units, questions.amount, asker);
        story.decidedBy = WhatPaid(questions, again, story);
    } else {
        story.decidedBy = WhatRefused(again, story);
        if (story.decidedBy == DecidedBy::Limit) {
            story.taken = SearchedItems(story.units, questions.amount, asker, kNoLimit);
        }
    }
    story.around = AskAround(questions, answer, asker);
    return story;
}

}  // namespace qxmix
