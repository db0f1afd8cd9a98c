#include "MapForms.h"

#include "dispenser/ReadableMoney.h"
#include "pages/PageHtml.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"
#include "tables/PaidTable.h"
#include "text/Duration.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostPageCells = 1000000;

std::string Script() {
    return std::string(kMapModelScript) + std::string(kMapGridScript) +
           std::string(kMapTablesScript) + std::string(kMapStartScript);
}

/// @param mark  of the verdict's element, if any.
std::string HeadingHtml(const MapReport& report, const std::string& mark) {
    const MapAnswers& answers = report.answers;
    const bool isDanger = report.colour == Outcome::Overpaid;
    std::string html = "<p" + mark + (isDanger ? " class=\"danger\"" : "") + "><strong>" +
                       report.word + "</strong> " + HtmlText(report.rest) + "</p>\n";
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

std::string HeadingHtml(const MapReports& reports) {
    std::string html;
    for (const MapReport& report : reports.maps) {
        html += HeadingHtml(report, html.empty() ? " id=\"verdict\"" : "");
    }
    for (const std::string& currency : reports.notAsked) {
        html += "<p>Interrupted: nothing asked in " + HtmlText(currency) + ".</p>\n";
    }
    return html;
}

/// "10 to 1000 EUR, 100 of them"
std::string AmountsText(const MapReport& report) {
    const MapQuestions& questions = report.questions;
    const auto text = [&questions](std::uint32_t amount) {
        const Dispenser& dispenser = questions.dispenser;
        return ReadableText(AskedMoney(dispenser, amount), AmountDecimals(dispenser));
    };
    const std::uint64_t count = report.answers.amountCount;
    return text(questions.Amount(0)) + " to " + text(questions.Amount(count == 0 ? 0 : count - 1)) +
           " " + report.Currency() + ", " + std::to_string(count) + " of them";
}

Facts FactsOf(const MapReports& reports) {
    std::vector<std::string> amounts;
    for (const MapReport& report : reports.maps) {
        amounts.push_back(AmountsText(report));
    }
    const Milliseconds deadline = reports.maps.front().questions.deadline;
    return {{"Amounts", Join(amounts, "; ")},
            {"Deadline", DurationWords(deadline) + " for a calculation"}};
}

/// How often each outcome occurred, a table for each currency.
std::string SummaryHtml(const MapReports& reports) {
    std::string html;
    for (const MapReport& report : reports.maps) {
        html += OutcomeCountTable(
            "Amounts of each outcome" + (reports.AreSeveral() ? " in " + report.Currency() : ""),
            report.questions.mixes,
            [&report](std::size_t place, Outcome outcome) {
                return report.answers.rows[place].Count(outcome);
            },
            [&report](const OutcomeRow& row) { return report.WordsOf(row); });
    }
    return html;
}

/// What would make the page small enough, by the size that it has.
std::string FittingText(const MapReports& reports, std::size_t size) {
    if (reports.AreSeveral()) {
        return "as with one --currency or fewer --mixes";
    }
    const std::uint64_t times = size / kMostPageBytes + 1;
    return "as with --step " + std::to_string(reports.maps.front().questions.step * times) +
           " or fewer --mixes";
}

/// The map whose words for outcomes fit all of them.
const MapReport& MostCautious(const MapReports& reports) {
    const auto cautious =
        std::find_if(reports.maps.begin(), reports.maps.end(),
                     [](const MapReport& report) { return !report.areMissesProved; });
    return cautious == reports.maps.end() ? reports.maps.front() : *cautious;
}

}  // namespace

void CheckFormHolds(const std::optional<OutputForm>& form,
                    const std::vector<MapQuestions>& questions) {
    if (form == OutputForm::Page) {
        for (const MapQuestions& one : questions) {
            CheckCellCount(one, kMostPageCells / questions.size(), "--output");
        }
    }
    if (IsMixTable(form) && questions.size() > 1) {
        std::vector<std::string> currencies;
        for (const MapQuestions& one : questions) {
            currencies.push_back(one.dispenser.currency);
        }
        throw InputError("--output: a mix table is of one currency; expected --currency with one "
                         "of " +
                         Join(currencies, ", "));
    }
    if (IsMixTable(form)) {
        CheckTableHolds(questions.front());
    }
}

std::string
MapPage(const MapReports& reports, const Envelope& envelope, const std::string& commandLine) {
    const Dispenser& dispenser = reports.maps.front().questions.dispenser;
    const MapReport& telling = MostCautious(reports);
    PageParts parts;
    parts.title = dispenser.name.empty() ? "What this dispenser pays" : dispenser.name;
    parts.heading = HeadingHtml(reports);
    parts.withoutScript =
        "This page draws its map with a script. Without it, here is how often each outcome occurs.";
    parts.summary = SummaryHtml(reports);
    parts.main = kMapHtml;
    parts.dispenser = DispenserHtml(dispenser, FactsOf(reports), commandLine);
    parts.style = kMapCss;
    parts.script = Script();
    parts.page = {{"outcomes", OutcomesJson([&telling](const OutcomeRow& row) {
                       return telling.WordsOf(row);
                   })}};
    parts.fitting = [&reports](std::size_t size) { return FittingText(reports, size); };
    return PageText(parts, envelope);
}

}  // namespace qxmix
