#include "MapRow.h"

#include <algorithm>
#include <utility>

namespace qxmix {

MapCell CellOf(const Reply& reply, Outcome outcome, Milliseconds deadline) {
    MapCell cell;
    cell.outcome = outcome;
    cell.deadline = reply.ending.kind == Ending::Kind::Endless ? Milliseconds{0} : deadline;
    if (cell.IsAnswered()) {
        for (std::size_t slot = 0; slot < kMaxCashUnits; ++slot) {
            cell.values[slot] = reply.calculation.result.aulNotes[slot];
        }
        cell.remainder = reply.calculation.request.ulRemainder;
        cell.returned = reply.calculation.returned;
        cell.code = reply.calculation.written;
        cell.took = reply.calculation.took;
    }
    return cell;
}

Reply ReplyOf(const MapCell& cell) {
    Reply reply;
    if (!cell.IsAnswered()) {
        reply.ending.kind = cell.outcome == Outcome::Crashed ? Ending::Kind::Crashed
                            : cell.deadline.count() == 0     ? Ending::Kind::Endless
                                                             : Ending::Kind::NoAnswer;
        return reply;
    }
    reply.ending.kind = Ending::Kind::Answered;
    reply.calculation.returned = cell.returned;
    reply.calculation.request.ulRemainder = cell.remainder;
    for (std::size_t slot = 0; slot < kMaxCashUnits; ++slot) {
        reply.calculation.result.aulNotes[slot] = cell.values[slot];
    }
    reply.calculation.written = cell.code;
    return reply;
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
