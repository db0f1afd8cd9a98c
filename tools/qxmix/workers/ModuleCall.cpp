#include "ModuleCall.h"

#include "HostControl.h"
#include "module/NeverAnswers.h"
#include "module/RegistryImage.h"

#include <chrono>
#include <ctime>

namespace qxmix {

namespace {

/// Processor time of this thread: a busy machine does not make a calculation slow.
std::chrono::nanoseconds ThreadTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

Opening OpeningOf(const ModuleLibrary& library) {
    Opening opening;
    if (const MixAlgorithmFields* fields = library.Configuration()) {
        opening.traceLevel = fields->ulTraceLevel;
        opening.minimum = fields->ulCstMinimum4Mix6;
        opening.mixTypeCount = fields->usNumMixTypes;
    }
    return opening;
}

Calculation CallModule(const ModuleLibrary& library,
                       const MixRequest& request,
                       TraceListener listener,
                       void* context) {
    const MixAlgorithmFields* const fields = library.Configuration();
    Calculation calculation;
    calculation.request = request;
    calculation.isEndless =
        library.IsOwn() && fields != nullptr && NeverAnswers(request, fields->ulCstMinimum4Mix6);
    const TraceListening listening(listener, context);
    const std::optional<StoredValue> before = TakeErrorCode();
    if (calculation.isEndless) {
        LeaveAsEndlessCall(request, fields->ulCstMinimum4Mix6);
    } else {
        const std::chrono::nanoseconds start = ThreadTime();
        calculation.returned =
            library.Algorithm().MixCalculate(&calculation.request, &calculation.result);
        calculation.took = ThreadTime() - start;
    }
    calculation.written = ErrorCodeBytes();
    if (calculation.written.empty()) {
        RestoreErrorCode(before);
    }
    return calculation;
}

TraceListening::TraceListening(TraceListener listener, void* context) {
    QxmixSetTraceListener(listener, context);
}

TraceListening::~TraceListening() {
    QxmixSetTraceListener(nullptr, nullptr);
}

}  // namespace qxmix
