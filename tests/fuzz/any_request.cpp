// Any bytes as a request, with any configuration of the object; nothing is repaired.
#include "FuzzInput.h"
#include "SameAnswer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Input input(bytes, size);
    const unsigned shift = input.U8() % 8U;
    reference::Object object;
    object.first = input.U16();
    object.last = input.U16();
    object.cstMinimum = input.U32();
    reference::RequestBytes request;
    for (unsigned at = 0; at < reference::kRequestBytes; ++at) {
        request.Bytes()[at] = input.U8();
    }
    fuzz::ExpectSameAnswer(object, request, shift);
    return 0;
}
