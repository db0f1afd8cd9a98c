#include "AnswerForms.h"

namespace qxmix {

std::string AnswerForms::File(OutputForm form, const Envelope& envelope) const {
    switch (form) {
    case OutputForm::TextFile:
        return text(Painter(ColorMode::Never));
    case OutputForm::CsvFile:
        return csv();
    case OutputForm::Page:
        return page();
    case OutputForm::JsonFile:
        break;
    }
    return EnvelopeText(envelope);
}

}  // namespace qxmix
