#include "CompareForms.h"

#include "answers/ResultJson.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

Json SideJson(const Dispenser& dispenser,
              std::uint32_t amount,
              std::uint16_t mix,
              const MapCell& cell) {
    Json side = {{"mix", mix}};
    side.update(ResultJson(dispenser, AnswerOf(dispenser, amount, mix, cell)));
    return side;
}

}  // namespace

Json CompareInputJson(const CompareQuestions& questions) {
    return {
        {"a", {{"dispenser", DispenserJson(questions.a.dispenser)}, {"mixes", questions.a.mixes}}},
        {"b", {{"dispenser", DispenserJson(questions.b.dispenser)}, {"mixes", questions.b.mixes}}},
        {"from", questions.a.from},
        {"to", questions.a.to},
        {"step", questions.a.step},
        {"deadline", DurationText(questions.a.deadline)}};
}

Json CompareResultJson(const CompareQuestions& questions, const CompareAnswers& answers) {
    Json differences = Json::array();
    for (const CompareDifference& one : answers.differences) {
        differences.push_back(
            {{"amount", one.amount},
             {"mix", one.mixA},
             {"change", NameOf(one.change)},
             {"a", SideJson(questions.a.dispenser, one.amount, one.mixA, one.a)},
             {"b", SideJson(questions.b.dispenser, one.amount, one.mixB, one.b)}});
    }
    Json result = Json::object();
    for (const Change change : {Change::Same, Change::Lost, Change::Gained, Change::Other}) {
        result[NameOf(change)] = answers.Count(change);
    }
    result["differences"] = differences;
    result["danger"] = answers.Count(Change::Danger);
    result["sameDangers"] = answers.sameDangers;
    return result;
}

}  // namespace qxmix
