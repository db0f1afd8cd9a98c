#include "MapPage.h"

#include "MapVerdict.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"

namespace qxmix {

namespace {

std::string Script() {
    return std::string(kPartsScript) + std::string(kMapModelScript) + std::string(kMapGridScript) +
           std::string(kMapTablesScript) + std::string(kMapStartScript);
}

/// The counts as a table, for readers whose browser runs no scripts. It holds nothing but the
/// tool's own words and numbers.
std::string SummaryTable(const MapQuestions& questions, const MapAnswers& answers) {
    std::string table = "<table><caption>Amounts of each outcome</caption><thead><tr><th "
                        "scope=\"col\">mix</th>";
    for (const OutcomeRow& outcome : OutcomeTable()) {
        table += std::string("<th scope=\"col\">") + outcome.words + "</th>";
    }
    table += "</tr></thead><tbody>\n";
    for (std::size_t row = 0; row < answers.rows.size(); ++row) {
        table += "<tr><th scope=\"row\">" + std::to_string(questions.mixes[row]) + "</th>";
        for (const OutcomeRow& outcome : OutcomeTable()) {
            table += "<td>" + std::to_string(answers.rows[row].Count(outcome.outcome)) + "</td>";
        }
        table += "</tr>\n";
    }
    return table + "</tbody></table>";
}

Json PageJson(const MapQuestions& questions,
              const MapAnswers& answers,
              const std::string& commandLine) {
    const MapVerdict verdict = VerdictOf(questions, answers);
    return {{"commandLine", commandLine},
            {"verdict",
             {{"word", verdict.word},
              {"rest", verdict.rest},
              {"isDanger", verdict.colour == Outcome::Overpaid}}},
            {"unpaid", UnpaidLines(questions, answers)},
            {"outcomes", OutcomesJson()}};
}

/// Steps with which the page would be small enough, by the size that it has.
std::uint64_t FittingStep(const MapQuestions& questions, std::size_t size) {
    const std::uint64_t times = size / kMostPageBytes + 1;
    return questions.step * times;
}

}  // namespace

std::string MapPage(const MapQuestions& questions,
                    const MapAnswers& answers,
                    const Envelope& envelope,
                    const std::string& commandLine) {
    const Json page = PageJson(questions, answers, commandLine);
    const std::string text = FillPage(
        kMapHtml, {{"style", std::string(kPartsCss) + std::string(kMapCss)},
                   {"colours", OutcomeStyles()},
                   {"summary", SummaryTable(questions, answers)},
                   {"answer", JsonInPage(EnvelopeText(envelope))},
                   {"page", JsonInPage(page.dump(-1, ' ', false, Json::error_handler_t::replace))},
                   {"script", Script()}});
    if (text.size() > kMostPageBytes) {
        throw InputError("--output: a page of " + std::to_string(text.size()) +
                         " bytes is too large; expected at most " + std::to_string(kMostPageBytes) +
                         ", as with --step " + std::to_string(FittingStep(questions, text.size())) +
                         " or fewer --mixes");
    }
    return text;
}

}  // namespace qxmix
