#pragma once

#include "errors/Errors.h"

#include <string>

namespace qxmix {

/// The line with which something ends the tool, or "accepted".
template <typename Action>
std::string ErrorText(const Action& action) {
    try {
        action();
    } catch (const ToolError& error) {
        return error.what();
    }
    return "accepted";
}

}  // namespace qxmix
