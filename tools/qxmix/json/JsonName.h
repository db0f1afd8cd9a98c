#pragma once

#include <nlohmann/json_fwd.hpp>

namespace qxmix {

/// JSON that keeps its fields in the order in which they were written. Who reads or makes it
/// includes Json.h; a declaration needs the name only.
using Json = nlohmann::ordered_json;

}  // namespace qxmix
