// Requests as a sound host makes them, in few bytes, so that the searches are reached: positions in
// order, one to six cassettes, known types and statuses, mostly one currency, amounts and counts
// that a reference can search.
#include "FuzzInput.h"
#include "SameAnswer.h"

namespace {

constexpr const char* kCurrencies[] = {"EUR", "USD"};
constexpr unsigned kMostOrdinaryStatus = 3;

std::uint16_t StatusOf(std::uint8_t byte) {
    // Half of all cassettes can be drawn from; the rest take every status there is.
    return static_cast<std::uint16_t>(byte % 2U == 0 ? byte / 2U % (kMostOrdinaryStatus + 1)
                                                     : byte / 2U % 10U);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Input input(bytes, size);
    reference::Object object;
    object.cstMinimum = input.U8();
    reference::RequestBytes request;
    const std::uint8_t head = input.U8();
    request.Mix(static_cast<std::uint16_t>(1 + head % 10U))
        .Partial(head / 10U % 2U)
        .Limit(static_cast<std::uint16_t>(1 + input.U8()))
        .Exponent(static_cast<int>(input.U8() % 8U == 0 ? input.U8() % 5U : 2U) - 2)
        .Amount(input.U16() % 4096U);
    const unsigned cassettes = 1 + input.U8() % 6U;
    for (unsigned cassette = 0; cassette < cassettes; ++cassette) {
        reference::CassetteLine line;
        line.value = input.U8();
        line.count = input.U8();
        line.status = StatusOf(input.U8());
        const std::uint8_t kind = input.U8();
        line.type = static_cast<std::uint16_t>(1 + kind % 8U);
        line.currency = kCurrencies[kind / 8U % 8U == 7U ? 1 : 0];
        request.Add(line);
    }
    fuzz::ExpectSameAnswer(object, request, 0);
    return 0;
}
