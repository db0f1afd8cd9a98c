#include "Contestants.h"

#include "CMixAlgorithm.h"
#include "CashUnitCodes.h"
#include "FirstFitDecision.h"

#include <algorithm>

namespace bench {
namespace {

struct AlgorithmRow {
    const char* name;
    std::int32_t (*module)(const MixRequest&, const LcuTable&, LcuNotes&) noexcept;
    reference::Search reference;
};

// By Algorithm, in its order.
const AlgorithmRow kAlgorithms[] = {
    {"minimum notes", CMixAlgorithm::CalcMinimumNotes, reference::Search::MinimumNotes},
    {"maximum notes", CMixAlgorithm::CalcMaximumNotes, reference::Search::MaximumNotes},
    {"equal notes", CMixAlgorithm::CalcEqualNotes, reference::Search::EqualNotes},
    {"equal emptying", CMixAlgorithm::CalcEqualEmptying, reference::Search::EqualEmptying},
    {"first fit", CMixAlgorithm::CalcFirstFitEmptying, reference::Search::FirstFitEmptying},
};

const AlgorithmRow& RowOf(Algorithm algorithm) {
    return kAlgorithms[static_cast<unsigned>(algorithm)];
}

std::uint16_t BillCassette() {
    return static_cast<std::uint16_t>(CashUnitType::BillCassette);
}

}  // namespace

const char* NameOf(Algorithm algorithm) {
    return RowOf(algorithm).name;
}

Question InOrderOf(Algorithm algorithm, Question question) {
    std::sort(question.units.begin(), question.units.end(),
              [algorithm](const Unit& first, const Unit& second) {
                  switch (algorithm) {
                  case Algorithm::MaximumNotes:
                      return first.value < second.value;
                  case Algorithm::FirstFitEmptying:
                      return first.value * first.count > second.value * second.count;
                  default:
                      return first.value > second.value;
                  }
              });
    return question;
}

ModuleSearch::ModuleSearch(Algorithm algorithm, const Question& question)
    : search_(RowOf(algorithm).module) {
    request_.ulAmount = question.amount;
    request_.usMaxDispenseItems = question.limit;
    request_.bAllowPartial = question.allowsPartial ? 1 : 0;
    table_.usCount = static_cast<std::uint16_t>(question.units.size());
    for (unsigned unit = 0; unit < question.units.size(); ++unit) {
        table_.aLCUs[unit].usType = BillCassette();
        table_.aLCUs[unit].ulValues = question.units[unit].value;
        table_.aLCUs[unit].ulCount = question.units[unit].count;
    }
}

Answer ModuleSearch::Ask() {
    notes_ = {};
    const std::int32_t returned = Run();
    const unsigned units = table_.usCount;
    return {returned, {notes_.aulNotes, notes_.aulNotes + units}, true};
}

bool ModuleSearch::NeverEnds() const noexcept {
    return search_ == CMixAlgorithm::CalcFirstFitEmptying &&
           DecideFirstFit(SearchUnits(request_, table_)).ending == FirstFitDecision::Ending::Never;
}

ReferenceSearch::ReferenceSearch(Algorithm algorithm,
                                 const Question& question,
                                 std::uint64_t stepBudget)
    : search_(RowOf(algorithm).reference), amount_(question.amount),
      partial_(question.allowsPartial ? 1 : 0), limit_(question.limit), budget_(stepBudget) {
    for (const Unit& unit : question.units) {
        units_.push_back({unit.value, unit.count, BillCassette()});
    }
}

Answer ReferenceSearch::Ask() {
    notes_.clear();
    const reference::Outcome outcome = Run();
    notes_.resize(units_.size());
    return {outcome.returned, notes_, outcome.finished};
}

}  // namespace bench
