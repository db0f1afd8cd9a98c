#include "AnswerRecord.h"

#include "answers/ResultJson.h"
#include "files/LineFile.h"
#include "json/Json.h"
#include "requests/Request.h"
#include "text/Hex.h"

namespace qxmix {

void RecordAnswers(const std::string& file, const MixAnswers& answers) {
    AppendLines(file, [&answers](std::uint64_t id) {
        std::string lines;
        for (const MixAnswer& answer : answers.answers) {
            const Json line = {{"id", ++id},
                               {"request", HexText(RawBytes(answer.request))},
                               {"answer", RecordedAnswer(answer.reply)}};
            lines += line.dump() + "\n";
        }
        return lines;
    });
}

}  // namespace qxmix
