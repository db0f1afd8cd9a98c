#pragma once

#include "Money.h"

#include <string>

namespace qxmix {

/// Money for people: as its text, but a number too long to read has its significant digits and a
/// power of ten, "6e-32767".
std::string ReadableText(const Money& money, unsigned atLeastDecimals = 0);

}  // namespace qxmix
