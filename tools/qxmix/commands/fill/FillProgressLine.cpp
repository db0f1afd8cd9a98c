#include "FillProgressLine.h"

#include "dispenser/ReadableMoney.h"

#include <utility>

namespace qxmix {

FillProgressLine::FillProgressLine(std::string command, const Dispenser& dispenser, bool isQuiet)
    : command_(std::move(command)), currency_(dispenser.currency),
      decimals_(AmountDecimals(dispenser)), line_(isQuiet) {
}

void FillProgressLine::Show(const FillProgress& now) {
    if (line_.IsDue()) {
        const std::string best =
            now.best ? ReadableText(*now.best, decimals_) + " " + currency_ : "";
        line_.Show(FillProgressText(command_, now, best, line_.Passed()));
    }
}

std::string FillProgressText(const std::string& command,
                             const FillProgress& now,
                             const std::string& best,
                             std::chrono::milliseconds passed) {
    constexpr std::uint64_t kMillisecondsInSecond = 1000;
    const bool isByChoice = now.choices > 1;
    const std::size_t done = isByChoice ? now.choice : now.tried;
    const std::size_t all = isByChoice ? now.choices : now.expected;
    std::string text = command + "  mix " + std::to_string(now.mix) + "  " + std::to_string(done) +
                       (isByChoice ? " of " : " of about ") + std::to_string(all) +
                       (isByChoice ? " choices of notes" : " loadings");
    if (done > 0) {
        const auto time = static_cast<std::uint64_t>(passed.count());
        const std::uint64_t left = time * (all - done) / done;
        text += "  about " + std::to_string(left / kMillisecondsInSecond + 1) + " s left";
    }
    return text + (best.empty() ? "" : "  best " + best);
}

}  // namespace qxmix
