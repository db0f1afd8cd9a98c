#include "ExplainForms.h"

#include "amounts/MixText.h"
#include "dispenser/ReadableMoney.h"

namespace qxmix {

namespace {

/// Why the amount was refused, for the first line. What another mix pays can be paid: then the
/// reason is that of this mix alone.
std::string ReasonText(const MixQuestions& questions, const Explanation& story) {
    const std::string limit = std::to_string(questions.dispenser.maxDispenseItems);
    const std::string mix = "mix " + std::to_string(story.answer.mix);
    const bool isOwn = !story.around.payers.empty();
    switch (story.decidedBy) {
    case DecidedBy::NoUnits:
        return isOwn ? mix + " uses none of the cassettes" : "no cassette serves it";
    case DecidedBy::Capacity:
        return isOwn ? "the cassettes that " + mix + " uses hold less" : "the cassettes hold less";
    case DecidedBy::UnitCount:
        return "more than five different notes";
    case DecidedBy::Limit:
        return (story.IsLowered() ? "what the cassettes hold takes more than "
                                  : mix + " takes more than ") +
               limit + (limit == "1" ? " item" : " items") + (story.IsLowered() ? "" : " for it");
    case DecidedBy::Search:
        return story.HasWorthlessUnit() ? "a cassette is worth nothing"
               : isOwn                  ? mix + " finds no combination of notes"
                                        : "no combination of notes makes it";
    default:
        return "the module returned " + std::to_string(story.answer.returned);
    }
}

/// Why less is paid than was asked, below the first line.
std::string ShortfallText(const MixQuestions& questions, const Explanation& story) {
    switch (story.decidedBy) {
    case DecidedBy::Amount:
        return "the amount wrapped at 2^32: another one is paid";
    case DecidedBy::SmallestNote:
        return "the amount is below the smallest note" +
               (story.around.payers.empty()
                    ? std::string()
                    : " that mix " + std::to_string(story.answer.mix) + " uses");
    case DecidedBy::Spreading:
        return "cassettes give less than was counted on them";
    case DecidedBy::Capacity:
        return "the cassettes hold no more";
    case DecidedBy::Limit:
        return "the whole takes more items than the limit";
    default:
        return questions.dispenser.partial
                   ? "partial amounts are allowed, and no combination makes the whole"
                   : "a success, and yet less than was asked";
    }
}

std::string
HeadlineText(const MixQuestions& questions, const Explanation& story, const Painter& painter) {
    const Answer& answer = story.answer;
    const OutcomeRow& row = RowOf(answer.outcome);
    switch (answer.outcome) {
    case Outcome::NothingPaid:
    case Outcome::PaidInPart:
        return MixHeadline(questions, answer, painter) + "\n              " +
               ShortfallText(questions, story);
    case Outcome::NotDispensable:
    case Outcome::TooManyItems:
    case Outcome::TooManyUnits:
    case Outcome::InvalidMixNumber:
    case Outcome::Failed:
        return painter.Paint("REFUSED", row.terminalStyle) + "  " + AskedText(questions) +
               " with mix " + std::to_string(answer.mix) + ": " + ReasonText(questions, story);
    default:
        return MixHeadline(questions, answer, painter);
    }
}

}  // namespace

std::string
ExplainText(const MixQuestions& questions, const Explanation& story, const Painter& painter) {
    return HeadlineText(questions, story, painter) + "\n\n" + UnitsText(questions, story, painter) +
           "\n" + StepsText(questions, story) + "\n" +
           AroundText(questions, story.answer, story.around);
}

}  // namespace qxmix
