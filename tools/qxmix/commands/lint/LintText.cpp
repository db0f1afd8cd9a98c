#include "LintForms.h"

#include "mixes/MixTraits.h"
#include "options/MixList.h"
#include "terminal/WrappedText.h"
#include "text/TextList.h"

#include <algorithm>
#include <map>

namespace qxmix {

namespace {

/// "4 errors, 1 note", or "nothing found".
std::string SeveritiesText(const std::vector<LintFinding>& told, std::size_t accepted) {
    std::vector<std::string> parts;
    const auto add = [&](Severity severity, const std::string& name) {
        const auto count =
            std::count_if(told.begin(), told.end(), [severity](const Finding& finding) {
                return finding.severity == severity;
            });
        if (count > 0) {
            parts.push_back(CountText(static_cast<std::uint64_t>(count), name));
        }
    };
    add(Severity::Error, "error");
    add(Severity::Warning, "warning");
    add(Severity::Note, "note");
    if (accepted > 0) {
        parts.push_back(std::to_string(accepted) + " accepted");
    }
    return parts.empty() ? "nothing found" : Join(parts, ", ");
}

/// "100 amounts from 10 to 1000 EUR"
std::string AskedText(const LintCase& lint) {
    const std::string& currency = lint.TheDispenser().currency;
    const std::uint64_t count = lint.amountCount;
    const std::string first = AmountText(lint, lint.questions.Amount(0));
    return count == 1 ? first + " " + currency
                      : CountText(count, "amount") + " from " + first + " to " +
                            AmountText(lint, lint.questions.Amount(count - 1)) + " " + currency;
}

/// "100 amounts from 10 to 1000 EUR, 10 amounts from 20 to 200 USD asked"
std::string AskedText(const LintCases& cases) {
    std::vector<std::string> parts;
    for (const LintCase& lint : cases) {
        if (lint.amountCount != 0) {
            parts.push_back(AskedText(lint));
        }
    }
    return (parts.empty() ? "no amount" : Join(parts, ", ")) + " asked";
}

/// A finding with the reason why it is accepted, in the place of what to do.
std::string AcceptedText(LintFinding finding, const Painter& painter) {
    finding.advice.clear();
    const std::string reason =
        WrappedText(Split(Printable(*finding.accepted), ' '), " ", kLeftOfFinding, kLeftOfFinding);
    return FindingText(finding, FindingPlace::Told, painter) + "      ok     " + reason + "\n";
}

std::string InterruptionText(const LintCases& cases) {
    const LintCase& lint = cases.back();
    const std::uint64_t done = lint.amountCount;
    const std::uint64_t all = lint.questions.AmountCount();
    if (lint.isComplete) {
        return "";
    }
    std::string text = "interrupted while more was asked about " + CountText(all, "amount");
    if (done != all) {
        text = "interrupted at " + AmountText(lint, lint.questions.Amount(done)) + " " +
               lint.TheDispenser().currency + ", " + std::to_string(done) + " of " +
               CountText(all, "amount");
    }
    for (std::size_t index = cases.size(); index < lint.currencies.size(); ++index) {
        text += "\nnothing asked in " + lint.currencies[index];
    }
    return text + "\n";
}

/// A finding without the number of its mix.
std::string WithoutMix(const LintFinding& finding) {
    std::string text = finding.id + finding.pointer + finding.message + finding.advice;
    const std::string mix = finding.mix ? "mix " + std::to_string(*finding.mix) + " " : "";
    const std::size_t at = mix.empty() ? std::string::npos : text.find(mix);
    return at == std::string::npos ? text : text.erase(at, mix.size());
}

}  // namespace

std::string CountText(std::uint64_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::vector<LintFinding>
ToldFindings(const std::vector<LintFinding>& findings, bool quiet, bool isAccepted) {
    std::vector<LintFinding> told;
    std::vector<std::vector<std::uint16_t>> others;
    std::map<std::string, std::size_t> places;
    for (const LintFinding& finding : findings) {
        if ((quiet && finding.severity == Severity::Note) ||
            finding.accepted.has_value() != isAccepted) {
            continue;
        }
        const auto [place, isNew] = places.emplace(WithoutMix(finding), told.size());
        if (isNew || !finding.mix) {
            told.push_back(finding);
            others.emplace_back();
        } else {
            others[place->second].push_back(*finding.mix);
        }
    }
    for (std::size_t place = 0; place < told.size(); ++place) {
        if (!others[place].empty()) {
            told[place].message += "; the same in " + MixesText(others[place]);
        }
    }
    return told;
}

std::vector<std::string> CrashLines(const LintCases& cases) {
    std::vector<std::string> lines;
    for (const LintCase& lint : cases) {
        const std::string mark =
            lint.IsOneOfSeveral() ? CurrencyMark(lint.TheDispenser().currency) : "";
        for (const LintMix& mix : lint.mixes) {
            const std::uint64_t crashes = mix.row.Count(Outcome::Crashed);
            if (crashes > 0) {
                lines.push_back(mark + MixText(mix) + " crashes on " +
                                CountText(crashes, "amount"));
            }
        }
    }
    return lines;
}

std::string LintText(const LintCases& cases,
                     const std::vector<LintFinding>& findings,
                     bool quiet,
                     bool hasAll,
                     const Painter& painter) {
    const std::vector<std::uint16_t>& mixes = cases.front().questions.mixes;
    const std::vector<LintFinding> told = ToldFindings(findings, quiet, false);
    const std::vector<LintFinding> accepted = ToldFindings(findings, quiet, true);
    const std::string heading =
        SeveritiesText(told, accepted.size()) + " for " +
        (mixes == AllMixes() ? AllMixesText(mixes.size()) : MixesText(mixes)) + ", " +
        AskedText(cases);
    std::string text = WrappedText(Split(heading, ' '), " ", 0, 2) + "\n";
    for (const std::string& crash : CrashLines(cases)) {
        text += painter.Paint("CRASH", RowOf(Outcome::Crashed).terminalStyle) + "  " + crash + "\n";
    }
    const bool tellsAccepted = hasAll && !accepted.empty();
    text += told.empty() && !tellsAccepted ? "" : "\n";
    for (const LintFinding& finding : told) {
        text += FindingText(finding, FindingPlace::Told, painter);
    }
    for (const LintFinding& finding : tellsAccepted ? accepted : std::vector<LintFinding>()) {
        text += AcceptedText(finding, painter);
    }
    return text + InterruptionText(cases);
}

}  // namespace qxmix
