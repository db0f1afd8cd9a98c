#include "RecordedLine.h"

#include "answers/Outcome.h"
#include "errors/NearestName.h"
#include "json/Json.h"
#include "json/JsonFields.h"
#include "json/JsonText.h"

namespace qxmix {

namespace {

/// A syntax error names the line of the file, not that of the text.
Json ParseLine(const std::string& text, const std::string& file, std::uint64_t number) {
    try {
        return ParseJson(text, file);
    } catch (const SyntaxError& error) {
        throw SyntaxError(file, static_cast<long>(number), error.Column(), error.Wrong());
    }
}

void CheckValues(const Json& values, const Place& place) {
    if (!values.is_array() || values.size() != kMaxCashUnits) {
        throw place.Error(NotAllowed(
            values.is_array() ? "a list of " + std::to_string(values.size()) : DescribeJson(values),
            "a list of 6 numbers"));
    }
    for (std::size_t slot = 0; slot < values.size(); ++slot) {
        WholeNumber(values[slot], place.Below(slot), 0, UINT32_MAX);
    }
}

void CheckTextOrNull(const Json& text, const Place& place) {
    if (!text.is_string() && !text.is_null()) {
        throw place.Error(NotAllowed(DescribeJson(text), "text or null"));
    }
}

void CheckOutcome(const Json& name, const Place& place) {
    std::vector<std::string> names;
    for (const OutcomeRow& row : OutcomeTable()) {
        if (name == row.name) {
            return;
        }
        names.emplace_back(row.name);
    }
    const bool isText = name.is_string();
    throw place.Error("unknown outcome " + DescribeJson(name) +
                      DidYouMean(isText ? name.get<std::string>() : "", names));
}

/// An answer may leave out what it does not hold the module to.
void CheckAnswer(const Json& answer, const Place& place) {
    static const std::vector<std::string> known = {
        "outcome",  "asked",     "paid",     "items",     "values",
        "returned", "errorCode", "registry", "remainder", "amountAfter"};
    const JsonFields fields(answer, place, known);
    fields.Whole("returned", INT32_MIN, INT32_MAX);
    fields.Whole32("remainder");
    fields.Whole32("amountAfter");
    if (const Json* values = fields.Find("values")) {
        CheckValues(*values, place.Below("values"));
    }
    if (const Json* registry = fields.Find("registry")) {
        CheckTextOrNull(*registry, place.Below("registry"));
    }
    if (const Json* outcome = fields.Find("outcome")) {
        CheckOutcome(*outcome, place.Below("outcome"));
    }
}

RecordedLine ReadFields(const Json& json, const Place& place, RequestReader& reader) {
    const JsonFields fields(json, place, {"id", "request", "answer"});
    const Json& request = fields.Required("request", "2120 hex digits or a request");
    RecordedLine line;
    line.asked = request.is_string() ? RequestReader::ReadCaptured(request.get<std::string>(),
                                                                   place.Below("request"))
                                     : reader.Read(request, place.Below("request"));
    if (const Json* answer = fields.Find("answer")) {
        CheckAnswer(*answer, place.Below("answer"));
        line.answer = *answer;
    }
    return line;
}

}  // namespace

TraceLine ReadTraceLine(const std::string& text,
                        const std::string& file,
                        std::uint64_t number,
                        bool needsAnswer,
                        RequestReader& reader) {
    Json id;
    try {
        const Json json = ParseLine(text, file, number);
        const Place place(file + ":" + std::to_string(number));
        id = ReadId(json, place);
        RecordedLine line = ReadFields(json, place, reader);
        if (needsAnswer && line.answer.is_null()) {
            throw place.Below("answer").Error(
                "missing; expected what was answered, or two libraries");
        }
        line.number = number;
        line.id = id;
        return line;
    } catch (const InputError& error) {
        return LineError(number, id, error);
    }
}

}  // namespace qxmix
