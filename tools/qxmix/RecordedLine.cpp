#include "RecordedLine.h"

#include "Hex.h"
#include "Output.h"
#include "Request.h"
#include "ResultJson.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace qxmix {

namespace {

std::uint64_t CountLines(const std::string& file) {
    std::ifstream recorded(file, std::ios::binary);
    return static_cast<std::uint64_t>(std::count(std::istreambuf_iterator<char>(recorded),
                                                 std::istreambuf_iterator<char>(), '\n'));
}

}  // namespace

void RecordAnswers(const std::string& file, const MixAnswers& answers) {
    std::uint64_t id = CountLines(file);
    std::string lines;
    for (const MixAnswer& answer : answers.answers) {
        const Json line = {{"id", ++id},
                           {"request", HexText(RawBytes(answer.request))},
                           {"answer", RecordedAnswer(answer.reply)}};
        lines += line.dump() + "\n";
    }
    AppendToFile(file, lines);
}

}  // namespace qxmix
