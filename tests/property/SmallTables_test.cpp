#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "CMixAlgorithm.h"
#include "FirstFitDecision.h"
#include "LastCode.h"
#include "Settings.h"
#include "SmallGrid.h"

namespace property {
namespace {

using reference::Search;
using reference::Unit;
using Table = std::vector<Unit>;
using Counts = std::vector<std::uint32_t>;

constexpr std::uint64_t kStepBudget = 20000;
constexpr std::uint32_t kUntouched = 77;  // in every entry of the notes before a search
constexpr std::uint16_t kMaxLimit = 12;
constexpr std::uint64_t kPartOfTables = 7;
constexpr unsigned kMostDifferencesShown = 5;
constexpr std::int32_t kNever = 1;  // in place of a result code

using Operation = std::int32_t (*)(const MixRequest&, const LcuTable&, LcuNotes&) noexcept;

struct Subject {
    const char* name;
    Search search;
    Operation operation;
};

const Subject kSubjects[] = {
    {"MinimumNotes", Search::MinimumNotes, CMixAlgorithm::CalcMinimumNotes},
    {"EqualNotes", Search::EqualNotes, CMixAlgorithm::CalcEqualNotes},
    {"EqualEmptying", Search::EqualEmptying, CMixAlgorithm::CalcEqualEmptying},
    {"FirstFitEmptying", Search::FirstFitEmptying, CMixAlgorithm::CalcFirstFitEmptying},
    {"MaximumNotes", Search::MaximumNotes, CMixAlgorithm::CalcMaximumNotes},
};

/// Whether a unit stands before another in the table that the search is given in practice.
bool StandsBefore(Search search, const Unit& a, const Unit& b) {
    if (search == Search::MaximumNotes) {
        return a.value < b.value;
    }
    if (search == Search::FirstFitEmptying) {
        return a.value * a.count > b.value * b.count;
    }
    return a.value > b.value;
}

struct Question {
    std::uint32_t amount;
    std::uint32_t partial;
    std::uint16_t limit;
};

struct Answer {
    std::int32_t returned;
    std::string lastCode;
    Counts notes;  // as before the search unless it succeeded

    bool operator==(const Answer& other) const {
        return returned == other.returned && lastCode == other.lastCode && notes == other.notes;
    }
};

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    out << answer.returned << " \"" << answer.lastCode << "\" (";
    for (const std::uint32_t count : answer.notes) {
        out << ' ' << count;
    }
    return out << " )";
}

class SmallTables : public testing::TestWithParam<Subject> {
protected:
    void RunTable(Table table) {
        const Search search = GetParam().search;
        std::stable_sort(table.begin(), table.end(), [search](const Unit& a, const Unit& b) {
            return StandsBefore(search, a, b);
        });
        FillModuleTable(table);
        std::uint32_t held = 0;
        for (const Unit& unit : table) {
            held += unit.value * unit.count;
        }
        for (std::uint32_t amount = 0; amount <= held + 2; ++amount) {
            for (std::uint16_t limit = 0; limit <= kMaxLimit; ++limit) {
                for (std::uint32_t partial = 0; partial <= 2; ++partial) {
                    RunCase(table, {amount, partial, limit});
                }
            }
        }
    }

    std::uint64_t cases_ = 0;
    std::uint64_t exceeded_ = 0;
    std::uint64_t different_ = 0;
    std::uint64_t paid_ = 0;
    std::uint64_t never_ = 0;

private:
    void FillModuleTable(const Table& table) {
        moduleTable_ = LcuTable{};
        moduleTable_.usCount = static_cast<std::uint16_t>(table.size());
        for (std::size_t i = 0; i < table.size(); ++i) {
            moduleTable_.aLCUs[i].ulValues = table[i].value;
            moduleTable_.aLCUs[i].ulCount = table[i].count;
            moduleTable_.aLCUs[i].usType = table[i].type;
        }
    }

    void RunCase(const Table& table, const Question& question) {
        ++cases_;
        expected_.notes.assign(reference::kMaxUnits, kUntouched);
        const reference::Outcome outcome =
            reference::RunSearch(GetParam().search, table, question.amount, question.partial,
                                 question.limit, expected_.notes, kStepBudget);
        Ask(question);
        const bool neverAnswers = NeverAnswers();
        if (outcome.neverEnds || neverAnswers) {
            CompareNever(outcome, neverAnswers, table, question);
            return;
        }
        if (!outcome.finished) {
            ++exceeded_;
            return;
        }
        expected_.returned = outcome.returned;
        expected_.lastCode = outcome.lastCode;
        if (outcome.returned == 0) {
            ++paid_;
        } else {
            expected_.notes.assign(reference::kMaxUnits, kUntouched);
        }
        AskModule();
        if (!(expected_ == actual_)) {
            Report(table, question);
        }
    }

    void Ask(const Question& question) {
        moduleRequest_.ulAmount = question.amount;
        moduleRequest_.bAllowPartial = question.partial;
        moduleRequest_.usMaxDispenseItems = question.limit;
    }

    /// Whether the module would spin: then nothing of it can be called but its decision.
    bool NeverAnswers() {
        if (GetParam().search != Search::FirstFitEmptying || moduleTable_.usCount < 3) {
            return false;
        }
        decision_ = DecideFirstFit(SearchUnits(moduleRequest_, moduleTable_));
        return decision_.ending == FirstFitDecision::Ending::Never;
    }

    void CompareNever(const reference::Outcome& outcome,
                      bool neverAnswers,
                      const Table& table,
                      const Question& question) {
        ++never_;
        lastCode.clear();
        decision_.refusal.Record(moduleRequest_, moduleTable_,
                                 SearchUnits(moduleRequest_, moduleTable_));
        expected_ = {outcome.neverEnds ? kNever : outcome.returned, outcome.lastCode, {}};
        actual_ = {neverAnswers ? kNever : 0, lastCode, {}};
        if (!(expected_ == actual_)) {
            Report(table, question);
        }
    }

    void AskModule() {
        LcuNotes notes;
        std::fill(std::begin(notes.aulNotes), std::end(notes.aulNotes), u32le(kUntouched));
        lastCode.clear();
        actual_.returned = GetParam().operation(moduleRequest_, moduleTable_, notes);
        actual_.lastCode = lastCode;
        actual_.notes.assign(reference::kMaxUnits, kUntouched);
        if (actual_.returned == 0) {
            std::copy(std::begin(notes.aulNotes), std::end(notes.aulNotes), actual_.notes.begin());
        }
    }

    void Report(const Table& table, const Question& question) {
        ++different_;
        if (different_ > kMostDifferencesShown) {
            return;
        }
        std::ostringstream text;
        for (const Unit& unit : table) {
            text << unit.count << " of value " << unit.value << " type " << unit.type << ", ";
        }
        ADD_FAILURE() << text.str() << "amount " << question.amount << ", partial "
                      << question.partial << ", limit " << question.limit << "\nexpected "
                      << expected_ << "\ngot      " << actual_;
    }

    MixRequest moduleRequest_{};
    LcuTable moduleTable_{};
    FirstFitDecision decision_{};
    Answer expected_{};
    Answer actual_{};
};

TEST_P(SmallTables, AreAllAnsweredAlike) {
    const std::uint64_t every = Setting("QXMIX_FULL", 0) == 1 ? 1 : kPartOfTables;
    ForEachSmallTable(every, [this](const Table& table) { RunTable(table); });
    std::cout << GetParam().name << ": " << cases_ << " cases in 1 of " << every
              << " small tables: " << cases_ - exceeded_ - different_ << " equal (" << paid_
              << " paid, " << never_ << " never end), " << different_ << " different, " << exceeded_
              << " not run (more than " << kStepBudget << " steps)" << std::endl;
    EXPECT_EQ(0U, different_);
    EXPECT_GT(cases_, 1000000U);
    EXPECT_GT(paid_, cases_ / 20);
    EXPECT_EQ(0U, exceeded_);
    if (GetParam().search == Search::FirstFitEmptying) {
        EXPECT_GT(never_, cases_ / 3);
    } else {
        EXPECT_EQ(0U, never_);
    }
}

INSTANTIATE_TEST_SUITE_P(Each,
                         SmallTables,
                         testing::ValuesIn(kSubjects),
                         [](const testing::TestParamInfo<Subject>& one) {
                             return std::string(one.param.name);
                         });

}  // namespace
}  // namespace property
