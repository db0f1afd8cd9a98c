#pragma once

#include <nlohmann/json.hpp>

namespace qxmix {

/// JSON that keeps its fields in the order in which they were written.
using Json = nlohmann::ordered_json;

}  // namespace qxmix
