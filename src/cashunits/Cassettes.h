#pragma once

#include "Records.h"

/// The cassettes of a request that are read: memory behind the record is never touched.
inline unsigned CassetteCount(const MixRequest& request) noexcept {
    const unsigned count = request.usNumPhysicalCUs;
    return count < kMaxCashUnits ? count : kMaxCashUnits;
}
