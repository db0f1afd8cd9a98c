#include "MapOutput.h"

#include "MapCsv.h"
#include "MapPage.h"
#include "MapText.h"

#include <map>

namespace qxmix {

std::optional<MapForm> MapFormOf(const std::string& file, const MapQuestions& questions) {
    static const std::map<std::string, MapForm> forms = {{".txt", MapForm::TextFile},
                                                         {".json", MapForm::JsonFile},
                                                         {".csv", MapForm::CsvFile},
                                                         {".html", MapForm::Page}};
    if (file.empty()) {
        return std::nullopt;
    }
    const std::size_t dot = file.rfind('.');
    const auto form = forms.find(dot == std::string::npos ? "" : file.substr(dot));
    if (form == forms.end()) {
        throw InputError("--output: " +
                         NotAllowed(file, std::string("a name that ends in ") + kMapFormsExpected));
    }
    if (form->second == MapForm::Page) {
        CheckCellCount(questions, kMostPageCells, "--output");
    }
    return form->second;
}

std::string MapFile(MapForm form,
                    const MapQuestions& questions,
                    const MapAnswers& answers,
                    const Envelope& envelope,
                    const std::string& commandLine) {
    switch (form) {
    case MapForm::TextFile:
        return MapText(questions, answers, Painter(ColorMode::Never));
    case MapForm::CsvFile:
        return MapCsv(questions, answers);
    case MapForm::Page:
        return MapPage(questions, answers, envelope, commandLine);
    case MapForm::JsonFile:
        break;
    }
    return EnvelopeText(envelope);
}

bool NeedsResult(std::optional<MapForm> form) {
    return form == MapForm::JsonFile || form == MapForm::Page;
}

void CheckCellCount(const MapQuestions& questions, std::uint64_t most, const std::string& option) {
    if (questions.CellCount() <= most) {
        return;
    }
    const std::uint64_t amounts = most / questions.mixes.size();
    const std::uint64_t step = (questions.to - questions.from) / amounts + 1;
    throw InputError(option + ": " + std::to_string(questions.CellCount()) +
                     " calculations are too many; expected at most " + std::to_string(most) +
                     ", as with --step " + std::to_string(step) + " or fewer --mixes");
}

}  // namespace qxmix
