#include "MixSearch.h"

#include "FillNotes.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qxmix {

MixSearch::MixSearch(const FillQuestions& questions,
                     const RunDemands& demands,
                     FillRuns& runs,
                     FillProgress& progress)
    : questions_(questions), demands_(demands), runs_(runs), progress_(progress) {
    if (questions.notes.empty()) {
        choices_ = {questions.dispenser};
        return;
    }
    choices_ = NoteChoices(questions.dispenser, questions.notes);
    std::vector<Dispenser> payable;
    std::copy_if(choices_.begin(), choices_.end(), std::back_inserter(payable),
                 [&](const Dispenser& choice) { return CanServe(questions, demands, choice); });
    if (!payable.empty()) {
        unpayable_ = choices_.size() - payable.size();
        choices_ = std::move(payable);
    }
}

void MixSearch::Run(MixFill& fill) {
    progress_.mix = fill.mix;
    progress_.best.reset();
    progress_.expected = progress_.tried;
    progress_.choice = 0;
    progress_.choices = choices_.size();
    fill.choices = choices_.size() + unpayable_;
    fill.unpayable = unpayable_;
    ++fill.tried;
    ++progress_.tried;
    fill.now = OutcomeOf(questions_, demands_, questions_.dispenser,
                         runs_.All(fill.mix, questions_.dispenser));
    Searches searches;
    for (const Dispenser& choice : choices_) {
        searches.push_back(
            std::make_unique<LoadingSearch>(questions_, demands_, choice, runs_, progress_, fill));
    }
    const std::size_t first = searches.size() == 1 ? 0 : FirstOf(searches);
    std::size_t best = first;
    searches[first]->FindBest();
    for (std::size_t place = 0; fill.isReached && place < searches.size(); ++place) {
        progress_.choice = place;
        if (place != first && searches[place]->FindCheaper()) {
            best = place;
        }
    }
    if (fill.load) {
        searches[best]->TryNeighbours();
        fill.points = searches[best]->Points();
    }
    fill.isComplete = true;
}

std::size_t MixSearch::FirstOf(const Searches& searches) {
    for (std::size_t place = 0; place < searches.size(); ++place) {
        if (searches[place]->DoesReachFull()) {
            return place;
        }
    }
    std::size_t best = 0;
    ServedShare most;
    for (std::size_t place = 0; place < searches.size(); ++place) {
        const ServedShare promised = searches[place]->PromisedFull();
        if (!most.Reaches(promised)) {
            most = promised;
            best = place;
        }
    }
    return best;
}

}  // namespace qxmix
