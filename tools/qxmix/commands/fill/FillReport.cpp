#include "FillReport.h"

#include "FillCosts.h"
#include "dispenser/ReadableMoney.h"

#include <numeric>
#include <utility>

namespace qxmix {

namespace {

std::string SharesText(const FillOutcome& outcome, std::size_t runs) {
    return runs == 1 ? PercentText(outcome.median) + " % served"
                     : PercentText(outcome.median) + " % served in the median run, " +
                           PercentText(outcome.worst) + " % in the worst";
}

std::vector<std::string> HeadlineOf(const FillReport& report) {
    const FillQuestions& questions = report.questions;
    const std::string& currency = questions.dispenser.currency;
    const std::string asked = questions.serviceText + " %";
    const MixFill* const best = report.Best();
    if (best == nullptr) {
        const bool isOne = report.answers.mixes.size() == 1;
        return {report.answers.isComplete
                    ? "DANGER  " + std::string(isOne ? "the mix is" : "all mixes are") +
                          " dangerous with every loading tried: nothing is proposed"
                    : "interrupted before a loading was found"};
    }
    const FillOutcome& then = best->load->outcome;
    const std::string mix = ", mix " + std::to_string(best->mix);
    const std::string shares = SharesText(then, report.demands.size());
    if (best->isReached) {
        return {"LOAD  " + report.MoneyText(then.worth) + " " + currency + " instead of " +
                    report.MoneyText(best->now->worth) + " for " + DaysText(questions.Days()) + mix,
                "      " + shares + ", asked " + asked};
    }
    return {"OUT OF REACH  " + asked + " cannot be served for " + DaysText(questions.Days()) + mix,
            "              best there is: " + report.MoneyText(then.worth) + " " + currency,
            "              " + shares};
}

std::string RunsLine(const FillReport& report, const MixFill& best) {
    const FillQuestions& questions = report.questions;
    const std::size_t all = report.demands.size();
    const std::string seeds =
        questions.IsRecorded()
            ? "recorded"
            : (all == 1 ? "seed " : "seeds ") + std::to_string(questions.seed) +
                  (all == 1 ? "" : " to " + std::to_string(questions.seed + all - 1));
    return "runs     " + RunsText(best.load->outcome.reaching, all) +
           (all == 1 ? " serves " : " serve ") + questions.serviceText + " % (" + seeds +
           "), asked of " + std::to_string(all - questions.MostMisses());
}

std::string NowLine(const FillReport& report, const MixFill& best) {
    const std::size_t all = report.demands.size();
    const FillOutcome& now = *best.now;
    return "now      " + PercentText(now.median) + " % served, " + PercentText(now.worst) +
           " % in the worst run; " + RunsText(now.reaching, all) +
           (now.dangerous > 0 ? ", " + std::to_string(now.dangerous) + " dangerous" : "");
}

/// Which cassettes get other notes; empty: nobody asked.
std::string NotesLine(const FillReport& report, const MixFill& best) {
    if (report.questions.notes.empty()) {
        return "";
    }
    const Dispenser& now = report.questions.dispenser;
    std::string changes;
    for (std::size_t index = 0; index < now.cassettes.size(); ++index) {
        const std::uint32_t value = best.load->loaded.cassettes[index].value;
        if (value != now.cassettes[index].value) {
            changes += (changes.empty() ? "" : ", ") + CassetteLabel(now, index) + " " +
                       std::to_string(value) + " for " + std::to_string(now.cassettes[index].value);
        }
    }
    const std::string unpayable =
        best.unpayable == 0 ? ""
                            : " (" + std::to_string(best.unpayable) + " cannot pay what is asked)";
    return "notes    " + std::to_string(best.choices) +
           (best.choices == 1 ? " choice" : " choices") + unpayable + ": " +
           (changes.empty() ? "all stay" : changes);
}

/// Of which intervals the best one costs least.
std::string LeastOf(const std::vector<FillInterval>& intervals) {
    return intervals.size() < 2 ? ""
                                : ", the least of " + std::to_string(intervals.front().days) +
                                      " to " + DaysText(intervals.back().days);
}

std::string CostLine(const FillReport& report, const MixFill& best) {
    const std::optional<Money> cost = report.CostOf(best);
    const std::optional<Money> now = report.CostNow(best);
    return !cost || !now ? ""
                         : "costs    " + cost->Text(2) + " " + report.questions.dispenser.currency +
                               " a day instead of " + now->Text(2) +
                               (best.isReached ? LeastOf(report.intervals) : "");
}

std::string CheckLine(const FillReport& report, const MixFill& best) {
    const FillProposal& load = *best.load;
    if (!load.isChecked) {
        return best.isComplete ? "checked  a bundle less would do: the answers do not hold still"
                               : "checked  not finished: the best so far";
    }
    const std::string tried = std::to_string(best.tried) + " loadings tried; ";
    const std::string least =
        best.isReached ? ", none below " + report.MoneyText(report.answers.least) + " can" : "";
    switch (load.cheapest) {
    case Cheapest::OfAll:
        return "checked  " + tried + "no cheaper one does";
    case Cheapest::IfMoreIsMore:
        return "checked  " + tried + "no cheaper one does if more never serves fewer";
    case Cheapest::OfNeighbours:
        break;
    }
    return "checked  " + tried + "no bundle can be spared" + least;
}

ExitStatus StatusOf(const FillAnswers& answers, const MixFill* best) {
    if (!answers.isComplete) {
        return ExitStatus::Interrupted;
    }
    return best == nullptr   ? ExitStatus::Danger
           : best->isReached ? ExitStatus::Well
                             : ExitStatus::HonestNo;
}

}  // namespace

FillReport::FillReport(FillQuestions asking,
                       RunDemands drawn,
                       FillAnswers came,
                       std::vector<FillInterval> compared)
    : questions(std::move(asking)), demands(std::move(drawn)), answers(std::move(came)),
      intervals(std::move(compared)), status(StatusOf(answers, Best())) {
    headline = HeadlineOf(*this);
    if (const MixFill* const best = Best()) {
        remarks = {RunsLine(*this, *best), NowLine(*this, *best)};
        for (const std::string& line : {CostLine(*this, *best), NotesLine(*this, *best)}) {
            if (!line.empty()) {
                remarks.push_back(line);
            }
        }
        remarks.push_back(CheckLine(*this, *best));
    }
    findings = NotesOf(questions.demand);
}

const MixFill* FillReport::Best() const {
    return !answers.mixes.empty() && answers.mixes.front().load ? &answers.mixes.front() : nullptr;
}

std::optional<Money> FillReport::CostNow(const MixFill& mix) const {
    if (!questions.dispenser.costs || !mix.now) {
        return std::nullopt;
    }
    std::uint32_t bundles = 0;
    for (const LoadedCassette& loaded : answers.cassettes) {
        const std::uint32_t held = questions.dispenser.cassettes[loaded.cassette].count;
        bundles += held / loaded.bundle + (held % loaded.bundle != 0 ? 1 : 0);
    }
    return CostPerDay(*questions.dispenser.costs, mix.now->worth, bundles, questions.Days());
}

std::optional<Money> FillReport::CostOf(const MixFill& mix) const {
    if (!questions.dispenser.costs || !mix.load) {
        return std::nullopt;
    }
    const Bundles& load = mix.load->bundles;
    return CostPerDay(*questions.dispenser.costs, mix.load->outcome.worth,
                      std::accumulate(load.begin(), load.end(), 0U), questions.Days());
}

std::string FillReport::MoneyText(const Money& money) const {
    return ReadableText(money, AmountDecimals(questions.dispenser));
}

std::string DaysText(std::uint32_t days) {
    return std::to_string(days) + (days == 1 ? " day" : " days");
}

std::string RunsText(std::size_t count, std::size_t all) {
    return std::to_string(count) + " of " + std::to_string(all) + (all == 1 ? " run" : " runs");
}

}  // namespace qxmix
