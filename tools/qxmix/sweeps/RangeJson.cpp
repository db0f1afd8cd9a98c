#include "RangeJson.h"

#include "json/Json.h"

namespace qxmix {

Json RangeJson(const MapQuestions& questions) {
    return {{"from", questions.from}, {"to", questions.to}, {"step", questions.step}};
}

Json RangeOfCurrencyJson(const MapQuestions& questions) {
    Json json = {{"currency", questions.dispenser.currency}};
    json.update(RangeJson(questions));
    return json;
}

}  // namespace qxmix
