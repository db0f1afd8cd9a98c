#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// One set of named codes of a cassette: its types or its statuses.
///
/// A code has the name that XFS4IoT gives it (its first edition) and the constant's name of the XFS
/// CDM interface; a few old codes have only the latter.
class UnitNames {
public:
    struct Row {
        std::uint16_t code;
        const char* name;     ///< null where XFS4IoT has none
        const char* xfsName;  ///< as in the XFS CDM interface
    };

    explicit UnitNames(std::vector<Row> rows) : rows_(std::move(rows)) {}

    /// The code of either of its names.
    std::optional<std::uint16_t> Code(const std::string& name) const;

    /// The name of XFS4IoT, if it has one.
    std::optional<std::string> Name(std::uint16_t code) const;

    /// For people: the name of XFS4IoT, or else the number.
    std::string Text(std::uint16_t code) const;

    /// All names of XFS4IoT.
    std::vector<std::string> Names() const;

    /// All names of the XFS CDM interface.
    std::vector<std::string> XfsNames() const;

private:
    std::vector<Row> rows_;
};

const UnitNames& TypeNames();
const UnitNames& StatusNames();

}  // namespace qxmix
