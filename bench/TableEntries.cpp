#include "Registration.h"

#include "DynamicProgram.h"
#include "Entrants.h"
#include "WorstQuestions.h"

#include <limits>

namespace bench {
namespace {

constexpr unsigned kQuestions = 500;          ///< of a realistic set, for the module
constexpr unsigned kComparedQuestions = 100;  ///< of these, for the reference and the peers

void EnterSearches(Algorithm algorithm, const QuestionSet& set) {
    for (std::size_t index = 0; index < set.questions.size(); ++index) {
        const Question question = InOrderOf(algorithm, set.questions[index]);
        EnterModule(set.name, index, algorithm, question);
        if (index < kComparedQuestions) {
            Agree(set.name, algorithm, question);
            EnterReference(set.name, index, algorithm, question, kStepBudget);
        }
    }
}

/// First-fit emptying may not end at all: of such a question the decision is timed.
void EnterFirstFit(const QuestionSet& set) {
    constexpr Algorithm kFirstFit = Algorithm::FirstFitEmptying;
    for (std::size_t index = 0; index < set.questions.size(); ++index) {
        const Question question = InOrderOf(kFirstFit, set.questions[index]);
        if (ModuleSearch(kFirstFit, question).NeverEnds()) {
            EnterDecision(set.name, index, question);
            continue;
        }
        EnterModule(set.name, index, kFirstFit, question);
        if (index < kComparedQuestions) {
            Agree(set.name, kFirstFit, question);
            EnterReference(set.name, index, kFirstFit, question, kStepBudget);
        }
    }
}

/// The peers for minimum notes, apart for amounts that can be made and that cannot.
void EnterPeerSets(const QuestionSet& set) {
    for (std::size_t index = 0; index < kComparedQuestions; ++index) {
        const Question& question = set.questions[index];
        if (!question.allowsPartial) {
            const bool isPayable = FewestItemsByTable(question).kind == FewestItems::Kind::Found;
            const std::string name = set.name + (isPayable ? ", payable" : ", not payable");
            EnterModule(name, index, Algorithm::MinimumNotes, question);
            EnterPeers(name, index, question);
        }
    }
}

void EnterWorst() {
    constexpr std::uint64_t kNoBudget = std::numeric_limits<std::uint64_t>::max();
    for (const WorstQuestion& worst : WorstQuestions()) {
        EnterModule(worst.name, 0, worst.algorithm, worst.question);
        EnterReference(worst.name, 0, worst.algorithm, worst.question, kNoBudget);
    }
}

void EnterCalls(const QuestionSet& set) {
    for (unsigned mix = 1; mix <= 10; ++mix) {
        for (std::size_t index = 0; index < set.questions.size(); ++index) {
            EnterCall(set.name, index, mix, set.questions[index]);
        }
    }
}

}  // namespace

void RegisterTable() {
    const std::vector<QuestionSet> sets = RealisticSets(kRealisticQuestions);
    for (const Algorithm algorithm : kWalkedAlgorithms) {
        for (const QuestionSet& set : sets) {
            EnterSearches(algorithm, set);
        }
    }
    for (const QuestionSet& set : sets) {
        EnterFirstFit(set);
    }
    EnterPeerSets(sets[1]);
    EnterPeerSets(sets[4]);
    EnterWorst();
    EnterCalls(SmallAmounts(kComparedQuestions));
}

}  // namespace bench
