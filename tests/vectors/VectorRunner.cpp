/// Runs vector files through the module's exports; see README.md.

#include "Digest.h"
#include "MixAlgorithm.h"
#include "ObjectLayout.h"
#include "RecordedCode.h"
#include "VectorFile.h"

#include <cstdio>
#include <cstring>

namespace {

class Host final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        inner = object;  // the second of the two
        return 0;
    }

    IMixAlgorithm* inner = nullptr;
};

struct Answer {
    std::int32_t returned;
    MixRequest request;
    MixResult result;
};

Answer Ask(IMixAlgorithm& outer, IMixAlgorithm& inner, const VectorCase& asked) noexcept {
    auto& fields =
        *reinterpret_cast<MixAlgorithmFields*>(reinterpret_cast<char*>(&inner) + sizeof(void*));
    fields.usFirstMixNumber = asked.firstMix;
    fields.usLastMixNumber = asked.lastMix;
    fields.ulCstMinimum4Mix6 = asked.minimum;
    Answer answer;
    answer.request = asked.request;
    std::memset(&answer.result, 0x5A, sizeof(answer.result));
    ForgetRecordedCode();
    answer.returned = outer.MixCalculate(&answer.request, &answer.result);
    return answer;
}

/// Tells of one difference. @return whether there is none.
bool Expect(const char* what, std::uint32_t actual, std::uint32_t expected) noexcept {
    if (actual != expected) {
        std::printf("    %s is %ld, expected %ld\n", what, static_cast<long>(actual),
                    static_cast<long>(expected));
    }
    return actual == expected;
}

bool IsAsExpected(const VectorCase& expected, const Answer& answer) noexcept {
    bool same = Expect("return code", static_cast<std::uint32_t>(answer.returned),
                       static_cast<std::uint32_t>(expected.returned));
    for (unsigned position = 0; position < kMaxCashUnits; ++position) {
        char what[] = "position 0";
        what[9] = static_cast<char>('0' + position);
        same = Expect(what, answer.result.aulNotes[position], expected.notes[position]) && same;
    }
    same = Expect("remainder", answer.request.ulRemainder, expected.remainder) && same;
    same = Expect("amount", answer.request.ulAmount, expected.amount) && same;
    if (std::strcmp(RecordedCode(), expected.code) != 0) {
        std::printf("    code is \"%s\", expected \"%s\"\n", RecordedCode(), expected.code);
        same = false;
    }
    return same;
}

void AddTo(Digest& digest, const Answer& answer) noexcept {
    const u32le returned = static_cast<std::uint32_t>(answer.returned);
    digest.Add(&returned, sizeof(returned));
    digest.Add(&answer.request, sizeof(answer.request));
    digest.Add(&answer.result, sizeof(answer.result));
    digest.Add(RecordedCode(), std::strlen(RecordedCode()) + 1);
}

struct Totals {
    unsigned passed = 0;
    unsigned failed = 0;
    Digest digest;
};

void RunFile(const char* path,
             IMixAlgorithm& outer,
             IMixAlgorithm& inner,
             Totals& totals) noexcept {
    VectorFile file(path);
    if (!file.IsOpen()) {
        std::printf("%s: cannot be read\n", path);
        ++totals.failed;
        return;
    }
    for (VectorCase next; file.ReadCase(next);) {
        const Answer answer = Ask(outer, inner, next);
        AddTo(totals.digest, answer);
        if (IsAsExpected(next, answer)) {
            ++totals.passed;
        } else {
            std::printf("%s:%u: %s\n", path, next.line, next.name);
            ++totals.failed;
        }
    }
    if (file.WrongLine() != 0) {
        std::printf("%s:%u: not understood\n", path, file.WrongLine());
        ++totals.failed;
    }
}

}  // namespace

int main(int count, char** arguments) {
    Host host;
    IMixAlgorithm* const outer = CreateMixAlgorithm(&host);
    Totals totals;
    for (int index = 1; index < count; ++index) {
        RunFile(arguments[index], *outer, *host.inner, totals);
    }
    DeleteMixAlgorithm();
    host.inner->Destroy(1);
    std::printf("%u passed, %u failed, digest %016llx\n", totals.passed, totals.failed,
                totals.digest.Value());
    return totals.failed == 0 && totals.passed != 0 ? 0 : 1;
}
