#pragma once

#include <cstddef>

namespace qxmix {

/// Whether standard output is a terminal that understands colour sequences.
bool HasColorTerminal();

/// Columns of the terminal on standard output; 0 where there is none.
std::size_t TerminalColumns();

/// Columns of the terminal on standard error, if a line there can be written over; else 0.
std::size_t ErrorColumns();

}  // namespace qxmix
