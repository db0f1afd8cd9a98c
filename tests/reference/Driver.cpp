#include <algorithm>
#include <cfloat>

#include "Arithmetic.h"
#include "RawBytes.h"
#include "Searches.h"
#include "Spreading.h"
#include "UnitOrdering.h"

static_assert(FLT_EVAL_METHOD == 0, "the total must be rounded to single precision at every step");

namespace reference {
namespace {

constexpr unsigned kAmountAt = 16;
constexpr unsigned kRemainderAt = 1056;

Ordering OrderingOf(std::uint16_t mix) {
    switch (mix) {
    case 4:
        return Ordering::ByTotalAmount;
    case 5:
        return Ordering::ByDenominationWithoutLow;
    case 6:
    case 7:
    case 8:
        return Ordering::ByDenominationWithoutBelowMinimum;
    case 9:
        return Ordering::ByTotalAmountWithoutBelowMinimum;
    default:
        return Ordering::ByDenomination;
    }
}

Search SearchOf(std::uint16_t mix) {
    switch (mix) {
    case 2:
    case 7:
        return Search::EqualNotes;
    case 3:
    case 8:
        return Search::EqualEmptying;
    case 4:
    case 9:
        return Search::FirstFitEmptying;
    case 10:
        return Search::MaximumNotes;
    default:
        return Search::MinimumNotes;
    }
}

bool ValidMix(const Object& object, std::uint16_t mix) {
    return mix >= object.first && mix <= object.last && mix >= 1 && mix <= kLastMix;
}

void ScaleAmount(std::uint8_t* request) {
    const int exponent = ReadS16(request + 12);
    if (exponent > 0) {
        const double amount = ReadU32(request + kAmountAt);
        WriteU32(request + kAmountAt, ToU32(amount * PowerOfTen(exponent)));
    }
}

/// Whether the amount is below the smallest note, for the mixes that look at it.
bool BelowSmallestNote(std::uint16_t mix, const UnitTable& table, std::uint32_t amount) {
    if (table.empty() || mix == 4 || mix == 9) {
        return false;
    }
    return amount < (mix == 10 ? table.front().value : table.back().value);
}

/// What the units hold in all, in single precision with every step rounded.
float TotalHeld(const UnitTable& table) {
    float total = 0.0F;
    for (const LogicalUnit& unit : table) {
        const float count = static_cast<float>(unit.count);
        const float value = static_cast<float>(unit.value);
        const float product = count * value;
        total = total + product;
    }
    return total;
}

Question MakeQuestion(const std::uint8_t* request, const UnitTable& table) {
    Question question;
    for (const LogicalUnit& unit : table) {
        question.units.push_back({unit.value, unit.count, unit.type});
    }
    question.amount = ReadU32(request + kAmountAt);
    question.partial = ReadU32(request + 4);
    question.limit = ReadU16(request + 2);
    return question;
}

/// Writes what the result does not pay, weighting slot k with the note of array entry k.
void WriteRemainder(std::uint8_t* request, const Notes& result) {
    std::uint32_t paid = 0;
    for (unsigned k = 0; k < CassetteCount(request); ++k) {
        paid += result[k] * ReadCassette(request, k).value;
    }
    WriteU32(request + kRemainderAt, ReadU32(request + kAmountAt) - paid);
}

void WriteResult(std::uint8_t* result, const Notes& notes) {
    for (std::size_t k = 0; k < kMaxUnits; ++k) {
        WriteU32(result + 4 * k, notes[k]);
    }
}

/// Lowers the amount to what the units hold where that is allowed; false when they hold too little.
bool FitAmountToTotal(std::uint8_t* request, const UnitTable& table) {
    const float total = TotalHeld(table);
    const float amount = static_cast<float>(ReadU32(request + kAmountAt));
    if (!(total < amount)) {
        return true;
    }
    if (ReadU32(request + 4) != 1) {
        return false;
    }
    WriteU32(request + kAmountAt, ToU32(total));
    WriteU32(request + kRemainderAt, 0);
    return true;
}

std::int32_t
Calculate(const Object& object, std::uint8_t* request, std::uint8_t* result, Journal& journal) {
    std::fill_n(result, kResultBytes, std::uint8_t{0});
    const std::uint16_t mix = ReadU16(request);
    if (!ValidMix(object, mix)) {
        journal.Record("971A5");
        return kInvalidMixNumber;
    }
    ScaleAmount(request);
    const UnitTable table = OrderedUnits(OrderingOf(mix), object, request);
    if (BelowSmallestNote(mix, table, ReadU32(request + kAmountAt))) {
        WriteU32(request + kRemainderAt, ReadU32(request + kAmountAt));
        return kPaid;
    }
    if (table.empty() || !FitAmountToTotal(request, table)) {
        return FailNotDispensable(journal);
    }
    Notes notes{};
    const std::int32_t searched =
        RunNamedSearch(SearchOf(mix), MakeQuestion(request, table), notes, journal);
    if (searched != kPaid) {
        return searched;
    }
    Notes placed{};
    if (mix == 3 || mix == 8) {
        SpreadRoundRobin(table, notes, placed, journal);
    } else {
        SpreadInOrder(table, notes, placed, journal);
    }
    WriteResult(result, placed);
    WriteRemainder(request, placed);
    return kPaid;
}

}  // namespace

Outcome MixCalculate(const Object& object,
                     std::uint8_t* request,
                     std::uint8_t* result,
                     std::uint64_t stepBudget) {
    Journal journal(stepBudget);
    Outcome outcome;
    try {
        outcome.returned = Calculate(object, request, result, journal);
        outcome.finished = true;
    } catch (const BudgetExceeded&) {
        outcome.finished = false;
    } catch (const NeverEnds&) {
        outcome.neverEnds = true;
    }
    outcome.lastCode = journal.LastCode();
    outcome.steps = journal.Steps();
    return outcome;
}

}  // namespace reference
