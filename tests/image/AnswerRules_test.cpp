#include "ImageTest.h"
#include "Requests.h"

#include "RuleWatch.h"
#include "Settings.h"

#include <algorithm>

namespace emulation {
namespace {

/// What holds of every answer, of those of the shipped bytes too.
class ImageAnswerRules : public ImageTest {};

TEST_P(ImageAnswerRules, HoldForRandomRequestsOfEveryKind) {
    RequestPlayer player(Module());
    property::RuleWatch watch([&](const property::RandomCase& random, property::Answer& answer) {
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, answer.request.begin());
        if (!property::MayBeAsked(random)) {
            return false;
        }
        const CallReport report = player.Calculate(random.object, 0, answer);
        EXPECT_EQ("", report.fault);
        return true;
    });
    const std::uint64_t seed = property::Setting("QXMIX_SEED", 1);
    const std::uint64_t each = property::Setting("QXMIX_IMAGE_CASES", 6000) / 20;
    for (const property::Kind kind : property::kAllKinds) {
        for (std::uint64_t number = 0; number < each; ++number) {
            property::Draw draw(seed, number);
            ASSERT_EQ("", watch.Watch(property::MakeRandomCase(kind, draw)))
                << NameOf(kind) << ", seed " << seed << ", case " << number;
        }
    }
    EXPECT_EQ(property::AnswerRules().size(), watch.Applied().size());
}

FOR_EVERY_LIBRARY(ImageAnswerRules);

}  // namespace
}  // namespace emulation
