#include "Describe.h"

#include <sstream>

#include "../reference/RawBytes.h"
#include "../reference/UnitTable.h"

namespace property {
namespace {

std::string Text(const std::uint8_t* currency) {
    std::ostringstream text;
    for (int i = 0; i < 3; ++i) {
        text << (i == 0 ? "" : ".") << unsigned{currency[i]};
    }
    return text.str();
}

}  // namespace

std::string Describe(const std::uint8_t* request) {
    std::ostringstream text;
    text << "mix " << reference::ReadU16(request) << ", limit " << reference::ReadU16(request + 2)
         << ", partial " << reference::ReadU32(request + 4) << ", currency " << Text(request + 8)
         << ", exponent " << reference::ReadS16(request + 12) << ", amount "
         << reference::ReadU32(request + 16) << ", cassettes " << reference::ReadU16(request + 20)
         << "\n";
    for (unsigned index = 0; index < reference::CassetteCount(request); ++index) {
        const reference::Cassette cassette = reference::ReadCassette(request, index);
        text << "  position " << cassette.position << ", type " << cassette.type << ", currency "
             << Text(cassette.currency.data()) << ", value " << cassette.value << ", count "
             << cassette.count << ", status " << cassette.status << "\n";
    }
    return text.str();
}

}  // namespace property
