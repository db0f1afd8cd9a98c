#include "LintAccept.h"

#include "files/InputFile.h"
#include "findings/RuleTexts.h"
#include "json/Json.h"
#include "json/JsonText.h"

#include <algorithm>

namespace qxmix {

namespace {

/// What makes a finding the same as an earlier one; its message tells numbers that may change.
std::string KeyOf(const std::string& id,
                  const std::string& mix,
                  const std::string& pointer,
                  const std::string& currency) {
    return id + " " + mix + " " + pointer + " " + currency;
}

std::string KeyOf(const LintFinding& finding, const std::string& currency) {
    return KeyOf(finding.id, finding.mix ? std::to_string(*finding.mix) : "", finding.pointer,
                 currency);
}

std::string TextAt(const Json& object, const char* name) {
    const auto field = object.find(name);
    return field == object.end() || field->is_null() ? ""
           : field->is_string()                      ? field->get<std::string>()
                                                     : field->dump();
}

std::set<std::string> KeysOf(const Json& element) {
    std::set<std::string> keys;
    const auto findings = element.find("findings");
    if (findings != element.end() && findings->is_array()) {
        for (const Json& finding : *findings) {
            if (finding.is_object()) {
                keys.insert(KeyOf(TextAt(finding, "id"), TextAt(finding, "mix"),
                                  TextAt(finding, "pointer"), TextAt(finding, "currency")));
            }
        }
    }
    return keys;
}

}  // namespace

void AcceptFindings(const Dispenser& dispenser, std::vector<LintFinding>& findings) {
    for (const auto& [id, reason] : dispenser.accepted) {
        bool isFound = false;
        for (LintFinding& finding : findings) {
            if (finding.id == id) {
                finding.accepted = reason;
                isFound = true;
            }
        }
        if (!isFound) {
            LintFinding note;
            static_cast<Finding&>(note) =
                FindingOf(kNoLongerFound, id + " is accepted, and no longer found: " + reason);
            note.pointer = "/lint/accept/" + id;
            findings.push_back(note);
        }
    }
}

LintBaseline::LintBaseline(const std::string& file, bool isMany) {
    if (file.empty()) {
        return;
    }
    const InputFile input = ReadInput(file);
    const Json answer = ParseJson(input.content, input.name);
    const Json none = Json::object();
    const bool isLint = answer.is_object() && TextAt(answer, "command") == "lint" &&
                        answer.contains("result") && answer["result"].is_object();
    const Json& result = isLint ? answer["result"] : none;
    if (!result.contains("findings") && !result.contains("dispensers")) {
        throw InputError("--baseline: " + input.name +
                         " is no answer of lint; expected what --json gave");
    }
    isOfMany_ = result.contains("dispensers");
    if (isMany && !isOfMany_) {
        throw InputError("--baseline: " + input.name +
                         " is of one dispenser; expected the answer of a run over many");
    }
    if (!isOfMany_) {
        known_[""] = KeysOf(result);
        return;
    }
    for (const Json& element : result["dispensers"]) {
        if (element.is_object()) {
            known_[TextAt(element, "file")] = KeysOf(element);
        }
    }
}

void LintBaseline::Accept(const std::string& dispenser,
                          const std::string& currency,
                          std::vector<LintFinding>& findings) const {
    const auto known = known_.find(isOfMany_ ? dispenser : "");
    if (known == known_.end()) {
        return;
    }
    const auto has = [&known](const LintFinding& finding, const std::string& told) {
        return known->second.count(KeyOf(finding, told)) != 0;
    };
    for (LintFinding& finding : findings) {
        const bool isOwn = finding.currency.empty() || finding.currency == currency;
        const bool isKnown =
            isOwn ? has(finding, "") || has(finding, currency) : has(finding, finding.currency);
        if (isKnown && !finding.accepted) {
            finding.accepted = "found before";
        }
    }
}

}  // namespace qxmix
