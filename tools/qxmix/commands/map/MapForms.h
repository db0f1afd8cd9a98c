#pragma once

#include "MapReport.h"
#include "answers/Envelope.h"
#include "files/OutputForm.h"
#include "terminal/Terminal.h"

#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Refuses a map that a file of this form cannot hold.
///
/// @throw InputError
void CheckFormHolds(const std::optional<OutputForm>& form,
                    const std::vector<MapQuestions>& questions);

/// The map for people: the verdict, the amounts that are not paid, a row of letters for each mix,
/// and what the letters say. Of more than 60 amounts a letter stands for a stretch, and is the
/// worst of it. The differences come last. One currency follows the other.
std::string MapText(const MapReports& reports, const Painter& painter);

/// The map as CSV: a line for each amount and mix, the amounts in order. What a missing answer
/// leaves unknown is empty. Of several currencies each line has its own behind all else.
std::string MapCsv(const MapReports& reports);

/// What was asked, as the envelope holds it.
Json MapInputJson(const MapReports& reports);

/// The map as the result of the envelope: the letters as runs, and every answer as one of a few
/// steps from the answer before it (schema/answer.schema.json).
Json MapResultJson(const MapReports& reports);

/// The map as one HTML file that needs nothing else.
///
/// @param envelope     with the map in it; the page holds it as it is.
/// @param commandLine  shown in the page.
/// @throw InputError when the page would be too large.
std::string
MapPage(const MapReports& reports, const Envelope& envelope, const std::string& commandLine);

}  // namespace qxmix
