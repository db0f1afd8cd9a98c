#include "LintReport.h"

#include "LintCures.h"
#include "dispenser/ReadableMoney.h"
#include "json/Json.h"
#include "options/MixList.h"

#include <algorithm>

namespace qxmix {

namespace {

/// "10 pays 60, 30 pays 80, ...": as many as fit, at least one.
///
/// @param width  columns left in the line; when not even one fits, the list has the next line, too.
std::string ListText(const std::vector<LintAnswer>& answers,
                     const LintAnswersText::Tell& tell,
                     std::size_t width) {
    const std::string more = ", ...";
    std::string text = tell(answers.front());
    if (text.size() + (answers.size() == 1 ? 0 : more.size()) > width) {
        width += kPlainWidth - kLeftOfFinding;
    }
    for (std::size_t index = 1; index < answers.size(); ++index) {
        const std::string next = ", " + tell(answers[index]);
        const bool isLast = index + 1 == answers.size();
        if (text.size() + next.size() + (isLast ? 0 : more.size()) > width) {
            return text + more;
        }
        text += next;
    }
    return text;
}

Json AnswerJson(const LintCase& lint, const LintAnswer& answer) {
    const unsigned decimals = AmountDecimals(lint.TheDispenser());
    return {{"amount", answer.amount},
            {"outcome", RowOf(answer.cell.outcome).name},
            {"paid",
             answer.cell.IsAnswered() ? Json(Unpacked(lint, answer).paid.Text(decimals)) : Json()}};
}

}  // namespace

std::string LintReport::Told(const std::string& message) const {
    return pattern_.currency.empty() ? message : CurrencyMark(pattern_.currency) + message;
}

void LintReport::Add(const std::string& pointer,
                     const std::string& message,
                     const std::optional<std::vector<std::uint16_t>>& mixes,
                     const std::string& advice) {
    if (mixes && mixes->empty()) {
        return;
    }
    LintFinding finding;
    static_cast<Finding&>(finding) = pattern_;
    finding.pointer = pointer;
    finding.message = Told(message);
    finding.advice = advice.empty() ? finding.advice : advice;
    if (mixes && mixes->size() == 1) {
        finding.mix = mixes->front();
    }
    const bool isPart = mixes && mixes->size() < lint_.mixes.size();
    if (isPart && message.find(MixesText(*mixes)) == std::string::npos) {
        finding.message += " (" + MixesText(*mixes) + ")";
    }
    findings_.push_back(finding);
}

void LintReport::AddAnswers(const LintMix& mix,
                            const std::vector<LintAnswer>& answers,
                            const LintAnswersText& text) {
    if (answers.empty()) {
        return;
    }
    LintFinding finding;
    static_cast<Finding&>(finding) = pattern_;
    finding.mix = mix.mix;
    finding.pointer = text.pointer;
    finding.advice = text.advice.empty() ? finding.advice : text.advice;
    const std::uint64_t of = mix.row.Size();
    finding.message =
        Told(text.before) + (text.tellsAll ? " " : " on ") + std::to_string(answers.size()) +
        (text.tellsAll ? " of " + std::to_string(of) : "") +
        ((text.tellsAll ? of : answers.size()) == 1 ? " amount" : " amounts") + text.after + ": ";
    const std::size_t used = kLeftOfFinding + finding.pointer.size() + 2 + finding.message.size();
    finding.message += ListText(answers, text.tell, kPlainWidth - std::min(used, kPlainWidth));
    finding.amounts = LintAmounts{answers.size(), of, Json::array()};
    for (std::size_t index = 0; index < std::min(answers.size(), kListedAmounts); ++index) {
        Json json = AnswerJson(lint_, answers[index]);
        if (text.details != nullptr) {
            json.update(text.details(answers[index]));
        }
        finding.amounts->first.push_back(json);
    }
    if (text.cures != nullptr) {
        finding.cures = CuresJson(*text.cures);
    }
    findings_.push_back(finding);
}

void LintReport::AddCured(const LintMix& mix,
                          const std::string& pointer,
                          const std::string& message,
                          const std::string& advice,
                          const LintCures& cures) {
    Add(pointer, message, std::vector<std::uint16_t>{mix.mix}, advice);
    findings_.back().cures = CuresJson(cures);
}

void LintReport::AddOwn(const Finding& finding) {
    if (finding.id == pattern_.id) {
        findings_.emplace_back();
        static_cast<Finding&>(findings_.back()) = finding;
    }
}

bool LintReport::Has(const std::string& id, std::uint16_t mix) const {
    return std::any_of(findings_.begin(), findings_.end(), [&id, mix](const Finding& finding) {
        return finding.id == id && finding.mix == mix;
    });
}

std::string MixText(const LintMix& mix) {
    return "mix " + std::to_string(mix.mix);
}

LintAnswersText::Tell AmountsOf(const LintCase& lint) {
    return [&lint](const LintAnswer& answer) { return AmountText(lint, answer.amount); };
}

std::string AmountText(const LintCase& lint, std::uint32_t amount) {
    const Dispenser& dispenser = lint.TheDispenser();
    return ReadableText(AskedMoney(dispenser, amount), AmountDecimals(dispenser));
}

std::string PaidText(const LintCase& lint, const LintAnswer& answer) {
    return AmountText(lint, answer.amount) + " pays " +
           ReadableText(Unpacked(lint, answer).paid, AmountDecimals(lint.TheDispenser()));
}

std::string CassettePointer(std::size_t cassette, const std::string& field) {
    return "/cassettes/" + std::to_string(cassette) + "/" + field;
}

std::string NoteText(const Cassette& cassette) {
    return cassette.Worth().ShortText() + " " + cassette.currency;
}

}  // namespace qxmix
