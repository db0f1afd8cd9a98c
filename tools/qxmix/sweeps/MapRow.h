#pragma once

#include "answers/Answer.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace qxmix {

/// What a row keeps of an answer; the rest follows from the question and the dispenser.
struct MapCell {
    Outcome outcome = Outcome::NoAnswer;
    CassetteItems values{};  ///< items by slot, as the module wrote them
    std::uint32_t remainder = 0;
    std::int32_t returned = 0;
    std::string code;                  ///< error code left in the registry; empty: none
    Milliseconds deadline{0};          ///< what it was given; 0: it is known never to end
    std::chrono::nanoseconds took{0};  ///< processor time; a row keeps the longest

    /// False for a missed deadline and a crash: nothing but outcome and deadline counts then.
    bool IsAnswered() const { return qxmix::IsAnswered(outcome); }

    bool IsProved() const { return outcome == Outcome::NoAnswer && deadline.count() == 0; }
};

MapCell CellOf(const Answer& answer);

/// The answer that a cell was made of.
///
/// @param dispenser  the one that was asked.
Answer
AnswerOf(const Dispenser& dispenser, std::uint32_t amount, std::uint16_t mix, const MapCell& cell);

/// What one mix answered on one amount after the other, in little room: neighbouring amounts get
/// similar answers, so each is kept as one of few steps from the answer before it.
class MapRow {
public:
    /// Amounts in a row with the same outcome.
    struct Run {
        Outcome outcome;
        std::uint64_t length;
    };

    /// From one answer to the next.
    struct Step {
        bool isAnswered;  ///< false: no answer is there, and the next step is from the one before
        CassetteItems values;     ///< more than before, modulo 2^32
        std::uint32_t remainder;  ///< more than before, modulo 2^32
        std::int32_t returned;    ///< as it is
        std::string code;         ///< as it is

        bool operator<(const Step& other) const {
            return std::tie(isAnswered, values, remainder, returned, code) <
                   std::tie(other.isAnswered, other.values, other.remainder, other.returned,
                            other.code);
        }
    };

    /// Missed deadlines in a row that were as long; 0 where a call is known never to end.
    struct DeadlineRun {
        Milliseconds deadline;
        std::uint64_t length;
    };

    /// The answer that took the longest, and where it stands.
    struct Slowest {
        std::uint64_t place = 0;
        std::chrono::nanoseconds took{0};
    };

    void Add(const MapCell& cell);

    std::uint64_t Size() const { return path_.size(); }
    std::uint64_t Count(Outcome outcome) const;

    /// Whether none of the answers that are missing will ever come.
    bool AreMissesProved() const;

    const std::vector<Run>& Runs() const { return runs_; }
    const std::vector<Step>& Steps() const { return steps_; }
    const std::vector<DeadlineRun>& Deadlines() const { return deadlines_; }
    const Slowest& SlowestAnswer() const { return slowest_; }

    /// For each amount the place of its step in Steps.
    const std::vector<std::uint32_t>& Path() const { return path_; }

private:
    std::uint32_t PlaceOf(const Step& step);

    std::vector<Run> runs_;
    std::vector<DeadlineRun> deadlines_;
    std::vector<Step> steps_;
    std::map<Step, std::uint32_t> places_;
    std::vector<std::uint32_t> path_;
    MapCell last_;  // the last one answered
    Slowest slowest_;
};

/// Walks the cells of a row in the order of their amounts.
class MapRowReader {
public:
    explicit MapRowReader(const MapRow& row) : row_(row) {}

    /// The next cell; the row must have one.
    const MapCell& Next();

private:
    const MapRow& row_;
    MapCell cell_;
    std::size_t index_ = 0;
    std::size_t run_ = 0;
    std::uint64_t leftOfRun_ = 0;
    std::size_t deadlineRun_ = 0;
    std::uint64_t leftOfDeadline_ = 0;
};

}  // namespace qxmix
