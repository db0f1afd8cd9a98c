#include "FillForms.h"
#include "sheets/CsvCell.h"

namespace qxmix {

std::string FillCsv(const FillReport& report) {
    const bool hasNotes = !report.questions.notes.empty();
    std::string csv = "mix,cassette,label,currency,value,now,load,bundles,bundle,capacity,worth";
    csv += hasNotes ? ",valueNow\n" : "\n";
    for (const MixFill& mix : report.answers.mixes) {
        if (!mix.load) {
            continue;
        }
        for (std::size_t place = 0; place < report.answers.cassettes.size(); ++place) {
            const LoadedCassette& loaded = report.answers.cassettes[place];
            const Cassette& now = report.questions.dispenser.cassettes[loaded.cassette];
            const Cassette& then = mix.load->loaded.cassettes[loaded.cassette];
            csv += std::to_string(mix.mix) + "," + std::to_string(loaded.cassette) + "," +
                   CsvCell(then.label) + "," + then.currency + "," + std::to_string(then.value) +
                   "," + std::to_string(now.count) + "," + std::to_string(then.count) + "," +
                   std::to_string(mix.load->bundles[place]) + "," + std::to_string(loaded.bundle) +
                   "," + (then.capacity ? std::to_string(*then.capacity) : "") + "," +
                   then.Worth().Times(then.count).ShortText() +
                   (hasNotes ? "," + std::to_string(now.value) : "") + "\n";
        }
    }
    return csv;
}

}  // namespace qxmix
