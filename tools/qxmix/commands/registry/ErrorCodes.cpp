#include "ErrorCodes.h"

#include "dispenser/StoredValues.h"

#include <map>

namespace qxmix {

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
