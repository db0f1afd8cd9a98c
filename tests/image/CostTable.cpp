/// Prints what calls of the device's library cost, as the table of the documentation:
///
///     image_costs LIBRARY.dll [QUESTIONS PER SET]

#include "Costs.h"
#include "ImageTest.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using emulation::CostRow;

// The others are as these, or cheaper where they pass over cassettes.
const std::vector<unsigned> kShownMixes{1, 2, 3, 10};

constexpr std::uint64_t kWalkBudget = 1'000'000'000;
constexpr std::uint64_t kFirstFitBudget = 2'000'000;

/// 17704059 as "17,704,059".
std::string Grouped(std::uint64_t number) {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3; at -= 3) {
        text.insert(at - 3, ",");
    }
    return text;
}

class CostTable {
public:
    explicit CostTable(emulation::RequestPlayer& player) : player_(player) {
        std::puts("| Requests | Mix | Median | Most |\n|---|---|---|---|");
    }

    void
    Add(const bench::QuestionSet& set, const std::vector<unsigned>& mixes, std::uint64_t budget) {
        for (const CostRow& row : MeasureCosts(player_, set, mixes, budget)) {
            deepestStack_ = std::max(deepestStack_, row.DeepestStack());
            std::printf("| %s | %u | %s | %s", row.set.c_str(), row.mix,
                        Grouped(row.Median()).c_str(), Grouped(row.Most()).c_str());
            if (row.Unanswered() != 0) {
                std::printf(" (%zu of %zu not answered within the budget)", row.Unanswered(),
                            row.costs.size());
            }
            std::puts(" |");
        }
    }

    std::uint32_t DeepestStack() const { return deepestStack_; }

private:
    emulation::RequestPlayer& player_;
    std::uint32_t deepestStack_ = 0;
};

void PrintTable(emulation::RequestPlayer& player, unsigned questions) {
    std::vector<bench::QuestionSet> sets = bench::RealisticSets(questions);
    sets.push_back(bench::SmallAmounts(questions));
    CostTable table(player);
    for (const bench::QuestionSet& set : sets) {
        table.Add(set, kShownMixes, kWalkBudget);
    }
    for (const bench::QuestionSet& set : sets) {
        table.Add(set, emulation::kFirstFitMixes, kFirstFitBudget);
    }
    std::printf("deepest stack: %s bytes\n", Grouped(table.DeepestStack()).c_str());
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
