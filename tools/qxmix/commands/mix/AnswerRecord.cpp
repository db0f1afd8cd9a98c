#include "AnswerRecord.h"

#include "answers/ResultJson.h"
#include "files/LineFile.h"
#include "json/Json.h"
#include "requests/Request.h"
#include "text/Hex.h"

namespace qxmix {

void RecordAnswers(const std::string& file,
                   const MixQuestions& questions,
                   const MixAnswers& answers) {
    AppendLines(file, [&](std::uint64_t id) {
        std::string lines;
        for (std::size_t place = 0; place < answers.answers.size(); ++place) {
            const Json line = {{"id", ++id},
                               {"request", HexText(RawBytes(questions.requests[place]))},
                               {"answer", RecordedAnswer(answers.answers[place])}};
            lines += line.dump() + "\n";
        }
        return lines;
    });
}

}  // namespace qxmix
