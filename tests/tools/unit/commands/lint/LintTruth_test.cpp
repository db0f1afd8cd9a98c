#include "LintClaims.h"

namespace qxmix {
namespace {

/// The first-fit mixes are left out where their endless searches would only take time.
TEST(LintTruth, HoldsForWhatTheModuleAnswers) {
    constexpr int kDispensers = 60;
    for (int number = 0; number < kDispensers; ++number) {
        RandomDispensers random(static_cast<std::uint64_t>(number));
        Dispenser dispenser = random.Next();
        const std::vector<std::vector<std::uint16_t>> choices = {
            {1}, {2}, {3}, {5}, {6}, {7}, {8}, {10}, {1, 2, 3, 5, 6, 7, 8, 10}};
        const std::uint32_t scale = ScaleOf(dispenser);
        const std::uint32_t step = random.Pick<std::uint32_t>({5, 10, 10, 20, 50}) * scale;
        if (random.OneIn(3)) {
            dispenser.amounts["EUR"].buttons = {50 * scale, 30 * scale};
        }
        const auto& mixes = random.Pick(choices);
        SCOPED_TRACE(std::to_string(number) + ": mixes " + MixesText(mixes) + " step " +
                     std::to_string(step) + " " + Described(dispenser));
        Claims(dispenser, mixes, {step, step * 20, step}).Check();
        if (::testing::Test::HasFailure()) {
            break;
        }
    }
}

}  // namespace
}  // namespace qxmix
