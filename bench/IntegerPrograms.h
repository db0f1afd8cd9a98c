#pragma once

#include "FewestItems.h"
#include "Questions.h"

/// Minimum notes as an integer program, for solvers that one would pick off the shelf. Building
/// the program is part of each call, as it would be in a dispenser.
namespace bench {

/// Both give up after this time: branching on an amount that cannot be made may take minutes.
constexpr unsigned kSolverMilliseconds = 100;

FewestItems FewestItemsByGlpk(const Question& question);
FewestItems FewestItemsByCbc(const Question& question);

}  // namespace bench
