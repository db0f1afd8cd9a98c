#include "MapForms.h"

#include "dispenser/ReadableMoney.h"
#include "pages/PageHtml.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"
#include "tables/PaidTable.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

constexpr std::uint64_t kMostPageCells = 1000000;

std::string Script() {
    return std::string(kMapModelScript) + std::string(kMapGridScript) +
           std::string(kMapTablesScript) + std::string(kMapStartScript);
}

std::string HeadingHtml(const MapReport& report) {
    const MapAnswers& answers = report.answers;
    const bool isDanger = report.colour == Outcome::Overpaid;
    std::string html = std::string("<p id=\"verdict\"") + (isDanger ? " class=\"danger\"" : "") +
                       "><strong>" + report.word + "</strong> " + HtmlText(report.rest) + "</p>\n";
    if (!answers.isComplete) {
        const std::uint64_t count = answers.amountCount;
        html += "<p>Interrupted: the first " + std::to_string(count) +
                (count == 1 ? " amount" : " amounts") + " only.</p>\n";
    }
    for (const std::string& line : report.unpaid) {
        html += "<p>" + HtmlText(line) + "</p>\n";
    }
    return html;
}

Facts FactsOf(const MapQuestions& questions, const MapAnswers& answers) {
    const auto text = [&questions](std::uint32_t amount) {
        const Dispenser& dispenser = questions.dispenser;
        return ReadableText(AskedMoney(dispenser, amount), AmountDecimals(dispenser));
    };
    const std::uint64_t count = answers.amountCount;
    return {{"Amounts", text(questions.Amount(0)) + " to " +
                            text(questions.Amount(count == 0 ? 0 : count - 1)) + " " +
                            questions.dispenser.currency + ", " + std::to_string(count) +
                            " of them"},
            {"Deadline", DurationWords(questions.deadline) + " for a calculation"}};
}

/// What would make the page small enough, by the size that it has.
std::string FittingText(const MapQuestions& questions, std::size_t size) {
    const std::uint64_t times = size / kMostPageBytes + 1;
    return "as with --step " + std::to_string(questions.step * times) + " or fewer --mixes";
}

}  // namespace

void CheckFormHolds(const std::optional<OutputForm>& form, const MapQuestions& questions) {
    if (form == OutputForm::Page) {
        CheckCellCount(questions, kMostPageCells, "--output");
    }
    if (IsMixTable(form)) {
        CheckTableHolds(questions);
    }
}

std::string
MapPage(const MapReport& report, const Envelope& envelope, const std::string& commandLine) {
    const MapQuestions& questions = report.questions;
    const MapAnswers& answers = report.answers;
    const auto words = [&report](const OutcomeRow& row) { return report.WordsOf(row); };
    PageParts parts;
    const std::string& name = questions.dispenser.name;
    parts.title = name.empty() ? "What this dispenser pays" : name;
    parts.heading = HeadingHtml(report);
    parts.withoutScript =
        "This page draws its map with a script. Without it, here is how often each outcome occurs.";
    parts.summary = OutcomeCountTable(
        "Amounts of each outcome", questions.mixes,
        [&answers](std::size_t place, Outcome outcome) {
            return answers.rows[place].Count(outcome);
        },
        words);
    parts.main = kMapHtml;
    parts.dispenser = DispenserHtml(questions.dispenser, FactsOf(questions, answers), commandLine);
    parts.style = kMapCss;
    parts.script = Script();
    parts.page = {{"outcomes", OutcomesJson(words)}};
    parts.fitting = [&questions](std::size_t size) { return FittingText(questions, size); };
    return PageText(parts, envelope);
}

}  // namespace qxmix
