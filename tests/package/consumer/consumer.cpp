// A host that knows only the installed package: one cassette of 50, and 150 to be paid from it.
#include <qxmix.h>

#include <cstring>

namespace {

class Host : public MixAlgorithmHost {
public:
    Host() : last(0) {}

    virtual void QXMIX_SLOT Reserved() {}
    virtual QxmixS32 QXMIX_SLOT OnObjectCreated(IMixAlgorithm* object) {
        last = object;
        return 0;
    }

    IMixAlgorithm* last;
};

}  // namespace

int main() {
    Host host;
    IMixAlgorithm* const mix = CreateMixAlgorithm(&host);
    QxmixRequest request = QxmixRequest();
    QxmixResult result;
    request.usMixNumber = 1;
    request.usMaxDispenseItems = 40;
    std::memcpy(request.cCurrencyID, "EUR", 3);
    request.ulAmount = 150;
    request.usNumPhysicalCUs = 1;
    QxmixCassette& cassette = request.aPhysicalCUs[0];
    cassette.usType = kQxmixBillCassette;
    std::memcpy(cassette.cCurrencyID, "EUR", 3);
    cassette.ulValues = 50;
    cassette.ulCount = 100;
    const QxmixS32 returned = mix->MixCalculate(&request, &result);
    const bool isRight = returned == 0 && result.aulNotes[0] == 3 && request.ulRemainder == 0;
    DeleteMixAlgorithm();
    host.last->Destroy(1);
    return isRight ? 0 : 1;
}
