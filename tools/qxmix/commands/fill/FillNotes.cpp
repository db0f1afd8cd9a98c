#include "FillNotes.h"

#include "CashUnitCodes.h"
#include "FillLoading.h"
#include "text/ParseWhole.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace qxmix {

namespace {

constexpr CodeSet kNoteTypes = SetOf(CashUnitType::BillCassette, CashUnitType::RecyclingCassette);

/// Larger tables of amounts are not made; nothing is known of the notes then.
constexpr std::uint32_t kMostUnits = 1000000;

using Group = std::vector<std::size_t>;  // places of cassettes that differ in nothing but that
using Values = std::vector<std::uint32_t>;

bool TakesOtherNotes(const Dispenser& dispenser, const Cassette& cassette) {
    return IsLoaded(dispenser, cassette) && Contains(kNoteTypes, cassette.type) && !cassette.worth;
}

bool AreEqual(const Cassette& left, const Cassette& right) {
    const auto traits = [](const Cassette& cassette) {
        return std::make_tuple(cassette.type, cassette.capacity, cassette.bundle,
                               cassette.lowThreshold, cassette.emptyThreshold);
    };
    return traits(left) == traits(right);
}

std::vector<Group> GroupsOf(const Dispenser& dispenser) {
    std::vector<Group> groups;
    for (std::size_t place = 0; place < dispenser.cassettes.size(); ++place) {
        const Cassette& cassette = dispenser.cassettes[place];
        if (!TakesOtherNotes(dispenser, cassette)) {
            continue;
        }
        const auto equal = std::find_if(groups.begin(), groups.end(), [&](const Group& group) {
            return AreEqual(dispenser.cassettes[group.front()], cassette);
        });
        if (equal == groups.end()) {
            groups.push_back({place});
        } else {
            equal->push_back(place);
        }
    }
    return groups;
}

/// Adds the list with each note behind it that is no larger than its last one.
void AddLonger(const Values& set, const Values& notes, std::vector<Values>& longer) {
    for (const std::uint32_t note : notes) {
        if (set.empty() || note <= set.back()) {
            longer.push_back(set);
            longer.back().push_back(note);
        }
    }
}

/// All lists of so many notes, the largest first in each, without regard to their order.
std::vector<Values> MultisetsOf(const Values& notes, std::size_t count) {
    std::vector<Values> sets = {{}};
    for (std::size_t place = 0; place < count; ++place) {
        std::vector<Values> longer;
        for (const Values& set : sets) {
            AddLonger(set, notes, longer);
        }
        sets = std::move(longer);
    }
    return sets;
}

/// Gives a group its notes: each cassette keeps its own if it is among them, the others get what is
/// left, from the largest on.
void Give(Dispenser& dispenser, const Group& group, Values notes) {
    Group others;
    for (const std::size_t place : group) {
        const auto kept = std::find(notes.begin(), notes.end(), dispenser.cassettes[place].value);
        if (kept == notes.end()) {
            others.push_back(place);
        } else {
            notes.erase(kept);
        }
    }
    for (std::size_t index = 0; index < others.size(); ++index) {
        dispenser.cassettes[others[index]].value = notes[index];
    }
}

std::size_t ChangesOf(const Dispenser& before, const Dispenser& after) {
    std::size_t changes = 0;
    for (std::size_t place = 0; place < before.cassettes.size(); ++place) {
        changes += before.cassettes[place].value != after.cassettes[place].value ? 1 : 0;
    }
    return changes;
}

/// Amounts that notes of some values make with no more of them than a limit.
class PayableAmounts {
public:
    PayableAmounts(const Values& values, std::uint32_t most, std::uint32_t limit)
        : fewest_(std::size_t{most} + 1, limit + 1), limit_(limit) {
        fewest_[0] = 0;
        for (std::size_t amount = 1; amount < fewest_.size(); ++amount) {
            for (const std::uint32_t value : values) {
                if (value <= amount) {
                    fewest_[amount] =
                        std::min(fewest_[amount], std::min(limit, fewest_[amount - value]) + 1);
                }
            }
        }
    }

    bool Has(std::uint32_t amount) const { return fewest_[amount] <= limit_; }

private:
    std::vector<std::uint32_t> fewest_;
    std::uint32_t limit_;
};

/// Whether so many withdrawals of enough runs are payable as have to be served.
template <typename IsPayable>
bool EnoughArePayable(const FillQuestions& questions,
                      const RunDemands& demands,
                      const IsPayable& isPayable) {
    std::size_t misses = 0;
    for (const auto& demand : demands) {
        const std::vector<Withdrawal>& asked = demand->withdrawals;
        const auto unpayable = static_cast<std::uint64_t>(
            std::count_if(asked.begin(), asked.end(), [&](const Withdrawal& withdrawal) {
                return !isPayable(withdrawal.amount);
            }));
        misses += unpayable > questions.service.MostUnserved(asked.size()) ? 1 : 0;
    }
    return misses <= questions.MostMisses();
}

}  // namespace

std::optional<Values> ParseNotes(const std::string& text) {
    Values notes;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const auto note = ParseWhole<std::uint32_t>(text.substr(begin, end - begin));
        if (!note || *note == 0 || std::count(notes.begin(), notes.end(), *note) > 0) {
            return std::nullopt;
        }
        notes.push_back(*note);
        begin = end + 1;
    }
    std::sort(notes.rbegin(), notes.rend());
    return notes;
}

std::string NoteListWord(const Values& notes) {
    std::string list;
    for (const std::uint32_t note : notes) {
        list += (list.empty() ? "" : ",") + std::to_string(note);
    }
    return list;
}

std::uint64_t NoteChoiceCount(const Dispenser& dispenser, const Values& notes) {
    std::uint64_t count = 0;
    for (const Group& group : GroupsOf(dispenser)) {
        // As many multisets as there are ways to pick from a longer list.
        std::uint64_t sets = 1;
        for (std::size_t place = 1; place <= group.size(); ++place) {
            sets = sets * (notes.size() + place - 1) / place;
            if (sets > kMostChoices) {
                return kMostChoices + 1;
            }
        }
        count = std::min(std::max<std::uint64_t>(count, 1) * sets, kMostChoices + 1);
    }
    return count;
}

std::vector<Dispenser> NoteChoices(const Dispenser& dispenser, const Values& notes) {
    std::vector<Dispenser> choices = {dispenser};
    for (const Group& group : GroupsOf(dispenser)) {
        std::vector<Dispenser> more;
        for (const Dispenser& choice : choices) {
            for (const Values& set : MultisetsOf(notes, group.size())) {
                more.push_back(choice);
                Give(more.back(), group, set);
            }
        }
        choices = std::move(more);
    }
    std::stable_sort(choices.begin(), choices.end(),
                     [&dispenser](const Dispenser& left, const Dispenser& right) {
                         return ChangesOf(dispenser, left) < ChangesOf(dispenser, right);
                     });
    return choices;
}

bool CanServe(const FillQuestions& questions,
              const RunDemands& demands,
              const Dispenser& dispenser) {
    const int unit = std::min<int>(dispenser.exponent, 0);
    Values values;
    bool hasOthers = false;
    for (const Cassette& cassette : dispenser.cassettes) {
        if (cassette.currency == dispenser.currency && !cassette.Worth().IsZero()) {
            const std::optional<std::uint32_t> value = cassette.Worth().In(unit);
            hasOthers = hasOthers || !Contains(kNoteTypes, cassette.type);
            if (!value) {
                return true;
            }
            values.push_back(*value);
        }
    }
    std::uint32_t most = 0;
    const auto amountIn = [&](std::uint32_t amount) {
        return AskedMoney(dispenser, amount).In(unit).value_or(kMostUnits + 1);
    };
    for (const auto& demand : demands) {
        for (const Withdrawal& withdrawal : demand->withdrawals) {
            most = std::max(most, amountIn(withdrawal.amount));
        }
    }
    if (most > kMostUnits) {
        return true;
    }
    // Notes and coins are held to the limit apart.
    const std::uint32_t limit = dispenser.maxDispenseItems * (hasOthers ? 2U : 1U);
    const PayableAmounts payable(values, most, limit);
    return EnoughArePayable(questions, demands,
                            [&](std::uint32_t amount) { return payable.Has(amountIn(amount)); });
}

}  // namespace qxmix
