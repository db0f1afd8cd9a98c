#include "Units.h"

#include "Numbers.h"
#include "PassedOver.h"
#include "mixes/OrderingOf.h"
#include "module/NoHost.h"

#include <algorithm>

namespace qxmix {

namespace {

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
    return unit;
}

/// What people are told of a unit that is passed over.
std::optional<Dropped> DroppedBy(PassedOver reason, const Unit& unit) {
    switch (reason) {
    case PassedOver::No:
        return std::nullopt;
    case PassedOver::Type:
        return Dropped::Type;
    case PassedOver::Status:
        return Dropped::Status;
    case PassedOver::Minimum:
        // Nothing is too little whatever the minimum.
        return unit.counted == 0 ? Dropped::Count : Dropped::Minimum;
    case PassedOver::Count:
        return Dropped::Count;
    case PassedOver::Value:
        return Dropped::Value;
    case PassedOver::Currency:
        break;
    }
    return Dropped::Currency;
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
    const MixPlan* const plan = FindMixPlan(request.usMixNumber);
    if (plan != nullptr) {
        (algorithm.*plan->order)(request_, kept_);
    }
    TellDrops();
    for (unsigned place = 0; place < kept_.usCount; ++place) {
        const LogicalCashUnit& serving = kept_.aLCUs[place];
        Unit& unit = units_[serving.usNumber];
        unit.order = place;
        unit.searched = serving.ulValues;
    }
}

void Units::TellDrops() {
    const MixPlan* const plan = FindMixPlan(request_.usMixNumber);
    CashUnitGroup groups[kMaxCashUnits];
    GroupCassettes(request_, groups);
    for (std::size_t index = 0; index < units_.size(); ++index) {
        Unit& unit = units_[index];
        unit.dropped =
            plan == nullptr
                ? Dropped::Currency
                : DroppedBy(WhyPassedOver(*OrderingOf(*plan), request_, groups[index], minimum_),
                            unit);
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
