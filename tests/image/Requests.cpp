#include "Requests.h"

#include <algorithm>

namespace emulation {

RequestPlayer::RequestPlayer(EmulatedModule& module) : module_(module), outer_(module.Create()) {
}

void RequestPlayer::PutU16(std::uint32_t address, std::uint32_t value) {
    *module_.Memory().At(address) = static_cast<std::uint8_t>(value);
    *module_.Memory().At(address + 1) = static_cast<std::uint8_t>(value >> 8U);
}

CallReport RequestPlayer::Calculate(const reference::Object& object,
                                    unsigned shift,
                                    property::Answer& answer,
                                    std::uint64_t budget) {
    const std::uint32_t inner = module_.created.back();
    PutU16(inner + 14, object.first);
    PutU16(inner + 16, object.last);
    module_.Memory().PutWord(inner + 18, object.cstMinimum);
    Terminal& terminal = module_.TheTerminal();
    terminal.ForgetErrorCode();
    terminal.calls.clear();

    GuestMemory& memory = module_.Memory();
    const std::uint32_t request =
        memory.Allocate(reference::kRequestBytes, Rights::ReadWrite, shift);
    const std::uint32_t result = memory.Allocate(reference::kResultBytes, Rights::ReadWrite, shift);
    std::copy(answer.request.begin(), answer.request.end(), memory.At(request));
    const CallReport report = module_.Call(outer_, Slot::MixCalculate, {request, result}, budget);
    answer.returned = static_cast<std::int32_t>(report.value);
    answer.lastCode = terminal.ErrorCode();
    std::copy_n(memory.At(request), reference::kRequestBytes, answer.request.begin());
    std::copy_n(memory.At(result), reference::kResultBytes, answer.result.begin());
    memory.TakeBack(result);
    memory.TakeBack(request);
    return report;
}

}  // namespace emulation
