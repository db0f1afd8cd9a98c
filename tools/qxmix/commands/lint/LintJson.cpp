#include "LintForms.h"

#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "sweeps/RangeJson.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

Json AmountsJson(const std::optional<LintAmounts>& amounts) {
    if (!amounts) {
        return nullptr;
    }
    return {{"count", amounts->count}, {"of", amounts->of}, {"first", amounts->first}};
}

}  // namespace

Json LintInputJson(const LintCases& cases) {
    const LintCase& lint = cases.front();
    Json json = {{"dispenser", DispenserJson(lint.TheDispenser())},
                 {"mixes", lint.questions.mixes}};
    if (!lint.IsOneOfSeveral()) {
        json.update(RangeJson(lint.questions));
    } else {
        for (const LintCase& one : cases) {
            json["currencies"].push_back(RangeOfCurrencyJson(one.questions));
        }
    }
    json["slow"] = DurationText(lint.slow);
    json["deadline"] = DurationText(lint.questions.deadline);
    return json;
}

Json LintResultJson(const std::vector<LintFinding>& findings) {
    Json list = Json::array();
    for (const LintFinding& finding : findings) {
        Json json = FindingJson(finding);
        json["amounts"] = AmountsJson(finding.amounts);
        json["cures"] = finding.cures;
        if (finding.accepted) {
            json["accepted"] = *finding.accepted;
        }
        list.push_back(json);
    }
    return {{"findings", list}};
}

}  // namespace qxmix
