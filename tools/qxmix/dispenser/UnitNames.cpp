#include "UnitNames.h"

#include <algorithm>

namespace qxmix {

std::optional<std::uint16_t> UnitNames::Code(const std::string& name) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [&name](const Row& candidate) {
        return name == candidate.xfsName || (candidate.name != nullptr && name == candidate.name);
    });
    return row == rows_.end() ? std::nullopt : std::make_optional(row->code);
}

std::optional<std::string> UnitNames::Name(std::uint16_t code) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [code](const Row& candidate) {
        return candidate.code == code && candidate.name != nullptr;
    });
    return row == rows_.end() ? std::nullopt : std::make_optional<std::string>(row->name);
}

std::string UnitNames::Text(std::uint16_t code) const {
    return Name(code).value_or(std::to_string(code));
}

std::vector<std::string> UnitNames::Names() const {
    std::vector<std::string> names;
    for (const Row& row : rows_) {
        if (row.name != nullptr) {
            names.emplace_back(row.name);
        }
    }
    return names;
}

std::vector<std::string> UnitNames::XfsNames() const {
    std::vector<std::string> names;
    for (const Row& row : rows_) {
        names.emplace_back(row.xfsName);
    }
    return names;
}

// clang-format off
const UnitNames& TypeNames() {
    static const UnitNames names({
        {1,  "notApplicable",   "WFS_CDM_TYPENA"},
        {2,  "rejectCassette",  "WFS_CDM_TYPEREJECTCASSETTE"},
        {3,  "billCassette",    "WFS_CDM_TYPEBILLCASSETTE"},
        {4,  "coinCylinder",    "WFS_CDM_TYPECOINCYLINDER"},
        {5,  "coinDispenser",   "WFS_CDM_TYPECOINDISPENSER"},
        {6,  "retractCassette", "WFS_CDM_TYPERETRACTCASSETTE"},
        {7,  "coupon",          "WFS_CDM_TYPECOUPON"},
        {8,  nullptr,           "WFS_CDM_TYPEDOCUMENT"},
        {11, nullptr,           "WFS_CDM_TYPEREPCONTAINER"},
        {12, "recycling",       "WFS_CDM_TYPERECYCLING"},
    });
    return names;
}

const UnitNames& StatusNames() {
    static const UnitNames names({
        {0, "ok",          "WFS_CDM_STATCUOK"},
        {1, "full",        "WFS_CDM_STATCUFULL"},
        {2, "high",        "WFS_CDM_STATCUHIGH"},
        {3, "low",         "WFS_CDM_STATCULOW"},
        {4, "empty",       "WFS_CDM_STATCUEMPTY"},
        {5, "inoperative", "WFS_CDM_STATCUINOP"},
        {6, "missing",     "WFS_CDM_STATCUMISSING"},
        {7, "noValue",     "WFS_CDM_STATCUNOVAL"},
        {8, "noReference", "WFS_CDM_STATCUNOREF"},
        {9, "manipulated", "WFS_CDM_STATCUMANIP"},
    });
    return names;
}
// clang-format on

}  // namespace qxmix
