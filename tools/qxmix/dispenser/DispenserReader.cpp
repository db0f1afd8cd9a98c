#include "DispenserReader.h"

#include "InlineDispenser.h"
#include "StoredValues.h"
#include "UnitNames.h"
#include "errors/NearestName.h"
#include "json/Json.h"
#include "json/JsonFields.h"
#include "json/JsonText.h"

#include <algorithm>
#include <set>

namespace qxmix {

namespace {

constexpr std::size_t kLongestName = 120;
constexpr std::size_t kLongestLabel = 40;
constexpr std::size_t kLongestReason = 200;
constexpr std::size_t kFindingIdSize = 5;

const std::vector<std::string> kDispenserFields = {
    "currency", "exponent", "partial", "mix",  "maxDispenseItems", "amounts", "cassettes",
    "registry", "costs",    "lint",    "name", "$schema"};
const std::vector<std::string> kCassetteFields = {
    "position", "type",  "status",       "currency",       "value",    "count",
    "worth",    "label", "lowThreshold", "emptyThreshold", "capacity", "bundle"};
const std::vector<std::string> kCostsFields = {"interestPerYear", "refill", "bundle"};
const std::vector<std::string> kAmountsFields = {"min", "max", "step", "buttons"};

/// A type or a status: its number or one of its names.
std::optional<std::uint16_t>
ReadCode(const JsonFields& fields, const std::string& name, const UnitNames& names) {
    const Json* field = fields.Find(name);
    if (field == nullptr || !field->is_string()) {
        return fields.Whole16(name);
    }
    const auto text = field->get<std::string>();
    const std::optional<std::uint16_t> code = names.Code(text);
    if (!code) {
        const bool isXfsName = text.compare(0, 4, "WFS_") == 0;
        throw fields.Here().Below(name).Error(
            "unknown " + name + " " + DescribeJson(*field) +
            DidYouMean(text, isXfsName ? names.XfsNames() : names.Names()));
    }
    return code;
}

std::optional<Money> ReadMoney(const JsonFields& fields, const std::string& name) {
    const Json* field = fields.Find(name);
    if (field == nullptr) {
        return std::nullopt;
    }
    const std::string text = field->is_string() ? field->get<std::string>() : "";
    const std::size_t point = std::min(text.find('.'), text.size());
    std::optional<Money> money = Money::Parse(text);
    if (!money || point > 10 || text.size() - point > 5) {
        throw fields.Here().Below(name).Error(
            NotAllowed(DescribeJson(*field), "decimal text such as \"0.50\""));
    }
    return money;
}

/// What a cassette takes, which is no less than it holds.
std::optional<std::uint32_t> ReadCapacity(const JsonFields& fields, std::uint32_t count) {
    const std::optional<std::uint32_t> capacity = fields.Whole32("capacity", 1);
    if (capacity && *capacity < count) {
        throw fields.Here()
            .Below("capacity")
            .Error(NotAllowed(std::to_string(*capacity),
                              "the count, " + std::to_string(count) + ", or more"));
    }
    return capacity;
}

Cassette
ReadCassette(const Json& json, const Place& place, std::size_t index, const std::string& currency) {
    const JsonFields fields(json, place, kCassetteFields);
    fields.Required("value", RangeText(0, UINT32_MAX));
    fields.Required("count", RangeText(0, UINT32_MAX));
    Cassette cassette;
    cassette.label = fields.Text("label", kLongestLabel).value_or("");
    cassette.position = fields.Whole16("position").value_or(static_cast<std::uint16_t>(index));
    cassette.type = ReadCode(fields, "type", TypeNames()).value_or(cassette.type);
    cassette.status = ReadCode(fields, "status", StatusNames()).value_or(cassette.status);
    cassette.currency = fields.Currency("currency").value_or(currency);
    cassette.value = *fields.Whole32("value");
    cassette.count = *fields.Whole32("count");
    cassette.worth = ReadMoney(fields, "worth");
    cassette.lowThreshold = fields.Whole32("lowThreshold").value_or(0);
    cassette.emptyThreshold = fields.Whole32("emptyThreshold").value_or(0);
    cassette.capacity = ReadCapacity(fields, cassette.count);
    cassette.bundle = fields.Whole32("bundle", 1);
    return cassette;
}

std::vector<Cassette>
ReadCassettes(const Json& json, const Place& place, const std::string& currency) {
    const std::string expected = "1 to " + std::to_string(kMostCassettes);
    if (!json.is_array()) {
        throw place.Error(NotAllowed(DescribeJson(json), "a list of " + expected + " cassettes"));
    }
    if (json.empty() || json.size() > kMostCassettes) {
        throw place.Error(std::to_string(json.size()) + " cassettes; expected " + expected);
    }
    std::vector<Cassette> cassettes;
    for (const Json& cassette : json) {
        const std::size_t index = cassettes.size();
        cassettes.push_back(ReadCassette(cassette, place.Below(index), index, currency));
    }
    return cassettes;
}

std::vector<std::uint32_t> ReadButtons(const Json& json, const Place& place) {
    if (!json.is_array()) {
        throw place.Error(NotAllowed(DescribeJson(json), "a list of amounts"));
    }
    std::vector<std::uint32_t> buttons;
    std::set<std::uint32_t> known;
    for (const Json& button : json) {
        const Place here = place.Below(buttons.size());
        const auto amount = static_cast<std::uint32_t>(WholeNumber(button, here, 1, UINT32_MAX));
        if (!known.insert(amount).second) {
            throw here.Error(std::to_string(amount) + " given twice; expected once");
        }
        buttons.push_back(amount);
    }
    return buttons;
}

Amounts ReadAmountsOfCurrency(const Json& json, const Place& place) {
    const JsonFields fields(json, place, kAmountsFields, JsonFields::OwnFields::Refused);
    Amounts amounts;
    amounts.min = fields.Whole32("min", 1);
    amounts.max = fields.Whole32("max", 1);
    amounts.step = fields.Whole32("step", 1);
    if (amounts.min && amounts.max && *amounts.max < *amounts.min) {
        throw place.Below("max").Error(
            NotAllowed(std::to_string(*amounts.max), std::to_string(*amounts.min) + " or more"));
    }
    if (const Json* buttons = fields.Find("buttons")) {
        amounts.buttons = ReadButtons(*buttons, place.Below("buttons"));
    }
    return amounts;
}

/// Reads what customers can ask: in the dispenser's currency, or in each of several.
void ReadAmounts(const Json& json, const Place& place, Dispenser& dispenser) {
    std::vector<std::string> currencies;
    for (const auto& field : json.items()) {
        if (json.is_object() && IsCurrency(field.key())) {
            currencies.push_back(field.key());
        }
    }
    dispenser.amounts.clear();
    dispenser.tellsByCurrency = !currencies.empty();
    if (currencies.empty()) {
        dispenser.amounts[dispenser.currency] = ReadAmountsOfCurrency(json, place);
        return;
    }
    for (const auto& field : json.items()) {
        if (!IsCurrency(field.key())) {
            throw place.Below(field.key())
                .Error("not allowed beside " + currencies.front() + "; expected within it");
        }
        dispenser.amounts[field.key()] =
            ReadAmountsOfCurrency(field.value(), place.Below(field.key()));
    }
}

/// A finding's id: "QX205".
bool IsFindingId(const std::string& text) {
    return text.size() == kFindingIdSize && text.compare(0, 2, "QX") == 0 &&
           text.find_first_not_of("0123456789", 2) == std::string::npos;
}

/// Findings that are accepted, each with the reason.
std::map<std::string, std::string> ReadAccepted(const Json& json, const Place& place) {
    std::vector<std::string> ids;
    for (const auto& field : json.items()) {
        if (json.is_object() && !IsFindingId(field.key())) {
            throw place.Below(field.key()).Error("no id of a finding; expected one such as QX205");
        }
        ids.push_back(field.key());
    }
    const JsonFields reasons(json, place, ids, JsonFields::OwnFields::Refused);
    std::map<std::string, std::string> accepted;
    for (const std::string& id : ids) {
        accepted[id] = reasons.Text(id, kLongestReason).value_or("");
        if (accepted[id].empty()) {
            throw place.Below(id).Error("empty; expected the reason why it is accepted");
        }
    }
    return accepted;
}

Costs ReadCosts(const Json& json, const Place& place) {
    const JsonFields fields(json, place, kCostsFields, JsonFields::OwnFields::Refused);
    Costs costs;
    costs.interestPerYear = ReadMoney(fields, "interestPerYear").value_or(Money());
    costs.refill = ReadMoney(fields, "refill").value_or(Money());
    costs.bundle = ReadMoney(fields, "bundle").value_or(Money());
    return costs;
}

/// The one field that only an editor reads still has to be text.
void CheckSchemaField(const JsonFields& fields) {
    const Json* schema = fields.Find("$schema");
    if (schema != nullptr && !schema->is_string()) {
        throw fields.Here().Below("$schema").Error(NotAllowed(DescribeJson(*schema), "text"));
    }
}

}  // namespace

const std::vector<std::string>& DispenserFieldNames() {
    return kDispenserFields;
}

Dispenser ReadDispenser(const Json& json, const Place& place) {
    const JsonFields fields(json, place, kDispenserFields);
    Dispenser dispenser;
    RequireDispenserFields(fields);
    ReadDispenserFields(fields, dispenser);
    return dispenser;
}

void RequireDispenserFields(const JsonFields& fields) {
    fields.Required("currency", kCurrencyExpected);
    fields.Required("cassettes", "a list of 1 to 6 cassettes");
}

void ReadDispenserFields(const JsonFields& fields, Dispenser& dispenser) {
    CheckSchemaField(fields);
    dispenser.name = fields.Text("name", kLongestName).value_or(dispenser.name);
    dispenser.currency = fields.Currency("currency").value_or(dispenser.currency);
    dispenser.exponent = static_cast<std::int16_t>(
        fields.Whole("exponent", INT16_MIN, INT16_MAX).value_or(dispenser.exponent));
    dispenser.partial = fields.Truth("partial").value_or(dispenser.partial);
    dispenser.maxDispenseItems =
        fields.Whole16("maxDispenseItems").value_or(dispenser.maxDispenseItems);
    if (const auto mix = fields.Whole("mix", kFirstMix, kLastMix)) {
        dispenser.mix = static_cast<std::uint16_t>(*mix);
    }
    if (const Json* amounts = fields.Find("amounts")) {
        ReadAmounts(*amounts, fields.Here().Below("amounts"), dispenser);
    }
    if (const Json* cassettes = fields.Find("cassettes")) {
        dispenser.cassettes =
            ReadCassettes(*cassettes, fields.Here().Below("cassettes"), dispenser.currency);
    }
    if (const Json* lint = fields.Find("lint")) {
        const Place here = fields.Here().Below("lint");
        const JsonFields known(*lint, here, {"accept"}, JsonFields::OwnFields::Refused);
        if (const Json* accept = known.Find("accept")) {
            dispenser.accepted = ReadAccepted(*accept, here.Below("accept"));
        }
    }
    if (const Json* registry = fields.Find("registry")) {
        dispenser.registry = ReadStoredValues(*registry, fields.Here().Below("registry"));
    }
    if (const Json* costs = fields.Find("costs")) {
        dispenser.costs = ReadCosts(*costs, fields.Here().Below("costs"));
    }
}

namespace {

/// Reads the file; where there is none, a name such as eur:50x10 was meant otherwise.
InputFile ReadDispenserFile(const std::string& name, const Reading& reading) {
    try {
        return reading(name);
    } catch (const InputError&) {
        const std::size_t colon = name.find(':');
        const std::size_t value = colon == std::string::npos ? colon : colon + 1;
        const std::size_t times = name.find_first_not_of("0123456789", value);
        if (times == std::string::npos || times == value || name[times] != 'x') {
            throw;
        }
        throw InputError(name + ": " +
                         NotAllowed("\"" + name.substr(0, colon) + "\"", kCurrencyExpected));
    }
}

}  // namespace

Dispenser OpenDispenser(const std::string& name, const Reading& reading) {
    if (IsInlineDispenser(name)) {
        return ReadInlineDispenser(name);
    }
    const InputFile file = ReadDispenserFile(name, reading);
    return ReadDispenser(ParseJson(file.content, file.name), Place(file.name));
}

Dispenser OpenDispenser(const std::string& name) {
    // Room for a million buttons: JSON takes many times its size in memory.
    constexpr std::size_t kMostBytes = std::size_t{16} << 20U;
    return OpenDispenser(name, [](const std::string& file) { return ReadInput(file, kMostBytes); });
}

}  // namespace qxmix
