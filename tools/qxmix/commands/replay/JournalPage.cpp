#include "JournalForms.h"
#include "JournalText.h"
#include "pages/PageHtml.h"
#include "pages/PageParts.h"
#include "pages/Pages.h"

namespace qxmix {

namespace {

std::string HeadingHtml(const Journal& journal, const JournalAnswers& answers) {
    std::string html = "<p id=\"verdict\">" + HtmlText(JournalHeadline(answers)) + "</p>\n";
    if (!journal.badLines.empty()) {
        html += "<p>" + std::to_string(journal.badLines.size()) +
                (journal.badLines.size() == 1 ? " bad line was" : " bad lines were") +
                " passed over.</p>\n";
    }
    if (!answers.isComplete) {
        html += "<p>Interrupted at line " + std::to_string(answers.interruptedAt) + ".</p>\n";
    }
    return html;
}

std::string SummaryHtml(const JournalAnswers& answers) {
    std::vector<std::vector<std::string>> lines = {
        {"the same", std::to_string(answers.Count(JournalChange::Same))}};
    for (const JournalChangeRow& row : JournalChanges()) {
        lines.push_back({row.words, std::to_string(answers.Count(row.change))});
    }
    return HtmlTable("", "Lines by what has changed", {"What", "Lines#"}, lines);
}

Json ChangesJson() {
    Json changes = Json::array();
    for (const JournalChangeRow& row : JournalChanges()) {
        changes.push_back({{"name", row.name}, {"words", row.words}});
    }
    return changes;
}

}  // namespace

std::string JournalPage(const Journal& journal,
                        const Dispenser& dispenser,
                        const JournalAnswers& answers,
                        const Envelope& envelope,
                        const std::string& commandLine) {
    PageParts parts;
    parts.title = dispenser.name.empty() ? "What has changed since this journal" : dispenser.name;
    parts.heading = HeadingHtml(journal, answers);
    parts.withoutScript =
        "This page lists the lines with a script. Without it, here is how many have changed.";
    parts.summary = SummaryHtml(answers);
    parts.main = kJournalHtml;
    parts.dispenser =
        DispenserHtml(dispenser, {{"Lines", std::to_string(answers.lines)}}, commandLine);
    parts.style = "";
    parts.script = kJournalScript;
    parts.page = {{"changes", ChangesJson()}, {"outcomes", OutcomesJson(&WordsOf)}};
    parts.fitting = [](std::size_t) { return std::string("as with a part of the journal"); };
    return PageText(parts, envelope);
}

}  // namespace qxmix
