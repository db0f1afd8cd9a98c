#include "ExplainForms.h"

#include "answers/ResultJson.h"
#include "dispenser/UnitNames.h"
#include "json/Json.h"

namespace qxmix {

namespace {

const char* NameOf(Dropped dropped) {
    static const char* const names[] = {"type", "status", "minimum", "count", "value", "currency"};
    return names[static_cast<std::size_t>(dropped)];
}

Json NumberOr(bool isKnown, std::uint32_t number) {
    return isKnown ? Json(number) : Json();
}

Json UnitJson(const Dispenser& dispenser, const Unit& unit) {
    const bool isKept = !unit.dropped;
    const auto status = StatusNames().Name(unit.status);
    return {{"cassettes", unit.cassettes},
            {"value", unit.value},
            {"currency", dispenser.cassettes[unit.cassettes.front()].currency},
            {"counted", NumberOr(isKept, unit.counted)},
            {"order", NumberOr(isKept, static_cast<std::uint32_t>(unit.order))},
            {"dropped", isKept ? Json() : Json(NameOf(*unit.dropped))},
            {"unitStatus", status ? Json(*status) : Json(unit.status)}};
}

Json NeighbourJson(const std::optional<Answer>& neighbour) {
    return neighbour ? Json{{"amount", neighbour->amount}, {"values", neighbour->values}} : Json();
}

}  // namespace

Json ExplainJson(const MixQuestions& questions, const Explanation& story) {
    const Dispenser& dispenser = questions.dispenser;
    Json json = ResultJson(dispenser, story.answer);
    Json units = Json::array();
    for (const Unit& unit : story.units.All()) {
        units.push_back(UnitJson(dispenser, unit));
    }
    const Surroundings& around = story.around;
    json["units"] = units;
    json["decidedBy"] = NameOf(story.decidedBy);
    json["nearest"] = {{"below", NeighbourJson(around.below)},
                       {"above", NeighbourJson(around.above)}};
    json["otherMixes"] = {{"paid", around.payers}, {"noAnswer", around.unanswered}};
    if (!around.dangerous.empty()) {
        json["otherMixes"]["tooMuch"] = around.dangerous;
    }
    return json;
}

}  // namespace qxmix
