#include "DemandFile.h"

#include "RecordedDemand.h"
#include "files/InputFile.h"
#include "json/Json.h"
#include "json/JsonFields.h"
#include "json/JsonText.h"
#include "sheets/SheetText.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

const std::vector<std::string> kDemandFields = {"days", "perDay", "hours", "amounts", "$schema"};
const std::vector<std::string> kAmountFields = {"amount", "weight"};
constexpr const char* kWeightsExpected = "at least one weight above 0";

std::vector<std::uint32_t> ReadHours(const Json& json, const Place& place) {
    const std::string expected = std::to_string(DemandPattern::kHours);
    if (!json.is_array()) {
        throw place.Error(NotAllowed(DescribeJson(json), "a list of " + expected + " weights"));
    }
    if (json.size() != DemandPattern::kHours) {
        throw place.Error(std::to_string(json.size()) + " weights; expected " + expected);
    }
    std::vector<std::uint32_t> hours;
    for (const Json& weight : json) {
        hours.push_back(static_cast<std::uint32_t>(
            WholeNumber(weight, place.Below(hours.size()), 0, UINT32_MAX)));
    }
    if (std::all_of(hours.begin(), hours.end(), [](std::uint32_t weight) { return weight == 0; })) {
        throw place.Error(std::string("all weights are 0; expected ") + kWeightsExpected);
    }
    return hours;
}

std::vector<DemandPattern::Amount> ReadAmounts(const Json& json, const Place& place) {
    if (!json.is_array()) {
        throw place.Error(NotAllowed(DescribeJson(json), "a list of amounts with their weights"));
    }
    std::vector<DemandPattern::Amount> amounts;
    for (const Json& entry : json) {
        const JsonFields fields(entry, place.Below(amounts.size()), kAmountFields);
        fields.Required("amount", RangeText(1, UINT32_MAX));
        fields.Required("weight", RangeText(0, UINT32_MAX));
        amounts.push_back({*fields.Whole32("amount", 1), *fields.Whole32("weight")});
    }
    if (std::all_of(amounts.begin(), amounts.end(),
                    [](const DemandPattern::Amount& amount) { return amount.weight == 0; })) {
        throw place.Error(
            (amounts.empty() ? "no amounts; expected " : "all weights are 0; expected ") +
            std::string(kWeightsExpected));
    }
    return amounts;
}

DemandPattern ReadPattern(const Json& json, const std::string& file) {
    const JsonFields fields(json, Place(file), kDemandFields);
    fields.Required("days", RangeText(1, kMostDays));
    fields.Required("perDay", RangeText(1, kMostWithdrawals));
    const Json& hours = fields.Required("hours", "a list of 24 weights");
    const Json& amounts = fields.Required("amounts", "a list of amounts with their weights");
    const Json* schema = fields.Find("$schema");
    if (schema != nullptr && !schema->is_string()) {
        throw fields.Here().Below("$schema").Error(NotAllowed(DescribeJson(*schema), "text"));
    }
    DemandPattern pattern;
    pattern.days = static_cast<std::uint32_t>(*fields.Whole("days", 1, kMostDays));
    pattern.perDay = static_cast<std::uint32_t>(*fields.Whole("perDay", 1, kMostWithdrawals));
    pattern.hours = ReadHours(hours, fields.Here().Below("hours"));
    pattern.amounts = ReadAmounts(amounts, fields.Here().Below("amounts"));
    if (pattern.Size() > kMostWithdrawals) {
        throw fields.Here().Below("perDay").Error(
            std::to_string(pattern.Size()) +
            " withdrawals in all days are too many; expected at most " +
            std::to_string(kMostWithdrawals));
    }
    return pattern;
}

}  // namespace

DemandFile::DemandFile(const std::string& name,
                       SheetOptions options,
                       std::optional<std::uint32_t> resample)
    : options_(std::move(options)), resample_(resample) {
    const InputFile file = ReadInput(name);
    name_ = file.name;
    text_ = SheetText(file);
    const std::size_t first = text_.find_first_not_of(" \t\r\n");
    if (first == std::string::npos || (text_[first] != '{' && text_[first] != '[')) {
        return;
    }
    if (const std::string given = resample_ ? "--resample" : GivenSheetOption(options_);
        !given.empty()) {
        throw InputError(given + ": given for withdrawals that are drawn; expected recorded ones");
    }
    pattern_ = ReadPattern(ParseJson(text_, name_), name_);
}

DemandSource DemandFile::For(const Dispenser& dispenser) const {
    if (pattern_) {
        return *pattern_;
    }
    Demand record = ReadRecordedDemand(name_, text_, dispenser, options_);
    if (resample_) {
        return RecordedDays(name_, std::move(record), *resample_);
    }
    return record;
}

}  // namespace qxmix
