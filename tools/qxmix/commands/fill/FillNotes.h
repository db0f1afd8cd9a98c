#pragma once

#include "FillQuestions.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// More choices of notes are not gone through.
constexpr std::uint64_t kMostChoices = 1000;

/// Reads "5,10,20": whole numbers above 0, each once; none: it is no such list.
std::optional<std::vector<std::uint32_t>> ParseNotes(const std::string& text);

/// The notes as --notes takes them.
std::string NoteListWord(const std::vector<std::uint32_t>& notes);

/// How many choices of notes the cassettes have: 0 where none of them can get another one, and no
/// more than one beyond the most.
std::uint64_t NoteChoiceCount(const Dispenser& dispenser, const std::vector<std::uint32_t>& notes);

/// The dispenser with each choice of notes: those first that change fewest cassettes. Cassettes
/// that are loaded and give notes get others, but for those that say what an item is worth. Of
/// cassettes that differ in nothing but their place it does not matter which of them gets which:
/// one way stands for all, in which as many keep theirs as can.
std::vector<Dispenser> NoteChoices(const Dispenser& dispenser,
                                   const std::vector<std::uint32_t>& notes);

/// Whether notes of these values could serve as many customers as have to be, if there were enough
/// of each: if not, no mix does with any loading.
bool CanServe(const FillQuestions& questions,
              const RunDemands& demands,
              const Dispenser& dispenser);

}  // namespace qxmix
