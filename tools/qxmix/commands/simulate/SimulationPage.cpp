#include "SimulationPage.h"

#include "SimulationRanking.h"
#include "SimulationVerdict.h"
#include "answers/Dangers.h"
#include "options/ShellWords.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"

#include <algorithm>

namespace qxmix {

namespace {

std::string Script() {
    return std::string(kPartsScript) + std::string(kSimModelScript) +
           std::string(kSimCurvesScript) + std::string(kSimPanelsScript) +
           std::string(kSimTablesScript) + std::string(kSimStartScript);
}

/// How every mix fared as a table, for readers whose browser runs no scripts. It holds nothing but
/// the tool's own words and numbers.
std::string SummaryTable(const SimulationAnswers& answers, const std::vector<SimulationRow>& rows) {
    std::string table = "<table><caption>Withdrawals of each outcome, the best mix "
                        "first</caption><thead><tr><th scope=\"col\">mix</th>";
    for (const OutcomeRow& outcome : OutcomeTable()) {
        table += std::string("<th scope=\"col\">") + outcome.words + "</th>";
    }
    table += "</tr></thead><tbody>\n";
    for (const SimulationRow& row : rows) {
        table += "<tr><th scope=\"row\">" + std::to_string(row.mix) + "</th>";
        for (const OutcomeRow& outcome : OutcomeTable()) {
            const std::uint64_t count = answers.runs.front()[row.place].Count(outcome.outcome);
            table += "<td>" + std::to_string(count) + "</td>";
        }
        table += "</tr>\n";
    }
    return table + "</tbody></table>";
}

Json PageJson(const SimulationQuestions& questions,
              const SimulationAnswers& answers,
              const std::vector<SimulationRow>& rows,
              const std::string& commandLine) {
    const SimulationVerdict verdict = VerdictOf(questions, answers, rows);
    Json dangers = Json::array();
    for (const Danger& danger : Dangers()) {
        dangers.push_back(RowOf(danger.outcome).name);
    }
    return {{"commandLine", commandLine}, {"best", verdict.best},
            {"danger", verdict.danger},   {"remarks", RemarksOn(answers, rows)},
            {"dangers", dangers},         {"outcomes", OutcomesJson()}};
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

std::string SimulationPage(const SimulationQuestions& questions,
                           const SimulationAnswers& answers,
                           const Envelope& envelope,
                           const std::string& commandLine) {
    const std::vector<SimulationRow> rows = RankMixes(questions, answers);
    const Json page = PageJson(questions, answers, rows, commandLine);
    const std::string text = FillPage(
        kSimHtml, {{"style", std::string(kPartsCss) + std::string(kSimCss)},
                   {"colours", OutcomeStyles()},
                   {"summary", SummaryTable(answers, rows)},
                   {"answer", JsonInPage(EnvelopeText(envelope))},
                   {"page", JsonInPage(page.dump(-1, ' ', false, Json::error_handler_t::replace))},
                   {"script", Script()}});
    if (text.size() > kMostPageBytes) {
        throw InputError("--output: a page of " + std::to_string(text.size()) +
                         " bytes is too large; expected at most " + std::to_string(kMostPageBytes) +
                         ", " + FittingText(questions, envelope, text.size()));
    }
    return text;
}

}  // namespace qxmix
