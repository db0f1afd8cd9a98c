#include "RegistryRules.h"

#include "dispenser/StoredValues.h"
#include "findings/RuleTexts.h"
#include "mixes/MixTraits.h"
#include "module/RegistryImage.h"
#include "options/MixList.h"
#include "options/ShellWords.h"
#include "text/TextList.h"

#include <map>

namespace qxmix {

namespace {

/// @param fileName  of the registry; empty: the values stand in a dispenser file.
/// @param instead   what to write there.
std::string
SetAdvice(const std::string& fileName, const std::string& setting, const std::string& instead) {
    return fileName.empty()
               ? "write " + instead
               : "qxmix registry " + ShellWord(fileName) + " --set " + setting + " --output F";
}

/// Whether a value is text that is one decimal number and nothing else.
bool IsDecimalText(const StoredValue& value) {
    const std::optional<std::string> text = StoredText(value);
    if (!text) {
        return false;
    }
    const std::size_t start = std::min(text->find_first_not_of(' '), text->size());
    const bool hasSign = start < text->size() && ((*text)[start] == '-' || (*text)[start] == '+');
    const std::string digits = text->substr(start + (hasSign ? 1 : 0));
    return !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos;
}

Finding NoDecimalMinimum(std::uint32_t taken, const std::string& fileName) {
    Finding finding = FindingOf("QX301");
    finding.pointer = "/registry/CSTMinimum4Mix6";
    finding.message =
        "CSTMinimum4Mix6 is not a number: " +
        (taken == 0 ? MixRangesText(MixesWith(&MixTraits::keepsMinimum)) + " keep no minimum"
                    : "taken as " + std::to_string(taken));
    finding.advice = SetAdvice(fileName, "CSTMinimum4Mix6=100", "\"CSTMinimum4Mix6\": \"100\"");
    return finding;
}

Finding NoDwordLevel(std::uint32_t taken, const std::string& fileName) {
    Finding finding = FindingOf("QX303");
    finding.pointer = "/registry/TraceLevel";
    finding.message = "TraceLevel is no dword: taken as " + std::to_string(taken);
    finding.advice = SetAdvice(fileName, "TraceLevel=1", "\"TraceLevel\": 1");
    return finding;
}

Finding NoErrorCodeKey() {
    Finding finding = FindingOf("QX304");
    finding.message = "no key SOFTWARE\\ATM\\ErrorCode: error codes are lost";
    return finding;
}

Finding StaleErrorCode(const StoredValue& code) {
    Finding finding = FindingOf("QX305");
    finding.message =
        "CDM still holds " + Printable(ErrorCodeOf(code)) + " from an earlier failure";
    return finding;
}

/// A value that lies beside the key in which it is read.
void AddStoredElsewhere(const std::string& registry, std::vector<Finding>& findings) {
    for (const char* name : {kTraceLevel, kCstMinimum4Mix6, kErrorCodeName}) {
        const std::vector<std::string> keys = KeysWith(registry, name);
        if (!keys.empty() && !FindStored(registry, name)) {
            Finding finding = FindingOf("QX306");
            finding.message = std::string(name) + " lies in " + Printable(Join(keys, " and ")) +
                              ": only " + KeyOf(name) + " is read";
            findings.push_back(finding);
        }
    }
}

}  // namespace

std::vector<Finding>
CheckRegistry(const std::string& registry, const Opening& taken, const std::string& fileName) {
    std::vector<Finding> findings;
    const auto minimum = FindStored(registry, kCstMinimum4Mix6);
    if (minimum && !IsDecimalText(*minimum)) {
        findings.push_back(NoDecimalMinimum(taken.minimum, fileName));
    }
    const auto level = FindStored(registry, kTraceLevel);
    if (level && level->type != kRegDword) {
        findings.push_back(NoDwordLevel(taken.traceLevel, fileName));
    }
    if (!HasErrorCodeKey(registry)) {
        findings.push_back(NoErrorCodeKey());
    }
    const auto code = FindStored(registry, kErrorCodeName);
    if (code && !code->bytes.empty()) {
        findings.push_back(StaleErrorCode(*code));
    }
    AddStoredElsewhere(registry, findings);
    return findings;
}

std::string ErrorCodeMeaning(const std::string& code) {
    static const std::map<std::string, std::string> meanings = {
        {"971A2", "not dispensable"},
        {"971A3", "more notes than the limit"},
        {"971A4", "more coins than the limit"},
        {"971A5", "no such mix"},
        {"97194", "more than five different notes"},
    };
    const auto meaning = meanings.find(code);
    return meaning == meanings.end() ? "unknown" : meaning->second;
}

std::string ErrorCodeOf(const StoredValue& value) {
    return StoredText(value).value_or(value.bytes);
}

}  // namespace qxmix
