#pragma once

#include "BatchSetting.h"
#include "errors/Errors.h"
#include "requests/RequestReader.h"

#include <cstdint>
#include <string>

namespace qxmix {

/// The answer to one request on one line, with its line end.
///
/// @param id  null: the request has none.
std::string BatchAnswerText(const BatchSetting& setting,
                            const Json& id,
                            const AskedRequest& asked,
                            const Reply& reply);

/// What stands in the place of an answer when a line is none, with its line end.
///
/// @param line  number of the line, from 1.
std::string BatchErrorText(std::uint64_t line, const Json& id, const InputError& error);

}  // namespace qxmix
