#include "MapPage.h"

#include "MapVerdict.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"

namespace qxmix {

namespace {

std::string Script() {
    return std::string(kMapModelScript) + std::string(kMapGridScript) +
           std::string(kMapTablesScript) + std::string(kMapStartScript);
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

/// What would make the page small enough, by the size that it has.
std::string FittingText(const MapQuestions& questions, std::size_t size) {
    const std::uint64_t times = size / kMostPageBytes + 1;
    return "as with --step " + std::to_string(questions.step * times) + " or fewer --mixes";
}

}  // namespace

std::string MapPage(const MapQuestions& questions,
                    const MapAnswers& answers,
                    const Envelope& envelope,
                    const std::string& commandLine) {
    PageParts parts;
    parts.title = "qxmix map";
    parts.withoutScript =
        "This page draws its map with a script. Without it, here is how often each outcome occurs.";
    parts.summary = OutcomeCountTable("Amounts of each outcome", questions.mixes,
                                      [&answers](std::size_t place, Outcome outcome) {
                                          return answers.rows[place].Count(outcome);
                                      });
    parts.main = kMapHtml;
    parts.style = kMapCss;
    parts.script = Script();
    parts.page = PageJson(questions, answers, commandLine);
    parts.fitting = [&questions](std::size_t size) { return FittingText(questions, size); };
    return PageText(parts, envelope);
}

}  // namespace qxmix
