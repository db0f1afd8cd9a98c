#include "answers/OwnDecisions.h"

#include "dispenser/InlineDispenser.h"
#include "requests/Request.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Kind = Ending::Kind;

constexpr const char* kFourNotes = "EUR:50x1000,20x900,100x100,200x40";

MixRequest RequestOf(const char* dispenser, std::uint32_t amount, std::uint16_t mix) {
    return BuildRequest(ReadInlineDispenser(dispenser), amount, mix);
}

TEST(OwnDecisions, TellWhatAnotherLibraryAnswersThatTheModuleNeverDoes) {
    OwnDecisions decisions(QXMIX_FAKE_MODULE, 0);
    EXPECT_TRUE(decisions.AreWanted());
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 60, 4), Kind::Answered),
              LibraryDifference::Answers);
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 60, 4), Kind::NoAnswer), LibraryDifference::None);
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 50, 4), Kind::Answered), LibraryDifference::None);
}

TEST(OwnDecisions, TellWhatAnotherLibraryDoesNotAnswerThoughTheModuleEnds) {
    OwnDecisions decisions(QXMIX_FAKE_MODULE, 0);
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 50, 4), Kind::NoAnswer),
              LibraryDifference::NoAnswer);
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 60, 1), Kind::NoAnswer),
              LibraryDifference::NoAnswer);
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 60, 1), Kind::Answered), LibraryDifference::None);
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 50, 4), Kind::Crashed), LibraryDifference::None);
}

TEST(OwnDecisions, TakeTheMinimumOfMix9FromTheLibrary) {
    const MixRequest request = RequestOf(kFourNotes, 60, 9);
    OwnDecisions all(QXMIX_FAKE_MODULE, 0);
    EXPECT_EQ(all.Of(request, Kind::Answered), LibraryDifference::Answers);
    OwnDecisions none(QXMIX_FAKE_MODULE, 5000);
    EXPECT_EQ(none.Of(request, Kind::Answered), LibraryDifference::None) << "no unit is left";
}

TEST(OwnDecisions, SayNothingOfTheModuleItself) {
    OwnDecisions decisions(QXMIX_MODULE, 0);
    EXPECT_FALSE(decisions.AreWanted());
    EXPECT_EQ(decisions.Of(RequestOf(kFourNotes, 60, 4), Kind::Answered), LibraryDifference::None);
}

}  // namespace
}  // namespace qxmix
