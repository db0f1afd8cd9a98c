#pragma once

namespace qxmix {

/// From now on Ctrl-C does not end the tool but makes waiting for a worker throw Interruption, so
/// that what is complete can still be written. A second Ctrl-C ends the tool at once, without
/// output files. Before the first call Ctrl-C ends it as it does any program.
void CatchInterrupts();

/// Takes note of a Ctrl-C that was pressed, so that waiting for a worker goes on after all.
void TakeInterrupt();

/// Becomes readable once Ctrl-C was pressed; -1 before CatchInterrupts.
int InterruptDescriptor();

/// In a worker: Ctrl-C reaches the whole group of processes, but only the tool decides.
void IgnoreInterrupts();

}  // namespace qxmix
