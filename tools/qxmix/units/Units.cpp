#include "Units.h"

#include "HostControl.h"
#include "MixPlans.h"
#include "Numbers.h"
#include "OrderingRules.h"
#include "module/NoHost.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace qxmix {

namespace {

/// Collects the lines of this process's module while it lives.
class LineCollector {
public:
    LineCollector() { QxmixSetTraceListener(&Collect, &lines_); }
    LineCollector(const LineCollector&) = delete;
    LineCollector& operator=(const LineCollector&) = delete;
    ~LineCollector() { QxmixSetTraceListener(nullptr, nullptr); }

    const std::vector<std::string>& Lines() const { return lines_; }

private:
    static void Collect(void* lines, const char* line) {
        static_cast<std::vector<std::string>*>(lines)->emplace_back(line);
    }

    std::vector<std::string> lines_;
};

/// The module copies the service provider's bytes: there each cassette carries its place.
MixRequest WithPlaces(const MixRequest& request) {
    MixRequest marked = request;
    for (unsigned place = 0; place < kMaxCashUnits; ++place) {
        marked.aPhysicalCUs[place].acHost2[0] = static_cast<unsigned char>(place);
    }
    return marked;
}

Unit UnitOf(const LogicalCashUnit& built) {
    Unit unit;
    for (unsigned index = 0; index < built.usNumPhysicalCUs; ++index) {
        unit.cassettes.push_back(built.aPhysicalCUs[index].acHost2[0]);
    }
    unit.type = built.usType;
    unit.status = built.usStatus;
    unit.value = built.ulValues;
    unit.counted = built.ulCount;
    unit.dropped = Dropped::Currency;  // the one test that leaves no line
    return unit;
}

/// Which test a unit failed, where its line tells "not available": of its count or of its value.
Dropped NotAvailable(const MixPlan& plan, const Unit& unit, std::uint32_t minimum) {
    if (unit.counted == 0) {
        return Dropped::Count;
    }
    if (plan.order == &Mix::SortLCUByTotalAmountWithoutCSTBelowCSTMin) {
        return unit.counted <= minimum ? Dropped::Minimum : Dropped::Value;
    }
    return AsSigned(unit.counted) < 0 ? Dropped::Count : Dropped::Value;
}

/// Which test a unit failed, where its line tells its status: one ordering writes that line, too,
/// for a unit that holds no more than the minimum.
Dropped StatusOrMinimum(const MixPlan& plan, const Unit& unit) {
    const bool isOneOfTwo = plan.order == &Mix::SortLCUByDenomWithoutCSTBelowCSTMin;
    if (!isOneOfTwo || Contains(kByDenomWithoutCSTBelowCSTMin.droppedStatuses, unit.status)) {
        return Dropped::Status;
    }
    return unit.counted == 0 ? Dropped::Count : Dropped::Minimum;
}

/// The number behind a text in a line, if the text is there.
std::optional<std::size_t> NumberBehind(const std::string& line, const std::string& text) {
    const std::size_t at = line.find(text);
    std::size_t number = 0;
    const bool isThere = at != std::string::npos &&
                         std::sscanf(line.c_str() + at + text.size(), "%zu", &number) == 1;
    return isThere ? std::make_optional(number) : std::nullopt;
}

}  // namespace

Units::Units(const MixRequest& request, std::uint32_t minimum)
    : request_(WithPlaces(request)), minimum_(minimum),
      amount_(SearchedAmount(request.ulAmount)), kept_{} {
    LcuTable all;
    CMixAlgorithm::BuildLCUTable(request_, all);
    for (unsigned index = 0; index < all.usCount; ++index) {
        units_.push_back(UnitOf(all.aLCUs[index]));
    }
    NoHost host;
    CMixAlgorithm algorithm(&host);
    algorithm.ulCstMinimum4Mix6 = minimum;
    const LineCollector collector;
    const MixPlan* const plan = FindMixPlan(request.usMixNumber);
    if (plan != nullptr) {
        (algorithm.*plan->order)(request_, kept_);
    }
    ReadDrops(collector.Lines());
    for (unsigned place = 0; place < kept_.usCount; ++place) {
        const LogicalCashUnit& serving = kept_.aLCUs[place];
        Unit& unit = units_[serving.usNumber];
        unit.dropped.reset();
        unit.order = place;
        unit.searched = serving.ulValues;
    }
}

void Units::ReadDrops(const std::vector<std::string>& lines) {
    const MixPlan* const plan = FindMixPlan(request_.usMixNumber);
    for (const std::string& line : lines) {
        const auto ofType = NumberBehind(line, "The type of Cassette ");
        const auto ofStatus = NumberBehind(line, "The status of Cassette ");
        const auto notAvailable = NumberBehind(line, "The Cassette ");
        if (ofType) {
            units_[*ofType].dropped = Dropped::Type;
        } else if (ofStatus) {
            units_[*ofStatus].dropped = StatusOrMinimum(*plan, units_[*ofStatus]);
        } else if (notAvailable) {
            units_[*notAvailable].dropped = NotAvailable(*plan, units_[*notAvailable], minimum_);
        }
    }
}

std::uint32_t Units::SearchedAmount(std::uint32_t asked) const {
    return request_.sExponent > 0 ? ScaleByPowerOfTen(asked, request_.sExponent) : asked;
}

std::vector<Unit> Units::Kept() const {
    std::vector<Unit> kept(kept_.usCount);
    for (const Unit& unit : units_) {
        if (!unit.dropped) {
            kept[unit.order] = unit;
        }
    }
    return kept;
}

std::optional<std::uint32_t> Units::ValueToReach() const {
    const MixPlan* const plan = FindMixPlan(request_.usMixNumber);
    if (plan == nullptr || kept_.usCount == 0 || plan->smallestNote == SmallestNote::NotAsked) {
        return std::nullopt;
    }
    const bool isLast = plan->smallestNote == SmallestNote::LastUnit;
    return std::uint32_t{kept_.aLCUs[isLast ? kept_.usCount - 1 : 0].ulValues};
}

bool Units::PassesLimit(const std::vector<std::uint32_t>& items) const {
    LcuNotes notes{};
    std::copy(items.begin(), items.end(), notes.aulNotes);
    return CMixAlgorithm::CheckMaximumDispense(request_, kept_, notes) == 0;
}

MixRequest Units::OneCassettePerUnit() const {
    MixRequest request = request_;
    std::uint16_t count = 0;
    for (const Unit& unit : units_) {
        if (!unit.dropped) {
            PhysicalCashUnit& cassette = request.aPhysicalCUs[count];
            cassette = request_.aPhysicalCUs[unit.cassettes.front()];
            cassette.usPosition = count;
            cassette.usStatus = 0;
            cassette.ulCount = unit.counted;
            ++count;
        }
    }
    request.usNumPhysicalCUs = count;
    return request;
}

Money SearchedMoney(const Dispenser& dispenser, std::uint32_t value) {
    return Money::Of(value, std::min<int>(dispenser.exponent, 0));
}

}  // namespace qxmix
