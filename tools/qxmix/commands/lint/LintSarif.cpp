#include "LintAccept.h"
#include "LintElements.h"
#include "LintFleetForms.h"
#include "LintRules.h"
#include "ToolVersion.h"
#include "findings/RuleTexts.h"
#include "fleet/FleetText.h"

#include <map>

namespace qxmix {

namespace {

constexpr const char* kSchema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

/// The rules of lint, and the one about what is accepted, by id.
std::vector<RuleText> SarifRules() {
    std::vector<RuleText> rules;
    for (const RuleText& text : RuleTexts()) {
        bool isLints = std::string(text.id) == kNoLongerFound;
        for (const LintRule& rule : LintRules()) {
            isLints = isLints || std::string(rule.id) == text.id;
        }
        if (isLints) {
            rules.push_back(text);
        }
    }
    return rules;
}

std::string LevelOf(Severity severity) {
    return severity == Severity::Error     ? "error"
           : severity == Severity::Warning ? "warning"
                                           : "note";
}

Json RuleJson(const RuleText& rule) {
    const std::string advice = rule.advice;
    return {{"id", rule.id},
            {"shortDescription", {{"text", rule.found}}},
            {"help", {{"text", rule.found + (advice.empty() ? "" : ". Do: " + advice)}}},
            {"defaultConfiguration", {{"level", LevelOf(rule.severity)}}}};
}

/// The name of a file as the reference that it is in a document beside it.
std::string UriOf(const std::string& file) {
    static const char* const digits = "0123456789ABCDEF";
    static const std::string plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                     "0123456789-._~/";
    std::string uri = file.compare(0, 1, "/") == 0 ? "file://" : "";
    for (const char letter : file) {
        const auto byte = static_cast<unsigned char>(letter);
        uri += plain.find(letter) != std::string::npos
                   ? std::string(1, letter)
                   : std::string("%") + digits[byte / 16] + digits[byte % 16];
    }
    return uri;
}

Json LocationJson(const LintElement& element) {
    Json location = Json::object();
    if (element.place) {
        location["physicalLocation"] = {
            {"artifactLocation", {{"uri", UriOf(element.row.file)}}},
            {"region",
             {{"startLine", element.place->line}, {"startColumn", element.place->column}}}};
    }
    const std::string pointer = element.Text("pointer");
    const std::string name = (element.place ? "" : element.row.file) + pointer;
    if (!name.empty()) {
        location["logicalLocations"] = Json::array({{{"fullyQualifiedName", name}}});
    }
    return location;
}

Json ResultJson(const LintElement& element, const std::map<std::string, std::size_t>& indices) {
    const std::string id = element.Text("id");
    Json result = {{"ruleId", id},
                   {"ruleIndex", indices.at(id)},
                   {"level", element.Severity()},
                   {"message", {{"text", element.Message()}}},
                   {"locations", Json::array({LocationJson(element)})}};
    if (!element.finding["mix"].is_null()) {
        result["properties"]["mix"] = element.finding["mix"];
    }
    if (element.finding.contains("currency")) {
        result["properties"]["currency"] = element.finding["currency"];
    }
    if (element.IsAccepted()) {
        result["suppressions"] =
            Json::array({{{"kind", "external"}, {"justification", element.Text("accepted")}}});
    }
    return result;
}

/// The run itself: a dispenser that could not be asked is no finding, but a failure of the check.
Json InvocationJson(const LintFleet& fleet, const Envelope& envelope) {
    Json notifications = Json::array();
    for (const LintFleetRow& row : fleet.rows) {
        if (!row.isAsked) {
            const LintElement element = ElementsOf(fleet, row).front();
            notifications.push_back({{"level", "error"},
                                     {"message", {{"text", row.file + ": " + row.first}}},
                                     {"locations", Json::array({LocationJson(element)})}});
        }
    }
    return {{"executionSuccessful", fleet.isComplete && notifications.empty()},
            {"exitCode", static_cast<int>(envelope.exitStatus)},
            {"toolExecutionNotifications", notifications}};
}

}  // namespace

void WriteLintSarif(const LintFleet& fleet, const Envelope& envelope, const TakePart& take) {
    Json rules = Json::array();
    std::map<std::string, std::size_t> indices;
    for (const RuleText& rule : SarifRules()) {
        indices[rule.id] = rules.size();
        rules.push_back(RuleJson(rule));
    }
    const Json driver = {{"name", "qxmix lint"}, {"version", kToolVersion}, {"rules", rules}};
    take("{\"$schema\":\"" + std::string(kSchema) +
         "\",\"version\":\"2.1.0\",\"runs\":[{\"tool\":" + ElementText({{"driver", driver}}) +
         ",\"columnKind\":\"unicodeCodePoints\",\"invocations\":[" +
         ElementText(InvocationJson(fleet, envelope)) + "],\"results\":[");
    std::string between;
    for (const LintFleetRow& row : fleet.rows) {
        for (const LintElement& element : ElementsOf(fleet, row)) {
            if (!element.isError) {
                take(between + ElementText(ResultJson(element, indices)));
                between = ",\n";
            }
        }
    }
    take("]}]}\n");
}

}  // namespace qxmix
