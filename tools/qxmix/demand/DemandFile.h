#pragma once

#include "DemandSource.h"
#include "dispenser/Dispenser.h"
#include "sheets/SheetOptions.h"

#include <optional>
#include <string>

namespace qxmix {

/// A file of withdrawals, read once for any number of dispensers: JSON to draw them from
/// (schema/demand.schema.json), or a recorded list as CSV with the columns time, amount and, if
/// need be, currency.
class DemandFile {
public:
    /// @param name     a file, or "-" for standard input.
    /// @param options   how a list is read; given for JSON they are an error.
    /// @param resample  so many days are drawn from a list; none: it is one run as it stands.
    /// @throw InputError
    DemandFile(const std::string& name,
               SheetOptions options,
               std::optional<std::uint32_t> resample = std::nullopt);

    /// Whether there is one run only, as it was recorded.
    bool IsRecorded() const { return !pattern_ && !resample_; }

    /// @param dispenser  whose amounts and currency they are.
    /// @throw InputError where a recorded list does not fit it.
    DemandSource For(const Dispenser& dispenser) const;

private:
    std::string name_;  ///< as it stands in errors
    std::string text_;  ///< of a recorded list
    SheetOptions options_;
    std::optional<std::uint32_t> resample_;
    std::optional<DemandPattern> pattern_;
};

}  // namespace qxmix
