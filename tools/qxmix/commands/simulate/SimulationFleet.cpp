#include "SimulationFleet.h"

#include "SimulationForms.h"
#include "fleet/FleetText.h"
#include "json/Json.h"
#include "workers/Bytes.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace qxmix {

namespace {

SimulationFleetReport ReadSimulationReport(const std::string& file, const std::string& bytes) {
    ByteReader reader(bytes);
    SimulationFleetReport report;
    SimulationFleetRow& row = report.row;
    row.file = file;
    row.status = reader.Take<ExitStatus>();
    row.isAsked = reader.Take<bool>();
    row.withdrawals = reader.Take<std::uint64_t>();
    row.mixes.resize(reader.Take<std::uint32_t>());
    for (ServedByMix& mix : row.mixes) {
        mix.mix = reader.Take<std::uint16_t>();
        mix.isRanked = reader.Take<bool>();
        mix.served = reader.Take<std::uint64_t>();
    }
    row.told = reader.TakeText();
    report.json = reader.TakeText();
    report.text = reader.TakeText();
    return report;
}

}  // namespace

const ServedByMix* SimulationFleetRow::Best() const {
    return mixes.empty() || !mixes.front().isRanked ? nullptr : &mixes.front();
}

const ServedByMix* SimulationFleetRow::Of(std::uint16_t mix) const {
    const auto found = std::find_if(mixes.begin(), mixes.end(),
                                    [mix](const ServedByMix& one) { return one.mix == mix; });
    return found == mixes.end() ? nullptr : &*found;
}

SimulationFleetReport SimulationReportOf(const std::string& file, const SimulationReport& report) {
    SimulationFleetReport told;
    told.row.file = file;
    told.row.status = report.status;
    told.row.isAsked = true;
    told.row.withdrawals = report.withdrawals;
    for (const SimulationRow& row : report.rows) {
        told.row.mixes.push_back({row.mix, row.rank.has_value(), row.served.median});
    }
    told.row.told = RefusalText(report, report.First(report.rows.front()));
    Json json = FleetElement(file, report.status);
    json["withdrawals"] = told.row.withdrawals;
    json["mixes"] = SimulatedMixesJson(report);
    told.json = ElementText(json);
    return told;
}

SimulationFleetReport SimulationReportOf(const std::string& file, const ToolError& error) {
    SimulationFleetReport told;
    told.row.file = file;
    told.row.status = error.Status();
    told.row.told = WithoutFile(error.what(), file);
    told.json = ElementText(FleetElement(file, error));
    told.text = told.row.told + "\n";
    return told;
}

std::string ToBytes(const SimulationFleetReport& report) {
    const SimulationFleetRow& row = report.row;
    ByteWriter writer;
    writer.Put(row.status).Put(row.isAsked).Put(row.withdrawals);
    writer.Put(static_cast<std::uint32_t>(row.mixes.size()));
    for (const ServedByMix& mix : row.mixes) {
        writer.Put(mix.mix).Put(mix.isRanked).Put(mix.served);
    }
    return writer.PutText(row.told).PutText(report.json).PutText(report.text).Bytes();
}

std::vector<FleetMix> SimulationFleet::Mixes() const {
    std::map<std::uint16_t, FleetMix> mixes;
    for (const SimulationFleetRow& row : rows) {
        for (const ServedByMix& one : row.mixes) {
            FleetMix& mix = mixes[one.mix];
            mix.mix = one.mix;
            mix.served += one.served;
            mix.dangerousOn += one.isRanked ? 0U : 1U;
        }
    }
    std::vector<FleetMix> ranked;
    for (const auto& [number, mix] : mixes) {
        ranked.push_back(mix);
    }
    std::sort(ranked.begin(), ranked.end(), [](const FleetMix& one, const FleetMix& other) {
        const bool isSafe = one.dangerousOn == 0;
        if (isSafe != (other.dangerousOn == 0)) {
            return isSafe;
        }
        return isSafe && one.served != other.served ? one.served > other.served
                                                    : one.mix < other.mix;
    });
    return ranked;
}

std::optional<std::uint16_t> SimulationFleet::BestMix() const {
    const std::vector<FleetMix> mixes = Mixes();
    const bool isThere = !mixes.empty() && mixes.front().dangerousOn == 0;
    return isThere ? std::make_optional(mixes.front().mix) : std::nullopt;
}

std::uint64_t SimulationFleet::Withdrawals() const {
    std::uint64_t sum = 0;
    for (const SimulationFleetRow& row : rows) {
        sum += row.withdrawals;
    }
    return sum;
}

std::uint64_t SimulationFleet::ServedByBest() const {
    std::uint64_t sum = 0;
    for (const SimulationFleetRow& row : rows) {
        sum += row.Best() == nullptr ? 0 : row.Best()->served;
    }
    return sum;
}

std::uint64_t LostBy(const SimulationFleetRow& row, std::uint16_t mix) {
    const ServedByMix* const best = row.Best();
    const ServedByMix* const other = row.Of(mix);
    return best == nullptr || other == nullptr
               ? 0
               : best->served - std::min(best->served, other->served);
}

void SimulateFleet(SimulationFleet& fleet,
                   const std::vector<std::string>& names,
                   const FleetWorkers& workers,
                   const DispenserWork& work) {
    fleet.Ask(names, workers, work,
              [&fleet](const std::string& name, const std::string& bytes, const WorkError& error) {
                  SimulationFleetReport report = bytes.empty() ? SimulationReportOf(name, error)
                                                               : ReadSimulationReport(name, bytes);
                  report.row.json = fleet.spool.Add(report.json);
                  report.row.text = fleet.spool.Add(report.text);
                  return std::move(report.row);
              });
}

}  // namespace qxmix
