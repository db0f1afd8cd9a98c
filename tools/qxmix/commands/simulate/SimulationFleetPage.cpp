#include "SimulationFleetForms.h"
#include "SimulationForms.h"
#include "json/Json.h"
#include "pages/FleetPage.h"

namespace qxmix {

namespace {

enum Kind : std::size_t { kNotAsked, kDangerous, kLoses, kServedAsWell };

/// The mixes of a dispenser, a line each.
std::vector<std::vector<std::string>> MixLines(const SimulationFleet& fleet,
                                               const SimulationFleetRow& row) {
    const Json element = Json::parse(fleet.spool.Read(row.json));
    std::vector<std::vector<std::string>> lines;
    if (!row.isAsked) {
        return lines;
    }
    for (std::size_t place = 0; place < row.mixes.size(); ++place) {
        const ServedByMix& mix = row.mixes[place];
        const Json& told = element.at("mixes")[place];
        const Json& refusal = told.at("firstRefusal");
        lines.push_back({mix.isRanked ? std::to_string(place + 1) : "dangerous",
                         std::to_string(mix.mix), std::to_string(mix.served),
                         refusal.is_null() ? "none"
                                           : refusal.at("time").get<std::string>() + ", " +
                                                 refusal.at("amount").dump(),
                         told.at("left").get<std::string>()});
    }
    return lines;
}

FleetPageRow PageRowOf(const SimulationFleet& fleet,
                       const SimulationFleetRow& row,
                       std::optional<std::uint16_t> mix) {
    FleetPageRow line;
    const ServedByMix* const best = row.Best();
    line.details = MixLines(fleet, row);
    if (!row.isAsked || best == nullptr) {
        line.kind = row.isAsked ? kDangerous : kNotAsked;
        line.cells = {
            row.file, "?", "?", "?", "?", "?", row.isAsked ? "all mixes are dangerous" : row.told};
        return line;
    }
    const std::uint64_t lost = mix ? LostBy(row, *mix) : 0;
    line.kind = lost > 0 ? kLoses : kServedAsWell;
    line.cells = {row.file,
                  std::to_string(best->mix),
                  std::to_string(best->served),
                  PercentText(best->served, row.withdrawals),
                  mix ? std::to_string(row.Of(*mix)->served) : "-",
                  lost == 0 ? "-" : std::to_string(lost),
                  row.told};
    return line;
}

}  // namespace

std::string SimulationFleetPage(const SimulationFleet& fleet,
                                Envelope envelope,
                                const Facts& facts,
                                const std::string& commandLine) {
    const std::optional<std::uint16_t> mix = fleet.BestMix();
    FleetPage page;
    page.title = "How these dispensers empty";
    page.verdict = SimulationFleetVerdict(fleet);
    if (!fleet.isComplete) {
        page.verdict += "Interrupted after " + std::to_string(fleet.rows.size()) + " of " +
                        std::to_string(fleet.named) + " dispensers.";
    }
    page.columns = {"Dispenser",
                    "Best mix#",
                    "Served#",
                    "Share#",
                    mix ? "By mix " + std::to_string(*mix) + "#" : "By one mix#",
                    "Lost#",
                    "First refusal"};
    page.kinds = {{"cannot be asked", 'X', Outcome::NoAnswer},
                  {"no mix without danger", 'D', Outcome::Overpaid},
                  {"served better by another mix", 'l', Outcome::NotDispensable},
                  {"served as well as by any", '.', Outcome::Paid}};
    page.caption = "its mixes, the best first";
    page.detailColumns = {"Rank", "Mix#", "Served#", "First refusal", "Left#"};
    page.nothing = "It could not be asked.";
    for (const SimulationFleetRow* row : LeastServedFirst(fleet, mix.value_or(0))) {
        page.Add(PageRowOf(fleet, *row, mix));
    }
    // The rows have the dispensers, in less room.
    envelope.result = {{"fleet", SimulationFleetJson(fleet)},
                       {"totals", SimulationTotalsJson(fleet)}};
    return page.Text(envelope, facts, commandLine);
}

}  // namespace qxmix
