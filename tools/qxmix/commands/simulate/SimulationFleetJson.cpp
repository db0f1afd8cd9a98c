#include "SimulationFleetForms.h"
#include "json/Json.h"
#include "sheets/CsvCell.h"

#include <algorithm>

namespace qxmix {

Json SimulationFleetJson(const SimulationFleet& fleet) {
    Json mixes = Json::array();
    const std::vector<FleetMix> ranked = fleet.Mixes();
    for (const FleetMix& mix : ranked) {
        mixes.push_back(
            {{"mix", mix.mix}, {"served", mix.served}, {"dangerousOn", mix.dangerousOn}});
    }
    const auto best = fleet.BestMix();
    return {{"mix", best ? Json(*best) : Json()},
            {"withdrawals", fleet.Withdrawals()},
            {"servedByBest", fleet.ServedByBest()},
            {"mixes", mixes}};
}

Json SimulationTotalsJson(const SimulationFleet& fleet) {
    const auto asked = std::count_if(fleet.rows.begin(), fleet.rows.end(),
                                     [](const SimulationFleetRow& row) { return row.isAsked; });
    return {{"dispensers", fleet.rows.size()},
            {"notAsked", fleet.rows.size() - static_cast<std::size_t>(asked)}};
}

namespace {

/// The element as it was put away, with what only the whole fleet tells.
std::string ElementWithLoss(const SimulationFleet& fleet,
                            const SimulationFleetRow& row,
                            std::optional<std::uint16_t> mix) {
    std::string element = fleet.spool.Read(row.json);
    if (row.isAsked) {
        const bool isKnown = mix && row.Best() != nullptr;
        element.pop_back();
        element += ",\"lost\":" + (isKnown ? std::to_string(LostBy(row, *mix)) : "null") + "}";
    }
    return element;
}

}  // namespace

void WriteSimulationFleetJson(const SimulationFleet& fleet,
                              const Envelope& envelope,
                              const TakePart& take) {
    const auto best = fleet.BestMix();
    WriteEnvelope(envelope, take, [&] {
        take("{\"dispensers\":[");
        for (std::size_t place = 0; place < fleet.rows.size(); ++place) {
            take((place == 0 ? "" : ",") + ElementWithLoss(fleet, fleet.rows[place], best));
        }
        take("],\"fleet\":" + SimulationFleetJson(fleet).dump() +
             ",\"totals\":" + SimulationTotalsJson(fleet).dump() + "}");
    });
}

void WriteSimulationFleetCsv(const SimulationFleet& fleet, const TakePart& take) {
    take("file,mix,rank,withdrawals,served\n");
    for (const SimulationFleetRow& row : fleet.rows) {
        std::size_t rank = 0;
        for (const ServedByMix& mix : row.mixes) {
            take(CsvCell(row.file) + "," + std::to_string(mix.mix) + "," +
                 (mix.isRanked ? std::to_string(++rank) : "") + "," +
                 std::to_string(row.withdrawals) + "," + std::to_string(mix.served) + "\n");
        }
    }
}

}  // namespace qxmix
