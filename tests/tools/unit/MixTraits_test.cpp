#include "mixes/MixTraits.h"

#include "dispenser/InlineDispenser.h"
#include "options/MixList.h"
#include "requests/Request.h"
#include "units/Units.h"
#include "workers/Asker.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Mixes = std::vector<std::uint16_t>;

/// The mixes that every build has, of those told.
Mixes Known(const Mixes& mixes) {
    Mixes known;
    for (const std::uint16_t mix : mixes) {
        if (mix <= 10) {
            known.push_back(mix);
        }
    }
    return known;
}

TEST(MixTraits, AreThoseOfEachMix) {
    EXPECT_EQ(Known(MixesWith(&MixTraits::keepsMinimum)), (Mixes{6, 7, 8, 9}));
    EXPECT_EQ(Known(MixesWith(&MixTraits::passesOverLow)), (Mixes{5}));
    EXPECT_EQ(Known(MixesWithout(&MixTraits::rescalesNotes)), (Mixes{9}));
    EXPECT_EQ(Known(MixesWith(&MixTraits::isFirstFit)), (Mixes{4, 9}));
    EXPECT_EQ(Known(MixesWith(&MixTraits::comparesShares)), (Mixes{3, 8}));
    EXPECT_EQ(Known(MixesWith(&MixTraits::comparesEvenness)), (Mixes{2, 7}));
    EXPECT_EQ(Known(MixesWith(&MixTraits::stopsAtLimit)), (Mixes{2, 3, 7, 8}));
    EXPECT_EQ(Known(MixesWith(&MixTraits::refusesInSilence)), (Mixes{2, 4, 7, 9}));
}

TEST(MixTraits, OfNumbersThatNoMixHasAreNone) {
    for (const int mix : {0, kLastMix + 1, UINT16_MAX}) {
        const MixTraits& traits = Traits(static_cast<std::uint16_t>(mix));
        EXPECT_FALSE(traits.keepsMinimum || traits.passesOverLow || traits.rescalesNotes ||
                     traits.isFirstFit || traits.comparesShares || traits.comparesEvenness ||
                     traits.stopsAtLimit || traits.refusesInSilence)
            << mix;
        EXPECT_EQ(traits.mostUnits, 0U) << mix;
    }
}

TEST(MixTraits, AreAsManyAsTheModuleOffersMixes) {
    Asker asker(QXMIX_MODULE, "");
    EXPECT_EQ(asker.Open().mixTypeCount, kLastMix);
    EXPECT_EQ(AllMixes().size(), kLastMix);
}

/// What the module itself answers for every mix.
Calculation AnswerTo(const char* text, std::uint16_t mix, std::uint32_t amount) {
    static Asker asker(QXMIX_MODULE, "");
    return asker.Ask(BuildRequest(ReadInlineDispenser(text), amount, mix), Milliseconds(2000))
        .calculation;
}

TEST(MixTraits, TellWhatTheModulePassesOver) {
    for (const std::uint16_t mix : AllMixes()) {
        EXPECT_EQ(AnswerTo("EUR:50x100", mix, 50).returned != 0, Traits(mix).keepsMinimum) << mix;
        EXPECT_EQ(AnswerTo("EUR:50x200:low", mix, 50).returned != 0, Traits(mix).passesOverLow)
            << mix;
    }
}

TEST(MixTraits, TellHowManyUnitsTheModuleSearches) {
    for (const std::uint16_t mix : AllMixes()) {
        EXPECT_EQ(Traits(mix).mostUnits, 5U) << mix;
        EXPECT_NE(AnswerTo("EUR:100x200,50x200,20x200,10x200,5x200", mix, 5).returned, -315) << mix;
        EXPECT_EQ(AnswerTo("EUR:200x200,100x200,50x200,20x200,10x200,5x200", mix, 200).returned,
                  -315)
            << mix;
    }
}

TEST(MixTraits, TellWhoRefusesAFirstUnitThatIsWorthNothingWithoutACode) {
    for (const std::uint16_t mix : AllMixes()) {
        const Calculation answer = AnswerTo("EUR:0x200:ok:coupon", mix, 0);
        EXPECT_EQ(answer.returned, -306) << mix;
        EXPECT_EQ(answer.written.empty(), Traits(mix).refusesInSilence) << mix;
    }
}

TEST(MixRangesText, JoinsNumbersInARow) {
    EXPECT_EQ(MixRangesText({9}), "mix 9");
    EXPECT_EQ(MixRangesText({6, 7, 8, 9}), "mixes 6 to 9");
    EXPECT_EQ(MixRangesText({1, 2, 4, 6, 7}), "mixes 1 to 2 4 6 to 7");
}

}  // namespace
}  // namespace qxmix
