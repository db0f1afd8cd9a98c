#pragma once

#include "MapAnswers.h"
#include "findings/Findings.h"

#include <string>
#include <vector>

namespace qxmix {

/// The first line of a map: its word, and what it says.
struct MapVerdict {
    std::string word;
    Outcome colour;  ///< the word's
    std::string rest;
};

/// Dangers first; without any, how many amounts are paid.
MapVerdict VerdictOf(const MapQuestions& questions, const MapAnswers& answers);

/// A line for each set of mixes that refuse the same amounts: "Not paid by mix 1: 10, 30 EUR".
std::vector<std::string> UnpaidLines(const MapQuestions& questions, const MapAnswers& answers);

/// The dangers as findings.
std::vector<Finding> FindingsOf(const MapQuestions& questions, const MapAnswers& answers);

}  // namespace qxmix
