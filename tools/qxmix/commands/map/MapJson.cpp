#include "MapForms.h"

#include "answers/ResultJson.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "json/StepPath.h"
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

}  // namespace

Json MapInputJson(const MapQuestions& questions) {
    return {{"dispenser", DispenserJson(questions.dispenser)},
            {"mixes", questions.mixes},
            {"from", questions.from},
            {"to", questions.to},
            {"step", questions.step},
            {"deadline", DurationText(questions.deadline)}};
}

Json MapResultJson(const MapReport& report) {
    const MapQuestions& questions = report.questions;
    const MapAnswers& answers = report.answers;
    Json mixes = Json::array();
    for (std::size_t index = 0; index < answers.rows.size(); ++index) {
        const MapRow& row = answers.rows[index];
        mixes.push_back(
            {{"mix", questions.mixes[index]},
             {"runs", RunsJson(row)},
             {"counts", CountsJson([&row](Outcome outcome) { return row.Count(outcome); })},
             {"dangers", DangersJson(questions, questions.mixes[index], row)},
             {"deadlines", DeadlinesJson(row)},
             {"answers", AnswersJson(row)}});
    }
    return {{"amounts",
             {{"min", questions.from},
              {"max", questions.Amount(questions.AmountCount() - 1)},
              {"step", questions.step}}},
            {"mixes", mixes}};
}

}  // namespace qxmix
