#include "HostRequest.h"

#include "CashUnitCodes.h"

namespace bench {

MixRequest RequestOf(const Question& question, unsigned mixNumber) {
    MixRequest request{};
    request.usMixNumber = static_cast<std::uint16_t>(mixNumber);
    request.usMaxDispenseItems = question.limit;
    request.bAllowPartial = question.allowsPartial ? 1 : 0;
    request.cCurrencyID = {{'E', 'U', 'R'}};
    request.ulAmount = question.amount;
    request.usNumPhysicalCUs = static_cast<std::uint16_t>(question.units.size());
    for (unsigned index = 0; index < question.units.size(); ++index) {
        PhysicalCashUnit& cassette = request.aPhysicalCUs[index];
        cassette.usPosition = static_cast<std::uint16_t>(index);
        cassette.usType = static_cast<std::uint16_t>(CashUnitType::BillCassette);
        cassette.cCurrencyID = request.cCurrencyID;
        cassette.ulValues = question.units[index].value;
        cassette.ulCount = question.units[index].count;
    }
    return request;
}

}  // namespace bench
