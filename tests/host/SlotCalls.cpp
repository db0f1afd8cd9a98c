#include "SlotCalls.h"

namespace {

class Host : public MixAlgorithmHost {
public:
    virtual void QXMIX_SLOT Reserved() {}

    virtual QxmixS32 QXMIX_SLOT OnObjectCreated(IMixAlgorithm* object) {
        lastHost = this;
        lastObject = object;
        return 0;
    }
};

Host theHost;

}  // namespace

const QxmixHost* QXMIX_CDECL HostOfThisFile() {
    return &theHost;
}

void* QXMIX_CDECL CallDestroy(QxmixObject* object, QxmixU32 flags) {
    return object->Destroy(flags);
}

QxmixS32 QXMIX_CDECL CallGetMixTypes(QxmixObject* object, QxmixMixType*** list) {
    return object->GetMixTypes(list);
}

QxmixS32 QXMIX_CDECL CallMixCalculate(QxmixObject* object,
                                      QxmixRequest* request,
                                      QxmixResult* result) {
    return object->MixCalculate(request, result);
}

void QXMIX_CDECL CreateAndDelete(QxmixHost* host) {
    CreateMixAlgorithm(host);
    DeleteMixAlgorithm();
}
