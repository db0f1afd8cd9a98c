// A journal of what was dispensed: refused in one line, or read with its bad lines passed over; and
// read the same again when it is written out plainly. What it says can be followed.
#include "Expect.h"
#include "FuzzInput.h"
#include "commands/replay/JournalAnswers.h"
#include "errors/Errors.h"
#include "sheets/SheetText.h"

namespace {

using fuzz::Expect;

qxmix::Dispenser MadeBy(std::uint8_t byte) {
    static constexpr std::int16_t exponents[] = {0, -2, -3, 3};
    static constexpr std::uint32_t values[] = {100, 50, 20, 20, 10};
    qxmix::Dispenser dispenser;
    dispenser.currency = "EUR";
    dispenser.exponent = exponents[byte % 4];
    for (const std::uint32_t value : values) {
        qxmix::Cassette cassette;
        cassette.position = static_cast<std::uint16_t>(dispenser.cassettes.size());
        cassette.currency = "EUR";
        cassette.value = value;
        cassette.count = byte;
        dispenser.cassettes.push_back(cassette);
    }
    return dispenser;
}

/// Without times, which have their own target, and in the order of the entries.
std::string Plain(const qxmix::Journal& journal, const qxmix::Dispenser& dispenser) {
    std::string text = "amount,currency,mix,c0,c1,c2,c3,c4\n";
    for (const qxmix::JournalEntry& entry : journal.entries) {
        text +=
            std::to_string(entry.amount) + "," + entry.currency + "," + std::to_string(entry.mix);
        for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
            text += "," + std::to_string(entry.items[index]);
        }
        text += "\n";
    }
    return text;
}

void ExpectSame(const qxmix::Journal& journal, const qxmix::Journal& again) {
    Expect(again.badLines.empty(), "what is written plainly is not bad");
    Expect(journal.entries.size() == again.entries.size(), "as many entries");
    for (std::size_t place = 0; place < journal.entries.size(); ++place) {
        const qxmix::JournalEntry& one = journal.entries[place];
        const qxmix::JournalEntry& other = again.entries[place];
        Expect(one.amount == other.amount && one.currency == other.currency &&
                   one.mix == other.mix && one.items == other.items,
               "the same entry");
    }
}

void ExpectBadLinesInOrder(const qxmix::Journal& journal) {
    std::uint64_t last = 0;
    for (const qxmix::LineError& bad : journal.badLines) {
        Expect(bad.line >= last && !bad.message.empty(),
               "bad lines in order, each with its reason");
        last = bad.line;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const qxmix::Dispenser dispenser = MadeBy(bytes[0]);
    const std::string content(reinterpret_cast<const char*>(bytes) + 1, size - 1);
    const qxmix::SheetOptions sheet = qxmix::JournalSheet();
    qxmix::Journal journal;
    try {
        journal = qxmix::ReadJournal("f", qxmix::SheetText({"f", content}), dispenser, sheet);
    } catch (const qxmix::InputError&) {
        return 0;  // the only way to be refused; everything else ends the process
    }
    ExpectBadLinesInOrder(journal);
    if (!journal.entries.empty()) {
        ExpectSame(journal, qxmix::ReadJournal("f", Plain(journal, dispenser), dispenser, sheet));
    }
    const qxmix::JournalAnswers answers = qxmix::AskJournal(
        journal, dispenser, false, [](const MixRequest&) { return qxmix::Reply{}; },
        [](const qxmix::WorkProgress&) {});
    Expect(answers.lines == journal.entries.size(), "every entry is asked");
    for (const qxmix::Cassette& cassette : answers.end.cassettes) {
        Expect(cassette.count <= bytes[0], "nothing comes back");
    }
    return 0;
}
