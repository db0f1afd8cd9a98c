#include "Envelope.h"

#include "ToolVersion.h"
#include "json/Json.h"
#include "module/LibrarySearch.h"

namespace qxmix {

namespace {

/// Names of libraries and files need not be UTF-8; JSON has to be.
std::string TextOf(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json TextOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

}  // namespace

Envelope EnvelopeBy(const Asker& asker, const std::string& command) {
    Envelope envelope;
    envelope.module = asker.ModuleVersion();
    envelope.library = FileNameOf(asker.Library());
    envelope.command = command;
    return envelope;
}

Json EnvelopeJson(const Envelope& envelope) {
    return {{"format", "qxmix/answer/" + std::to_string(envelope.version)},
            {"tool", kToolVersion},
            {"module", TextOrNull(envelope.module)},
            {"library", TextOrNull(envelope.library)},
            {"command", envelope.command},
            {"complete", envelope.complete},
            {"input", envelope.input},
            {"result", envelope.result},
            {"warnings", FindingsJson(envelope.warnings)},
            {"exitStatus", static_cast<int>(envelope.exitStatus)}};
}

std::string EnvelopeText(const Envelope& envelope) {
    return TextOf(EnvelopeJson(envelope)) + "\n";
}

void WriteEnvelope(const Envelope& envelope,
                   const TakePart& take,
                   const std::function<void()>& result) {
    std::string before = "{";
    const Json fields = EnvelopeJson(envelope);
    for (const auto& field : fields.items()) {
        take(before + Json(field.key()).dump() + ":");
        if (field.key() == "result") {
            result();
        } else {
            take(TextOf(field.value()));
        }
        before = ",";
    }
    take("}\n");
}

std::string AnswerForms::File(OutputForm form, const Envelope& envelope) const {
    switch (form) {
    case OutputForm::TextFile:
        return text(Painter(ColorMode::Never));
    case OutputForm::CsvFile:
        return csv();
    case OutputForm::Page:
        return page();
    case OutputForm::MixTableJson:
    case OutputForm::MixTableCsv:
        return table(form);
    default:  // those that this answer has no form of its own for are refused by name
        break;
    }
    return EnvelopeText(envelope);
}

}  // namespace qxmix
