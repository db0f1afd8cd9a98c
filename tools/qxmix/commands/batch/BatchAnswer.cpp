#include "BatchAnswer.h"

#include "amounts/MixAnswers.h"
#include "answers/Envelope.h"
#include "answers/LineError.h"
#include "answers/ResultJson.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "module/LibrarySearch.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

/// What most readers want stands first.
constexpr const char* kFirstFields[] = {"outcome", "paid", "values", "returned"};

Json WithId(const Json& id) {
    Json line = Json::object();
    if (!id.is_null()) {
        line["id"] = id;
    }
    return line;
}

std::string LineOf(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Envelope EnvelopeOf(const BatchSetting& setting,
                    const AskedRequest& asked,
                    const Answer& answer,
                    const Json& result) {
    Envelope envelope;
    envelope.module = setting.moduleVersion;
    envelope.library = FileNameOf(setting.order.library);
    envelope.command = setting.command;
    envelope.input = {{"dispenser", DispenserJson(asked.dispenser)},
                      {"amount", asked.amount},
                      {"mix", answer.mix},
                      {"deadline", DurationText(setting.deadline)}};
    envelope.result = result;
    if (answer.IsDangerous()) {
        envelope.warnings = {DangerOf(answer)};
    }
    envelope.exitStatus = RowOf(answer.outcome).exitStatus;
    return envelope;
}

}  // namespace

std::string BatchAnswerText(const BatchSetting& setting,
                            const Json& id,
                            const AskedRequest& asked,
                            const Reply& reply) {
    const Answer answer =
        Judge(asked.dispenser, {asked.amount, asked.request.usMixNumber, setting.deadline}, reply);
    Json result = ResultJson(asked.dispenser, answer);
    Json line = WithId(id);
    if (setting.hasEnvelope) {
        line.update(EnvelopeJson(EnvelopeOf(setting, asked, answer, result)));
        return LineOf(line);
    }
    for (const char* field : kFirstFields) {
        line[field] = std::move(result[field]);
    }
    for (auto& field : result.items()) {
        if (!line.contains(field.key())) {
            line[field.key()] = std::move(field.value());
        }
    }
    return LineOf(line);
}

std::string BatchErrorText(std::uint64_t line, const Json& id, const InputError& error) {
    return LineOf(LineErrorJson(LineError(line, id, error)));
}

}  // namespace qxmix
