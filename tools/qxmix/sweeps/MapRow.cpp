#include "MapRow.h"

#include <algorithm>
#include <utility>

namespace qxmix {

MapCell CellOf(const Answer& answer) {
    MapCell cell;
    cell.outcome = answer.outcome;
    cell.deadline = answer.isProved ? Milliseconds{0} : answer.deadline;
    if (answer.IsAnswered()) {
        cell.values = answer.values;
        cell.remainder = answer.remainder;
        cell.returned = answer.returned;
        cell.code = answer.code;
        cell.took = answer.took;
    }
    return cell;
}

Answer
AnswerOf(const Dispenser& dispenser, std::uint32_t amount, std::uint16_t mix, const MapCell& cell) {
    Answer answer({amount, mix, cell.deadline});
    answer.outcome = cell.outcome;
    answer.isProved = cell.IsProved();
    answer.asked = AskedMoney(dispenser, amount);
    if (cell.IsAnswered()) {
        answer.returned = cell.returned;
        answer.values = cell.values;
        answer.remainder = cell.remainder;
        answer.code = cell.code;
        answer.took = cell.took;
        answer.AddUp(dispenser);
    }
    return answer;
}

void MapRow::Add(const MapCell& cell) {
    if (runs_.empty() || runs_.back().outcome != cell.outcome) {
        runs_.push_back({cell.outcome, 0});
    }
    ++runs_.back().length;
    if (cell.outcome == Outcome::NoAnswer) {
        if (deadlines_.empty() || deadlines_.back().deadline != cell.deadline) {
            deadlines_.push_back({cell.deadline, 0});
        }
        ++deadlines_.back().length;
    }
    Step step{cell.IsAnswered(), {}, 0, 0, ""};
    if (step.isAnswered) {
        for (std::size_t slot = 0; slot < kMaxCashUnits; ++slot) {
            step.values[slot] = cell.values[slot] - last_.values[slot];
        }
        step.remainder = cell.remainder - last_.remainder;
        step.returned = cell.returned;
        step.code = cell.code;
        last_ = cell;
    }
    if (cell.took > slowest_.took) {
        slowest_ = {path_.size(), cell.took};
    }
    path_.push_back(PlaceOf(step));
}

std::uint64_t MapRow::Count(Outcome outcome) const {
    std::uint64_t count = 0;
    for (const Run& run : runs_) {
        count += run.outcome == outcome ? run.length : 0;
    }
    return count;
}

bool MapRow::AreMissesProved() const {
    return std::all_of(deadlines_.begin(), deadlines_.end(),
                       [](const DeadlineRun& run) { return run.deadline.count() == 0; });
}

std::uint32_t MapRow::PlaceOf(const Step& step) {
    const auto place = static_cast<std::uint32_t>(steps_.size());
    const auto [found, isNew] = places_.emplace(step, place);
    if (isNew) {
        steps_.push_back(step);
    }
    return found->second;
}

const MapCell& MapRowReader::Next() {
    if (leftOfRun_ == 0) {
        const MapRow::Run& run = row_.Runs()[run_++];
        leftOfRun_ = run.length;
        cell_.outcome = run.outcome;
    }
    --leftOfRun_;
    if (cell_.outcome == Outcome::NoAnswer) {
        if (leftOfDeadline_ == 0) {
            const MapRow::DeadlineRun& run = row_.Deadlines()[deadlineRun_++];
            leftOfDeadline_ = run.length;
            cell_.deadline = run.deadline;
        }
        --leftOfDeadline_;
    }
    const MapRow::Step& step = row_.Steps()[row_.Path()[index_++]];
    if (step.isAnswered) {
        for (std::size_t slot = 0; slot < kMaxCashUnits; ++slot) {
            cell_.values[slot] += step.values[slot];
        }
        cell_.remainder += step.remainder;
        cell_.returned = step.returned;
        cell_.code = step.code;
    }
    return cell_;
}

}  // namespace qxmix
