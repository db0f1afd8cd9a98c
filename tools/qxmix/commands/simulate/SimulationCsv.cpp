#include "SimulationForms.h"

namespace qxmix {

namespace {

class CsvLine {
public:
    CsvLine& Add(const std::string& field) {
        text_ += (isFirst_ ? "" : ",") + field;
        isFirst_ = false;
        return *this;
    }

    CsvLine& Add(std::uint64_t number) { return Add(std::to_string(number)); }

    std::string Text() const { return text_ + "\n"; }

private:
    std::string text_;
    bool isFirst_ = true;
};

std::string StepsOfMix(const SimulationReport& report, std::size_t place) {
    const SimulationAnswers& answers = report.answers;
    Dispenser dispenser = report.questions.dispenser;
    std::string csv;
    const std::vector<SimulationStep>& steps = answers.steps[place];
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const SimulationStep& step = steps[index];
        const Withdrawal& asked = answers.demand.withdrawals[index];
        if (step.IsTaken()) {
            TakeItems(dispenser, step.items);
        }
        CsvLine line;
        line.Add(report.questions.mixes[place])
            .Add(answers.demand.calendar.Text(asked.time))
            .Add(asked.amount)
            .Add(RowOf(step.outcome).name)
            .Add(IsAnswered(step.outcome)
                     ? WorthOf(dispenser, step.items).Text(AmountDecimals(dispenser))
                     : "");
        for (std::size_t cassette = 0; cassette < kMaxCashUnits; ++cassette) {
            const bool isThere = cassette < dispenser.cassettes.size();
            line.Add(isThere ? std::to_string(dispenser.cassettes[cassette].count) : "");
        }
        csv += line.Text();
    }
    return csv;
}

std::string SummaryLine(const SimulationReport& report, std::size_t run, std::size_t place) {
    const SimulationQuestions& questions = report.questions;
    const SimulationSummary& summary = report.answers.runs[run][place];
    const DemandCalendar& calendar = report.answers.demand.calendar;
    const unsigned decimals = AmountDecimals(questions.dispenser);
    CsvLine line;
    line.Add(questions.seed + run)
        .Add(questions.mixes[place])
        .Add(summary.Served())
        .Add(summary.InPart())
        .Add(summary.Refused())
        .Add(summary.Dangerous())
        .Add(summary.notes + summary.coins)
        .Add(summary.firstRefusal ? calendar.Text(summary.firstRefusal->asked.time) : "")
        .Add(summary.firstRefusal ? summary.firstRefusal->left.Text(decimals) : "")
        .Add(summary.emptied.empty() ? "" : calendar.Text(summary.emptied.front().time));
    for (std::size_t index = 0; index < kMaxCashUnits; ++index) {
        line.Add(index < summary.end.size() ? std::to_string(summary.end[index]) : "");
    }
    return line.Text();
}

}  // namespace

std::string SimulationCsv(const SimulationReport& report) {
    const SimulationQuestions& questions = report.questions;
    const std::string cassettes = ",c0,c1,c2,c3,c4,c5\n";
    if (questions.runs == 1) {
        std::string csv = "mix,time,amount,outcome,paid" + cassettes;
        for (std::size_t place = 0; place < questions.mixes.size(); ++place) {
            csv += StepsOfMix(report, place);
        }
        return csv;
    }
    std::string csv =
        "seed,mix,served,inPart,refused,dangerous,items,firstRefusal,left,firstEmpty" + cassettes;
    for (std::size_t run = 0; run < report.answers.wholeRuns; ++run) {
        for (std::size_t place = 0; place < questions.mixes.size(); ++place) {
            csv += SummaryLine(report, run, place);
        }
    }
    return csv;
}

}  // namespace qxmix
