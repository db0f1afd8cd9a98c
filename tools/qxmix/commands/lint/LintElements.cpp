#include "LintElements.h"

namespace qxmix {

std::string LintElement::Text(const char* field) const {
    const auto value = finding.find(field);
    return value == finding.end() || !value->is_string() ? "" : value->get<std::string>();
}

std::string LintElement::Message() const {
    const std::string advice = Text("advice");
    return Text("message") + (advice.empty() ? "" : "; do: " + advice);
}

std::vector<LintElement> ElementsOf(const LintFleet& fleet, const LintFleetRow& row) {
    const Json json = Json::parse(fleet.spool.Read(row.json));
    const std::string packed = fleet.spool.Read(row.places);
    const Json places = packed.empty() ? Json::array() : Json::parse(packed);
    std::vector<LintElement> elements;
    const auto add = [&](const Json& finding, bool isError) {
        LintElement element{row, finding, isError, std::nullopt};
        const std::size_t index = elements.size();
        if (index < places.size()) {
            element.place = {places[index][0].get<std::size_t>(),
                             places[index][1].get<std::size_t>()};
        }
        elements.push_back(element);
    };
    if (!row.isAsked) {
        add(json.at("error"), true);
        return elements;
    }
    for (const Json& finding : json.at("findings")) {
        add(finding, false);
    }
    return elements;
}

}  // namespace qxmix
