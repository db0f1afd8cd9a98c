// Requests of a sound host, which reach deep into the searches.
#include "SameAnswer.h"
#include "SoundRequest.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Input input(bytes, size);
    reference::Object object;
    object.cstMinimum = input.U8();
    fuzz::ExpectSameAnswer(object, fuzz::MakeSoundRequest(input), 0);
    return 0;
}
