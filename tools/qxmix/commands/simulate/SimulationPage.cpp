#include "SimulationForms.h"

#include "answers/Dangers.h"
#include "json/Json.h"
#include "options/ShellWords.h"
#include "pages/PageHtml.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"
#include "text/Duration.h"

#include <algorithm>

namespace qxmix {

namespace {

std::string Script() {
    return std::string(kPlotsScript) + std::string(kSimModelScript) +
           std::string(kSimCurvesScript) + std::string(kSimPanelsScript) +
           std::string(kSimTablesScript) + std::string(kSimStartScript);
}

Json PageJson(const SimulationReport& report) {
    std::vector<std::string> remarks = report.remarks;
    for (const Finding& note : report.questions.Notes()) {
        remarks.push_back(note.message);
    }
    Json dangers = Json::array();
    for (const Danger& danger : Dangers()) {
        dangers.push_back(RowOf(danger.outcome).name);
    }
    return {{"remarks", remarks}, {"dangers", dangers}, {"outcomes", OutcomesJson(&PartWords)}};
}

std::string Plural(std::uint64_t count, const std::string& word) {
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

std::string HeadingHtml(const SimulationReport& report) {
    const SimulationAnswers& answers = report.answers;
    std::string best = report.best;
    std::replace(best.begin(), best.end(), '\n', ' ');
    std::string html = "<p id=\"verdict\">" + HtmlText(best) + "</p>\n";
    if (!report.danger.empty()) {
        html += "<p id=\"danger\"><strong>DANGER</strong> " + HtmlText(report.danger) + "</p>\n";
    }
    if (!answers.isComplete) {
        const std::size_t done = answers.demand.withdrawals.size();
        const bool isCut = done < answers.planned;
        html += "<p>Interrupted: the first " +
                (isCut ? Plural(done, "withdrawal") : Plural(answers.wholeRuns, "run")) + " of " +
                std::to_string(isCut ? answers.planned : report.questions.runs) + " only.</p>\n";
    }
    return html;
}

Facts FactsOf(const SimulationReport& report) {
    const SimulationQuestions& questions = report.questions;
    const Demand& demand = report.answers.demand;
    const std::string firstDay = demand.calendar.FirstDayText();
    std::string source = "recorded" + (firstDay.empty() ? "" : " from " + firstDay + " on");
    if (const auto* pattern = std::get_if<DemandPattern>(&questions.demand)) {
        source = Plural(pattern->days, "day") + ", " + std::to_string(pattern->perDay) +
                 " a day, drawn with seed " + std::to_string(questions.seed);
    } else if (!questions.IsRecorded()) {
        source = Plural(DaysOf(questions.demand), "recorded day") + ", drawn with seed " +
                 std::to_string(questions.seed);
    }
    return {{"Withdrawals", std::to_string(demand.withdrawals.size()) + ", " + report.askedText +
                                " asked; " + source},
            {"Deadline", DurationWords(questions.deadline) + " for a calculation"}};
}

/// What would make a page small enough, by the size that it has.
std::string
FittingText(const SimulationQuestions& questions, const Envelope& envelope, std::size_t size) {
    if (questions.runs > 1) {
        return "as without --runs, or with fewer --mixes";
    }
    std::size_t mixesSize = 0;
    for (const Json& mix : envelope.result.at("mixes")) {
        mixesSize += mix.dump().size();
    }
    const std::size_t count = questions.mixes.size();
    const std::size_t rest = size - std::min(size, mixesSize);
    const std::size_t fitting =
        rest < kMostPageBytes ? (kMostPageBytes - rest) * count / mixesSize : 0;
    if (fitting == 0) {
        return "as with fewer withdrawals";
    }
    const auto behind = questions.mixes.begin() + static_cast<std::ptrdiff_t>(fitting);
    return "as with --mixes " + MixListWord({questions.mixes.begin(), behind});
}

}  // namespace

std::string SimulationPage(const SimulationReport& report,
                           const Envelope& envelope,
                           const std::string& commandLine) {
    const SimulationQuestions& questions = report.questions;
    std::vector<std::uint16_t> mixes;
    for (const SimulationRow& row : report.rows) {
        mixes.push_back(row.mix);
    }
    PageParts parts;
    const std::string& name = questions.dispenser.name;
    parts.title = name.empty() ? "How this dispenser empties" : name;
    parts.heading = HeadingHtml(report);
    parts.withoutScript =
        "This page draws its curves with a script. Without it, here is how every mix fared.";
    parts.summary = OutcomeCountTable(
        "Withdrawals of each outcome, the best mix first", mixes,
        [&](std::size_t place, Outcome outcome) {
            return report.First(report.rows[place]).Count(outcome);
        },
        &PartWords);
    parts.main = kSimHtml;
    parts.dispenser = DispenserHtml(questions.dispenser, FactsOf(report), commandLine);
    parts.style = std::string(kPlotsCss) + std::string(kSimCss);
    parts.script = Script();
    parts.page = PageJson(report);
    parts.fitting = [&](std::size_t size) { return FittingText(questions, envelope, size); };
    return PageText(parts, envelope);
}

}  // namespace qxmix
