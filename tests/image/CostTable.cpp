/// Prints what calls of the device's library cost, as the table of the documentation:
///
///     image_costs LIBRARY.dll [QUESTIONS PER SET]

#include "Costs.h"
#include "ImageTest.h"

#include <cstdio>
#include <cstdlib>

namespace {

using emulation::CostRow;

constexpr std::uint64_t kWalkBudget = 1'000'000'000;
constexpr std::uint64_t kFirstFitBudget = 2'000'000;

void Print(const CostRow& row) {
    std::printf("| %s | %u | %llu | %llu | %u | %zu of %zu |\n", row.set.c_str(), row.mix,
                static_cast<unsigned long long>(row.Median()),
                static_cast<unsigned long long>(row.Most()), row.DeepestStack(), row.Unanswered(),
                row.costs.size());
}

void PrintTable(emulation::RequestPlayer& player, unsigned questions) {
    std::puts("| Requests | Mix | Median | Most | Stack, bytes | Not answered |\n"
              "|---|---|---|---|---|---|");
    std::vector<bench::QuestionSet> sets = bench::RealisticSets(questions);
    sets.push_back(bench::SmallAmounts(questions));
    std::vector<CostRow> firstFit;
    for (const bench::QuestionSet& set : sets) {
        for (const CostRow& row : MeasureCosts(player, set, emulation::kWalkedMixes, kWalkBudget)) {
            Print(row);
        }
        for (const CostRow& row :
             MeasureCosts(player, set, emulation::kFirstFitMixes, kFirstFitBudget)) {
            firstFit.push_back(row);
        }
    }
    for (const CostRow& row : firstFit) {
        Print(row);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: image_costs LIBRARY.dll [QUESTIONS PER SET]\n", stderr);
        return 2;
    }
    const emulation::PeFile library = emulation::ReadPe(emulation::FileOf(argv[1]));
    emulation::EmulatedModule module(library, library.base);
    emulation::RequestPlayer player(module);
    PrintTable(player, argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 100);
    return 0;
}
