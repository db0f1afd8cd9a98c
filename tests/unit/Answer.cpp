#include "Answer.h"

#include "Terminal.h"

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    out << answer.returned << ", notes";
    for (const std::uint32_t count : answer.notes) {
        out << ' ' << count;
    }
    return out << ", remainder " << answer.remainder << ", code \"" << answer.code << '"';
}

Answer Paid(std::vector<std::uint32_t> notes) {
    notes.resize(kMaxCashUnits);
    return {0, std::move(notes), 0, "", 0};
}

Answer Refused(std::int32_t result, const char* code) {
    return {result, std::vector<std::uint32_t>(kMaxCashUnits), kUntouched, code, 0};
}

Answer Ask(const Request& request) {
    Module module;
    return Ask(request, module);
}

Answer Ask(const Request& request, Module& module) {
    MixRequest record = request.record;
    MixResult result;
    std::memset(&result, 0x5A, sizeof(result));
    ClearRecordedCode();
    const std::uint32_t writesBefore = QxmixCallCount(kQxmixRegSetValueExW);

    Answer answer;
    answer.returned = module.Outer().MixCalculate(&record, &result);
    EXPECT_LE(QxmixCallCount(kQxmixRegSetValueExW) - writesBefore, 1U);
    answer.notes.assign(result.aulNotes, result.aulNotes + kMaxCashUnits);
    answer.remainder = record.ulRemainder;
    answer.amount = record.ulAmount;
    answer.code = RecordedCode();
    if (answer.returned != 0) {
        EXPECT_EQ(answer.notes, std::vector<std::uint32_t>(kMaxCashUnits));
    }

    record.ulAmount = request.record.ulAmount;
    record.ulRemainder = request.record.ulRemainder;
    EXPECT_EQ(std::memcmp(&record, &request.record, sizeof(record)), 0)
        << "a byte of the request was changed that is not the module's to change";
    return answer;
}
