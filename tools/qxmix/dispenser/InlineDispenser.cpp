#include "InlineDispenser.h"

#include "UnitNames.h"
#include "errors/NearestName.h"
#include "json/JsonFields.h"
#include "text/ParseWhole.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

constexpr std::size_t kCurrencyLength = 3;

std::string Quoted(const std::string& text) {
    return "\"" + text + "\"";
}

/// The text as it stands in errors, cut where it would fill the line.
std::string ShortName(const std::string& text) {
    constexpr std::size_t kLongest = 40;
    return text.size() <= kLongest ? text : text.substr(0, kLongest - 3) + "...";
}

std::uint32_t ReadNumber(const std::string& text, const Place& place) {
    const auto number = ParseWhole<std::uint32_t>(text);
    if (!number) {
        throw place.Error(NotAllowed(Quoted(text), RangeText(0, UINT32_MAX)));
    }
    return *number;
}

/// Reads [CUR]VALUExCOUNT.
void ReadItems(const std::string& text, const Place& place, Cassette& cassette) {
    std::string items = text;
    if (IsCurrency(items.substr(0, kCurrencyLength))) {
        cassette.currency = items.substr(0, kCurrencyLength);
        items.erase(0, kCurrencyLength);
    }
    const std::size_t times = items.find('x');
    if (times == std::string::npos) {
        throw place.Error(NotAllowed(Quoted(text), "VALUExCOUNT such as 50x100"));
    }
    cassette.value = ReadNumber(items.substr(0, times), place.Below("value"));
    cassette.count = ReadNumber(items.substr(times + 1), place.Below("count"));
}

/// Which of the two a cassette was already told.
struct Told {
    bool type = false;
    bool status = false;
};

void ReadProperty(const std::string& name, const Place& place, Cassette& cassette, Told& told) {
    const auto type = TypeNames().Code(name);
    const auto status = StatusNames().Code(name);
    if ((type && told.type) || (status && told.status)) {
        throw place.Error(std::string(type ? "type" : "status") + " given twice; expected once");
    }
    if (type) {
        cassette.type = *type;
        told.type = true;
    } else if (status) {
        cassette.status = *status;
        told.status = true;
    } else {
        std::vector<std::string> names = StatusNames().Names();
        for (const std::string& typeName : TypeNames().Names()) {
            names.push_back(typeName);
        }
        throw place.Error("unknown status or type " + Quoted(name) + DidYouMean(name, names));
    }
}

Cassette ReadCassette(const std::string& text,
                      const Place& place,
                      std::size_t index,
                      const std::string& currency) {
    Cassette cassette;
    cassette.position = static_cast<std::uint16_t>(index);
    cassette.currency = currency;
    const std::vector<std::string> parts = Split(text, ':');
    ReadItems(parts.front(), place, cassette);
    Told told;
    for (std::size_t part = 1; part < parts.size(); ++part) {
        ReadProperty(parts[part], place, cassette, told);
    }
    return cassette;
}

}  // namespace

bool IsInlineDispenser(const std::string& text) {
    return IsCurrency(text.substr(0, kCurrencyLength)) && text.size() > kCurrencyLength &&
           text[kCurrencyLength] == ':';
}

Dispenser ReadInlineDispenser(const std::string& text) {
    const Place place = Place(ShortName(text)).Below("cassettes");
    Dispenser dispenser;
    dispenser.currency = text.substr(0, kCurrencyLength);
    const std::vector<std::string> cassettes = Split(text.substr(kCurrencyLength + 1), ',');
    if (cassettes.size() > kMostCassettes) {
        throw place.Error(std::to_string(cassettes.size()) + " cassettes; expected 1 to " +
                          std::to_string(kMostCassettes));
    }
    for (const std::string& cassette : cassettes) {
        const std::size_t index = dispenser.cassettes.size();
        dispenser.cassettes.push_back(
            ReadCassette(cassette, place.Below(index), index, dispenser.currency));
    }
    return dispenser;
}

}  // namespace qxmix
