// The module alone, as often as can be: nothing judges the notes, but memory beside the records
// cannot be touched, and what holds of every answer is looked at. Any bytes, or a request of a
// sound host.
#include <algorithm>

#include "Expect.h"
#include "LockedInRecord.h"
#include "MixAlgorithm.h"
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

    std::int32_t Calculate(MixRequest* request, MixResult* result) {
        return outer_->MixCalculate(request, result);
    }

private:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm*) noexcept override { return 0; }

    IMixAlgorithm* outer_;
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static Host host;
    static LockedInRecord<sizeof(MixRequest)> behind(Against::Start), before(Against::End);
    static LockedInRecord<sizeof(MixResult)> resultBehind(Against::Start),
        resultBefore(Against::End);
    fuzz::Input input(bytes, size);
    const unsigned head = input.U8();
    auto& request = *reinterpret_cast<MixRequest*>((head % 2U == 0 ? behind : before).Bytes());
    auto& result =
        *reinterpret_cast<MixResult*>((head % 2U == 0 ? resultBehind : resultBefore).Bytes());
    if (head / 2U % 2U == 0) {
        const reference::RequestBytes sound = fuzz::MakeSoundRequest(input);
        std::copy_n(sound.Bytes(), sizeof(MixRequest), reinterpret_cast<std::uint8_t*>(&request));
    } else {
        std::generate_n(reinterpret_cast<std::uint8_t*>(&request), sizeof(MixRequest),
                        [&input] { return input.U8(); });
        Tame(request);
    }
    // The registry names no minimum, so that the object has the one of every object.
    if (qxmix::DecideEnding(request, reference::Object().cstMinimum) != qxmix::CallEnding::Ends) {
        return 0;
    }
    const std::int32_t returned = host.Calculate(&request, &result);
    const bool isKnown = returned == 0 || returned == -304 || returned == -306 ||
                         returned == -307 || returned == -315;
    Expect(isKnown, "one of the five return codes");
    const bool paysNothing = std::all_of(std::begin(result.aulNotes), std::end(result.aulNotes),
                                         [](std::uint32_t notes) { return notes == 0; });
    Expect(returned == 0 || paysNothing, "no items in a refusal");
    return 0;
}
