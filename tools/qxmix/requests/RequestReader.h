#pragma once

#include "Records.h"
#include "dispenser/Dispenser.h"
#include "errors/Place.h"
#include "json/JsonName.h"
#include "options/AskOptions.h"
#include "workers/FileReader.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace qxmix {

/// One request as it is asked: a dispenser, an amount and what the module gets.
struct AskedRequest {
    Dispenser dispenser;
    std::uint32_t amount = 0;
    MixRequest request;
};

/// Reads requests from JSON: the fields of a dispenser file beside an `amount`.
///
/// A `dispenser` (an object, the name of a file or inline) lends whatever the request does not say
/// itself. A file has to be a regular one, no longer than a line may be, and is read once.
class RequestReader {
public:
    /// @param options   win over every request.
    /// @param deadline  for reading a file (see FileReader); none: no file may be named.
    RequestReader(AskOptions options, std::optional<Milliseconds> deadline);

    /// @param place  where the request stands, for errors.
    /// @throw FieldError
    AskedRequest Read(const Json& json, const Place& place);

    /// Reads a captured request of 1060 bytes, written as hexadecimal digits.
    ///
    /// @throw FieldError
    static AskedRequest ReadCaptured(const std::string& hex, const Place& place);

private:
    Dispenser Base(const Json& json, const Place& place);
    const Dispenser& Named(const std::string& name);

    AskOptions options_;
    std::optional<FileReader> fileReader_;
    std::map<std::string, Dispenser> files_;
    std::size_t filesSize_ = 0;  // bytes that were read for them
};

/// The `id` of an object, or null when it has none.
///
/// @throw FieldError unless it is text or a whole number, which alone come back as they were.
Json ReadId(const Json& json, const Place& place);

}  // namespace qxmix
