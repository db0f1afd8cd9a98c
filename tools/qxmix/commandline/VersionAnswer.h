#pragma once

#include "errors/Errors.h"
#include "options/CommonOptions.h"

namespace qxmix {

/// Prints the versions of the tool and of the module it finds; a module that is not found is no
/// failure here.
ExitStatus AnswerVersion(const CommonOptions& options);

}  // namespace qxmix
