#include "SlotCalls.h"

static void Take(QxmixHost* host, QxmixObject* object) {
    lastHost = host;
    lastObject = object;
}

QXMIX_HOST_SLOTS(kHostSlots, Take);

const QxmixHost* QXMIX_CDECL HostOfThisFile(void) {
    static const QxmixHost kHost = {&kHostSlots};
    return &kHost;
}

void* QXMIX_CDECL CallDestroy(QxmixObject* object, QxmixU32 flags) {
    return QxmixDestroy(object, flags);
}

QxmixS32 QXMIX_CDECL CallGetMixTypes(QxmixObject* object, QxmixMixType*** list) {
    return QxmixGetMixTypes(object, list);
}

QxmixS32 QXMIX_CDECL CallMixCalculate(QxmixObject* object,
                                      QxmixRequest* request,
                                      QxmixResult* result) {
    return QxmixMixCalculate(object, request, result);
}

void QXMIX_CDECL CreateAndDelete(QxmixHost* host) {
    CreateMixAlgorithm(host);
    DeleteMixAlgorithm();
}
