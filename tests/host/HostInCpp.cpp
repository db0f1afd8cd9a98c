// The same host in C++98, with the classes of the header.

#include "Hosts.h"

namespace {

class Host : public MixAlgorithmHost {
public:
    Host() : count(0) {}

    virtual void QXMIX_SLOT Reserved() {}

    virtual QxmixS32 QXMIX_SLOT OnObjectCreated(IMixAlgorithm* object) {
        if (count < 3) {
            objects[count++] = object;
        }
        return -1;
    }

    IMixAlgorithm* objects[3];
    unsigned count;
};

void SetCurrency(char* currency) {
    currency[0] = 'E';
    currency[1] = 'U';
    currency[2] = 'R';
}

void AddCassette(QxmixRequest& request, QxmixU32 value, QxmixU32 count) {
    QxmixCassette& cassette = request.aPhysicalCUs[request.usNumPhysicalCUs];
    cassette.usPosition = request.usNumPhysicalCUs;
    cassette.usType = kQxmixBillCassette;
    SetCurrency(cassette.cCurrencyID);
    cassette.ulValues = value;
    cassette.ulCount = count;
    cassette.usStatus = kQxmixOk;
    ++request.usNumPhysicalCUs;
}

/// 50, 20 and 10 EUR.
QxmixRequest RequestFor(QxmixU16 mix, QxmixU32 amount) {
    QxmixRequest request = QxmixRequest();
    request.usMixNumber = mix;
    request.usMaxDispenseItems = 40;
    SetCurrency(request.cCurrencyID);
    request.ulAmount = amount;
    AddCassette(request, 50, 100);
    AddCassette(request, 20, 300);
    AddCassette(request, 10, 20);
    return request;
}

// Each check has a number, and the first that fails is the answer.
unsigned CheckFields(const Host& host, IMixAlgorithm* outer) {
    const QxmixOuterObject& fields = *reinterpret_cast<const QxmixOuterObject*>(outer);
    const QxmixInnerObject& inner = *reinterpret_cast<const QxmixInnerObject*>(host.objects[1]);
    if (host.count != 2 || host.objects[0] != outer) {
        return 1;
    }
    if (fields.self != outer || fields.inner != host.objects[1] || fields.usMaxCashUnits != 6) {
        return 2;
    }
    if (inner.self != &inner || inner.usNumMixTypes != MIXES || inner.usFirstMixNumber != 1 ||
        inner.usLastMixNumber != MIXES) {
        return 3;
    }
    return inner.ulTraceLevel != 1 || inner.ulCstMinimum4Mix6 != 100 ? 4 : 0;
}

unsigned CheckCalculations(IMixAlgorithm& outer) {
    QxmixResult result;
    QxmixRequest request = RequestFor(1, 28000);
    request.sExponent = -2;
    if (outer.MixCalculate(&request, &result) != kQxmixSuccess) {
        return 5;
    }
    if (result.aulNotes[0] != 5 || result.aulNotes[1] != 1 || result.aulNotes[2] != 1 ||
        result.aulNotes[3] != 0 || request.ulAmount != 28000) {
        return 6;
    }
    request = RequestFor(1, 2);
    request.ulRemainder = 9;
    if (outer.MixCalculate(&request, &result) != kQxmixSuccess || request.ulRemainder != 2) {
        return 7;
    }
    request = RequestFor(MIXES + 1, 280);
    if (outer.MixCalculate(&request, &result) != kQxmixInvalidMixNumber) {
        return 8;
    }
    request = RequestFor(1, 20000);
    if (outer.MixCalculate(&request, &result) != kQxmixNotDispensable) {
        return 9;
    }
    request.bAllowPartial = 1;
    if (outer.MixCalculate(&request, &result) != kQxmixTooManyItems || request.ulAmount != 11200) {
        return 10;
    }
    return 0;
}

unsigned CheckMixTypes(IMixAlgorithm& outer, void* event, QxmixMixType*** list) {
    reinterpret_cast<QxmixOuterObject*>(&outer)->hMixTypesEvent = event;
    if (outer.GetMixTypes(list) != kQxmixSuccess) {
        return 11;
    }
    for (unsigned index = 0; index < MIXES; ++index) {
        const QxmixMixType& type = *(*list)[index];
        if (type.usMixNumber != index + 1 || type.usMixType != 1) {
            return 12;
        }
    }
    const QxmixMixType& second = *(*list)[1];
    if (second.usSubType != 3 || second.lpszName[0] != 'E' || second.lpszName[10] != 's' ||
        second.lpszName[11] != '\0') {
        return 13;
    }
    return (*list)[MIXES] != 0 ? 14 : 0;
}

}  // namespace

unsigned QXMIX_CDECL RunHostInCpp(void* event, QxmixMixType*** list) {
    Host host;
    IMixAlgorithm* const outer = CreateMixAlgorithm(&host);
    unsigned failed = CheckFields(host, outer);
    if (failed == 0) {
        failed = CheckCalculations(*outer);
    }
    if (failed == 0) {
        failed = CheckMixTypes(*outer, event, list);
    }
    IMixAlgorithm* const inner = host.objects[1];
    DeleteMixAlgorithm();
    if (inner->Destroy(0) != inner || inner->Destroy(1) != inner) {
        failed = 15;
    }
    return failed;
}
