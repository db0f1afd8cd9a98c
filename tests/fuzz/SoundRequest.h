#pragma once

#include "../reference/RequestBytes.h"
#include "FuzzInput.h"

namespace fuzz {

/// A request as a sound host makes it, in few bytes, so that the searches are reached: positions in
/// order, one to six cassettes, known types and statuses, mostly one currency, amounts and counts
/// that a reference can search.
inline reference::RequestBytes MakeSoundRequest(Input& input) {
    constexpr const char* currencies[] = {"EUR", "USD"};
    constexpr unsigned mostOrdinaryStatus = 3;
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
        // Half of all cassettes can be drawn from; the rest take every status there is.
        const std::uint8_t status = input.U8();
        line.status = static_cast<std::uint16_t>(
            status % 2U == 0 ? status / 2U % (mostOrdinaryStatus + 1) : status / 2U % 10U);
        const std::uint8_t kind = input.U8();
        line.type = static_cast<std::uint16_t>(1 + kind % 8U);
        line.currency = currencies[kind / 8U % 8U == 7U ? 1 : 0];
        request.Add(line);
    }
    return request;
}

}  // namespace fuzz
