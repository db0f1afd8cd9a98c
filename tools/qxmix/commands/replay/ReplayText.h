#pragma once

#include "ReplayAnswers.h"
#include "terminal/Terminal.h"

#include <string>
#include <vector>

namespace qxmix {

/// What a replay found, for people.
///
/// @param libraries  names of the libraries asked, one or two.
std::string ReplayText(const ReplayAnswers& answers,
                       const std::vector<std::string>& libraries,
                       const Painter& painter);

}  // namespace qxmix
