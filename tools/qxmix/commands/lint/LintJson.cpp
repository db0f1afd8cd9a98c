#include "LintForms.h"

#include "dispenser/DispenserJson.h"
#include "json/Json.h"
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

Json LintInputJson(const LintCase& lint) {
    return {{"dispenser", DispenserJson(lint.TheDispenser())},
            {"mixes", lint.questions.mixes},
            {"from", lint.questions.from},
            {"to", lint.questions.to},
            {"step", lint.questions.step},
            {"slow", DurationText(lint.slow)},
            {"deadline", DurationText(lint.questions.deadline)}};
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
