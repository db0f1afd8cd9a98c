#include "LoadingSearch.h"

#include "FillCosts.h"
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

/// For each choice of notes but the first: there may be hundreds.
constexpr SearchEffort kEffortOfOne = {100, 100};

}  // namespace

LoadingSearch::LoadingSearch(const FillAsking& asking, const Dispenser& dispenser, MixFill& fill)
    : questions_(asking.questions), demands_(asking.demands), dispenser_(dispenser),
      loading_(dispenser, questions_.bundle, demands_), runs_(asking.runs),
      progress_(asking.progress), fill_(fill) {
    for (const LoadedCassette& cassette : loading_.Cassettes()) {
        space_.worth.push_back(cassette.worth);
    }
    if (questions_.range) {
        space_.cost = BundleCosts(*questions_.dispenser.costs, loading_, questions_.Days());
    }
    space_.most = loading_.Most();
    space_.unloaded = loading_.Unloaded();
    progress_.expected = std::max(progress_.expected, progress_.tried + Expected());
}

bool LoadingSearch::DoesReachFull() {
    Count();
    return runs_.Reaching(fill_.mix, loading_.With(space_.most), questions_.service).has_value();
}

ServedShare LoadingSearch::PromisedFull() {
    const FillOutcome outcome = OutcomeWith(space_.most);
    return outcome.dangerous > 0 ? ServedShare() : outcome.promised;
}

void LoadingSearch::FindBest() {
    fill_.service = questions_.service;
    if (const std::optional<Bundles> start = FindStart()) {
        Search(*start);
    }
}

bool LoadingSearch::FindCheaper() {
    TriedLoadings loadings = Tried();
    const Price before = fill_.load->price;
    const Cheapest sureness = fill_.load->cheapest;
    const Cheapest both =
        std::max(sureness, FindCheaperThan(loadings, before, kEffortOfOne).cheapest);
    // Whatever reached it and was cheaper was kept.
    const bool isCheaper = fill_.load->price < before;
    if (isCheaper) {
        Propose(Descend(loadings, fill_.load->bundles), both);
    }
    fill_.load->cheapest = both;
    return isCheaper;
}

std::vector<FillRun> LoadingSearch::All(const Dispenser& loaded) {
    Count();
    return runs_.All(fill_.mix, loaded);
}

void LoadingSearch::Count() {
    ++fill_.tried;
    ++progress_.tried;
    progress_.expected = std::max(progress_.expected, progress_.tried);
}

/// Loadings that will be tried, more or less.
std::size_t LoadingSearch::Expected() const {
    const std::size_t count = loading_.Cassettes().size();
    std::size_t expected = 4 + 4 * count * count;
    for (const LoadedCassette& cassette : loading_.Cassettes()) {
        expected += 2 * Halvings(cassette.most);
    }
    return expected;
}

FillOutcome LoadingSearch::OutcomeWith(const Bundles& bundles) {
    return Note(bundles, All(loading_.With(bundles)));
}

/// Notes what came of a loading of which all runs were asked.
FillOutcome LoadingSearch::Note(const Bundles& bundles, const std::vector<FillRun>& runs) {
    FillOutcome outcome = OutcomeOf(questions_, demands_, loading_.With(bundles), runs);
    if (outcome.dangerous == 0) {
        points_.push_back(PointOf(bundles, outcome));
    }
    return outcome;
}

LoadingSearch::Start LoadingSearch::StartFrom(const Bundles& bundles) {
    return StartFrom(bundles, All(loading_.With(bundles)));
}

LoadingSearch::Start LoadingSearch::StartFrom(const Bundles& bundles,
                                              const std::vector<FillRun>& runs) {
    Start start = {bundles, Note(bundles, runs)};
    if (start.outcome.dangerous == 0) {
        Keep(bundles, start.outcome, runs.back().lastCode);
    }
    return start;
}

/// A loading that reaches the service, or as much of it as any; none: all are dangerous.
std::optional<Bundles> LoadingSearch::FindStart() {
    const std::vector<FillRun> runs = All(loading_.With(space_.most));
    std::vector<Start> starts;
    starts.push_back(StartFrom(space_.most, runs));
    if (IsDone(starts.back())) {
        const Bundles drawn = loading_.Holding(MostDrawn(runs));
        return IsDone(StartFrom(drawn)) ? drawn : starts.back().bundles;
    }
    std::vector<std::uint64_t> held;
    for (const Cassette& cassette : questions_.dispenser.cassettes) {
        held.push_back(cassette.count);
    }
    starts.push_back(StartFrom(loading_.Holding(held)));
    // A mix may serve more where a cassette that leads it astray is empty.
    const std::size_t count = loading_.Cassettes().size();
    for (std::size_t filled = (std::size_t{1} << count) - 2; filled > 0 && !IsDone(starts.back());
         --filled) {
        Bundles bundles = space_.most;
        for (std::size_t place = 0; place < count; ++place) {
            bundles[place] = (filled >> place & 1U) != 0 ? bundles[place] : 0;
        }
        starts.push_back(StartFrom(bundles));
    }
    return BestOf(starts);
}

bool LoadingSearch::DoesReach(const FillOutcome& outcome) const {
    return outcome.dangerous == 0 && outcome.promised.Reaches(fill_.service);
}

/// Whether a start reaches what is asked.
bool LoadingSearch::IsDone(const Start& start) const {
    return start.outcome.dangerous == 0 && start.outcome.promised.Reaches(questions_.service);
}

std::optional<Bundles> LoadingSearch::BestOf(const std::vector<Start>& starts) {
    const Start* best = nullptr;
    for (const Start& start : starts) {
        if (start.outcome.dangerous == 0 &&
            (best == nullptr || !best->outcome.promised.Reaches(start.outcome.promised))) {
            best = &start;
        }
    }
    if (best == nullptr) {
        fill_.load.reset();
        return std::nullopt;
    }
    if (!IsDone(*best)) {
        fill_.service = best->outcome.promised;
    }
    return best->bundles;
}

/// Most items that any run drew from each cassette.
std::vector<std::uint64_t> LoadingSearch::MostDrawn(const std::vector<FillRun>& runs) const {
    std::vector<std::uint64_t> most(dispenser_.cassettes.size());
    const Dispenser full = loading_.With(space_.most);
    for (const FillRun& run : runs) {
        for (std::size_t place = 0; place < most.size(); ++place) {
            most[place] = std::max<std::uint64_t>(most[place], full.cassettes[place].count -
                                                                   run.summary.end[place]);
        }
    }
    return most;
}

/// Loadings that are asked for the service that is looked for.
TriedLoadings LoadingSearch::Tried() {
    space_.least = LeastWorth(questions_, demands_, fill_.service);
    return {space_, [this](const Bundles& bundles) {
                Count();
                const Dispenser loaded = loading_.With(bundles);
                const auto came = runs_.Reaching(fill_.mix, loaded, fill_.service);
                if (came) {
                    const FillOutcome outcome = OutcomeOf(questions_, demands_, loaded, *came);
                    points_.push_back(PointOf(bundles, outcome));
                    Keep(bundles, outcome, came->back().lastCode);
                }
                return came.has_value();
            }};
}

void LoadingSearch::Search(Bundles best) {
    fill_.isReached = fill_.service.Reaches(questions_.service);
    TriedLoadings loadings = Tried();
    if (!loadings.DoesReach(best)) {
        throw WorkError("the module answers differently when it is asked again");
    }
    const Cheapest cheapest = FindCheapest(loadings, best);
    Propose(best, cheapest);
}

void LoadingSearch::Propose(const Bundles& bundles, Cheapest cheapest) {
    const std::vector<FillRun> came = All(loading_.With(bundles));
    fill_.load.reset();
    Keep(bundles, OutcomeOf(questions_, demands_, loading_.With(bundles), came),
         came.back().lastCode);
    fill_.load->cheapest = cheapest;
}

/// Keeps a loading that reaches if it is the cheapest so far.
void LoadingSearch::Keep(const Bundles& bundles,
                         const FillOutcome& outcome,
                         const std::string& code) {
    const Price price = space_.PriceOf(bundles);
    if ((fill_.load && !(price < fill_.load->price)) || !outcome.promised.Reaches(fill_.service)) {
        return;
    }
    FillProposal proposal;
    proposal.bundles = bundles;
    proposal.loaded = loading_.With(bundles);
    proposal.outcome = outcome;
    proposal.price = price;
    fill_.lastCode = code;
    fill_.isReached = fill_.service.Reaches(questions_.service);
    fill_.load = std::move(proposal);
    progress_.best = outcome.worth;
}

void LoadingSearch::TryNeighbours() {
    FillProposal& load = *fill_.load;
    load.isChecked = true;
    for (std::size_t place = 0; place < load.bundles.size(); ++place) {
        Bundles less = load.bundles;
        Bundles more = load.bundles;
        std::optional<FillOutcome> lessOutcome;
        std::optional<FillOutcome> moreOutcome;
        if (less[place]-- > 0) {
            lessOutcome = OutcomeWith(less);
            load.isChecked = load.isChecked && !DoesReach(*lessOutcome);
        }
        if (more[place]++ < space_.most[place]) {
            moreOutcome = OutcomeWith(more);
        }
        load.less.push_back(lessOutcome);
        load.more.push_back(moreOutcome);
    }
}

}  // namespace qxmix
