#include "Report.h"

#include "Contestants.h"
#include "Registration.h"

#include <cstdio>
#include <ostream>

namespace bench {
namespace {

/// Three digits and a unit.
std::string Time(double nanoseconds) {
    struct Scale {
        double size;
        const char* unit;
    };
    constexpr Scale kScales[] = {{1e9, "s"}, {1e6, "ms"}, {1e3, "us"}, {1, "ns"}};
    for (const Scale& scale : kScales) {
        if (nanoseconds >= scale.size || scale.size <= 1) {
            const double shown = nanoseconds / scale.size;
            char text[40];
            std::snprintf(text, sizeof(text), shown < 9.95 ? "%.1f %s" : "%.0f %s", shown,
                          scale.unit);
            return text;
        }
    }
    return {};
}

std::string Times(double ratio) {
    char text[40];
    std::snprintf(text, sizeof(text), ratio < 9.95 ? "%.1f" : ratio < 1e6 ? "%.0f" : "%.1e", ratio);
    return text;
}

/// "> 34 (7)": 34 times as long at least, since seven answers were given up.
std::string Marked(const Row& row, const char* contestant, double ratio) {
    const unsigned givenUp = row.GivenUp(contestant);
    return givenUp == 0 ? Times(ratio) : "> " + Times(ratio) + " (" + std::to_string(givenUp) + ")";
}

std::string ReferenceRatio(const Row& row) {
    return row.Has("reference") ? Marked(row, "reference", row.MeanRatio("reference")) : "-";
}

std::string PeerRatio(const Row& row, const char* peer) {
    return row.Has(peer) ? Marked(row, peer, row.MedianRatio(peer)) : "-";
}

void WriteLine(const std::vector<std::string>& cells, std::ostream& out) {
    constexpr int kWidths[] = {19, 35, 6, 7, 7, 13, 5, 15, 15};
    out << "|";
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        char text[80];
        std::snprintf(text, sizeof(text), cell < 2 ? " %-*s |" : " %*s |", kWidths[cell],
                      cells[cell].c_str());
        out << text;
    }
    out << "\n";
}

void WriteRow(const Row& row, std::ostream& out) {
    const std::vector<double> times = row.Sorted("module");
    WriteLine({row.what, row.set, std::to_string(times.size()), Time(Median(times)),
               Time(times.back()), ReferenceRatio(row), PeerRatio(row, "table"),
               PeerRatio(row, "GLPK"), PeerRatio(row, "CBC")},
              out);
}

/// The rows of one algorithm over the realistic sets, as one.
Row Together(const Collation& collation, Algorithm algorithm) {
    Row together{NameOf(algorithm), "all realistic ones", {}};
    for (const Row& row : collation.Rows()) {
        const bool isRealistic = row.questions.size() == kRealisticQuestions;
        if (isRealistic && row.what == together.what) {
            together.Add(row);
        }
    }
    return together;
}

}  // namespace

void WriteTable(const Collation& collation, std::ostream& out) {
    WriteLine(
        {"what", "requests", "number", "median", "maximum", "reference", "table", "GLPK", "CBC"},
        out);
    out << "|---|---|--:|--:|--:|--:|--:|--:|--:|\n";
    for (const Row& row : collation.Rows()) {
        WriteRow(row, out);
    }
    for (const Algorithm algorithm : kWalkedAlgorithms) {
        WriteRow(Together(collation, algorithm), out);
    }
}

void WriteCurves(const Collation& collation, std::ostream& out) {
    out << "curve,at,algorithm,contestant,median_ns,maximum_ns\n";
    for (const Row& row : collation.Rows()) {
        const std::size_t equals = row.set.find('=');
        for (const char* contestant : {"module", "reference"}) {
            const std::vector<double> times = row.Sorted(contestant);
            if (!times.empty() && row.GivenUp(contestant) == 0) {
                char numbers[80];
                std::snprintf(numbers, sizeof(numbers), "%.1f,%.1f", Median(times), times.back());
                out << row.set.substr(0, equals) << "," << row.set.substr(equals + 1) << ","
                    << row.what << "," << contestant << "," << numbers << "\n";
            }
        }
    }
}

}  // namespace bench
