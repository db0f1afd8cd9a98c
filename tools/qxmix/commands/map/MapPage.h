#pragma once

#include "MapAnswers.h"
#include "answers/Envelope.h"

#include <cstdint>
#include <string>

namespace qxmix {

constexpr std::uint64_t kMostPageCells = 1000000;

/// The map as one HTML file that needs nothing else.
///
/// @param envelope     with the map in it; the page holds it as it is.
/// @param commandLine  shown in the page.
/// @throw InputError when the page would be too large.
std::string MapPage(const MapQuestions& questions,
                    const MapAnswers& answers,
                    const Envelope& envelope,
                    const std::string& commandLine);

}  // namespace qxmix
