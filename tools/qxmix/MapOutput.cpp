#include "MapOutput.h"

#include "MapCsv.h"
#include "MapText.h"

#include <map>

namespace qxmix {

std::optional<MapForm> MapFormOf(const std::string& file, const MapQuestions&) {
    static const std::map<std::string, MapForm> forms = {
        {".txt", MapForm::TextFile}, {".json", MapForm::JsonFile}, {".csv", MapForm::CsvFile}};
    if (file.empty()) {
        return std::nullopt;
    }
    const std::size_t dot = file.rfind('.');
    const auto form = forms.find(dot == std::string::npos ? "" : file.substr(dot));
    if (form == forms.end()) {
        throw InputError("--output: " +
                         NotAllowed(file, std::string("a name that ends in ") + kMapFormsExpected));
    }
    return form->second;
}

std::string MapFile(MapForm form,
                    const MapQuestions& questions,
                    const MapAnswers& answers,
                    const Envelope& envelope) {
    switch (form) {
    case MapForm::TextFile:
        return MapText(questions, answers, Painter(ColorMode::Never));
    case MapForm::CsvFile:
        return MapCsv(questions, answers);
    case MapForm::JsonFile:
        break;
    }
    return EnvelopeText(envelope);
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
