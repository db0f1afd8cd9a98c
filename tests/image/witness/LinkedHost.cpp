// The smallest host that names the module's functions in its code: it needs the import library.

#include "MixAlgorithm.h"
#include "Records.h"
#include "ResultCodes.h"

#include <cstdio>
#include <cstring>

namespace {

class Host final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        inner = object;  // the second call stays
        return 0;
    }

    IMixAlgorithm* inner = nullptr;
};

}  // namespace

int main() {
    Host host;
    IMixAlgorithm* const outer = CreateMixAlgorithm(&host);
    MixRequest request;
    std::memset(&request, 0, sizeof(request));
    request.usMixNumber = std::uint16_t{1};
    request.usMaxDispenseItems = std::uint16_t{40};
    request.ulAmount = 60U;
    request.usNumPhysicalCUs = std::uint16_t{1};
    request.aPhysicalCUs[0].usType = std::uint16_t{3};
    request.aPhysicalCUs[0].ulValues = 20U;
    request.aPhysicalCUs[0].ulCount = 100U;
    MixResult result;
    const bool paid = outer->MixCalculate(&request, &result) == kSuccess &&
                      result.aulNotes[0] == 3U && request.ulRemainder == 0U;
    DeleteMixAlgorithm();
    host.inner->Destroy(1);
    std::puts(paid ? "ok" : "not as expected");
    return paid ? 0 : 1;
}
