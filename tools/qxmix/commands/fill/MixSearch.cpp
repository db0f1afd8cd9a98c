#include "MixSearch.h"

#include "FillNotes.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qxmix {

MixSearch::MixSearch(const FillAsking& asking) : asking_(asking) {
    const FillQuestions& questions = asking.questions;
    if (questions.notes.empty()) {
        choices_ = {questions.dispenser};
        return;
    }
    choices_ = NoteChoices(questions.dispenser, questions.notes);
    std::vector<Dispenser> payable;
    std::copy_if(
        choices_.begin(), choices_.end(), std::back_inserter(payable),
        [&](const Dispenser& choice) { return CanServe(questions, asking.demands, choice); });
    if (!payable.empty()) {
        unpayable_ = choices_.size() - payable.size();
        choices_ = std::move(payable);
    }
}

void MixSearch::Run(MixFill& fill) {
    FillProgress& progress = asking_.progress;
    const Dispenser& now = asking_.questions.dispenser;
    progress.mix = fill.mix;
    progress.best.reset();
    progress.expected = progress.tried;
    progress.choice = 0;
    progress.choices = choices_.size();
    fill.choices = choices_.size() + unpayable_;
    fill.unpayable = unpayable_;
    ++fill.tried;
    ++progress.tried;
    fill.now = OutcomeOf(asking_.questions, asking_.demands, now, asking_.runs.All(fill.mix, now));
    Searches searches;
    for (const Dispenser& choice : choices_) {
        searches.push_back(std::make_unique<LoadingSearch>(asking_, choice, fill));
    }
    const std::size_t first = searches.size() == 1 ? 0 : FirstOf(searches);
    std::size_t best = first;
    searches[first]->FindBest();
    for (std::size_t place = 0; fill.isReached && place < searches.size(); ++place) {
        progress.choice = place;
        if (place != first && searches[place]->FindCheaper()) {
            best = place;
        }
    }
    if (fill.load) {
        // Where none reaches, the others were only asked with full cassettes.
        const bool isOneOfMany = !fill.isReached && searches.size() > 1;
        fill.load->cheapest = isOneOfMany ? Cheapest::OfNeighbours : fill.load->cheapest;
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
