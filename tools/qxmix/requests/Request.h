#pragma once

#include "Records.h"
#include "dispenser/Dispenser.h"

#include <cstdint>
#include <string>

namespace qxmix {

/// The request that a service provider would make of a dispenser; what is its own is zero.
MixRequest BuildRequest(const Dispenser& dispenser, std::uint32_t amount, std::uint16_t mix);

/// Asks in another currency than the dispenser's.
void SetCurrency(MixRequest& request, const std::string& currency);

/// The dispenser that a captured request describes. Characters of a currency that are none become
/// "?"; cassettes beyond the sixth are not there.
///
/// @param known  lends labels and worths, cassette by cassette.
Dispenser DispenserOfRequest(const MixRequest& request, const Dispenser& known);

/// Reads a captured request, alone or with its result behind it, as they came back: an amount that
/// the module has scaled in place is then as it was asked again.
///
/// @throw InputError when the file has other than so many bytes.
MixRequest ReadRawRequest(const std::string& file);

/// The bytes of a request, or of a request and its result one behind the other.
std::string RawBytes(const MixRequest& request);
std::string RawBytes(const MixRequest& request, const MixResult& result);

}  // namespace qxmix
