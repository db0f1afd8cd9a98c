// A host that knows only the installed package: one cassette of 50, and 150 to be paid from it.
#include <MixAlgorithm.h>
#include <Records.h>

#include <cstring>

namespace {

class Host final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        last = object;
        return 0;
    }
    IMixAlgorithm* last = nullptr;
};

}  // namespace

int main() {
    Host host;
    IMixAlgorithm* const mix = CreateMixAlgorithm(&host);
    MixRequest request;
    MixResult result;
    std::memset(&request, 0, sizeof(request));
    request.usMixNumber = 1;
    request.usMaxDispenseItems = 40;
    std::memcpy(&request.cCurrencyID, "EUR", 3);
    request.ulAmount = 150;
    request.usNumPhysicalCUs = 1;
    PhysicalCashUnit& cassette = request.aPhysicalCUs[0];
    cassette.usType = 3;
    std::memcpy(&cassette.cCurrencyID, "EUR", 3);
    cassette.ulValues = 50;
    cassette.ulCount = 100;
    const std::int32_t returned = mix->MixCalculate(&request, &result);
    const bool isRight = returned == 0 && result.aulNotes[0] == 3 && request.ulRemainder == 0;
    DeleteMixAlgorithm();
    host.last->Destroy(1);
    return isRight ? 0 : 1;
}
