#include "MapReport.h"

#include "answers/Dangers.h"
#include "dispenser/ReadableMoney.h"
#include "options/MixList.h"
#include "text/TextList.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

namespace qxmix {

namespace {

std::string MixText(std::uint16_t mix) {
    return "mix " + std::to_string(mix);
}

std::string AmountsText(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " amount" : " amounts");
}

/// "mix 4 gives no answer on 24 of 60 amounts, mix 9 overpays on 2 of 60"
std::string DangersText(const MapQuestions& questions, const MapAnswers& answers) {
    std::vector<std::string> parts;
    const std::uint64_t all = answers.amountCount;
    for (std::size_t row = 0; row < answers.rows.size(); ++row) {
        for (const Danger& danger : Dangers()) {
            const std::uint64_t count = answers.rows[row].Count(danger.outcome);
            if (count > 0) {
                const char* const doing = DoingOf(danger, answers.rows[row].AreMissesProved());
                parts.push_back(MixText(questions.mixes[row]) + " " + doing + " on " +
                                std::to_string(count) + " of " +
                                (parts.empty() ? AmountsText(all) : std::to_string(all)));
            }
        }
    }
    return Join(parts, ", ");
}

/// "60 of 60 amounts by mixes 1 2, 58 by mix 3"
std::string PaidText(const MapQuestions& questions, const MapAnswers& answers) {
    std::map<std::uint64_t, std::vector<std::uint16_t>, std::greater<>> mixes;
    for (std::size_t row = 0; row < answers.rows.size(); ++row) {
        mixes[answers.rows[row].Count(Outcome::Paid)].push_back(questions.mixes[row]);
    }
    std::vector<std::string> parts;
    for (const auto& [paid, group] : mixes) {
        const bool isAll = group.size() > 1 && group.size() == answers.rows.size();
        parts.push_back(std::to_string(paid) +
                        (parts.empty() ? " of " + AmountsText(answers.amountCount) : "") + " by " +
                        (isAll ? AllMixesText(group.size()) : MixesText(group)));
    }
    return Join(parts, ", ");
}

bool IsHonestNo(Outcome outcome) {
    return RowOf(outcome).exitStatus == ExitStatus::HonestNo;
}

/// The amounts that a mix honestly does not pay, as stretches: first place and the place behind.
using Stretches = std::vector<std::pair<std::uint64_t, std::uint64_t>>;

Stretches UnpaidStretches(const MapRow& row) {
    Stretches stretches;
    std::uint64_t place = 0;
    for (const MapRow::Run& run : row.Runs()) {
        if (IsHonestNo(run.outcome)) {
            if (!stretches.empty() && stretches.back().second == place) {
                stretches.back().second += run.length;
            } else {
                stretches.emplace_back(place, place + run.length);
            }
        }
        place += run.length;
    }
    return stretches;
}

/// "10, 30 EUR" or, where the width is not enough, "10, 30, 50 EUR and 21 more".
std::string
UnpaidText(const MapQuestions& questions, const Stretches& stretches, std::size_t width) {
    const Dispenser& dispenser = questions.dispenser;
    const unsigned decimals = AmountDecimals(dispenser);
    std::uint64_t left = 0;
    for (const auto& [first, behind] : stretches) {
        left += behind - first;
    }
    std::string text;
    for (const auto& [first, behind] : stretches) {
        for (std::uint64_t place = first; place < behind; ++place) {
            const std::string amount =
                ReadableText(AskedMoney(dispenser, questions.Amount(place)), decimals);
            const std::string end = " " + dispenser.currency;
            const std::string more = " and " + std::to_string(left) + " more";
            const std::size_t needed =
                text.size() + 2 + amount.size() + end.size() + (left > 1 ? more.size() : 0);
            if (!text.empty() && needed > width) {
                return text + end + more;
            }
            text += (text.empty() ? "" : ", ") + amount;
            --left;
        }
    }
    return text + " " + dispenser.currency;
}

void AddVerdict(MapReport& report) {
    const MapQuestions& questions = report.questions;
    const MapAnswers& answers = report.answers;
    const std::string dangers = DangersText(questions, answers);
    const auto hasAny = [&answers](const auto& matches) {
        return std::any_of(answers.rows.begin(), answers.rows.end(), [&matches](const MapRow& row) {
            return std::any_of(row.Runs().begin(), row.Runs().end(),
                               [&matches](const MapRow::Run& run) { return matches(run.outcome); });
        });
    };
    if (!dangers.empty()) {
        const bool isDanger =
            hasAny([](Outcome outcome) { return RowOf(outcome).exitStatus == ExitStatus::Danger; });
        report.word = isDanger ? "DANGER" : "CRASH";
        report.colour = Outcome::Overpaid;
        report.rest = dangers;
        return;
    }
    const bool isShort = hasAny([](Outcome outcome) { return outcome != Outcome::Paid; });
    report.word = isShort ? "NOT ALL PAID" : "PAID";
    report.colour = isShort ? Outcome::NotDispensable : Outcome::Paid;
    report.rest = PaidText(questions, answers);
}

/// Has everything that is told of a map tell its currency.
void TellCurrencies(MapReport& report) {
    report.rest = CurrencyMark(report.Currency()) + report.rest;
    for (std::vector<Finding>* const findings : {&report.findings, &report.differences}) {
        for (Finding& finding : *findings) {
            TellCurrency(finding, report.Currency());
        }
    }
}

std::vector<std::string> UnpaidLines(const MapQuestions& questions, const MapAnswers& answers) {
    std::vector<std::pair<Stretches, std::vector<std::uint16_t>>> groups;
    for (std::size_t row = 0; row < answers.rows.size(); ++row) {
        const Stretches stretches = UnpaidStretches(answers.rows[row]);
        if (stretches.empty()) {
            continue;
        }
        const auto same = std::find_if(groups.begin(), groups.end(), [&stretches](const auto& g) {
            return g.first == stretches;
        });
        auto& group = same != groups.end() ? *same : groups.emplace_back();
        group.first = stretches;
        group.second.push_back(questions.mixes[row]);
    }
    std::vector<std::string> lines;
    for (const auto& [stretches, mixes] : groups) {
        const std::string before = "Not paid by " + MixesText(mixes) + ": ";
        lines.push_back(before + UnpaidText(questions, stretches, kPlainWidth - before.size()));
    }
    return lines;
}

std::vector<Finding> FindingsOf(const MapQuestions& questions, const MapAnswers& answers) {
    std::vector<Finding> findings;
    for (std::size_t row = 0; row < answers.rows.size(); ++row) {
        const auto count = [&answers, row](Outcome outcome) {
            return answers.rows[row].Count(outcome);
        };
        const std::vector<Finding> found =
            DangerFindings(questions.mixes[row], count, AmountsText(answers.amountCount),
                           answers.rows[row].AreMissesProved());
        findings.insert(findings.end(), found.begin(), found.end());
    }
    return findings;
}

ExitStatus ExitStatusOf(const MapAnswers& answers) {
    if (!answers.isComplete) {
        return ExitStatus::Interrupted;
    }
    ExitStatus highest = ExitStatus::Well;
    for (const MapRow& row : answers.rows) {
        for (const MapRow::Run& run : row.Runs()) {
            highest = std::max(highest, RowOf(run.outcome).exitStatus);
        }
    }
    return highest;
}

}  // namespace

MapReport::MapReport(MapQuestions asked,
                     MapAnswers came,
                     std::vector<Finding> otherwise,
                     bool isOneOfSeveral)
    : questions(std::move(asked)), answers(std::move(came)), differences(std::move(otherwise)),
      areMissesProved(std::all_of(answers.rows.begin(),
                                  answers.rows.end(),
                                  [](const MapRow& row) { return row.AreMissesProved(); })),
      unpaid(UnpaidLines(questions, answers)), findings(FindingsOf(questions, answers)),
      status(ExitStatusOf(answers)) {
    AddVerdict(*this);
    findings.insert(findings.end(), differences.begin(), differences.end());
    if (isOneOfSeveral) {
        TellCurrencies(*this);
    }
}

bool MapReports::IsComplete() const {
    return notAsked.empty() && maps.back().answers.isComplete;
}

ExitStatus MapReports::Status() const {
    ExitStatus highest = IsComplete() ? ExitStatus::Well : ExitStatus::Interrupted;
    for (const MapReport& map : maps) {
        highest = std::max(highest, map.status);
    }
    return highest;
}

std::vector<Finding> MapReports::Findings() const {
    std::vector<Finding> findings;
    for (const MapReport& map : maps) {
        findings.insert(findings.end(), map.findings.begin(), map.findings.end());
    }
    return findings;
}

std::string MapReports::LastCode() const {
    std::string code;
    for (const MapReport& map : maps) {
        code = map.answers.lastCode.empty() ? code : map.answers.lastCode;
    }
    return code;
}

}  // namespace qxmix
