#pragma once

#include <cstdint>

#include "../reference/Reference.h"
#include "../reference/RequestBytes.h"
#include "Draw.h"

namespace property {

/// What a random request looks like.
enum class Kind {
    Realistic,    ///< dispensers as they stand in the street, notes and amounts of real currencies
    Adversarial,  ///< values 0 to 12, counts 0 to 6, amounts 0 to 80: ties, gaps and short units
    Extreme,      ///< near 2^31 and 2^32, wrapping products, fields outside their ranges
    Wrapping,     ///< few combinations of many notes, whose scores wrap
    AnyBytes,     ///< 1060 bytes without any sense
};

constexpr Kind kAllKinds[] = {Kind::Realistic, Kind::Adversarial, Kind::Extreme, Kind::Wrapping,
                              Kind::AnyBytes};

const char* NameOf(Kind kind);

/// One request, and what the host made of the module's object before it.
struct RandomCase {
    reference::Object object;
    reference::RequestBytes request;
};

/// A random request of a kind; the bytes that nobody interprets hold anything.
RandomCase MakeRandomCase(Kind kind, Draw& draw);

/// The five kinds one by one; each fills a request that holds any bytes and no cassette.
void FillRealistic(Draw& draw, RandomCase& random);
void FillAdversarial(Draw& draw, RandomCase& random);
void FillExtreme(Draw& draw, RandomCase& random);
void FillWrapping(Draw& draw, RandomCase& random);

/// 1 to 10 mostly, else 0 or 11.
std::uint16_t RandomMix(Draw& draw);

}  // namespace property
