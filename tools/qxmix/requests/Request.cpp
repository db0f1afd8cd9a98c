#include "Request.h"

#include "errors/Errors.h"
#include "files/InputFile.h"

#include <algorithm>
#include <cstring>

namespace qxmix {

namespace {

CurrencyId IdOf(const std::string& currency) {
    CurrencyId id{};
    std::copy_n(currency.begin(), std::min(currency.size(), sizeof(id.cCharacters)),
                id.cCharacters);
    return id;
}

std::string TextOf(const CurrencyId& id) {
    std::string text;
    for (const char character : id.cCharacters) {
        const bool isPrintable = character > ' ' && character <= '~';
        text += isPrintable ? character : '?';
    }
    return text;
}

PhysicalCashUnit UnitOf(const Cassette& cassette) {
    PhysicalCashUnit unit{};
    unit.usPosition = cassette.position;
    unit.usType = cassette.type;
    unit.cCurrencyID = IdOf(cassette.currency);
    unit.ulValues = cassette.value;
    unit.ulCount = cassette.count;
    unit.usStatus = cassette.status;
    return unit;
}

Cassette CassetteOf(const PhysicalCashUnit& unit) {
    Cassette cassette;
    cassette.position = unit.usPosition;
    cassette.type = unit.usType;
    cassette.currency = TextOf(unit.cCurrencyID);
    cassette.value = unit.ulValues;
    cassette.count = unit.ulCount;
    cassette.status = unit.usStatus;
    return cassette;
}

template <typename Record>
std::string BytesOf(const Record& record) {
    return std::string(reinterpret_cast<const char*>(&record), sizeof(record));
}

/// The amount as it was asked: a positive exponent has scaled it in place.
std::uint32_t AmountBefore(const MixRequest& request, const std::string& file) {
    std::uint32_t amount = request.ulAmount;
    const bool isScaled = request.usMixNumber >= kFirstMix && request.usMixNumber <= kLastMix;
    for (int power = 0; isScaled && amount != 0 && power < request.sExponent; ++power) {
        if (amount % 10 != 0) {
            throw InputError(file + ": the amount came back as " +
                             std::to_string(std::uint32_t{request.ulAmount}) +
                             ", lowered; expected the " + std::to_string(sizeof(request)) +
                             " bytes of the request as it was asked");
        }
        amount /= 10;
    }
    return amount;
}

}  // namespace

MixRequest BuildRequest(const Dispenser& dispenser, std::uint32_t amount, std::uint16_t mix) {
    MixRequest request{};
    request.usMixNumber = mix;
    request.usMaxDispenseItems = dispenser.maxDispenseItems;
    request.bAllowPartial = dispenser.partial ? 1U : 0U;
    request.cCurrencyID = IdOf(dispenser.currency);
    request.sExponent = dispenser.exponent;
    request.ulAmount = amount;
    request.usNumPhysicalCUs = static_cast<std::uint16_t>(dispenser.cassettes.size());
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        request.aPhysicalCUs[index] = UnitOf(dispenser.cassettes[index]);
    }
    return request;
}

void SetCurrency(MixRequest& request, const std::string& currency) {
    request.cCurrencyID = IdOf(currency);
}

Dispenser DispenserOfRequest(const MixRequest& request, const Dispenser& known) {
    Dispenser dispenser;
    dispenser.currency = TextOf(request.cCurrencyID);
    dispenser.exponent = request.sExponent;
    dispenser.partial = request.bAllowPartial == 1U;
    dispenser.maxDispenseItems = request.usMaxDispenseItems;
    dispenser.mix = request.usMixNumber;
    const unsigned count = std::min<unsigned>(request.usNumPhysicalCUs, kMaxCashUnits);
    for (unsigned index = 0; index < count; ++index) {
        Cassette cassette = CassetteOf(request.aPhysicalCUs[index]);
        if (index < known.cassettes.size()) {
            cassette.label = known.cassettes[index].label;
            cassette.worth = known.cassettes[index].worth;
        }
        dispenser.cassettes.push_back(cassette);
    }
    return dispenser;
}

MixRequest ReadRawRequest(const std::string& file) {
    const InputFile input = ReadInput(file);
    MixRequest request{};
    const std::size_t size = input.content.size();
    const bool cameBack = size == sizeof(request) + sizeof(MixResult);
    if (size != sizeof(request) && !cameBack) {
        throw InputError(input.name + ": " + std::to_string(size) + " bytes; expected " +
                         std::to_string(sizeof(request)) + ", or " +
                         std::to_string(sizeof(request) + sizeof(MixResult)) + " with a result");
    }
    std::memcpy(&request, input.content.data(), sizeof(request));
    if (cameBack) {
        request.ulAmount = AmountBefore(request, input.name);
        request.ulRemainder = 0;
    }
    return request;
}

std::string RawBytes(const MixRequest& request) {
    return BytesOf(request);
}

std::string RawBytes(const MixRequest& request, const MixResult& result) {
    return BytesOf(request) + BytesOf(result);
}

}  // namespace qxmix
