#pragma once

#include "Dispenser.h"

#include <string>

namespace qxmix {

/// Whether a name is a dispenser written inline: it begins with a currency and a colon.
bool IsInlineDispenser(const std::string& text);

/// Reads CUR:[CUR]VALUExCOUNT[:status][:type],... with one item a cassette.
///
/// @throw InputError naming the cassette that is wrong and what is expected.
Dispenser ReadInlineDispenser(const std::string& text);

}  // namespace qxmix
