#pragma once

#include "files/InputFile.h"

#include <string>

namespace qxmix {

/// The text of a file as UTF-8, without a mark: UTF-8 or UTF-16 of either byte order, with a mark
/// or without; what is neither is taken for the 8-bit text of Windows.
///
/// @throw InputError when UTF-16 ends within a character.
std::string SheetText(const InputFile& file);

}  // namespace qxmix
