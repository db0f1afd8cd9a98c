#pragma once

#include "Journal.h"
#include "answers/Answer.h"
#include "workers/Desk.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// How an answer of now differs from what the journal says.
enum class JournalChange : std::uint8_t {
    Same,
    OtherNotes,         ///< both pay, with other items
    PaidThoughRefused,  ///< the journal pays, and nothing is paid now
    RefusedThoughPaid,  ///< the journal pays nothing, and something is paid now
    OtherEnd,           ///< nothing is paid: another code, or no answer now
};

struct JournalChangeRow {
    JournalChange change;
    const char* name;   ///< in JSON
    const char* words;  ///< for people
};

/// All of them but the first, in their order.
const std::vector<JournalChangeRow>& JournalChanges();

const char* NameOf(JournalChange change);

/// What the module answers now.
struct JournalNow {
    Outcome outcome = Outcome::NoAnswer;
    Money paid;
    CassetteItems items{};  ///< by cassette
    std::int32_t returned = 0;
    std::string code;  ///< error code left in the registry; empty: none

    bool IsAnswered() const { return qxmix::IsAnswered(outcome); }
    bool IsPaid() const { return !paid.IsZero(); }
};

struct JournalDifference {
    JournalEntry entry;
    JournalChange change = JournalChange::Same;
    JournalNow now;
};

/// What is known of a journal that was asked again.
struct JournalAnswers {
    std::uint64_t lines = 0;                ///< asked
    std::array<std::uint64_t, 5> counts{};  ///< by change
    std::vector<JournalDifference> differences;
    Dispenser end;                  ///< after the last line
    std::uint64_t beyond = 0;       ///< lines that took more than was counted
    std::size_t firstBeyond = 0;    ///< line
    std::string lastCode;           ///< error code written last; empty: none
    bool isStopped = false;         ///< --stop: the rest was not asked
    bool isComplete = true;         ///< false: Ctrl-C came before the end
    std::size_t interruptedAt = 0;  ///< line

    std::uint64_t Count(JournalChange change) const {
        return counts[static_cast<std::size_t>(change)];
    }
};

using AskJournalEntry = std::function<Reply(const MixRequest&)>;

/// Asks the withdrawals of a journal again. The counts follow the journal, whatever is answered
/// now.
///
/// @param dispenser  as it was before the first line.
/// @param stops      whether to stop at the first difference.
JournalAnswers AskJournal(const Journal& journal,
                          const Dispenser& dispenser,
                          bool stops,
                          const AskJournalEntry& ask,
                          const ProgressListener& listen);

/// How an answer differs from what the journal says.
JournalChange ChangeOf(const Journal& journal,
                       const Dispenser& dispenser,
                       const JournalEntry& entry,
                       const JournalNow& now);

}  // namespace qxmix
