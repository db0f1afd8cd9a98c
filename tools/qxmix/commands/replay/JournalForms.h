#pragma once

#include "JournalAnswers.h"
#include "answers/Envelope.h"
#include "json/Json.h"

#include <string>

namespace qxmix {

/// The result of a journal as JSON.
Json JournalJson(const Journal& journal, const Dispenser& dispenser, const JournalAnswers& answers);

/// The lines that differ: line,time,amount,currency,mix,change,journal,code,now,outcome,returned.
std::string
JournalCsv(const Journal& journal, const Dispenser& dispenser, const JournalAnswers& answers);

/// The page.
///
/// @param envelope  with its result.
/// @throw InputError when it would be too large.
std::string JournalPage(const Journal& journal,
                        const Dispenser& dispenser,
                        const JournalAnswers& answers,
                        const Envelope& envelope,
                        const std::string& commandLine);

}  // namespace qxmix
