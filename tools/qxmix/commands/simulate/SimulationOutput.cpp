#include "SimulationOutput.h"

#include "SimulationCsv.h"
#include "SimulationPage.h"
#include "SimulationText.h"

namespace qxmix {

std::string SimulationFile(OutputForm form,
                           const SimulationQuestions& questions,
                           const SimulationAnswers& answers,
                           const Envelope& envelope,
                           const std::string& commandLine) {
    switch (form) {
    case OutputForm::TextFile:
        return SimulationText(questions, answers, Painter(ColorMode::Never));
    case OutputForm::CsvFile:
        return SimulationCsv(questions, answers);
    case OutputForm::Page:
        return SimulationPage(questions, answers, envelope, commandLine);
    case OutputForm::JsonFile:
        break;
    }
    return EnvelopeText(envelope);
}

}  // namespace qxmix
