#pragma once

#include "MixFill.h"

#include <vector>

namespace qxmix {

/// Who asks the module, about what.
struct FillAsking {
    const FillQuestions& questions;
    const RunDemands& demands;
    FillRuns& runs;
    FillProgress& progress;
};

/// Looks for the cheapest loading of one mix with the notes that one dispenser's cassettes have,
/// and writes into its MixFill what it finds.
///
/// Each of the searches may end with an Interruption; then the MixFill holds what is known.
class LoadingSearch {
public:
    /// @param dispenser  with these notes; what it holds does not matter.
    LoadingSearch(const FillAsking& asking, const Dispenser& dispenser, MixFill& fill);

    /// Whether full cassettes reach the service.
    bool DoesReachFull();

    /// What enough runs are served with full cassettes; nothing where that is dangerous.
    ServedShare PromisedFull();

    /// The cheapest loading that reaches the service, or else of as much of it as any.
    void FindBest();

    /// A loading that reaches the service and is cheaper than the one proposed so far, if there is
    /// one.
    ///
    /// @return whether there is; the proposal is as sure afterwards as both searches are.
    bool FindCheaper();

    /// Asks what a bundle less or more in each cassette does to the proposed loading.
    void TryNeighbours();

    /// Loadings of which all runs were asked.
    const std::vector<FillPoint>& Points() const { return points_; }

private:
    struct Start {
        Bundles bundles;
        FillOutcome outcome;
    };

    std::vector<FillRun> All(const Dispenser& loaded);
    void Count();
    std::size_t Expected() const;
    FillOutcome OutcomeWith(const Bundles& bundles);
    FillOutcome Note(const Bundles& bundles, const std::vector<FillRun>& runs);
    Start StartFrom(const Bundles& bundles);
    Start StartFrom(const Bundles& bundles, const std::vector<FillRun>& runs);
    std::optional<Bundles> FindStart();
    std::optional<Bundles> BestOf(const std::vector<Start>& starts);
    std::vector<std::uint64_t> MostDrawn(const std::vector<FillRun>& runs) const;
    bool DoesReach(const FillOutcome& outcome) const;
    bool IsDone(const Start& start) const;
    TriedLoadings Tried();
    void Search(Bundles best);
    void Keep(const Bundles& bundles, const FillOutcome& outcome, const std::string& code);
    void Propose(const Bundles& bundles, Cheapest cheapest);

    const FillQuestions& questions_;
    const RunDemands& demands_;
    const Dispenser& dispenser_;
    FillLoading loading_;
    FillSpace space_;
    FillRuns& runs_;
    FillProgress& progress_;
    MixFill& fill_;
    std::vector<FillPoint> points_;
};

}  // namespace qxmix
