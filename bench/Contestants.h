#pragma once

#include "FewestItems.h"
#include "Questions.h"

#include "Records.h"
#include "Reference.h"

#include <functional>

/// Who answers the questions, side by side.
namespace bench {

enum class Algorithm { MinimumNotes, MaximumNotes, EqualNotes, EqualEmptying, FirstFitEmptying };

constexpr Algorithm kWalkedAlgorithms[] = {Algorithm::MinimumNotes, Algorithm::MaximumNotes,
                                           Algorithm::EqualNotes, Algorithm::EqualEmptying};

const char* NameOf(Algorithm algorithm);

/// The units in the order in which the algorithm gets them.
Question InOrderOf(Algorithm algorithm, Question question);

/// What a contestant made of a question.
struct Answer {
    std::int32_t returned = 0;
    std::vector<std::uint32_t> items;  ///< per unit, after a success
    bool finished = true;              ///< false when the reference ran out of steps
};

/// One of the module's searches, called directly, as the driver calls it.
class ModuleSearch {
public:
    ModuleSearch(Algorithm algorithm, const Question& question);
    std::int32_t Run() noexcept { return search_(request_, table_, notes_); }
    Answer Ask();

    /// First-fit emptying decides so before it would run for ever: then Run must not be called.
    bool NeverEnds() const noexcept;

private:
    std::int32_t (*search_)(const MixRequest&, const LcuTable&, LcuNotes&) noexcept;
    MixRequest request_{};
    LcuTable table_{};
    LcuNotes notes_{};
};

/// The plain enumeration that judges the module.
class ReferenceSearch {
public:
    ReferenceSearch(Algorithm algorithm, const Question& question, std::uint64_t stepBudget);
    reference::Outcome Run() {
        return reference::RunSearch(search_, units_, amount_, partial_, limit_, notes_, budget_);
    }
    Answer Ask();

private:
    reference::Search search_;
    std::vector<reference::Unit> units_;
    std::uint32_t amount_;
    std::uint32_t partial_;
    std::uint16_t limit_;
    std::uint64_t budget_;
    std::vector<std::uint32_t> notes_;
};

/// What one would use instead for minimum notes.
struct Peer {
    const char* name;
    std::function<FewestItems(const Question&)> ask;  ///< empty when it is not installed
};

/// The dynamic program, GLPK and CBC, in this order.
std::vector<Peer> Peers();

}  // namespace bench
