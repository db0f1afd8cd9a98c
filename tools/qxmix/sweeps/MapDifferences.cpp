#include "MapDifferences.h"

#include "dispenser/ReadableMoney.h"
#include "findings/RuleTexts.h"
#include "requests/Request.h"

#include <map>

namespace qxmix {

namespace {

struct Differing {
    std::uint64_t amounts = 0;
    std::uint32_t first = 0;
};

Finding FindingFor(const MapQuestions& questions,
                   std::uint16_t mix,
                   LibraryDifference difference,
                   const Differing& differing) {
    const Dispenser& dispenser = questions.dispenser;
    Finding finding = FindingOf("QX406");
    finding.mix = mix;
    finding.pointer = "/mix";
    finding.message =
        "mix " + std::to_string(mix) + ": " + WordsOf(difference) + " on " +
        std::to_string(differing.amounts) +
        (differing.amounts == 1 ? " amount: " : " amounts, first ") +
        ReadableText(AskedMoney(dispenser, differing.first), AmountDecimals(dispenser));
    return finding;
}

}  // namespace

void FindDifferences(const MapQuestions& questions,
                     std::uint16_t mix,
                     const MapRow& row,
                     OwnDecisions& decisions,
                     const HearDifference& hear) {
    MixRequest request = BuildRequest(questions.dispenser, 0, mix);
    MapRowReader reader(row);
    for (std::uint64_t place = 0; place < row.Size() && decisions.AreWanted(); ++place) {
        request.ulAmount = questions.Amount(place);
        const MapCell& cell = reader.Next();
        const LibraryDifference difference =
            decisions.Of(request, EndingOf(cell.outcome, cell.IsProved()));
        if (difference != LibraryDifference::None) {
            hear(request.ulAmount, difference);
        }
    }
}

std::vector<Finding>
DifferencesOf(const MapQuestions& questions, MapAnswers& answers, OwnDecisions& decisions) {
    std::vector<Finding> findings;
    try {
        for (std::size_t row = 0; row < answers.rows.size(); ++row) {
            std::map<LibraryDifference, Differing> found;
            FindDifferences(questions, questions.mixes[row], answers.rows[row], decisions,
                            [&found](std::uint32_t amount, LibraryDifference difference) {
                                Differing& differing = found[difference];
                                differing.first = differing.amounts == 0 ? amount : differing.first;
                                ++differing.amounts;
                            });
            for (const auto& [difference, differing] : found) {
                findings.push_back(
                    FindingFor(questions, questions.mixes[row], difference, differing));
            }
        }
    } catch (const Interruption&) {
        answers.isComplete = false;
    }
    return findings;
}

}  // namespace qxmix
