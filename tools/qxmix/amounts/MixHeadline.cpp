#include "MixText.h"

#include "dispenser/ReadableMoney.h"
#include "options/MixList.h"
#include "text/Duration.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

/// "280 of 280 EUR with 5 items (limit 40)"
std::string PaidText(const MixQuestions& questions, const Answer& answer) {
    const std::uint64_t items = answer.Items();
    return ReadableText(answer.paid, AmountDecimals(questions.dispenser)) + " of " +
           AskedText(questions) + " with " + std::to_string(items) +
           (items == 1 ? " item" : " items") + " (limit " +
           std::to_string(questions.dispenser.maxDispenseItems) + ")";
}

std::string RefusalText(const Answer& answer) {
    switch (answer.outcome) {
    case Outcome::InvalidMixNumber:
        return "no such mix";
    case Outcome::TooManyItems:
        return "too many items";
    case Outcome::TooManyUnits:
        return "more than five different notes";
    case Outcome::NotDispensable:
        return "not dispensable";
    default:
        return "the module returned " + std::to_string(answer.returned);
    }
}

struct Headline {
    std::string word;
    std::string rest;
};

Headline HeadlineOf(const MixQuestions& questions, const Answer& answer) {
    const std::string mix = "mix " + std::to_string(answer.mix);
    const std::string paid = PaidText(questions, answer) + ", " + mix;
    switch (answer.outcome) {
    case Outcome::NoAnswer:
        if (answer.isProved) {
            return {"NEVER ANSWERS", AskedText(questions) + ", " + mix};
        }
        return {"NO ANSWER", "within " + DurationWords(questions.deadline) + " for " +
                                 AskedText(questions) + ", " + mix};
    case Outcome::Crashed:
        return {"CRASHED", "with " + answer.crash + " on " + AskedText(questions) + ", " + mix};
    case Outcome::Overpaid:
    case Outcome::Overdrawn:
        return {"DANGER", "pays " + paid};
    case Outcome::Paid:
        return {"PAID", paid};
    case Outcome::PaidInPart:
        return {"PAID IN PART", paid};
    case Outcome::NothingPaid:
        return {"NOTHING PAID", "of " + AskedText(questions) + ", " + mix};
    default:
        return {"REFUSED", AskedText(questions) + " with " + mix + ": " + RefusalText(answer)};
    }
}

std::vector<std::string>
MixesWith(const MixAnswers& answers, Outcome outcome, bool isProved = false) {
    std::vector<std::string> mixes;
    for (const Answer& answer : answers.answers) {
        if (answer.outcome == outcome && answer.isProved == isProved) {
            mixes.push_back(std::to_string(answer.mix));
        }
    }
    return mixes;
}

/// "mix 4 pays more than asked, mixes 8 9 give no answer"; empty when no mix is to be feared.
std::string DangersText(const MixAnswers& answers) {
    struct Danger {
        Outcome outcome;
        bool isProved;
        const char* one;
        const char* several;
    };
    static const Danger dangers[] = {
        {Outcome::NoAnswer, true, "never answers", "never answer"},
        {Outcome::NoAnswer, false, "gives no answer", "give no answer"},
        {Outcome::Crashed, false, "crashes", "crash"},
        {Outcome::Overpaid, false, "pays more than asked", "pay more than asked"},
        {Outcome::Overdrawn, false, "takes more than allowed", "take more than allowed"},
    };
    std::vector<std::string> parts;
    for (const Danger& danger : dangers) {
        const std::vector<std::string> mixes = MixesWith(answers, danger.outcome, danger.isProved);
        if (!mixes.empty()) {
            const bool isOne = mixes.size() == 1;
            parts.push_back((isOne ? "mix " : "mixes ") + Join(mixes, " ") + " " +
                            (isOne ? danger.one : danger.several));
        }
    }
    return Join(parts, ", ");
}

/// "by mix 3", "by all 10 mixes", "by 8 of 10 mixes", "by any of 10 mixes"
std::string PayersText(const MixAnswers& answers, std::size_t paid) {
    const std::size_t all = answers.answers.size();
    if (all == 1) {
        return "by mix " + std::to_string(answers.answers.front().mix);
    }
    if (paid == all) {
        return "by " + AllMixesText(all);
    }
    return "by " + (paid == 0 ? "any" : std::to_string(paid)) + " of " + std::to_string(all) +
           " mixes";
}

}  // namespace

std::string AskedText(const MixQuestions& questions) {
    const Money asked = AskedMoney(questions.dispenser, questions.amount);
    return ReadableText(asked, AmountDecimals(questions.dispenser)) + " " +
           questions.dispenser.currency;
}

std::string
MixHeadline(const MixQuestions& questions, const Answer& answer, const Painter& painter) {
    const Headline headline = HeadlineOf(questions, answer);
    return painter.Paint(headline.word, RowOf(answer.outcome).terminalStyle) + "  " + headline.rest;
}

std::string
MixListHeadline(const MixQuestions& questions, const MixAnswers& answers, const Painter& painter) {
    const std::string asked = AskedText(questions);
    const std::string dangers = DangersText(answers);
    if (!dangers.empty()) {
        const bool onlyCrashes =
            std::none_of(answers.answers.begin(), answers.answers.end(),
                         [](const Answer& answer) { return answer.IsDangerous(); });
        return painter.Paint(onlyCrashes ? "CRASH" : "DANGER",
                             RowOf(Outcome::Overpaid).terminalStyle) +
               "  " + dangers + " for " + asked;
    }
    const std::size_t paid = MixesWith(answers, Outcome::Paid).size();
    if (paid == 0) {
        return painter.Paint("NOT PAID", RowOf(Outcome::NotDispensable).terminalStyle) + "  " +
               asked + " " + PayersText(answers, paid);
    }
    const std::string amount = asked.substr(0, asked.find(' '));
    return painter.Paint("PAID", RowOf(Outcome::Paid).terminalStyle) + "  " + amount + " of " +
           asked + " " + PayersText(answers, paid);
}

}  // namespace qxmix
