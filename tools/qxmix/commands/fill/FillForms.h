#pragma once

#include "FillReport.h"
#include "answers/Envelope.h"
#include "json/JsonName.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// What to load, for people: the money first, then the cassettes of the best mix, then how the
/// others compare.
std::string FillText(const FillReport& report, bool isQuiet, const Painter& painter);

/// A packing list: a line for each cassette of each mix, the best mix first.
std::string FillCsv(const FillReport& report);

/// What was asked.
Json FillInputJson(const FillQuestions& questions);

/// What to load for each mix, the best one first.
Json FillResultJson(const FillReport& report);

/// The answer as one HTML file that needs nothing else.
///
/// @param envelope     with the answer in it; the page holds it as it is.
/// @param commandLine  shown in the page.
/// @throw InputError when the page would be too large.
std::string
FillPage(const FillReport& report, const Envelope& envelope, const std::string& commandLine);

}  // namespace qxmix
