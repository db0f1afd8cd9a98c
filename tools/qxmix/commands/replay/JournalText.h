#pragma once

#include "JournalAnswers.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// First line of what was found, and how many lines differ in which way.
std::string JournalHeadline(const JournalAnswers& answers);

/// "3 other notes, 1 paid then, not paid now"; empty when all is the same.
std::string ChangesText(const JournalAnswers& answers);

/// What the journal says was paid: "2x100 1x50", or nothing and the code.
std::string
RecordedText(const Journal& journal, const Dispenser& dispenser, const JournalEntry& entry);

/// What is answered now, in the same way.
std::string NowText(const Journal& journal, const Dispenser& dispenser, const JournalNow& now);

/// What was found, for people.
///
/// @param dispenser  as it was before the first line.
std::string JournalText(const Journal& journal,
                        const Dispenser& dispenser,
                        const JournalAnswers& answers,
                        const Painter& painter);

}  // namespace qxmix
