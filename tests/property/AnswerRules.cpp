#include "AnswerRules.h"

#include "AskedRequest.h"

namespace property {
namespace {

bool Always(const RandomCase&, const Answer&) {
    return true;
}

// What holds of one answer.

std::string PaysInARefusal(const RandomCase&, const Answer& answer, const Asker&) {
    return PaidItems(answer).AreNone() ? "" : "items in spite of a refusal";
}

std::string TakesWhatIsNotThere(const RandomCase& random, const Answer& answer, const Asker&) {
    const AskedRequest asked(random);
    const PaidItems paid(answer);
    for (unsigned position = 0; position < kMaxCashUnits; ++position) {
        std::uint64_t there = 0;
        for (unsigned index = 0; index < asked.Cassettes(); ++index) {
            const PhysicalCashUnit& cassette = asked.Cassette(index);
            const bool gives = (cassette.usStatus == 0 || cassette.usStatus == 3) &&
                               asked.IsOfItsCurrency(cassette);
            if (gives && cassette.usPosition == position) {
                there += cassette.ulCount;
            }
        }
        if (paid[position] > there) {
            return "more at position " + std::to_string(position) + " than can be given there";
        }
    }
    return "";
}

std::string ExceedsTheLimit(const RandomCase& random, const Answer& answer, const Asker&) {
    const AskedRequest asked(random);
    const PaidItems paid(answer);
    std::uint64_t notes = 0;
    std::uint64_t coins = 0;
    for (unsigned index = 0; index < asked.Cassettes(); ++index) {
        const unsigned type = asked.Cassette(index).usType;
        (type == 4 || type == 5 ? coins : notes) += paid[index];
    }
    const std::uint64_t limit = asked.Record().usMaxDispenseItems;
    return notes <= limit && coins <= limit ? "" : "more items than the limit allows";
}

bool IsHeldToTheLimit(const RandomCase& random, const Answer& answer) {
    const AskedRequest asked(random);
    return answer.returned == 0 && !asked.IsFirstFit() && asked.IsPlain();
}

std::string LosesMoney(const RandomCase& random, const Answer& answer, const Asker&) {
    const AskedRequest asked(random);
    const AskedRequest after(answer.request.data());
    std::uint32_t sum = after.Record().ulRemainder;
    const PaidItems paid(answer);
    for (unsigned index = 0; index < asked.Cassettes(); ++index) {
        sum += paid[index] * std::uint32_t{asked.Cassette(index).ulValues};
    }
    return sum == after.Record().ulAmount ? "" : "paid and remainder are not the amount";
}

bool IsPaidInOrder(const RandomCase& random, const Answer& answer) {
    return answer.returned == 0 && AskedRequest(random).StandsInOrder();
}

std::string PaysTooMuch(const RandomCase& random, const Answer& answer, const Asker&) {
    const AskedRequest asked(random);
    return PaidItems(answer).Worth(asked) <= asked.Record().ulAmount ? ""
                                                                     : "more than was asked for";
}

std::string PaysTooLittle(const RandomCase& random, const Answer& answer, const Asker&) {
    const AskedRequest asked(random);
    const PaidItems paid(answer);
    const std::uint32_t amount = asked.Record().ulAmount;
    if (paid.AreNone()) {
        const bool isBelowSome = !asked.All(
            [amount](const PhysicalCashUnit& cassette) { return amount >= cassette.ulValues; });
        return amount == 0 || isBelowSome ? "" : "nothing, and no refusal";
    }
    return paid.Worth(asked) == amount ? "" : "a part that nobody has allowed";
}

bool MustBePaidWhole(const RandomCase& random, const Answer& answer) {
    const AskedRequest asked(random);
    return IsHeldToTheLimit(random, answer) && !asked.MayPayLess() && asked.AllAreOk();
}

std::string PaysMoreThanIsHeld(const RandomCase&, const Answer& answer, const Asker&) {
    return answer.returned != 0 ? "" : "an amount that is not held is not refused";
}

bool AsksForMoreThanIsHeld(const RandomCase& random, const Answer&) {
    const AskedRequest asked(random);
    return asked.IsPlain() && !asked.MayPayLess() && asked.IsMix(1, 10) &&
           asked.Record().ulAmount > asked.Held() &&
           asked.All([&](const PhysicalCashUnit& cassette) {
               return cassette.ulValues <= asked.Record().ulAmount;
           });
}

std::string NamesAnotherReason(const RandomCase&, const Answer& answer, const Asker&) {
    const std::string& code = answer.lastCode;
    const bool isOverLimit = code == "971A3" || code == "971A4";
    switch (answer.returned) {
    case 0:
        return code.empty() || isOverLimit ? "" : "paid, with code " + code;
    case -304:
        return code == "971A5" ? "" : "no such mix, with code " + code;
    case -306:
        return code == "971A2" || code.empty() ? "" : "not dispensable, with code " + code;
    case -307:
        return isOverLimit ? "" : "too many items, with code " + code;
    case -315:
        return code == "97194" ? "" : "invalid cash unit, with code " + code;
    default:
        return "return code " + std::to_string(answer.returned);
    }
}

std::string WritesElsewhere(const RandomCase& random, const Answer& answer, const Asker&) {
    for (std::size_t at = 0; at < reference::kRequestBytes; ++at) {
        const bool isWritten = (at >= 16 && at < 20) || at >= 1056;
        if (!isWritten && answer.request[at] != random.request.Bytes()[at]) {
            return "byte " + std::to_string(at) + " of the request has changed";
        }
    }
    return "";
}

std::string ChangesTheAmount(const RandomCase& random, const Answer& answer, const Asker&) {
    const AskedRequest after(answer.request.data());
    return after.Record().ulAmount == AskedRequest(random).Record().ulAmount
               ? ""
               : "another amount than was asked for";
}

bool HasItsAmount(const RandomCase& random, const Answer&) {
    const AskedRequest asked(random);
    return asked.Record().sExponent <= 0 && !asked.MayPayLess();
}

// What holds between answers.

/// What differs between an answer and that to a request that should not differ.
std::string Compare(const Answer& answer, const Answer& other) {
    if (answer.returned != other.returned || answer.lastCode != other.lastCode) {
        return "another return code or code";
    }
    return answer.result == other.result ? "" : "other items";
}

std::string ChangesItsMind(const RandomCase& random, const Answer& answer, const Asker& ask) {
    Answer again;
    return ask(random, again) ? Difference(answer, again) : "";
}

std::string
DiffersFromItsBaseMix(const RandomCase& random, const Answer& answer, const Asker& ask) {
    const auto mix = static_cast<std::uint16_t>(AskedRequest(random).Record().usMixNumber);
    RandomCase base = random;
    base.request.Mix(mix == 5 ? 1 : static_cast<std::uint16_t>(mix - 5));
    Answer other;
    return ask(base, other) ? Compare(answer, other) : "";
}

/// Nothing is low, and nothing is at the minimum: then mixes 5 to 9 leave nothing out.
bool LeavesNothingOut(const RandomCase& random, const Answer&) {
    const AskedRequest asked(random);
    const std::uint32_t minimum = random.object.cstMinimum;
    const bool hasAllMixes = random.object.first <= 1 && random.object.last >= 9;
    return asked.IsPlain() && hasAllMixes && asked.IsMix(5, 9) && asked.AllAreOk() &&
           asked.AllAreBills() &&
           asked.AllDiffer([](const PhysicalCashUnit& cassette) { return +cassette.ulValues; }) &&
           asked.All([minimum](const PhysicalCashUnit& cassette) {
               return cassette.ulCount > minimum && cassette.ulCount != 0;
           });
}

std::string DependsOnTheOrder(const RandomCase& random, const Answer& answer, const Asker& ask) {
    RandomCase turned = random;
    const unsigned cassettes = AskedRequest(random).Cassettes();
    constexpr std::size_t kFirst = 24;
    constexpr std::size_t kEach = sizeof(PhysicalCashUnit);
    for (unsigned index = 0; index < cassettes; ++index) {
        std::copy_n(random.request.Bytes() + kFirst + kEach * index, kEach,
                    turned.request.Bytes() + kFirst + kEach * (cassettes - 1 - index));
    }
    for (unsigned index = 0; index < cassettes; ++index) {
        turned.request.Position(index, static_cast<std::uint16_t>(index));
    }
    Answer other;
    if (!ask(turned, other)) {
        return "";
    }
    if (answer.returned != other.returned || answer.lastCode != other.lastCode) {
        return "another return code or code";
    }
    const PaidItems paid(answer);
    const PaidItems paidTurned(other);
    for (unsigned index = 0; index < cassettes; ++index) {
        if (paid[index] != paidTurned[cassettes - 1 - index]) {
            return "other items when the cassettes stand the other way round";
        }
    }
    return "";
}

/// Each unit has one cassette, and no two units tie in an ordering.
bool HasNoTies(const RandomCase& random, const Answer&) {
    const AskedRequest asked(random);
    return asked.IsPlain() && asked.AllAreBills() && asked.AllAreOfItsCurrency() &&
           asked.AllDiffer([](const PhysicalCashUnit& cassette) { return +cassette.ulValues; }) &&
           asked.AllDiffer([](const PhysicalCashUnit& cassette) {
               return std::uint64_t{cassette.ulValues} * cassette.ulCount;
           });
}

std::string RefusesUnderAHigherLimit(const RandomCase& random, const Answer&, const Asker& ask) {
    RandomCase higher = random;
    higher.request.Limit(
        static_cast<std::uint16_t>(AskedRequest(random).Record().usMaxDispenseItems + 1));
    Answer other;
    return !ask(higher, other) || other.returned == 0 ? "" : "refused under a higher limit";
}

bool CanHaveAHigherLimit(const RandomCase& random, const Answer& answer) {
    const AskedRequest asked(random);
    return IsHeldToTheLimit(random, answer) && !asked.MayPayLess() &&
           asked.Record().usMaxDispenseItems < 65535;
}

constexpr std::uint32_t kTimes = 3;

std::string
DependsOnTheUnitOfMoney(const RandomCase& random, const Answer& answer, const Asker& ask) {
    const AskedRequest asked(random);
    RandomCase times = random;
    times.request.Amount(kTimes * asked.Record().ulAmount);
    for (unsigned index = 0; index < asked.Cassettes(); ++index) {
        times.request.PutU32(24 + sizeof(PhysicalCashUnit) * index + 148,
                             kTimes * asked.Cassette(index).ulValues);
    }
    Answer other;
    return ask(times, other) ? Compare(answer, other) : "";
}

bool CanBeCountedInThirds(const RandomCase& random, const Answer&) {
    const AskedRequest asked(random);
    return asked.IsPlain() && !asked.IsFirstFit() && kTimes * asked.Held() < AskedRequest::kExact &&
           kTimes * static_cast<double>(asked.Record().ulAmount) < AskedRequest::kExact;
}

bool IsRefused(const RandomCase&, const Answer& answer) {
    return answer.returned != 0;
}

}  // namespace

const std::vector<AnswerRule>& AnswerRules() {
    static const std::vector<AnswerRule> rules{
        {"a refusal pays nothing", IsRefused, PaysInARefusal},
        {"no cassette gives what it cannot", Always, TakesWhatIsNotThere},
        {"the limit holds", IsHeldToTheLimit, ExceedsTheLimit},
        {"paid and remainder are the amount", IsPaidInOrder, LosesMoney},
        {"never more than was asked for", IsHeldToTheLimit, PaysTooMuch},
        {"all or nothing unless a part is allowed", MustBePaidWhole, PaysTooLittle},
        {"more than is held is refused", AsksForMoreThanIsHeld, PaysMoreThanIsHeld},
        {"each return code has its codes", Always, NamesAnotherReason},
        {"only amount and remainder are written", Always, WritesElsewhere},
        {"the amount stays", HasItsAmount, ChangesTheAmount},
        {"the same request gets the same answer", Always, ChangesItsMind},
        {"mixes 5 to 9 are their base mixes where nothing is left out", LeavesNothingOut,
         DiffersFromItsBaseMix},
        {"the order of the cassettes does not matter without ties", HasNoTies, DependsOnTheOrder},
        {"a higher limit refuses nothing more", CanHaveAHigherLimit, RefusesUnderAHigherLimit},
        {"the unit of money does not matter", CanBeCountedInThirds, DependsOnTheUnitOfMoney},
    };
    return rules;
}

}  // namespace property
