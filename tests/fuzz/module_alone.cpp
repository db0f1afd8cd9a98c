// The module alone, as often as can be: nothing judges the notes, but memory beside the records
// cannot be touched, and what holds of every answer is looked at. Any bytes, or a request of a
// sound host, each by its own mix and by all that there are. The platform is the least that the
// module needs.
#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "Expect.h"
#include "LockedInRecord.h"
#include "MixAlgorithm.h"
#include "RecordedCode.h"
#include "Records.h"
#include "SoundRequest.h"
#include "module/NeverAnswers.h"

namespace {

using fuzz::Expect;
using property::Against;
using property::LockedInRecord;

class Host final : private MixAlgorithmHost {
public:
    Host() : outer_(CreateMixAlgorithm(this)) {}
    /// Not every request is put to the module: what a campaign counts is what was.
    ~Host() { std::fprintf(stderr, "stat::calculations: %" PRIu64 "\n", calculations_); }

    std::int32_t Calculate(MixRequest* request, MixResult* result) {
        ++calculations_;
        return outer_->MixCalculate(request, result);
    }

private:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm*) noexcept override { return 0; }

    IMixAlgorithm* outer_;
    std::uint64_t calculations_ = 0;
};

/// Amounts, values and counts that no search takes long with; all else stays as it came.
void Tame(MixRequest& request) {
    constexpr std::uint32_t most = 0xFFF;
    request.ulAmount = request.ulAmount & most;
    request.usMaxDispenseItems = static_cast<std::uint16_t>(request.usMaxDispenseItems & 0x3FU);
    for (PhysicalCashUnit& cassette : request.aPhysicalCUs) {
        cassette.ulValues = cassette.ulValues & most;
        cassette.ulCount = cassette.ulCount & most;
    }
}

void MakeRequest(fuzz::Input& input, bool isSound, MixRequest& request) {
    auto* const bytes = reinterpret_cast<std::uint8_t*>(&request);
    if (isSound) {
        std::memcpy(bytes, fuzz::MakeSoundRequest(input).Bytes(), sizeof(MixRequest));
    } else {
        input.Fill(bytes, sizeof(MixRequest));
        Tame(request);
    }
}

/// Whether the code is one of those that the result comes with; "" stands for none.
bool Belongs(const char* code, std::int32_t returned) {
    const auto isOneOf = [code](const char* one, const char* other) {
        return std::strcmp(code, one) == 0 || std::strcmp(code, other) == 0;
    };
    switch (returned) {
    case 0:  // first-fit emptying goes on behind a combination over the limit
        return code[0] == '\0' || isOneOf("971A3", "971A4");
    case -304:
        return isOneOf("971A5", "971A5");
    case -306:
        return isOneOf("971A2", "");
    case -307:
        return isOneOf("971A3", "971A4");
    case -315:
        return isOneOf("97194", "97194");
    default:
        return false;
    }
}

/// The records between pages that nobody may touch, against the one or the other.
struct Records {
    explicit Records(Against against) : request(against), result(against) {}

    LockedInRecord<sizeof(MixRequest)> request;
    LockedInRecord<sizeof(MixResult)> result;
};

void Calculate(const MixRequest& asked, Records& records) {
    static Host host;
    // The registry names no minimum, so that the object has the one of every object.
    if (qxmix::DecideEnding(asked, reference::Object().cstMinimum) != qxmix::CallEnding::Ends) {
        return;
    }
    auto& request = *reinterpret_cast<MixRequest*>(records.request.Bytes());
    auto& result = *reinterpret_cast<MixResult*>(records.result.Bytes());
    request = asked;
    ForgetRecordedCode();
    const std::int32_t returned = host.Calculate(&request, &result);
    Expect(Belongs(RecordedCode(), returned), "one of the five results, with a code of its own");
    const bool paysNothing = std::all_of(std::begin(result.aulNotes), std::end(result.aulNotes),
                                         [](std::uint32_t notes) { return notes == 0; });
    Expect(returned == 0 || paysNothing, "no items in a refusal");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static Records behind(Against::Start), before(Against::End);
    fuzz::Input input(bytes, size);
    const unsigned head = input.U8();
    Records& records = head % 2U == 0 ? behind : before;
    MixRequest request;
    MakeRequest(input, head / 2U % 2U == 0, request);
    Calculate(request, records);
    for (std::uint16_t mix = 1; mix <= reference::kLastMix; ++mix) {
        request.usMixNumber = mix;
        Calculate(request, records);
    }
    return 0;
}
