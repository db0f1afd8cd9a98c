#include "FillForms.h"
#include "json/Json.h"
#include "pages/PageHtml.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

/// Its first word is what matters.
std::string HeadingHtml(const FillReport& report) {
    std::string html;
    for (const std::string& line : report.headline) {
        const std::string text = line.substr(line.find_first_not_of(' '));
        const std::size_t gap = text.find("  ");
        const bool isFirst = html.empty();
        const bool isBad = report.status == ExitStatus::Danger;
        html += !isFirst ? "<p>"
                : isBad  ? "<p id=\"verdict\" class=\"danger\">"
                         : "<p id=\"verdict\">";
        html += gap == std::string::npos ? HtmlText(text)
                                         : "<strong>" + HtmlText(text.substr(0, gap)) +
                                               "</strong> " + HtmlText(text.substr(gap + 2));
        html += "</p>\n";
    }
    return html + (report.answers.isComplete ? "" : "<p>Interrupted: the best so far.</p>\n");
}

std::string SummaryHtml(const FillReport& report) {
    std::vector<std::vector<std::string>> lines;
    for (const MixFill& mix : report.answers.mixes) {
        lines.push_back({std::to_string(mix.mix)});
        if (mix.load) {
            const FillOutcome& outcome = mix.load->outcome;
            lines.back().insert(lines.back().end(),
                                {report.MoneyText(outcome.worth),
                                 PercentText(outcome.median) + " %",
                                 PercentText(outcome.worst) + " %",
                                 RunsText(outcome.reaching, report.demands.size())});
        } else {
            lines.back().insert(lines.back().end(), 4, "-");
        }
    }
    return HtmlTable("", "What each mix loads, the best one first",
                     {"mix", "load#", "median#", "worst#", "reached in#"}, lines);
}

Facts FactsOfFill(const FillReport& report) {
    const FillQuestions& questions = report.questions;
    const std::size_t all = report.demands.size();
    const std::string firstDay = report.demands.front()->calendar.FirstDayText();
    std::string source = DaysText(questions.Days()) + ", recorded" +
                         (firstDay.empty() ? "" : " from " + firstDay + " on");
    if (!questions.IsRecorded()) {
        source = DaysText(questions.Days()) + ", drawn " + std::to_string(all) +
                 (all == 1 ? " time with seed " : " times with seeds from ") +
                 std::to_string(questions.seed) + (all == 1 ? "" : " on");
    }
    return {{"Withdrawals", source},
            {"Service", questions.serviceText + " % of the withdrawals in " +
                            RunsText(all - questions.MostMisses(), all)},
            {"Deadline", DurationWords(questions.deadline) + " for a calculation"}};
}

Json FillPageJson(const FillReport& report) {
    std::vector<std::string> remarks = report.remarks;
    for (const Finding& note : report.findings) {
        remarks.push_back(note.message);
    }
    return {{"remarks", remarks},
            {"promisedRuns", report.demands.size() - report.questions.MostMisses()},
            {"outcomes", OutcomesJson(&WordsOf)}};
}

}  // namespace

std::string
FillPage(const FillReport& report, const Envelope& envelope, const std::string& commandLine) {
    const std::string& name = report.questions.dispenser.name;
    PageParts parts;
    parts.title = name.empty() ? "How to fill this dispenser" : name;
    parts.heading = HeadingHtml(report);
    parts.withoutScript =
        "This page draws its curves with a script. Without it, here is what each mix loads.";
    parts.summary = SummaryHtml(report);
    parts.main = kFillHtml;
    parts.dispenser = DispenserHtml(report.questions.dispenser, FactsOfFill(report), commandLine);
    parts.style = std::string(kPlotsCss) + std::string(kFillCss);
    parts.script = std::string(kPlotsScript) + std::string(kFillModelScript) +
                   std::string(kFillPlotsScript) + std::string(kFillTablesScript) +
                   std::string(kFillStartScript);
    parts.page = FillPageJson(report);
    parts.fitting = [](std::size_t) { return std::string("as with fewer --mixes"); };
    return PageText(parts, envelope);
}

}  // namespace qxmix
