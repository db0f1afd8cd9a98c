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

}  // namespace

Json ExplainJson(const MixQuestions& questions, const Explanation& story) {
    const Dispenser& dispenser = questions.dispenser;
    Json json = ResultJson(dispenser, story.answer);
    Json units = Json::array();
    for (const Unit& unit : story.units.All()) {
        units.push_back(UnitJson(dispenser, unit));
    }
    json["units"] = units;
    json["decidedBy"] = NameOf(story.decidedBy);
    json.update(AroundJson(story.around));
    return json;
}

}  // namespace qxmix
