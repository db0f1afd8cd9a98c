#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

/// How long a contestant took for one question, at best.
struct Timing {
    double nanoseconds;
    bool gaveUp;  ///< it ran out of steps or time, and would have taken longer
};

/// One question's timings by contestant.
using QuestionTimings = std::map<std::string, Timing>;

/// The questions of one set put to one algorithm.
struct Row {
    std::string what;  ///< the algorithm
    std::string set;
    std::map<unsigned, QuestionTimings> questions;

    /// Times of a contestant, in ascending order.
    std::vector<double> Sorted(const std::string& contestant) const;

    /// Geometric mean of contestant's time by the module's, over the questions put to both.
    double MeanRatio(const std::string& contestant) const;

    /// Median of the contestant's times by the median of the module's over the same questions.
    double MedianRatio(const std::string& contestant) const;

    bool Has(const std::string& contestant) const { return !Sorted(contestant).empty(); }

    /// For how many questions the contestant gave up.
    unsigned GivenUp(const std::string& contestant) const;

    /// Takes in the questions of another row.
    void Add(const Row& other);
};

/// Sorts Google Benchmark's runs into rows by their names: "what/set/index/contestant". Of the
/// repetitions the best counts, since others share the machine.
class Collation final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    const std::vector<Row>& Rows() const { return rows_; }

private:
    Row& RowOf(const std::string& what, const std::string& set);

    std::vector<Row> rows_;
};

/// The middle of sorted times.
double Median(const std::vector<double>& sorted);

}  // namespace bench
