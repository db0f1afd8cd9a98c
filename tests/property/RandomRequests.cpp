#include "RandomRequests.h"

namespace property {

const char* NameOf(Kind kind) {
    switch (kind) {
    case Kind::Realistic:
        return "Realistic";
    case Kind::Adversarial:
        return "Adversarial";
    case Kind::Extreme:
        return "Extreme";
    case Kind::Wrapping:
        return "Wrapping";
    case Kind::AnyBytes:
        return "AnyBytes";
    }
    return "";
}

std::uint16_t RandomMix(Draw& draw) {
    if (draw.Percent(4)) {
        return draw.Percent(50) ? std::uint16_t{0} : std::uint16_t{reference::kLastMix + 1};
    }
    return static_cast<std::uint16_t>(draw.Between(1, reference::kLastMix));
}

namespace {

/// Makes some of a cassette's bytes what the module looks for.
void RepairCassette(Draw& draw, unsigned index, RandomCase& random) {
    const std::size_t at = 24 + 172 * index;
    random.request.Position(index, static_cast<std::uint16_t>(draw.Below(7)));
    random.request.PutU16(at + 130, static_cast<std::uint16_t>(draw.Between(3, 7)));
    random.request.PutU16(at + 164, static_cast<std::uint16_t>(draw.Below(5)));
    random.request.PutU32(at + 148, draw.U32() >> draw.Below(32));
    random.request.PutU32(at + 152, draw.U32() >> draw.Below(32));
    for (std::size_t i = 0; i < 3; ++i) {
        random.request.Bytes()[at + 137 + i] = random.request.Bytes()[8 + i];
    }
}

/// Bytes without any sense, of which a part is repaired in most cases: untouched they nearly all
/// end at the first test, of the mix number, or for want of a usable cassette.
void FillAnyBytes(Draw& draw, RandomCase& random) {
    random.object.cstMinimum = draw.U32() >> draw.Below(32);
    if (draw.Percent(10)) {
        random.object.first = static_cast<std::uint16_t>(draw.U32());
        random.object.last = static_cast<std::uint16_t>(draw.U32());
        return;
    }
    random.request.Mix(RandomMix(draw));
    if (draw.Percent(50)) {
        random.request.Exponent(0);
    }
    if (draw.Percent(50)) {
        random.request.Partial(1);
    }
    if (draw.Percent(30)) {
        random.request.Amount(draw.U32() >> draw.Below(32));
    }
    for (unsigned index = 0; index < 6; ++index) {
        if (draw.Percent(60)) {
            RepairCassette(draw, index, random);
        }
    }
}

}  // namespace

RandomCase MakeRandomCase(Kind kind, Draw& draw) {
    RandomCase random;
    FillWithAnyBytes(draw, random.request.Bytes(), reference::kRequestBytes);
    if (kind == Kind::AnyBytes) {
        FillAnyBytes(draw, random);
        return random;
    }
    random.request.Mix(RandomMix(draw)).CassetteNumber(0);
    switch (kind) {
    case Kind::Realistic:
        FillRealistic(draw, random);
        break;
    case Kind::Adversarial:
        FillAdversarial(draw, random);
        break;
    case Kind::Extreme:
        FillExtreme(draw, random);
        break;
    case Kind::Wrapping:
    case Kind::AnyBytes:
        FillWrapping(draw, random);
        break;
    }
    return random;
}

}  // namespace property
