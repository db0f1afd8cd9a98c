#pragma once

/// The error code of the last calculation, however the platform keeps it.

/// Forgets the code.
void ForgetRecordedCode() noexcept;

/// @return the code recorded since then, empty when there was none; valid until the next one.
const char* RecordedCode() noexcept;
