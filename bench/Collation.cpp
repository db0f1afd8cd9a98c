#include "Collation.h"

#include "Entrants.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace bench {

double Median(const std::vector<double>& sorted) {
    return sorted[sorted.size() / 2];
}

std::vector<double> Row::Sorted(const std::string& contestant) const {
    std::vector<double> times;
    for (const auto& [index, question] : questions) {
        const auto found = question.find(contestant);
        if (found != question.end()) {
            times.push_back(found->second.nanoseconds);
        }
    }
    std::sort(times.begin(), times.end());
    return times;
}

double Row::MeanRatio(const std::string& contestant) const {
    double sum = 0;
    unsigned number = 0;
    for (const auto& [index, question] : questions) {
        const auto found = question.find(contestant);
        if (found != question.end()) {
            sum += std::log(found->second.nanoseconds / question.at("module").nanoseconds);
            ++number;
        }
    }
    return std::exp(sum / number);
}

double Row::MedianRatio(const std::string& contestant) const {
    std::vector<double> others;
    std::vector<double> own;
    for (const auto& [index, question] : questions) {
        const auto found = question.find(contestant);
        if (found != question.end()) {
            others.push_back(found->second.nanoseconds);
            own.push_back(question.at("module").nanoseconds);
        }
    }
    std::sort(others.begin(), others.end());
    std::sort(own.begin(), own.end());
    return Median(others) / Median(own);
}

unsigned Row::GivenUp(const std::string& contestant) const {
    return static_cast<unsigned>(
        std::count_if(questions.begin(), questions.end(), [&contestant](const auto& entry) {
            const auto found = entry.second.find(contestant);
            return found != entry.second.end() && found->second.gaveUp;
        }));
}

void Row::Add(const Row& other) {
    for (const auto& [index, question] : other.questions) {
        questions.emplace(static_cast<unsigned>(questions.size()), question);
    }
}

void Collation::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) {
            continue;
        }
        std::istringstream name(run.run_name.function_name);
        std::string what;
        std::string set;
        std::string index;
        std::string contestant;
        std::getline(name, what, '/');
        std::getline(name, set, '/');
        std::getline(name, index, '/');
        std::getline(name, contestant, '/');
        const auto number = static_cast<unsigned>(std::stoul(index));
        // Of the processor: the clock would also count what other programs were given meanwhile.
        const double time = run.cpu_accumulated_time / static_cast<double>(run.iterations) * 1e9;
        const Timing timing{time, run.counters.count(kGaveUp) != 0};
        QuestionTimings& question = RowOf(what, set).questions[number];
        Timing& best = question.emplace(contestant, timing).first->second;
        best = time < best.nanoseconds ? timing : best;
    }
}

Row& Collation::RowOf(const std::string& what, const std::string& set) {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) {
        return row.what == what && row.set == set;
    });
    if (found != rows_.end()) {
        return *found;
    }
    rows_.push_back({what, set, {}});
    return rows_.back();
}

}  // namespace bench
