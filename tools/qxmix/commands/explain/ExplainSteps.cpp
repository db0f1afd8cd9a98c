#include "ExplainForms.h"

#include "CashUnitCodes.h"
#include "amounts/MixText.h"
#include "dispenser/ReadableMoney.h"
#include "terminal/Table.h"
#include "text/Duration.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

using Align = Table::Align;

constexpr std::size_t kNameWidth = 13;
constexpr std::size_t kWhatWidth = 35;
constexpr std::size_t kWidestWhat = 48;

/// The steps of one calculation in their order, ending with the one that decided.
class Steps {
public:
    Steps(const MixQuestions& questions, const Explanation& story)
        : questions_(questions), story_(story), kept_(story.units.Kept()) {}

    std::string Text() {
        for (const auto& [step, add] : kAll) {
            const bool decides = step == story_.decidedBy;
            (this->*add)(decides);
            if (decides) {
                break;
            }
        }
        return table_.Text(Painter(ColorMode::Never));
    }

private:
    struct Step {
        DecidedBy step;
        void (Steps::*add)(bool decides);
    };
    static const Step kAll[8];

    void Add(const std::string& name, const std::string& what, const std::string& verdict) {
        table_.AddRow({name, what, verdict});
    }

    std::string Refused(bool decides) const { return decides ? "refused here" : "passed"; }

    std::string Text(const Money& money) const {
        return ReadableText(money, AmountDecimals(questions_.dispenser));
    }

    std::string ValueText(std::uint32_t value) const {
        return Text(SearchedMoney(questions_.dispenser, value));
    }

    std::string AmountText() const { return ValueText(story_.units.Amount()); }

    /// The amount as the mix searches for it.
    std::string SoughtText() const { return ValueText(story_.sought); }

    void AddAmount(bool decides) {
        const Money asked = AskedMoney(questions_.dispenser, questions_.amount);
        const Money searched = SearchedMoney(questions_.dispenser, story_.units.Amount());
        if (asked.Compare(searched) != 0) {
            Add("amount", Text(asked) + " is read as " + Text(searched),
                decides ? "wrapped here" : "wrapped");
        }
    }

    void AddNoUnits(bool decides) {
        if (decides) {
            Add("units", "none of them serves", "refused here");
        }
    }

    void AddSmallestNote(bool decides) {
        const auto smallest = story_.units.ValueToReach();
        if (!smallest) {
            Add("smallest note", "not asked by mix " + std::to_string(story_.answer.mix),
                "skipped");
        } else {
            Add("smallest note",
                ValueText(*smallest) + ": " + AmountText() +
                    (decides ? " is below it" : " is not below it"),
                decides ? "ends here" : "passed");
        }
    }

    void AddCapacity(bool decides) {
        Money total;
        for (const Unit& unit : kept_) {
            total += SearchedMoney(questions_.dispenser, unit.searched).Times(unit.counted);
        }
        const bool isLowered = story_.IsLowered();
        Add("capacity",
            Text(total) + " " + questions_.dispenser.currency + " counted: " +
                (isLowered ? "the amount is lowered"
                 : decides ? "too little"
                           : "enough"),
            !isLowered ? Refused(decides)
            : decides  ? "paid in part"
                       : "lowered");
    }

    void AddUnitCount(bool decides) {
        if (decides) {
            Add("units", std::to_string(kept_.size()) + " different notes: at most five",
                "refused here");
        }
    }

    void AddSearch(bool decides) {
        const Answer& answer = story_.answer;
        if (answer.isProved) {
            AddSearched("goes round for ever", "never ends");
        } else if (answer.outcome == Outcome::NoAnswer) {
            AddSearched("no end within " + DurationWords(questions_.deadline), "given up");
        } else if (answer.outcome == Outcome::Crashed) {
            AddSearched("the module crashed", "crashed here");
        } else if (!decides) {
            AddSearched("adds up to " + SoughtText(), "passed");
        } else if (answer.IsDangerous()) {
            AddSearched(Text(answer.paid) + " for " + SoughtText(), "wrong here");
        } else if (story_.answer.returned == 0) {
            AddSearched("only " + Text(answer.paid) + " adds up", "paid in part");
        } else if (story_.HasWorthlessUnit()) {
            AddSearched("nothing can be divided by 0", "refused here");
        } else {
            AddSearched(
                (story_.around.payers.empty() ? "nothing adds up to " : "nothing found for ") +
                    SoughtText(),
                "refused here");
        }
    }

    /// The values in the order of the search, as many as fit, and what came of them.
    void AddSearched(const std::string& what, const std::string& verdict) {
        std::vector<std::string> values;
        for (const Unit& unit : kept_) {
            values.push_back(ValueText(unit.searched));
        }
        std::string order = Join(values, ", ");
        while (order.size() + 2 + what.size() > kWidestWhat && values.size() > 1) {
            values.pop_back();
            order = Join(values, ", ") + ", ...";
        }
        Add("search", order + ": " + what, verdict);
    }

    void AddLimit(bool decides) {
        const std::string limit = std::to_string(questions_.dispenser.maxDispenseItems);
        if (story_.taken.empty()) {
            Add("limit", "at most " + limit, Refused(decides));
            return;
        }
        if (decides && story_.answer.returned == 0) {
            Add("limit", "the whole takes more than " + limit, "paid in part");
            return;
        }
        const bool passes = story_.units.PassesLimit(story_.taken);
        Add("limit", ItemsText() + ": " + (passes ? "not more than " : "more than ") + limit,
            Refused(decides));
    }

    /// "5 notes", or "5 notes, 2 coins"
    std::string ItemsText() const {
        std::uint64_t notes = 0;
        std::uint64_t coins = 0;
        for (const Unit& unit : kept_) {
            (Contains(kCoinTypes, unit.type) ? coins : notes) += story_.taken[unit.order];
        }
        return std::to_string(notes) + (notes == 1 ? " note" : " notes") +
               (coins == 0   ? ""
                : coins == 1 ? ", 1 coin"
                             : ", " + std::to_string(coins) + " coins");
    }

    void AddSpreading(bool) {
        for (const Unit& unit : kept_) {
            const std::uint32_t taken = story_.taken.empty() ? 0 : story_.taken[unit.order];
            const std::uint32_t given = story_.given[unit.order];
            if (taken > given) {
                Add("spreading",
                    NameText(unit) + ": " + std::to_string(given) + " of " + std::to_string(taken) +
                        " given",
                    "short here");
            } else if (taken != 0 && unit.cassettes.size() > 1) {
                Add("spreading", NameText(unit) + ": " + SharesText(unit), "passed");
            }
        }
    }

    std::string NameText(const Unit& unit) const {
        const Cassette& first = questions_.dispenser.cassettes[unit.cassettes.front()];
        return first.Worth().ShortText() + " " + first.currency;
    }

    /// "2 from C, 1 from D"
    std::string SharesText(const Unit& unit) const {
        std::vector<std::string> shares;
        for (const std::size_t cassette : unit.cassettes) {
            const std::uint32_t share = story_.answer.taken[cassette];
            if (share != 0) {
                shares.push_back(std::to_string(share) + " from " +
                                 Printable(CassetteLabel(questions_.dispenser, cassette)));
            }
        }
        return CutToColumns(Join(shares, ", "), kWidestWhat - NameText(unit).size() - 2);
    }

    const MixQuestions& questions_;
    const Explanation& story_;
    std::vector<Unit> kept_;
    Table table_{{{Align::Left, 1, kNameWidth}, {Align::Left, 3, kWhatWidth}, {Align::Left, 2, 0}}};
};

const Steps::Step Steps::kAll[8] = {
    {DecidedBy::Amount, &Steps::AddAmount},
    {DecidedBy::NoUnits, &Steps::AddNoUnits},
    {DecidedBy::SmallestNote, &Steps::AddSmallestNote},
    {DecidedBy::Capacity, &Steps::AddCapacity},
    {DecidedBy::UnitCount, &Steps::AddUnitCount},
    {DecidedBy::Search, &Steps::AddSearch},
    {DecidedBy::Limit, &Steps::AddLimit},
    {DecidedBy::Spreading, &Steps::AddSpreading},
};

/// What the module said: "-306 not dispensable, error code 971A2, nothing taken".
std::string AnswerText(const Answer& answer) {
    if (!answer.IsAnswered()) {
        return "none";
    }
    const std::string code = answer.code.empty() ? "no error code"
                                                 : "error code " + Printable(answer.code) +
                                                       (answer.returned == 0 ? " left" : "");
    const std::string returned =
        std::to_string(answer.returned) + " " + ReturnedText(answer.returned);
    return returned + ", " + code + (answer.Items() == 0 ? ", nothing taken" : "") +
           (answer.returned == 0 ? ", remainder " + RemainderText(answer.remainder) : "");
}

}  // namespace

std::string StepsText(const MixQuestions& questions, const Explanation& story) {
    return Steps(questions, story).Text() + " answer" + std::string(kNameWidth - 3, ' ') +
           AnswerText(story.answer) + "\n";
}

}  // namespace qxmix
