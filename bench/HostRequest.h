#pragma once

#include "Questions.h"

#include "Records.h"

namespace bench {

/// A host's request: one cassette per unit, of bank notes, all of one currency.
MixRequest RequestOf(const Question& question, unsigned mixNumber);

}  // namespace bench
