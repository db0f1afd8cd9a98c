#include "Questions.h"

#include <algorithm>
#include <utility>

namespace bench {
namespace {

constexpr std::uint32_t kNotes[] = {500, 200, 100, 50, 20, 10, 5};

/// What all units hold together.
std::uint32_t TotalHeld(const std::vector<Unit>& units) {
    std::uint32_t total = 0;
    for (const Unit& unit : units) {
        total += unit.value * unit.count;
    }
    return total;
}

std::uint32_t RealisticAmount(Drawer& draw) {
    const std::uint32_t mostFives = draw.Below(2) == 0 ? 4000 : 200;
    const std::uint32_t fives = 5 * draw.Between(1, mostFives);
    return draw.Below(3) == 0 ? fives + draw.Between(1, 4) : fives;
}

Question RealisticQuestion(Drawer& draw, const Filling& filling, std::uint16_t limit) {
    Question question{draw.Units(draw.Between(3, 5), filling), 0, limit, false};
    do {
        question.amount = RealisticAmount(draw);
    } while (question.amount > TotalHeld(question.units));  // no search is asked for more
    question.allowsPartial = draw.Below(4) == 0;
    return question;
}

}  // namespace

std::vector<Unit> Drawer::Units(unsigned number, const Filling& filling) {
    std::vector<std::uint32_t> notes(std::begin(kNotes), std::end(kNotes));
    while (notes.size() > number) {
        notes.erase(notes.begin() + Below(static_cast<std::uint32_t>(notes.size())));
    }
    std::vector<Unit> units;
    for (const std::uint32_t note : notes) {
        units.push_back({note, Between(filling.least, filling.most)});
    }
    return units;
}

QuestionSet RealisticSet(const Filling& filling, std::uint16_t limit, unsigned number) {
    QuestionSet set{std::string(filling.name) + ", limit " + std::to_string(limit), {}};
    Drawer draw(20240 + filling.most + limit);
    for (unsigned index = 0; index < number; ++index) {
        set.questions.push_back(RealisticQuestion(draw, filling, limit));
    }
    return set;
}

std::vector<QuestionSet> RealisticSets(unsigned number) {
    std::vector<QuestionSet> sets;
    for (const Filling& filling : {kFull, kNearlyEmpty}) {
        for (const std::uint16_t limit :
             {std::uint16_t{40}, std::uint16_t{60}, std::uint16_t{200}}) {
            sets.push_back(RealisticSet(filling, limit, number));
        }
    }
    return sets;
}

QuestionSet SmallAmounts(unsigned number) {
    QuestionSet set{"five cassettes, small amount", {}};
    Drawer draw(7);
    for (unsigned index = 0; index < number; ++index) {
        std::vector<Unit> units = draw.Units(5, kFull);
        set.questions.push_back({std::move(units), 5 * draw.Between(2, 100), 40, false});
    }
    return set;
}

}  // namespace bench
