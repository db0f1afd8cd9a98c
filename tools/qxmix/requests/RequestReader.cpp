#include "RequestReader.h"

#include "Request.h"
#include "dispenser/DispenserReader.h"
#include "dispenser/InlineDispenser.h"
#include "files/RegularFile.h"
#include "json/Json.h"
#include "json/JsonText.h"
#include "text/Hex.h"

#include <cstring>

namespace qxmix {

namespace {

/// Dispenser files kept at a time, and bytes that were read for them; a stream that names more of
/// them reads some again.
constexpr std::size_t kMostFiles = 1000;
constexpr std::size_t kMostFilesSize = std::size_t{64} << 20U;

std::string ReadNamed(const std::string& name) {
    return ReadRegularFile(name, kLongestLine);
}

const std::vector<std::string>& RequestFieldNames() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all = {"id", "amount", "dispenser"};
        const std::vector<std::string>& fields = DispenserFieldNames();
        all.insert(all.end(), fields.begin(), fields.end());
        return all;
    }();
    return names;
}

}  // namespace

RequestReader::RequestReader(AskOptions options, std::optional<Milliseconds> deadline)
    : options_(std::move(options)) {
    if (deadline) {
        fileReader_.emplace(&ReadNamed, *deadline);
    }
}

AskedRequest RequestReader::Read(const Json& json, const Place& place) {
    const JsonFields fields(json, place, RequestFieldNames());
    AskedRequest asked;
    if (const Json* dispenser = fields.Find("dispenser")) {
        asked.dispenser = Base(*dispenser, place.Below("dispenser"));
    } else {
        RequireDispenserFields(fields);
    }
    ReadDispenserFields(fields, asked.dispenser);
    options_.ApplyTo(asked.dispenser);
    fields.Required("amount", RangeText(0, UINT32_MAX));
    asked.amount = *fields.Whole32("amount");
    const std::uint16_t mix = options_.Mixes(asked.dispenser).front();
    asked.request = BuildRequest(asked.dispenser, asked.amount, mix);
    return asked;
}

AskedRequest RequestReader::ReadCaptured(const std::string& hex, const Place& place) {
    AskedRequest asked;
    constexpr std::size_t kDigits = 2 * sizeof(asked.request);
    const std::string expected = "; expected " + std::to_string(kDigits);
    if (hex.size() != kDigits) {
        throw place.Error(std::to_string(hex.size()) + " hex digits" + expected);
    }
    if (!IsHex(hex)) {
        throw place.Error("other characters than hex digits" + expected + " hex digits");
    }
    std::memcpy(&asked.request, BytesOfHex(hex).data(), sizeof(asked.request));
    asked.dispenser = DispenserOfRequest(asked.request, {});
    asked.amount = asked.request.ulAmount;
    return asked;
}

Dispenser RequestReader::Base(const Json& json, const Place& place) {
    if (!json.is_string()) {
        return ReadDispenser(json, place);
    }
    const auto name = json.get<std::string>();
    const bool isInline = IsInlineDispenser(name);
    // A zero byte would end the name before the file that it seems to name.
    if (name == "-" || (!isInline && (!fileReader_ || name.find('\0') != std::string::npos))) {
        throw place.Error(NotAllowed(DescribeJson(json),
                                     std::string("an object") + (fileReader_ ? ", a file" : "") +
                                         " or a dispenser such as \"EUR:50x10,20x10\""));
    }
    try {
        return isInline ? ReadInlineDispenser(name) : Named(name);
    } catch (const InputError& error) {
        throw place.Error(error.what());
    }
}

const Dispenser& RequestReader::Named(const std::string& name) {
    const auto known = files_.find(name);
    if (known != files_.end()) {
        return known->second;
    }
    std::size_t size = 0;
    Dispenser dispenser = OpenDispenser(name, [this, &size](const std::string& file) {
        InputFile read = {file, fileReader_->Read(file)};
        size = read.content.size();
        return read;
    });
    if (files_.size() == kMostFiles || filesSize_ + size > kMostFilesSize) {
        files_.clear();
        filesSize_ = 0;
    }
    filesSize_ += size;
    return files_[name] = std::move(dispenser);
}

Json ReadId(const Json& json, const Place& place) {
    const auto id = json.is_object() ? json.find("id") : json.end();
    if (id == json.end()) {
        return {};
    }
    if (!id->is_string() && !id->is_number_integer()) {
        throw place.Below("id").Error(NotAllowed(DescribeJson(*id), "text or a whole number"));
    }
    return *id;
}

}  // namespace qxmix
