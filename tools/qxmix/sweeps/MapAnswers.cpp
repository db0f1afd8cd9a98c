#include "MapAnswers.h"

#include "requests/Request.h"
#include "workers/AdaptiveDeadline.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

namespace qxmix {

namespace {

/// Hands out the cells amount by amount, and files the answers in that order.
class MapDesk final : public Desk {
public:
    MapDesk(const MapQuestions& questions, MapAnswers& answers)
        : questions_(questions), answers_(answers),
          deadlines_(questions.mixes.size(), AdaptiveDeadline(questions.deadline)),
          misses_(questions.mixes.size()) {
        for (const std::uint16_t mix : questions.mixes) {
            requests_.push_back(BuildRequest(questions.dispenser, 0, mix));
        }
        answers_.rows.resize(questions.mixes.size());
    }

    std::optional<WorkerPool::Task> NextTask() override {
        while (next_ < questions_.CellCount() && IsPassedOver(next_)) {
            ++next_;
        }
        if (next_ == questions_.CellCount()) {
            return std::nullopt;
        }
        const std::size_t row = RowOf(next_);
        WorkerPool::Task task;
        task.number = next_;
        task.request = requests_[row];
        task.request.ulAmount = AmountOf(next_);
        task.deadline = deadlines_[row].Next();
        ++next_;
        return task;
    }

    void Take(const WorkerPool::Task& task, const Reply& reply) override {
        const Answer answer =
            Judge(questions_.dispenser,
                  {AmountOf(task.number), task.request.usMixNumber, task.deadline}, reply);
        const bool isMiss = answer.outcome == Outcome::NoAnswer && !answer.isProved;
        deadlines_[RowOf(task.number)].Note(isMiss);
        CountDone(1, isMiss ? 1 : 0);
        Keep(task.number, CellOf(answer));
    }

private:
    /// Nothing is asked, and nothing kept, of a mix that was given up.
    bool IsPassedOver(std::uint64_t number) {
        if (!IsGivenUp(RowOf(number))) {
            return false;
        }
        CountDone(1, 0);
        Keep(number, MapCell());
        return true;
    }

    bool IsGivenUp(std::size_t row) const {
        return questions_.mostMisses && misses_[row] >= *questions_.mostMisses;
    }

    void Keep(std::uint64_t number, const MapCell& cell) {
        const auto place = static_cast<std::size_t>(number - filed_);
        if (waiting_.size() <= place) {
            waiting_.resize(place + 1);
        }
        waiting_[place] = cell;
        FileWholeAmounts();
    }

    std::size_t RowOf(std::uint64_t number) const {
        return static_cast<std::size_t>(number % questions_.mixes.size());
    }

    std::uint32_t AmountOf(std::uint64_t number) const {
        return questions_.Amount(number / questions_.mixes.size());
    }

    bool IsNextAmountWhole() const {
        const std::size_t mixes = questions_.mixes.size();
        return waiting_.size() >= mixes &&
               std::all_of(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(mixes),
                           [](const auto& cell) { return cell.has_value(); });
    }

    void FileWholeAmounts() {
        while (IsNextAmountWhole()) {
            for (std::size_t row = 0; row < answers_.rows.size(); ++row) {
                FileCell(row, *waiting_.front());
                waiting_.pop_front();
                ++filed_;
            }
            ++answers_.amountCount;
        }
    }

    /// What was asked behind the miss with which a mix is given up does not count: so it is the
    /// same whoever was faster.
    void FileCell(std::size_t row, const MapCell& cell) {
        if (IsGivenUp(row)) {
            return;
        }
        const bool isMiss = cell.outcome == Outcome::NoAnswer && !cell.IsProved();
        misses_[row] += isMiss ? 1U : 0U;
        answers_.lastCode = cell.code.empty() ? answers_.lastCode : cell.code;
        answers_.rows[row].Add(cell);
    }

    const MapQuestions& questions_;
    MapAnswers& answers_;
    std::vector<AdaptiveDeadline> deadlines_;
    std::vector<std::uint64_t> misses_;  // filed, by row; what is known to be endless is none
    std::vector<MixRequest> requests_;
    std::uint64_t next_ = 0;   // number of the cell to ask next
    std::uint64_t filed_ = 0;  // cells filed, and so the number of the first that waits
    std::deque<std::optional<MapCell>> waiting_;
};

}  // namespace

MapAnswers AskMap(const MapQuestions& questions,
                  const OpenOrder& order,
                  const TraceSink& trace,
                  const ProgressListener& progress) {
    MapAnswers answers;
    MapDesk desk(questions, answers);
    answers.isComplete = WorkOff(desk, order, questions.jobs, trace, progress);
    return answers;
}

}  // namespace qxmix
