#pragma once

#include <string>

namespace property {

/// Code recorded last by the operations of the module linked into this program.
///
/// Linking LastCode.cpp puts three registry functions in front of those of the stand-in: they keep
/// the text of the value written last and nothing else, which is many times as fast. Clear it
/// before an operation.
extern std::string lastCode;

}  // namespace property
