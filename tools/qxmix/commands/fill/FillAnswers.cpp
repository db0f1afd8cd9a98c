#include "FillAnswers.h"

#include "errors/Errors.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

/// Halvings of a range down to one number.
std::size_t Halvings(std::uint32_t range) {
    std::size_t count = 0;
    for (; range > 0; range /= 2) {
        ++count;
    }
    return count;
}

/// Looks for the cheapest loading of one mix.
class MixSearch {
public:
    MixSearch(const FillQuestions& questions,
              const RunDemands& demands,
              const FillLoading& loading,
              FillRuns& runs,
              FillProgress& progress)
        : questions_(questions), demands_(demands), loading_(loading), runs_(runs),
          progress_(progress) {}

    /// @throw Interruption; then `fill` holds what is known.
    void Run(MixFill& fill) {
        progress_.mix = fill.mix;
        progress_.best.reset();
        progress_.expected = progress_.tried + Expected();
        fill.now =
            OutcomeOf(questions_, demands_, questions_.dispenser, All(fill, questions_.dispenser));
        std::optional<Bundles> best = FindStart(fill);
        if (best) {
            Search(fill, *best);
        }
        fill.isComplete = true;
    }

private:
    struct Start {
        Bundles bundles;
        FillOutcome outcome;
    };

    std::vector<FillRun> All(MixFill& fill, const Dispenser& loaded) {
        Count(fill);
        return runs_.All(fill.mix, loaded);
    }

    void Count(MixFill& fill) {
        ++fill.tried;
        ++progress_.tried;
        progress_.expected = std::max(progress_.expected, progress_.tried);
    }

    /// Loadings that will be tried for a mix, more or less.
    std::size_t Expected() const {
        const std::size_t count = loading_.Cassettes().size();
        std::size_t expected = 4 + 4 * count * count;
        for (const LoadedCassette& cassette : loading_.Cassettes()) {
            expected += 2 * Halvings(cassette.most);
        }
        return expected;
    }

    Start StartFrom(MixFill& fill, const Bundles& bundles, std::vector<FillRun>* runs = nullptr) {
        const Dispenser loaded = loading_.With(bundles);
        std::vector<FillRun> came = All(fill, loaded);
        Start start = {bundles, OutcomeOf(questions_, demands_, loaded, came)};
        if (start.outcome.dangerous == 0) {
            fill.points.push_back(PointOf(bundles, start.outcome));
            Keep(fill, bundles, start.outcome, came.back().lastCode);
        }
        if (runs != nullptr) {
            *runs = std::move(came);
        }
        return start;
    }

    /// A loading that reaches the service, or as much of it as any; none: all are dangerous.
    std::optional<Bundles> FindStart(MixFill& fill) {
        std::vector<FillRun> runs;
        std::vector<Start> starts;
        fill.service = questions_.service;
        starts.push_back(StartFrom(fill, loading_.Most(), &runs));
        if (Reaches(starts.back())) {
            const Bundles drawn = loading_.Holding(MostDrawn(runs));
            return std::move(Reaches(StartFrom(fill, drawn)) ? drawn : starts.back().bundles);
        }
        std::vector<std::uint64_t> held;
        for (const Cassette& cassette : questions_.dispenser.cassettes) {
            held.push_back(cassette.count);
        }
        starts.push_back(StartFrom(fill, loading_.Holding(held)));
        // A mix may serve more where a cassette that leads it astray is empty.
        const std::size_t count = loading_.Cassettes().size();
        for (std::size_t filled = (std::size_t{1} << count) - 2;
             filled > 0 && !Reaches(starts.back()); --filled) {
            Bundles bundles = loading_.Most();
            for (std::size_t place = 0; place < count; ++place) {
                bundles[place] = (filled >> place & 1U) != 0 ? bundles[place] : 0;
            }
            starts.push_back(StartFrom(fill, bundles));
        }
        return BestOf(fill, starts);
    }

    static bool DoesReach(const FillOutcome& outcome, const ServedShare& service) {
        return outcome.dangerous == 0 && outcome.promised.Reaches(service);
    }

    bool Reaches(const Start& start) const { return DoesReach(start.outcome, questions_.service); }

    std::optional<Bundles> BestOf(MixFill& fill, const std::vector<Start>& starts) const {
        const Start* best = nullptr;
        for (const Start& start : starts) {
            if (start.outcome.dangerous == 0 &&
                (best == nullptr || !best->outcome.promised.Reaches(start.outcome.promised))) {
                best = &start;
            }
        }
        if (best == nullptr) {
            fill.load.reset();
            return std::nullopt;
        }
        if (!Reaches(*best)) {
            fill.service = best->outcome.promised;
        }
        return best->bundles;
    }

    /// Most items that any run drew from each cassette.
    std::vector<std::uint64_t> MostDrawn(const std::vector<FillRun>& runs) const {
        std::vector<std::uint64_t> most(questions_.dispenser.cassettes.size());
        const Dispenser full = loading_.With(loading_.Most());
        for (const FillRun& run : runs) {
            for (std::size_t place = 0; place < most.size(); ++place) {
                most[place] = std::max<std::uint64_t>(most[place], full.cassettes[place].count -
                                                                       run.summary.end[place]);
            }
        }
        return most;
    }

    void Search(MixFill& fill, Bundles best) {
        fill.isReached = fill.service.Reaches(questions_.service);
        FillSpace space;
        for (const LoadedCassette& cassette : loading_.Cassettes()) {
            space.worth.push_back(cassette.worth);
        }
        space.most = loading_.Most();
        space.unloaded = loading_.Unloaded();
        space.least = LeastWorth(questions_, demands_, fill.service);
        TriedLoadings loadings(space, [&](const Bundles& bundles) {
            Count(fill);
            const auto came = runs_.Reaching(fill.mix, loading_.With(bundles), fill.service);
            if (came) {
                const FillOutcome outcome =
                    OutcomeOf(questions_, demands_, loading_.With(bundles), *came);
                fill.points.push_back(PointOf(bundles, outcome));
                Keep(fill, bundles, outcome, came->back().lastCode);
            }
            return came.has_value();
        });
        if (!loadings.DoesReach(best)) {
            throw WorkError("the module answers differently when it is asked again");
        }
        const Cheapest cheapest = FindCheapest(loadings, best);
        const std::vector<FillRun> came = All(fill, loading_.With(best));
        Keep(fill, best, OutcomeOf(questions_, demands_, loading_.With(best), came),
             came.back().lastCode, true);
        fill.load->cheapest = cheapest;
        TryNeighbours(fill);
    }

    /// Keeps a loading that reaches if it is the cheapest so far.
    ///
    /// @param isBest  it is in any case.
    void Keep(MixFill& fill,
              const Bundles& bundles,
              const FillOutcome& outcome,
              const std::string& code,
              bool isBest = false) {
        const Money worth = loading_.WorthOf(bundles);
        if (!isBest && progress_.best && !(worth < *progress_.best)) {
            return;
        }
        FillProposal proposal;
        proposal.bundles = bundles;
        proposal.loaded = loading_.With(bundles);
        proposal.outcome = outcome;
        fill.lastCode = code;
        if (proposal.outcome.promised.Reaches(fill.service)) {
            progress_.best = worth;
            fill.isReached = fill.service.Reaches(questions_.service);
            fill.load = std::move(proposal);
        }
    }

    void TryNeighbours(MixFill& fill) {
        FillProposal& load = *fill.load;
        load.isChecked = true;
        for (std::size_t place = 0; place < load.bundles.size(); ++place) {
            Bundles less = load.bundles;
            Bundles more = load.bundles;
            std::optional<FillOutcome> lessOutcome;
            std::optional<FillOutcome> moreOutcome;
            if (less[place]-- > 0) {
                lessOutcome = OutcomeWith(fill, less);
                load.isChecked = load.isChecked && !DoesReach(*lessOutcome, fill.service);
            }
            if (more[place]++ < loading_.Cassettes()[place].most) {
                moreOutcome = OutcomeWith(fill, more);
            }
            load.less.push_back(lessOutcome);
            load.more.push_back(moreOutcome);
        }
    }

    FillOutcome OutcomeWith(MixFill& fill, const Bundles& bundles) {
        const Dispenser loaded = loading_.With(bundles);
        FillOutcome outcome = OutcomeOf(questions_, demands_, loaded, All(fill, loaded));
        if (outcome.dangerous == 0) {
            fill.points.push_back(PointOf(bundles, outcome));
        }
        return outcome;
    }

    const FillQuestions& questions_;
    const RunDemands& demands_;
    const FillLoading& loading_;
    FillRuns& runs_;
    FillProgress& progress_;
};

/// Whether one mix stands before another.
bool IsBetter(const MixFill& left, const MixFill& right) {
    if (left.load.has_value() != right.load.has_value()) {
        return left.load.has_value();
    }
    if (left.isReached != right.isReached) {
        return left.isReached;
    }
    if (!left.load) {
        return left.mix < right.mix;
    }
    const FillOutcome& mine = left.load->outcome;
    const FillOutcome& other = right.load->outcome;
    const bool isAsGood = mine.promised.Reaches(other.promised);
    if (!left.isReached && isAsGood != other.promised.Reaches(mine.promised)) {
        return isAsGood;
    }
    const int worth = mine.worth.Compare(other.worth);
    return worth != 0 ? worth < 0 : left.mix < right.mix;
}

}  // namespace

FillAnswers Fill(const FillQuestions& questions,
                 const RunDemands& demands,
                 const OpenOrder& order,
                 const TraceSink& trace,
                 const std::function<void(const FillProgress&)>& progress) {
    FillProgress known;
    const FillLoading loading(questions, demands);
    FillRuns runs(questions, demands, order, trace, [&] { progress(known); });
    FillAnswers answers;
    answers.least = LeastWorth(questions, demands, questions.service);
    answers.cassettes = loading.Cassettes();
    MixSearch search(questions, demands, loading, runs, known);
    for (const std::uint16_t mix : questions.mixes) {
        answers.mixes.emplace_back();
        answers.mixes.back().mix = mix;
        try {
            search.Run(answers.mixes.back());
        } catch (const Interruption&) {
            answers.isComplete = false;
            break;
        }
    }
    std::sort(answers.mixes.begin(), answers.mixes.end(), &IsBetter);
    return answers;
}

}  // namespace qxmix
