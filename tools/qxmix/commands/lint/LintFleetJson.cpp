#include "LintFleetForms.h"

#include "json/Json.h"

namespace qxmix {

Json LintTotalsJson(const LintFleet& fleet) {
    const LintFleetTotals totals = TotalsOf(fleet);
    return {{"dispensers", fleet.rows.size()}, {"notAsked", totals.notAsked},
            {"withErrors", totals.withErrors}, {"withWarnings", totals.withWarnings},
            {"withNotes", totals.withNotes},   {"clean", totals.clean}};
}

void WriteFleetJson(const LintFleet& fleet, const Envelope& envelope, const TakePart& take) {
    WriteEnvelope(envelope, take, [&] {
        take("{\"dispensers\":[");
        for (std::size_t place = 0; place < fleet.rows.size(); ++place) {
            take((place == 0 ? "" : ",") + fleet.spool.Read(fleet.rows[place].json));
        }
        take("],\"totals\":" + LintTotalsJson(fleet).dump() + "}");
    });
}

}  // namespace qxmix
