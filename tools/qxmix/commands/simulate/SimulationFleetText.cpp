#include "SimulationFleetForms.h"
#include "SimulationForms.h"
#include "fleet/FleetText.h"
#include "options/MixList.h"
#include "terminal/Table.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::size_t kLeastTold = 13;  // columns of a first refusal

std::string DispensersText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " dispenser" : " dispensers");
}

std::string FleetTable(const std::vector<const SimulationFleetRow*>& rows,
                       std::optional<std::uint16_t> mix,
                       const Painter& painter) {
    using Align = Table::Align;
    std::size_t longest = 9;
    for (const SimulationFleetRow* row : rows) {
        longest = std::max(longest, ColumnsOf(NameInTable(row->file)));
    }
    const std::size_t used = 1 + longest + 38;  // the numbers, and the gaps beside them
    const std::size_t left = std::max(OutputWidth() - std::min(OutputWidth(), used), kLeastTold);
    Table table({{Align::Left, 1, longest},
                 {Align::Right, 2, 4},
                 {Align::Right, 2, 12},
                 {Align::Right, 2, 6},
                 {Align::Right, 2, 4},
                 {Align::Left, 2, 0}});
    table.AddRow({"dispenser", "best", "served", mix ? "mix " + std::to_string(*mix) : "-", "lost",
                  "first refusal"});
    for (const SimulationFleetRow* row : rows) {
        const std::string name = NameInTable(row->file);
        const ServedByMix* const best = row->Best();
        if (!row->isAsked) {
            table.AddRow({name, "?", "?", "?", "?", CutToFit(row->told, left)});
        } else if (best == nullptr) {
            table.AddRow({{name, RowOf(Outcome::Overpaid).terminalStyle},
                          "-",
                          "-",
                          "-",
                          "-",
                          CutToFit("all mixes are dangerous", left)});
        } else {
            const std::uint64_t lost = mix ? LostBy(*row, *mix) : 0;
            table.AddRow({name, std::to_string(best->mix),
                          ServedText(best->served, row->withdrawals),
                          mix ? std::to_string(row->Of(*mix)->served) : "-",
                          lost == 0 ? "-" : std::to_string(lost), CutToFit(row->told, left)});
        }
    }
    return table.Text(painter);
}

}  // namespace

std::string SimulationFleetVerdict(const SimulationFleet& fleet) {
    const std::vector<FleetMix> mixes = fleet.Mixes();
    const auto asked = static_cast<std::size_t>(
        std::count_if(fleet.rows.begin(), fleet.rows.end(),
                      [](const SimulationFleetRow& row) { return row.isAsked; }));
    std::string text;
    std::vector<std::uint16_t> dangerous;
    for (const FleetMix& mix : mixes) {
        if (mix.dangerousOn > 0) {
            dangerous.push_back(mix.mix);
        }
    }
    if (mixes.empty()) {
        text = "No dispenser can be asked\n";
    } else if (dangerous.size() == mixes.size()) {
        text = "No mix is without danger on all of " + DispensersText(asked) + "\n";
    } else {
        const std::uint64_t best = fleet.ServedByBest();
        text = "Mix " + std::to_string(mixes.front().mix) + " serves most over " +
               DispensersText(asked) + ": " + std::to_string(mixes.front().served) + " of " +
               std::to_string(fleet.Withdrawals()) + " withdrawals\n";
        text += best == mixes.front().served
                    ? "No dispenser is served better by another mix\n"
                    : "Each by its own best mix: " + std::to_string(best) + ", " +
                          std::to_string(best - mixes.front().served) + " more\n";
    }
    if (!dangerous.empty() && dangerous.size() < mixes.size()) {
        std::sort(dangerous.begin(), dangerous.end());
        std::string names = MixesText(dangerous);
        names[0] = 'M';
        text += names + (dangerous.size() == 1 ? " is" : " are") +
                " dangerous on some of them and not ranked\n";
    }
    return text + (asked == fleet.rows.size()
                       ? ""
                       : DispensersText(fleet.rows.size() - asked) + " cannot be asked\n");
}

std::vector<const SimulationFleetRow*> LeastServedFirst(const SimulationFleet& fleet,
                                                        std::uint16_t mix) {
    std::vector<const SimulationFleetRow*> rows;
    for (const SimulationFleetRow& row : fleet.rows) {
        rows.push_back(&row);
    }
    std::stable_sort(rows.begin(), rows.end(), [mix](const auto* one, const auto* other) {
        if (one->isAsked != other->isAsked) {
            return !one->isAsked;
        }
        const std::uint64_t left = one->Best() == nullptr ? 0 : one->Best()->served;
        const std::uint64_t right = other->Best() == nullptr ? 0 : other->Best()->served;
        // Shares as products, so that none is rounded.
        const std::uint64_t leftShare = left * other->withdrawals;
        const std::uint64_t rightShare = right * one->withdrawals;
        return leftShare != rightShare ? leftShare < rightShare
                                       : LostBy(*one, mix) > LostBy(*other, mix);
    });
    return rows;
}

void WriteSimulationFleetText(const SimulationFleet& fleet,
                              bool hasAll,
                              const Painter& painter,
                              const TakePart& take) {
    const auto mix = fleet.BestMix();
    const std::vector<const SimulationFleetRow*> rows = LeastServedFirst(fleet, mix.value_or(0));
    take(SimulationFleetVerdict(fleet));
    if (!rows.empty()) {
        take("\n" + FleetTable(rows, mix, painter));
        take(mix ? "lost: withdrawals that its best mix serves, and mix " + std::to_string(*mix) +
                       " does not\n"
                 : "");
    }
    for (const SimulationFleetRow* row : rows) {
        if (hasAll) {
            take("\n" + Printable(row->file) + "\n" + fleet.spool.Read(row->text));
        }
    }
    if (!fleet.isComplete) {
        take(FleetInterruption(fleet.rows.size(), fleet.named));
    }
}

}  // namespace qxmix
