#pragma once

#include <cstdint>

/// Signed 32-bit result codes of the module. Source: the XFS CDM numbering.
constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kInvalidMixNumber = -304;  ///< WFS_ERR_CDM_INVALIDMIXNUMBER
constexpr std::int32_t kNotDispensable = -306;    ///< WFS_ERR_CDM_NOTDISPENSABLE
constexpr std::int32_t kTooManyItems = -307;      ///< WFS_ERR_CDM_TOOMANYITEMS
/// WFS_ERR_CDM_INVALIDCASHUNIT; here: more units than the searches handle.
constexpr std::int32_t kInvalidCashUnit = -315;
