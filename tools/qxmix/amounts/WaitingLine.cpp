#include "WaitingLine.h"

namespace qxmix {

namespace {

constexpr std::int64_t kTenth = 100;  // milliseconds
constexpr std::int64_t kSecond = 1000;

/// "1.2", or "2" for whole seconds.
std::string SecondsText(Milliseconds time) {
    const std::int64_t tenths = time.count() / kTenth;
    const bool isWhole = time.count() % kSecond == 0;
    return std::to_string(tenths / 10) + (isWhole ? "" : "." + std::to_string(tenths % 10));
}

}  // namespace

WaitingLine::WaitingLine(const Dispenser& dispenser, const CommonOptions& options, Asker& asker)
    : line_(options.quiet || options.trace), asker_(asker) {
    asker_.Listen(
        [this, &dispenser](const MixRequest& request, Milliseconds waited, Milliseconds deadline) {
            if (line_.IsDue()) {
                line_.Show(WaitingText(dispenser, request, waited, deadline));
            }
        });
}

std::string WaitingText(const Dispenser& dispenser,
                        const MixRequest& request,
                        Milliseconds waited,
                        Milliseconds deadline) {
    return "waiting for mix " + std::to_string(std::uint16_t{request.usMixNumber}) + " to answer " +
           AskedMoney(dispenser, request.ulAmount).Text(AmountDecimals(dispenser)) + " " +
           dispenser.currency + ", " + SecondsText(waited) + " of " + SecondsText(deadline) + " s";
}

}  // namespace qxmix
