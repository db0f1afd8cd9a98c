#pragma once

#include <cstddef>

namespace qxmix {

/// Whether standard output is a terminal that understands colour sequences.
bool HasColorTerminal();

/// Columns of the terminal on standard output; 0 where there is none.
std::size_t TerminalColumns();

}  // namespace qxmix
