#pragma once

namespace qxmix {

/// The tool from its command line to its exit status; writes errors to standard error.
int RunTool(int argumentCount, const char* const* arguments);

}  // namespace qxmix
