#pragma once

namespace qxmix {

constexpr const char* kToolVersion = "1.0.0";

}  // namespace qxmix
