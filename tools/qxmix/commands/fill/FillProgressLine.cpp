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
    std::string text = command + "  mix " + std::to_string(now.mix) + "  " +
                       std::to_string(now.tried) + " of about " + std::to_string(now.expected) +
                       " loadings";
    if (now.tried > 0) {
        const auto time = static_cast<std::uint64_t>(passed.count());
        const std::uint64_t left = time * (now.expected - now.tried) / now.tried;
        text += "  about " + std::to_string(left / kMillisecondsInSecond + 1) + " s left";
    }
    return text + (best.empty() ? "" : "  best " + best);
}

}  // namespace qxmix
