#include "SimulationForms.h"
#include "answers/ResultJson.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "json/StepPath.h"
#include "text/Duration.h"

#include <map>

namespace qxmix {

namespace {

/// Writes the answers of one simulation.
class ResultWriter {
public:
    explicit ResultWriter(const SimulationReport& report)
        : report_(report), questions_(report.questions), answers_(report.answers),
          decimals_(AmountDecimals(report.questions.dispenser)) {}

    Json Demand() const;
    Json Mix(const SimulationRow& row) const;
    Json Answers(const SimulationRow& row) const { return Steps(row.place); }

private:
    std::string Time(std::int64_t time) const { return answers_.demand.calendar.Text(time); }

    Json MoneyOrNull(const std::optional<Money>& money) const {
        return money ? Json(money->Text(decimals_)) : Json();
    }

    Json Currencies() const;
    Json FirstRefusal(const SimulationSummary& summary) const;
    Json Emptied(const SimulationSummary& summary) const;
    Json Summary(const SimulationSummary& summary) const;
    Json Steps(std::size_t place) const;
    Json Ranges(const SimulationRow& row) const;
    Json Runs(std::size_t place) const;

    const SimulationReport& report_;
    const SimulationQuestions& questions_;
    const SimulationAnswers& answers_;
    unsigned decimals_;
};

Json ResultWriter::Demand() const {
    const qxmix::Demand& demand = answers_.demand;
    Json times = Json::array();
    Json amounts = Json::array();
    for (const Withdrawal& withdrawal : demand.withdrawals) {
        times.push_back(withdrawal.time);
        amounts.push_back(withdrawal.amount);
    }
    Json json = {{"withdrawals", demand.withdrawals.size()},
                 {"planned", answers_.planned},
                 {"asked", report_.asked.front().Text(decimals_)},
                 {"seed", demand.seed ? Json(*demand.seed) : Json()},
                 {"runs", answers_.wholeRuns}};
    const std::string firstDay = demand.calendar.FirstDayText();
    json["firstDay"] = firstDay.empty() ? Json() : Json(firstDay);
    json["times"] = times;
    json["amounts"] = amounts;
    json["currencies"] = Currencies();
    return json;
}

Json ResultWriter::Currencies() const {
    const qxmix::Demand& demand = answers_.demand;
    if (demand.currencies.size() == 1) {
        return nullptr;
    }
    Json currencies = Json::array();
    for (const Withdrawal& withdrawal : demand.withdrawals) {
        currencies.push_back(demand.currencies[withdrawal.currency]);
    }
    return currencies;
}

Json ResultWriter::FirstRefusal(const SimulationSummary& summary) const {
    if (!summary.firstRefusal) {
        return nullptr;
    }
    const SimulationSummary::Refusal& refusal = *summary.firstRefusal;
    return {{"time", Time(refusal.asked.time)},
            {"withdrawal", refusal.withdrawal},
            {"amount", refusal.asked.amount},
            {"outcome", RowOf(refusal.outcome).name},
            {"left", refusal.left.Text(decimals_)}};
}

Json ResultWriter::Emptied(const SimulationSummary& summary) const {
    Json emptied = Json::array();
    for (const SimulationSummary::Emptied& one : summary.emptied) {
        emptied.push_back(
            {{"time", Time(one.time)}, {"withdrawal", one.withdrawal}, {"cassette", one.cassette}});
    }
    return emptied;
}

Json ResultWriter::Summary(const SimulationSummary& summary) const {
    const Json emptied = Emptied(summary);
    return {{"asked", summary.asked},
            {"givenUp", summary.isGivenUp},
            {"counts", CountsJson([&summary](Outcome outcome) { return summary.Count(outcome); })},
            {"items", {{"notes", summary.notes}, {"coins", summary.coins}}},
            {"paid", summary.paid.Text(decimals_)},
            {"firstRefusal", FirstRefusal(summary)},
            {"firstEmpty", emptied.empty() ? Json() : emptied.front()},
            {"emptied", emptied},
            {"spread", summary.spread},
            {"end", summary.end},
            {"left", summary.left.Text(decimals_)}};
}

Json ResultWriter::Steps(std::size_t place) const {
    std::map<SimulationStep, std::uint32_t> places;
    Json steps = Json::array();
    std::vector<std::uint32_t> path;
    for (const SimulationStep& step : answers_.steps[place]) {
        const auto known = places.emplace(step, static_cast<std::uint32_t>(places.size()));
        path.push_back(known.first->second);
        if (known.second) {
            Json items = Json::array();
            for (std::size_t index = 0; index < questions_.dispenser.cassettes.size(); ++index) {
                items.push_back(step.items[index]);
            }
            steps.push_back({std::string(1, RowOf(step.outcome).letter), items});
        }
    }
    Json json = {{"steps", steps}};
    json.update(StepPathJson(path, places.size()));
    return json;
}

template <typename Number, typename Write>
Json RangeJson(const RunRange<Number>& range, const Write& write) {
    return {{"median", write(range.median)},
            {"least", write(range.least)},
            {"most", write(range.most)}};
}

Json ResultWriter::Ranges(const SimulationRow& row) const {
    const auto count = [](std::uint64_t number) { return Json(number); };
    const auto time = [this](const std::optional<std::int64_t>& at) {
        return at ? Json(Time(*at)) : Json();
    };
    return {{"served", RangeJson(row.served, count)},
            {"inPart", RangeJson(row.inPart, count)},
            {"refused", RangeJson(row.refused, count)},
            {"dangerous", RangeJson(row.dangerous, count)},
            {"tenthsOfItems", RangeJson(row.tenths, count)},
            {"spread", RangeJson(row.spread, count)},
            {"firstRefusal", RangeJson(row.firstRefusal, time)},
            {"firstEmpty", RangeJson(row.firstEmpty, time)},
            {"left", RangeJson(row.left, [this](const std::optional<Money>& money) {
                 return MoneyOrNull(money);
             })}};
}

Json ResultWriter::Runs(std::size_t place) const {
    Json runs = Json::array();
    for (std::size_t run = 0; run < answers_.wholeRuns; ++run) {
        Json json = {{"seed", questions_.seed + run}};
        json.update(Summary(answers_.runs[run][place]));
        runs.push_back(json);
    }
    return runs;
}

Json ResultWriter::Mix(const SimulationRow& row) const {
    Json json = {{"mix", row.mix}, {"rank", row.rank ? Json(*row.rank) : Json()}};
    json.update(Summary(report_.First(row)));
    if (questions_.runs > 1) {
        json["dangerousRuns"] = row.dangerousRuns;
        json["ranges"] = Ranges(row);
        json["runs"] = Runs(row.place);
    }
    return json;
}

Json PatternJson(const DemandPattern& pattern) {
    Json amounts = Json::array();
    for (const DemandPattern::Amount& amount : pattern.amounts) {
        amounts.push_back({{"amount", amount.amount}, {"weight", amount.weight}});
    }
    return {{"days", pattern.days},
            {"perDay", pattern.perDay},
            {"hours", pattern.hours},
            {"amounts", amounts}};
}

}  // namespace

Json SimulationInputJson(const SimulationQuestions& questions) {
    const auto* pattern = std::get_if<DemandPattern>(&questions.demand);
    Json json = {{"dispenser", DispenserJson(questions.dispenser)},
                 {"mixes", questions.mixes},
                 {"demand", pattern == nullptr ? Json() : PatternJson(*pattern)},
                 {"seed", questions.IsRecorded() ? Json() : Json(questions.seed)},
                 {"runs", questions.runs},
                 {"deadline", DurationText(questions.deadline)}};
    if (const auto* days = std::get_if<RecordedDays>(&questions.demand)) {
        json["resampled"] = days->Days();
    }
    return json;
}

Json SimulatedMixesJson(const SimulationReport& report) {
    const ResultWriter writer(report);
    Json mixes = Json::array();
    for (const SimulationRow& row : report.rows) {
        mixes.push_back(writer.Mix(row));
    }
    return mixes;
}

Json SimulationResultJson(const SimulationReport& report) {
    const ResultWriter writer(report);
    Json mixes = SimulatedMixesJson(report);
    for (std::size_t place = 0; place < mixes.size(); ++place) {
        mixes[place]["answers"] = writer.Answers(report.rows[place]);
    }
    return {{"demand", writer.Demand()}, {"mixes", mixes}};
}

}  // namespace qxmix
