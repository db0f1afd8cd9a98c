#pragma once

#include "Envelope.h"
#include "MapAnswers.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// The forms in which a map is written to a file.
enum class MapForm { TextFile, JsonFile, CsvFile, Page };

/// The endings of the file names, for people.
constexpr const char* kMapFormsExpected = ".txt, .json, .csv or .html";

/// The form that a file's name asks for.
///
/// @param file  empty: none.
/// @throw InputError when the name asks for no form, or for one that cannot hold so much.
std::optional<MapForm> MapFormOf(const std::string& file, const MapQuestions& questions);

/// What a file of this form holds.
///
/// @param envelope     with the map in it if the form needs it (NeedsResult).
/// @param commandLine  shown in a page.
/// @throw InputError when a page would be too large.
std::string MapFile(MapForm form,
                    const MapQuestions& questions,
                    const MapAnswers& answers,
                    const Envelope& envelope,
                    const std::string& commandLine);

/// Whether a form holds the answer as JSON.
bool NeedsResult(std::optional<MapForm> form);

/// Refuses maps that are too large, and says which step would do.
///
/// @param most    cells.
/// @param option  that the error is about.
/// @throw InputError
void CheckCellCount(const MapQuestions& questions, std::uint64_t most, const std::string& option);

}  // namespace qxmix
