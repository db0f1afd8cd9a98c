#include "JsonFields.h"

#include "Json.h"
#include "JsonText.h"
#include "errors/NearestName.h"

#include <algorithm>

namespace qxmix {

namespace {

std::size_t CharacterCount(const std::string& utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

}  // namespace

JsonFields::JsonFields(const Json& object,
                       Place place,
                       const std::vector<std::string>& known,
                       OwnFields ownFields)
    : object_(object), place_(std::move(place)) {
    if (!object.is_object()) {
        throw place_.Error(NotAllowed(DescribeJson(object), "an object"));
    }
    for (const auto& field : object.items()) {
        const std::string& name = field.key();
        const bool isOwn = ownFields == OwnFields::Skipped && name.compare(0, 2, "x-") == 0;
        if (!isOwn && std::find(known.begin(), known.end(), name) == known.end()) {
            throw place_.Below(name).Error("unknown field" + DidYouMean(name, known));
        }
    }
}

const Json* JsonFields::Find(const std::string& name) const {
    const auto field = object_.find(name);
    return field == object_.end() ? nullptr : &*field;
}

const Json& JsonFields::Required(const std::string& name, const std::string& expected) const {
    const Json* field = Find(name);
    if (field == nullptr) {
        throw place_.Below(name).Error("missing; expected " + expected);
    }
    return *field;
}

std::optional<std::int64_t>
JsonFields::Whole(const std::string& name, std::int64_t least, std::int64_t most) const {
    const Json* field = Find(name);
    if (field == nullptr) {
        return std::nullopt;
    }
    return WholeNumber(*field, place_.Below(name), least, most);
}

std::optional<std::uint16_t> JsonFields::Whole16(const std::string& name) const {
    const auto value = Whole(name, 0, UINT16_MAX);
    return value ? std::make_optional(static_cast<std::uint16_t>(*value)) : std::nullopt;
}

std::optional<std::uint32_t> JsonFields::Whole32(const std::string& name,
                                                 std::uint32_t least) const {
    const auto value = Whole(name, least, UINT32_MAX);
    return value ? std::make_optional(static_cast<std::uint32_t>(*value)) : std::nullopt;
}

std::optional<bool> JsonFields::Truth(const std::string& name) const {
    const Json* field = Find(name);
    if (field == nullptr) {
        return std::nullopt;
    }
    if (!field->is_boolean()) {
        throw place_.Below(name).Error(NotAllowed(DescribeJson(*field), "true or false"));
    }
    return field->get<bool>();
}

std::optional<std::string> JsonFields::Text(const std::string& name, std::size_t longest) const {
    const Json* field = Find(name);
    if (field == nullptr) {
        return std::nullopt;
    }
    const std::string expected = "text of at most " + std::to_string(longest) + " characters";
    if (!field->is_string()) {
        throw place_.Below(name).Error(NotAllowed(DescribeJson(*field), expected));
    }
    auto text = field->get<std::string>();
    const std::size_t length = CharacterCount(text);
    if (length > longest) {
        throw place_.Below(name).Error(std::to_string(length) + " characters; expected " +
                                       expected);
    }
    return text;
}

std::optional<std::string> JsonFields::Currency(const std::string& name) const {
    const Json* field = Find(name);
    if (field == nullptr) {
        return std::nullopt;
    }
    if (!field->is_string() || !IsCurrency(field->get<std::string>())) {
        throw place_.Below(name).Error(NotAllowed(DescribeJson(*field), kCurrencyExpected));
    }
    return field->get<std::string>();
}

std::string RangeText(std::int64_t least, std::int64_t most) {
    return std::to_string(least) + " to " + std::to_string(most);
}

std::int64_t
WholeNumber(const Json& value, const Place& place, std::int64_t least, std::int64_t most) {
    // A number that does not fit is kept as floating point by the parser and so refused here too.
    const bool isWhole =
        value.is_number_integer() &&
        (!value.is_number_unsigned() || value.get<std::uint64_t>() <= std::uint64_t{INT64_MAX});
    if (!isWhole || value.get<std::int64_t>() < least || value.get<std::int64_t>() > most) {
        const std::string kind = value.is_number_integer() ? "" : "a whole number, ";
        throw place.Error(NotAllowed(DescribeJson(value), kind + RangeText(least, most)));
    }
    return value.get<std::int64_t>();
}

bool IsCurrency(const std::string& text) {
    return text.size() == 3 && std::all_of(text.begin(), text.end(), [](char letter) {
               return letter >= 'A' && letter <= 'Z';
           });
}

}  // namespace qxmix
