// A request as the tool is given it: captured bytes with whatever came back, or a line of a batch
// or of a trace. Refused as bad input, or told in an answer.
#include "FuzzInput.h"
#include "commands/batch/BatchAnswer.h"
#include "commands/replay/RecordedLine.h"
#include "text/Hex.h"

namespace {

/// 1060 bytes of a request, then what a library might answer to it.
void TellCaptured(fuzz::Input& input) {
    std::string bytes(sizeof(MixRequest), '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(input.U8());
    }
    const qxmix::AskedRequest asked =
        qxmix::RequestReader::ReadCaptured(qxmix::HexText(bytes), qxmix::Place("f"));
    qxmix::Reply reply;
    reply.ending.kind = qxmix::Ending::Kind::Answered;
    reply.calculation.returned = static_cast<std::int32_t>(input.U32() % 512U) - 320;
    reply.calculation.request = asked.request;
    for (unsigned unit = 0; unit < kMaxCashUnits; ++unit) {
        reply.calculation.result.aulNotes[unit] = input.U32();
    }
    qxmix::BatchAnswerText(qxmix::BatchSetting{}, {}, asked, reply);
}

void ReadLine(const std::string& text) {
    static qxmix::RequestReader reader{qxmix::AskOptions{}, std::nullopt};
    const qxmix::TraceLine line = qxmix::ReadTraceLine(text, "f", 1, false, reader);
    if (const auto* bad = std::get_if<qxmix::LineError>(&line)) {
        qxmix::LineErrorJson(*bad).dump(-1, ' ', false, qxmix::Json::error_handler_t::replace);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Input input(bytes, size);
    if (input.U8() == 'r') {
        TellCaptured(input);
    } else {
        ReadLine(std::string(reinterpret_cast<const char*>(bytes), size));
    }
    return 0;
}
