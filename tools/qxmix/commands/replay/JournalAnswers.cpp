#include "JournalAnswers.h"

#include "requests/Request.h"
#include "terminal/Terminal.h"

#include <algorithm>

namespace qxmix {

namespace {

JournalNow NowOf(const Answer& answer) {
    JournalNow now;
    now.outcome = answer.outcome;
    now.code = Printable(answer.code);
    if (now.IsAnswered()) {
        now.returned = answer.returned;
    }
    if (now.IsAnswered() && now.returned == 0) {
        now.paid = answer.paid;
        now.items = answer.taken;
    }
    return now;
}

/// Whether a code stands for how an answer ended: the code in the registry, or the result code.
bool IsCodeOf(const std::string& code, const JournalNow& now) {
    return now.IsAnswered() && (code == now.code || code == std::to_string(now.returned));
}

/// The cassettes that gave what the journal says. Of a note that several hold it says only how
/// many: then those of the answer where it has as many, else one cassette after the other.
CassetteItems Given(const Journal& journal,
                    const Dispenser& dispenser,
                    const JournalEntry& entry,
                    const JournalNow& now) {
    if (journal.tellsCassettes) {
        return entry.items;
    }
    const CassetteItems asNow = ByNote(dispenser, now.items);
    CassetteItems left = entry.items;
    CassetteItems given{};
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const std::size_t note = NotePlace(dispenser, index);
        given[index] = entry.items[note] == asNow[note]
                           ? now.items[index]
                           : std::min(left[note], dispenser.cassettes[index].count);
        left[note] -= std::min(left[note], given[index]);
    }
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        // More than all of them hold.
        given[index] += left[index];
    }
    return given;
}

/// Takes from the cassettes what was given.
///
/// @return false when one is said to have given more than it holds.
bool Follow(Dispenser& dispenser, CassetteItems given) {
    bool isHeld = true;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const std::uint32_t held = dispenser.cassettes[index].count;
        isHeld = isHeld && given[index] <= held;
        given[index] = std::min(given[index], held);
    }
    TakeItems(dispenser, given);
    return isHeld;
}

/// Asks one withdrawal of the dispenser as it is by then, and follows what the journal says of it.
void AskEntry(const Journal& journal,
              const JournalEntry& entry,
              const AskJournalEntry& ask,
              JournalAnswers& answers) {
    MixRequest request = BuildRequest(answers.end, entry.amount, entry.mix);
    SetCurrency(request, entry.currency);
    const Answer answer = Judge(answers.end, {entry.amount, entry.mix}, ask(request));
    answers.lastCode = answer.code.empty() ? answers.lastCode : answer.code;
    const JournalNow now = NowOf(answer);
    const JournalChange change = ChangeOf(journal, answers.end, entry, now);
    if (change != JournalChange::Same) {
        answers.differences.push_back({entry, change, now});
    }
    ++answers.lines;
    ++answers.counts[static_cast<std::size_t>(change)];
    if (!Follow(answers.end, Given(journal, answers.end, entry, now))) {
        answers.firstBeyond = answers.beyond++ == 0 ? entry.line : answers.firstBeyond;
    }
}

}  // namespace

const std::vector<JournalChangeRow>& JournalChanges() {
    static const std::vector<JournalChangeRow> rows = {
        {JournalChange::OtherNotes, "otherNotes", "other notes"},
        {JournalChange::PaidThoughRefused, "paidThoughRefused", "paid then, not paid now"},
        {JournalChange::RefusedThoughPaid, "refusedThoughPaid", "not paid then, paid now"},
        {JournalChange::OtherEnd, "otherEnd", "not paid, for another reason"},
    };
    return rows;
}

const char* NameOf(JournalChange change) {
    return change == JournalChange::Same
               ? "same"
               : JournalChanges()[static_cast<std::size_t>(change) - 1].name;
}

JournalChange ChangeOf(const Journal& journal,
                       const Dispenser& dispenser,
                       const JournalEntry& entry,
                       const JournalNow& now) {
    if (entry.IsPaid() != now.IsPaid()) {
        return entry.IsPaid() ? JournalChange::PaidThoughRefused : JournalChange::RefusedThoughPaid;
    }
    const bool areSame = journal.tellsCassettes ? entry.items == now.items
                                                : entry.items == ByNote(dispenser, now.items);
    if (!areSame) {
        return JournalChange::OtherNotes;
    }
    const bool isOther = entry.code.empty() ? !now.IsAnswered() : !IsCodeOf(entry.code, now);
    return isOther && !entry.IsPaid() ? JournalChange::OtherEnd : JournalChange::Same;
}

JournalAnswers AskJournal(const Journal& journal,
                          const Dispenser& dispenser,
                          bool stops,
                          const AskJournalEntry& ask,
                          const ProgressListener& listen) {
    JournalAnswers answers;
    answers.end = dispenser;
    try {
        for (const JournalEntry& entry : journal.entries) {
            answers.interruptedAt = entry.line;
            AskEntry(journal, entry, ask, answers);
            listen({answers.lines, 0});
            answers.isStopped = stops && !answers.differences.empty();
            if (answers.isStopped) {
                break;
            }
        }
    } catch (const Interruption&) {
        answers.isComplete = false;
    }
    return answers;
}

}  // namespace qxmix
