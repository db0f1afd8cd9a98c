#pragma once

#include "JsonName.h"
#include "errors/Place.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// The fields of one JSON object, read by name; every error names its place.
///
/// A field that is not there gives no value. All functions throw InputError for a value that is not
/// what they read.
class JsonFields {
public:
    /// Whether names that begin with "x-" are the writer's own, and skipped.
    enum class OwnFields { Skipped, Refused };

    /// @param known  the names allowed.
    /// @throw InputError for what is no object, and for an unknown field.
    JsonFields(const Json& object,
               Place place,
               const std::vector<std::string>& known,
               OwnFields ownFields = OwnFields::Skipped);

    const Place& Here() const { return place_; }

    /// The field as it stands, or null.
    const Json* Find(const std::string& name) const;

    /// @throw InputError naming what is expected when the field is not there.
    const Json& Required(const std::string& name, const std::string& expected) const;

    std::optional<std::int64_t>
    Whole(const std::string& name, std::int64_t least, std::int64_t most) const;
    std::optional<std::uint16_t> Whole16(const std::string& name) const;
    std::optional<std::uint32_t> Whole32(const std::string& name, std::uint32_t least = 0) const;
    std::optional<bool> Truth(const std::string& name) const;

    /// @param longest  most characters (not bytes).
    std::optional<std::string> Text(const std::string& name, std::size_t longest) const;

    /// Three capital letters.
    std::optional<std::string> Currency(const std::string& name) const;

private:
    const Json& object_;
    Place place_;
};

/// "A to B", as every range is written in errors.
std::string RangeText(std::int64_t least, std::int64_t most);

/// @throw InputError unless the value is a whole number in the range.
std::int64_t
WholeNumber(const Json& value, const Place& place, std::int64_t least, std::int64_t most);

bool IsCurrency(const std::string& text);
constexpr const char* kCurrencyExpected = "three capital letters such as EUR";

}  // namespace qxmix
