#include "ReplayAnswers.h"

#include "answers/ResultJson.h"
#include "json/Json.h"

namespace qxmix {

namespace {

Json Answer(const RecordedLine& line, AskerPool& library, Milliseconds deadline) {
    const AskedRequest& asked = line.asked;
    const Reply reply = library.Ask(asked.dispenser, asked.request, deadline);
    return ResultJson(asked.dispenser, Judge(asked.dispenser, asked.amount, reply));
}

/// The fields of a result that another one has.
Json FieldsOf(const Json& result, const Json& other) {
    Json fields = Json::object();
    for (const auto& field : other.items()) {
        // Fields of the writer's own say nothing about the answer.
        if (result.contains(field.key())) {
            fields[field.key()] = result[field.key()];
        }
    }
    return fields;
}

std::optional<ReplayDifference>
Compare(const RecordedLine& line, std::vector<AskerPool>& libraries, Milliseconds deadline) {
    Json now = Answer(line, libraries.back(), deadline);
    Json before = libraries.size() == 1 ? FieldsOf(line.answer, now)
                                        : Answer(line, libraries.front(), deadline);
    now = FieldsOf(now, before);
    // The order of the fields is the recorder's and does not matter.
    return nlohmann::json(before) == nlohmann::json(now)
               ? std::nullopt
               : std::make_optional(ReplayDifference{line, before, now});
}

}  // namespace

ReplayAnswers Replay(const TraceSource& source,
                     std::vector<AskerPool>& libraries,
                     Milliseconds deadline,
                     bool stops,
                     const ProgressListener& listen,
                     const BadLineListener& listenToBad) {
    ReplayAnswers answers;
    std::uint64_t number = 0;
    try {
        while (!answers.isStopped) {
            // Should Ctrl-C come while it is read, the line is the one behind the last.
            ++number;
            const std::optional<TraceLine> next = source();
            if (!next) {
                break;
            }
            if (const auto* bad = std::get_if<LineError>(&*next)) {
                number = bad->line;
                answers.badLines.push_back(*bad);
                listenToBad(*bad);
                continue;
            }
            const auto& line = std::get<RecordedLine>(*next);
            number = line.number;
            std::optional<ReplayDifference> difference = Compare(line, libraries, deadline);
            ++answers.requests;
            listen({answers.requests, 0});
            if (difference) {
                answers.differences.push_back(std::move(*difference));
                answers.isStopped = stops;
            }
        }
    } catch (const Interruption&) {
        answers.isComplete = false;
        answers.interruptedAt = number;
    }
    return answers;
}

}  // namespace qxmix
