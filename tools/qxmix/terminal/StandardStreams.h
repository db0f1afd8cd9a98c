#pragma once

namespace qxmix {

/// Makes the standard streams what the tool expects of them; before anything is read or written.
void PrepareStandardStreams();

}  // namespace qxmix
