#include "ExplainForms.h"

#include "amounts/MixText.h"
#include "dispenser/ReadableMoney.h"
#include "options/MixList.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

std::string AskedText(const MixQuestions& questions) {
    const Dispenser& dispenser = questions.dispenser;
    return ReadableText(AskedMoney(dispenser, questions.amount), AmountDecimals(dispenser)) + " " +
           dispenser.currency;
}

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

/// "70 = 1x50 2x10"
std::string NeighbourText(const Dispenser& dispenser, const Answer& neighbour) {
    std::vector<std::pair<std::string, std::uint64_t>> items;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const std::uint32_t taken = neighbour.taken[index];
        const std::string worth = dispenser.cassettes[index].Worth().ShortText();
        const auto same = std::find_if(items.begin(), items.end(),
                                       [&worth](const auto& item) { return item.first == worth; });
        if (same != items.end()) {
            same->second += taken;
        } else if (taken != 0) {
            items.emplace_back(worth, taken);
        }
    }
    std::string text = ReadableText(neighbour.asked, AmountDecimals(dispenser)) + " =";
    for (const auto& [worth, taken] : items) {
        text += " " + std::to_string(taken) + "x" + worth;
    }
    return text;
}

std::string NearestText(const MixQuestions& questions, const Surroundings& around) {
    if (!around.below && !around.above) {
        return "nearest   no amount near it is paid\n";
    }
    const auto side = [&questions](const std::optional<Answer>& neighbour, const char* none) {
        return neighbour ? NeighbourText(questions.dispenser, *neighbour) : std::string(none);
    };
    const std::string below = "nearest   " + side(around.below, "none below");
    const std::string above = side(around.above, "none above") + "\n";
    const bool fits = below.size() + above.size() + 8 <= kPlainWidth;
    return below + (fits ? "   and   " : "\n    and   ") + above;
}

std::string OthersText(const MixQuestions& questions, const Explanation& story) {
    const Surroundings& around = story.around;
    const bool isPaid = story.answer.outcome == Outcome::Paid;
    const std::string asked = AskedText(questions);
    const std::string amount = asked.substr(0, asked.find(' '));
    const std::string payers = around.payers.size() == std::size_t{kLastMix} - kFirstMix
                                   ? "all other mixes"
                               : around.payers.empty() ? (isPaid ? "no other mix" : "no mix")
                                                       : MixesText(around.payers);
    const bool isOne = around.payers.size() <= 1;
    std::vector<std::string> parts = {payers + (isOne ? " pays " : " pay ") + amount};
    if (!around.dangerous.empty()) {
        parts.push_back(MixesText(around.dangerous) +
                        (around.dangerous.size() == 1 ? " takes too much" : " take too much"));
    }
    if (!around.unanswered.empty()) {
        parts.push_back(MixesText(around.unanswered) +
                        (around.unanswered.size() == 1 ? " gives no answer" : " give no answer"));
    }
    const std::string line = Join(parts, "; ");
    const bool fits = line.size() + 10 <= kPlainWidth;
    return "others    " + (fits ? line : Join(parts, ";\n          ")) + "\n";
}

}  // namespace

std::string AroundText(const MixQuestions& questions, const Explanation& story) {
    const bool isPaid = story.answer.outcome == Outcome::Paid;
    return (isPaid ? "" : NearestText(questions, story.around)) + OthersText(questions, story);
}

std::string
ExplainText(const MixQuestions& questions, const Explanation& story, const Painter& painter) {
    return HeadlineText(questions, story, painter) + "\n\n" + UnitsText(questions, story, painter) +
           "\n" + StepsText(questions, story) + "\n" + AroundText(questions, story);
}

}  // namespace qxmix
