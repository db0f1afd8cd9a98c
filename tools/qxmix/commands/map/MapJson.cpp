#include "MapForms.h"

#include "answers/ResultJson.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "json/StepPath.h"
#include "sweeps/RangeJson.h"
#include "terminal/Terminal.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

/// Dangerous amounts that are listed one by one for each mix; the runs have all of them.
constexpr std::size_t kListedDangers = 100;

Json RunsJson(const MapRow& row) {
    Json runs = Json::array();
    for (const MapRow::Run& run : row.Runs()) {
        runs.push_back({std::string(1, RowOf(run.outcome).letter), run.length});
    }
    return runs;
}

bool IsListed(Outcome outcome) {
    return outcome == Outcome::Overpaid || outcome == Outcome::Overdrawn;
}

Json DangersJson(const MapQuestions& questions, std::uint16_t mix, const MapRow& row) {
    Json dangers = Json::array();
    MapRowReader reader(row);
    for (std::uint64_t place = 0; place < row.Size() && dangers.size() < kListedDangers; ++place) {
        const MapCell& cell = reader.Next();
        if (!IsListed(cell.outcome)) {
            continue;
        }
        const Answer answer = AnswerOf(questions.dispenser, questions.Amount(place), mix, cell);
        dangers.push_back({{"amount", answer.amount},
                           {"outcome", RowOf(answer.outcome).name},
                           {"paid", answer.paid.Text(AmountDecimals(questions.dispenser))},
                           {"values", answer.values}});
    }
    return dangers;
}

Json DeadlinesJson(const MapRow& row) {
    Json deadlines = Json::array();
    for (const MapRow::DeadlineRun& run : row.Deadlines()) {
        deadlines.push_back({DurationText(run.deadline), run.length});
    }
    return deadlines;
}

Json StepJson(const MapRow::Step& step) {
    if (!step.isAnswered) {
        return nullptr;
    }
    Json json = Json::array();
    for (const std::uint32_t more : step.values) {
        json.push_back(static_cast<std::int32_t>(more));
    }
    json.push_back(static_cast<std::int32_t>(step.remainder));
    json.push_back(step.returned);
    json.push_back(CodeJson(step.code));
    return json;
}

Json AnswersJson(const MapRow& row) {
    Json steps = Json::array();
    for (const MapRow::Step& step : row.Steps()) {
        steps.push_back(StepJson(step));
    }
    Json answers = {{"steps", steps}};
    answers.update(StepPathJson(row.Path(), row.Steps().size()));
    return answers;
}

Json MixesJson(const MapReport& report) {
    const MapQuestions& questions = report.questions;
    Json mixes = Json::array();
    for (std::size_t index = 0; index < report.answers.rows.size(); ++index) {
        const MapRow& row = report.answers.rows[index];
        mixes.push_back(
            {{"mix", questions.mixes[index]},
             {"runs", RunsJson(row)},
             {"counts", CountsJson([&row](Outcome outcome) { return row.Count(outcome); })},
             {"dangers", DangersJson(questions, questions.mixes[index], row)},
             {"deadlines", DeadlinesJson(row)},
             {"answers", AnswersJson(row)}});
    }
    return mixes;
}

Json MapJson(const MapReport& report) {
    const MapQuestions& questions = report.questions;
    return {{"amounts",
             {{"min", questions.from},
              {"max", questions.Amount(questions.AmountCount() - 1)},
              {"step", questions.step}}},
            {"mixes", MixesJson(report)}};
}

}  // namespace

Json MapInputJson(const MapReports& reports) {
    const MapQuestions& questions = reports.maps.front().questions;
    Json json = {{"dispenser", DispenserJson(questions.dispenser)}, {"mixes", questions.mixes}};
    if (!reports.AreSeveral()) {
        json.update(RangeJson(questions));
    } else {
        for (const MapReport& report : reports.maps) {
            json["currencies"].push_back(RangeOfCurrencyJson(report.questions));
        }
    }
    json["deadline"] = DurationText(questions.deadline);
    return json;
}

Json MapResultJson(const MapReports& reports) {
    if (!reports.AreSeveral()) {
        return MapJson(reports.maps.front());
    }
    Json currencies = Json::array();
    for (const MapReport& report : reports.maps) {
        Json json = {{"currency", report.Currency()}};
        json.update(MapJson(report));
        currencies.push_back(json);
    }
    return {{"currencies", currencies}};
}

}  // namespace qxmix
