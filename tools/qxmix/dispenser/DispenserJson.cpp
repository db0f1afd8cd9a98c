#include "DispenserJson.h"

#include "StoredValues.h"
#include "UnitNames.h"
#include "json/Json.h"

namespace qxmix {

namespace {

Json CodeJson(std::uint16_t code, const UnitNames& names) {
    const std::optional<std::string> name = names.Name(code);
    return name ? Json(*name) : Json(code);
}

Json AmountsOfCurrencyJson(const Dispenser& dispenser) {
    const Amounts amounts = AmountsWithDefaults(dispenser);
    return {{"min", *amounts.min},
            {"max", *amounts.max},
            {"step", *amounts.step},
            {"buttons", amounts.buttons}};
}

Json AmountsJson(const Dispenser& dispenser) {
    if (!dispenser.HasAmountsByCurrency()) {
        return AmountsOfCurrencyJson(dispenser);
    }
    Json json = Json::object();
    for (const std::string& currency : CurrenciesOf(dispenser)) {
        json[currency] = AmountsOfCurrencyJson(InCurrency(dispenser, currency));
    }
    return json;
}

Json CostsJson(const Costs& costs) {
    return {{"interestPerYear", costs.interestPerYear.ShortText()},
            {"refill", costs.refill.ShortText()},
            {"bundle", costs.bundle.ShortText()}};
}

}  // namespace

Json CassetteJson(const Cassette& cassette) {
    Json json = Json::object();
    if (!cassette.label.empty()) {
        json["label"] = cassette.label;
    }
    json["position"] = cassette.position;
    json["type"] = CodeJson(cassette.type, TypeNames());
    json["status"] = CodeJson(cassette.status, StatusNames());
    json["currency"] = cassette.currency;
    json["value"] = cassette.value;
    json["count"] = cassette.count;
    json["worth"] = cassette.Worth().ShortText();
    json["lowThreshold"] = cassette.lowThreshold;
    json["emptyThreshold"] = cassette.emptyThreshold;
    if (cassette.capacity) {
        json["capacity"] = *cassette.capacity;
    }
    if (cassette.bundle) {
        json["bundle"] = *cassette.bundle;
    }
    return json;
}

Json DispenserJson(const Dispenser& dispenser) {
    Json json = Json::object();
    if (!dispenser.name.empty()) {
        json["name"] = dispenser.name;
    }
    json["currency"] = dispenser.currency;
    json["exponent"] = dispenser.exponent;
    json["partial"] = dispenser.partial;
    json["maxDispenseItems"] = dispenser.maxDispenseItems;
    json["mix"] = dispenser.MixOrDefault();
    json["amounts"] = AmountsJson(dispenser);
    json["cassettes"] = Json::array();
    for (const Cassette& cassette : dispenser.cassettes) {
        json["cassettes"].push_back(CassetteJson(cassette));
    }
    json["registry"] = StoredValuesJson(dispenser.registry);
    if (!dispenser.accepted.empty()) {
        json["lint"] = {{"accept", dispenser.accepted}};
    }
    if (dispenser.costs) {
        json["costs"] = CostsJson(*dispenser.costs);
    }
    return json;
}

}  // namespace qxmix
