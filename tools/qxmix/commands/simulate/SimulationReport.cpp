#include "SimulationReport.h"

#include "answers/Dangers.h"
#include "dispenser/ReadableMoney.h"
#include "text/TextList.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace qxmix {

namespace {

std::string MixesText(const std::vector<std::string>& mixes) {
    return (mixes.size() == 1 ? "Mix " : "Mixes ") + Join(mixes, " ");
}

std::string WithdrawalsText(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " withdrawal" : " withdrawals");
}

/// "Mix 1 serves most: 834 of", "All 5 mixes serve 840 of" and the like.
std::string BestText(const std::vector<SimulationRow>& rows) {
    std::vector<std::string> best;
    for (const SimulationRow& row : rows) {
        if (row.rank && row.served.median == rows.front().served.median) {
            best.push_back(std::to_string(row.mix));
        }
    }
    const std::string served = std::to_string(rows.front().served.median) + " of ";
    if (best.empty()) {
        return "No mix can be ranked: ";
    }
    if (best.size() == rows.size()) {
        return (best.size() == 1 ? MixesText(best) + " serves "
                                 : "All " + std::to_string(best.size()) + " mixes serve ") +
               served;
    }
    return MixesText(best) + (best.size() == 1 ? " serves" : " serve") + " most: " + served;
}

std::string
AskedText(const Dispenser& dispenser, const Demand& demand, const std::vector<Money>& sums) {
    std::vector<std::string> texts;
    for (std::size_t place = 0; place < sums.size(); ++place) {
        if (sums.size() == 1 || !sums[place].IsZero()) {
            texts.push_back(ReadableText(sums[place], AmountDecimals(dispenser)) + " " +
                            demand.currencies[place]);
        }
    }
    return Join(texts, " and ");
}

std::string DemandText(const SimulationReport& report) {
    const SimulationQuestions& questions = report.questions;
    const std::size_t runs = report.answers.wholeRuns;
    if (questions.runs > 1 && runs == 0) {
        return "of a run that did not end (seed " + std::to_string(questions.seed) + ")";
    }
    if (questions.runs > 1) {
        const std::string first = std::to_string(questions.seed);
        return "median of " + std::to_string(runs) + (runs == 1 ? " run" : " runs") + " (seeds " +
               first + " to " + std::to_string(questions.seed + runs - 1) + ")";
    }
    return "(" + report.askedText + " asked, " +
           (questions.IsRecorded() ? "recorded" : "seed " + std::to_string(questions.seed)) + ")";
}

std::string GivenUpText(const SimulationSummary& summary, const Demand& demand) {
    return "given up after " + std::to_string(kMissesToGiveUp) + " misses, " +
           demand.calendar.ShortText(demand.withdrawals[summary.asked - 1].time);
}

/// Whether such a withdrawal counts as refused: nothing paid, and no danger.
bool IsRefusal(Outcome outcome) {
    return outcome != Outcome::Paid && outcome != Outcome::PaidInPart &&
           RowOf(outcome).exitStatus == ExitStatus::HonestNo;
}

/// Who serves most, in two lines if it is long.
std::string BestLine(const SimulationReport& report) {
    const std::string best = BestText(report.rows) + WithdrawalsText(report.withdrawals) +
                             (report.questions.runs > 1 ? "," : "");
    const std::string demand = DemandText(report);
    const bool fits = best.size() + 1 + demand.size() <= kPlainWidth;
    return best + (fits ? " " : "\n  ") + demand;
}

/// Who is not ranked.
std::string DangerLine(const std::vector<SimulationRow>& rows) {
    std::vector<std::string> dangerous;
    for (const SimulationRow& row : rows) {
        if (!row.rank) {
            dangerous.push_back(std::to_string(row.mix));
        }
    }
    return dangerous.empty() ? ""
                             : MixesText(dangerous) + (dangerous.size() == 1 ? " is" : " are") +
                                   " dangerous here and not ranked";
}

std::vector<Finding> FindingsOf(const SimulationQuestions& questions,
                                const SimulationAnswers& answers) {
    std::vector<Finding> findings = questions.Notes();
    const std::string all = WithdrawalsText(
        std::accumulate(answers.sizes.begin(), answers.sizes.end(), std::uint64_t{0}));
    for (std::size_t place = 0; place < questions.mixes.size(); ++place) {
        const auto count = [&answers, place](Outcome outcome) {
            std::uint64_t sum = 0;
            for (const auto& run : answers.runs) {
                sum += run[place].Count(outcome);
            }
            return sum;
        };
        const bool isProved =
            std::all_of(answers.runs.begin(), answers.runs.end(),
                        [place](const auto& run) { return run[place].misses == 0; });
        const std::vector<Finding> found =
            DangerFindings(questions.mixes[place], count, all, isProved);
        findings.insert(findings.end(), found.begin(), found.end());
    }
    return findings;
}

/// What became of withdrawals beside what the table shows.
std::vector<std::string> RemarkOn(const SimulationSummary& summary, const Demand& demand) {
    std::vector<std::string> parts;
    std::vector<std::string> refusals;
    for (const OutcomeRow& outcome : OutcomeTable()) {
        const bool isInTable =
            outcome.outcome == Outcome::Paid || outcome.outcome == Outcome::Overpaid;
        const std::uint64_t count = summary.Count(outcome.outcome);
        if (!isInTable && count > 0) {
            const bool isProved = outcome.outcome == Outcome::NoAnswer && summary.misses == 0;
            (IsRefusal(outcome.outcome) ? refusals : parts)
                .push_back(std::to_string(count) + " " +
                           (isProved ? "never answered" : PartWords(outcome)));
        }
    }
    if (summary.Refused() != summary.Count(Outcome::NotDispensable)) {
        parts.push_back(std::to_string(summary.Refused()) + " refused (" + Join(refusals, ", ") +
                        ")");
    }
    if (summary.isGivenUp) {
        parts.push_back(GivenUpText(summary, demand));
    }
    return parts;
}

std::vector<std::string> RemarksOn(const SimulationReport& report) {
    std::vector<std::string> lines;
    for (const SimulationRow& row : report.rows) {
        const std::vector<std::string> parts = RemarkOn(report.First(row), report.answers.demand);
        if (!parts.empty()) {
            lines.push_back("mix " + std::to_string(row.mix) + ": " + Join(parts, ", "));
        }
    }
    return lines;
}

ExitStatus HighestOf(const SimulationSummary& summary) {
    ExitStatus highest = ExitStatus::Well;
    for (const OutcomeRow& row : OutcomeTable()) {
        if (summary.Count(row.outcome) > 0) {
            highest = std::max(highest, row.exitStatus);
        }
    }
    return highest;
}

ExitStatus ExitStatusOf(const SimulationAnswers& answers) {
    if (!answers.isComplete) {
        return ExitStatus::Interrupted;
    }
    ExitStatus highest = ExitStatus::Well;
    for (const auto& run : answers.runs) {
        for (const SimulationSummary& summary : run) {
            highest = std::max(highest, HighestOf(summary));
        }
    }
    return highest;
}

/// Of an even count the lower of the two in the middle.
std::uint64_t MedianOf(std::vector<std::size_t> sizes) {
    std::sort(sizes.begin(), sizes.end());
    return sizes[(sizes.size() - 1) / 2];
}

std::vector<Money> AskedSums(const Dispenser& dispenser, const Demand& demand) {
    std::vector<Money> sums(demand.currencies.size());
    for (const Withdrawal& withdrawal : demand.withdrawals) {
        sums[withdrawal.currency] += AskedMoney(dispenser, withdrawal.amount);
    }
    return sums;
}

}  // namespace

const char* PartWords(const OutcomeRow& row) {
    return row.outcome == Outcome::NotDispensable ? "not dispensable" : row.words;
}

SimulationReport::SimulationReport(SimulationQuestions asking, SimulationAnswers came)
    : questions(std::move(asking)), answers(std::move(came)), rows(RankMixes(questions, answers)),
      asked(AskedSums(questions.dispenser, answers.demand)), withdrawals(MedianOf(answers.sizes)),
      askedText(AskedText(questions.dispenser, answers.demand, asked)), best(BestLine(*this)),
      danger(DangerLine(rows)), remarks(RemarksOn(*this)), findings(FindingsOf(questions, answers)),
      status(ExitStatusOf(answers)) {
}

}  // namespace qxmix
