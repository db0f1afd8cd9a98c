#pragma once

#include "MixTable.h"
#include "sweeps/MapAnswers.h"

namespace qxmix {

/// The notes that an answer takes from cassettes of the dispenser's currency.
NotesByWorth NotesPaid(const Dispenser& dispenser, const MapCell& cell);

/// Refuses what no mix table can hold: several mixes, more amounts than it has rows, notes that are
/// no multiple of an amount's unit.
///
/// @throw InputError
void CheckTableHolds(const MapQuestions& questions);

/// What a mix pays as a mix table: a row for each amount that is paid exactly.
///
/// @param questions  of the one mix.
MixTable PaidTable(const MapQuestions& questions, const MapAnswers& answers);

}  // namespace qxmix
