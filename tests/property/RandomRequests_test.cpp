#include <gtest/gtest.h>

#include "RandomRequests.h"
#include "Settings.h"

namespace property {
namespace {

using reference::ReadU16;
using reference::ReadU32;

/// FNV-1a over all bytes of some cases of a kind.
std::uint64_t Digest(Kind kind, std::uint64_t seed) {
    std::uint64_t digest = 0xCBF29CE484222325ULL;
    for (std::uint64_t number = 0; number < 100; ++number) {
        Draw draw(seed, number);
        const RandomCase random = MakeRandomCase(kind, draw);
        for (unsigned i = 0; i < reference::kRequestBytes; ++i) {
            digest = (digest ^ random.request.Bytes()[i]) * 0x100000001B3ULL;
        }
        digest = (digest ^ random.object.cstMinimum) * 0x100000001B3ULL;
    }
    return digest;
}

TEST(RandomRequests, AreTheSameForTheSameSeedOnly) {
    for (const Kind kind : kAllKinds) {
        EXPECT_EQ(Digest(kind, 1), Digest(kind, 1)) << NameOf(kind);
        EXPECT_NE(Digest(kind, 1), Digest(kind, 2)) << NameOf(kind);
    }
}

TEST(RandomRequests, AreTheSameOnEveryPlatform) {
    // A change of a generator changes these on purpose; another compiler or processor must not.
    EXPECT_EQ(0x87CD4039D2AC7EDDULL, Digest(Kind::Realistic, 1));
    EXPECT_EQ(0x5AE57EE3F25B3C1FULL, Digest(Kind::Adversarial, 1));
    EXPECT_EQ(0xC46F2029181CB8D1ULL, Digest(Kind::Extreme, 1));
    EXPECT_EQ(0x7033E5E578583C88ULL, Digest(Kind::Wrapping, 1));
    EXPECT_EQ(0xD93422A30079CED0ULL, Digest(Kind::AnyBytes, 1));
}

TEST(RandomRequests, DrawEveryMixNumber) {
    bool met[reference::kLastMix + 2] = {};
    Draw draw(1, 0);
    for (int i = 0; i < 2000; ++i) {
        met[RandomMix(draw)] = true;
    }
    for (const bool one : met) {
        EXPECT_TRUE(one);
    }
}

TEST(RandomRequests, KeepAdversarialNumbersSmall) {
    for (std::uint64_t number = 0; number < 500; ++number) {
        Draw draw(1, number);
        const RandomCase random = MakeRandomCase(Kind::Adversarial, draw);
        EXPECT_LE(ReadU32(random.request.Bytes() + 16), 80U);
        EXPECT_LE(ReadU16(random.request.Bytes() + 2), 30U);
        const unsigned cassettes = ReadU16(random.request.Bytes() + 20);
        EXPECT_LE(cassettes, 6U);
        for (unsigned index = 0; index < cassettes; ++index) {
            const std::uint8_t* cassette = random.request.Bytes() + 24 + std::size_t{172} * index;
            EXPECT_EQ(index, ReadU16(cassette));
            EXPECT_LE(ReadU32(cassette + 148), 12U);
            EXPECT_LE(ReadU32(cassette + 152), 6U);
        }
    }
}

TEST(RandomRequests, BreakTheHostsPromisesInExtremes) {
    bool manyCassettes = false;
    bool farPosition = false;
    for (std::uint64_t number = 0; number < 500; ++number) {
        Draw draw(1, number);
        const RandomCase random = MakeRandomCase(Kind::Extreme, draw);
        manyCassettes = manyCassettes || ReadU16(random.request.Bytes() + 20) > 6;
        farPosition = farPosition || ReadU16(random.request.Bytes() + 24) > 5;
    }
    EXPECT_TRUE(manyCassettes);
    EXPECT_TRUE(farPosition);
}

TEST(Draw, StaysWithinItsBounds) {
    Draw draw(1, 0);
    bool least = false;
    bool most = false;
    for (int i = 0; i < 1000; ++i) {
        const std::uint32_t number = draw.Between(5, 9);
        EXPECT_TRUE(number >= 5 && number <= 9);
        least = least || number == 5;
        most = most || number == 9;
    }
    EXPECT_TRUE(least && most);
    EXPECT_FALSE(draw.Percent(0));
    EXPECT_TRUE(draw.Percent(100));
    draw.Between(0, 0xFFFFFFFF);  // the whole range must not divide by zero
}

TEST(Setting, FallsBackOnTextThatIsNoNumber) {
    EXPECT_EQ(7U, Setting("QXMIX_NO_SUCH_SETTING", 7));
}

}  // namespace
}  // namespace property
