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

/// Makes the call, unless it is known never to end.
void Calculate(const ModuleLibrary& library, Calculation& calculation) {
    const MixAlgorithmFields* const fields = library.Configuration();
    calculation.isEndless = library.IsOwn() && fields != nullptr &&
                            NeverAnswers(calculation.request, fields->ulCstMinimum4Mix6);
    if (calculation.isEndless) {
        LeaveAsEndlessCall(calculation.request, fields->ulCstMinimum4Mix6);
    } else {
        calculation.returned =
            library.Algorithm().MixCalculate(&calculation.request, &calculation.result);
    }
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
    Calculation calculation;
    calculation.request = request;
    const TraceListening listening(listener, context);
    const std::optional<StoredValue> before = TakeErrorCode();
    const std::chrono::nanoseconds start = ThreadTime();
    Calculate(library, calculation);
    calculation.took = calculation.isEndless ? calculation.took : ThreadTime() - start;
    calculation.written = ErrorCodeBytes();
    if (calculation.written.empty()) {
        RestoreErrorCode(before);
    }
    return calculation;
}

Calculation CallModuleQuickly(const ModuleLibrary& library, const MixRequest& request) {
    Calculation calculation;
    calculation.request = request;
    Calculate(library, calculation);
    return calculation;
}

TraceListening::TraceListening(TraceListener listener, void* context) {
    QxmixSetTraceListener(listener, context);
}

TraceListening::~TraceListening() {
    QxmixSetTraceListener(nullptr, nullptr);
}

}  // namespace qxmix
