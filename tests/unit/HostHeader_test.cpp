// Holds what a host includes to what the module is compiled from: the two declare the same objects,
// and share no line.

// Both give the interfaces and exports their names: here the host's have others.
#define IMixAlgorithm HeaderMixAlgorithm
#define MixAlgorithmHost HeaderMixAlgorithmHost
#define CreateMixAlgorithm HeaderCreateMixAlgorithm
#define DeleteMixAlgorithm HeaderDeleteMixAlgorithm
#include "qxmix.h"
#undef IMixAlgorithm
#undef MixAlgorithmHost
#undef CreateMixAlgorithm
#undef DeleteMixAlgorithm

#include "CashUnitCodes.h"
#include "ObjectLayout.h"
#include "Records.h"
#include "ResultCodes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

namespace {

#define EXPECT_SAME_SIZE(First, Second)                                                            \
    static_assert(sizeof(First) == sizeof(Second) && alignof(First) == 1)
#define EXPECT_SAME_FIELD(First, Second, field)                                                    \
    static_assert(offsetof(First, field) == offsetof(Second, field));                              \
    static_assert(sizeof(First::field) == sizeof(Second::field))
#define EXPECT_SAME_OBJECT_FIELD(First, Fields, field)                                             \
    static_assert(offsetof(First, field) == sizeof(void*) + offsetof(Fields, field));              \
    static_assert(sizeof(First::field) == sizeof(Fields::field))

EXPECT_SAME_SIZE(QxmixCassette, PhysicalCashUnit);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, usPosition);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, acHost2);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, usType);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, acHost132);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, cCurrencyID);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, acHost140);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, ulValues);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, ulCount);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, acHost156);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, usStatus);
EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, acHost166);

EXPECT_SAME_SIZE(QxmixRequest, MixRequest);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, usMixNumber);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, usMaxDispenseItems);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, bAllowPartial);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, cCurrencyID);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, acPad11);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, sExponent);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, acPad14);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, ulAmount);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, usNumPhysicalCUs);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, acPad22);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, aPhysicalCUs);
EXPECT_SAME_FIELD(QxmixRequest, MixRequest, ulRemainder);

EXPECT_SAME_SIZE(QxmixResult, MixResult);
EXPECT_SAME_FIELD(QxmixResult, MixResult, aulNotes);

EXPECT_SAME_SIZE(QxmixMixType, WFSCDMMIXTYPE);
EXPECT_SAME_FIELD(QxmixMixType, WFSCDMMIXTYPE, usMixNumber);
EXPECT_SAME_FIELD(QxmixMixType, WFSCDMMIXTYPE, usMixType);
EXPECT_SAME_FIELD(QxmixMixType, WFSCDMMIXTYPE, usSubType);
EXPECT_SAME_FIELD(QxmixMixType, WFSCDMMIXTYPE, lpszName);

// Where pointers have eight bytes, the module's objects are rounded up behind their last field.
static_assert(alignof(QxmixOuterObject) == 1 && alignof(QxmixInnerObject) == 1);
static_assert(sizeof(QxmixOuterObject) == sizeof(void*) + sizeof(MixAlgorithmProxyFields) ||
              sizeof(void*) == 8);
EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, self);
EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, inner);
EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, acHost12);
EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, hMixTypesEvent);
EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, acHost104);
EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, usMaxCashUnits);
EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, acHost114);

static_assert(sizeof(QxmixInnerObject) == sizeof(void*) + sizeof(MixAlgorithmFields) ||
              sizeof(void*) == 8);
EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, self);
EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, ulTraceLevel);
EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, usNumMixTypes);
EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, usFirstMixNumber);
EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, usLastMixNumber);
EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, ulCstMinimum4Mix6);
EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, acHost);

static_assert(int{kQxmixMaxCassettes} == int{kMaxCashUnits});
static_assert(int{kQxmixSuccess} == kSuccess);
static_assert(int{kQxmixInvalidMixNumber} == kInvalidMixNumber);
static_assert(int{kQxmixNotDispensable} == kNotDispensable);
static_assert(int{kQxmixTooManyItems} == kTooManyItems);
static_assert(int{kQxmixInvalidCashUnit} == kInvalidCashUnit);

#define EXPECT_SAME_CODE(HeaderCode, Code)                                                         \
    static_assert(static_cast<int>(HeaderCode) == static_cast<int>(Code))
EXPECT_SAME_CODE(kQxmixBillCassette, CashUnitType::BillCassette);
EXPECT_SAME_CODE(kQxmixCoinCylinder, CashUnitType::CoinCylinder);
EXPECT_SAME_CODE(kQxmixCoinDispenser, CashUnitType::CoinDispenser);
EXPECT_SAME_CODE(kQxmixCouponCassette, CashUnitType::CouponCassette);
EXPECT_SAME_CODE(kQxmixRecyclingCassette, CashUnitType::RecyclingCassette);
EXPECT_SAME_CODE(kQxmixOk, CashUnitStatus::Ok);
EXPECT_SAME_CODE(kQxmixFull, CashUnitStatus::Full);
EXPECT_SAME_CODE(kQxmixHigh, CashUnitStatus::High);
EXPECT_SAME_CODE(kQxmixLow, CashUnitStatus::Low);
EXPECT_SAME_CODE(kQxmixEmpty, CashUnitStatus::Empty);
EXPECT_SAME_CODE(kQxmixInoperative, CashUnitStatus::Inoperative);
EXPECT_SAME_CODE(kQxmixMissing, CashUnitStatus::Missing);
EXPECT_SAME_CODE(kQxmixNoValue, CashUnitStatus::NoValue);
EXPECT_SAME_CODE(kQxmixNoReference, CashUnitStatus::NoReference);
EXPECT_SAME_CODE(kQxmixManipulated, CashUnitStatus::Manipulated);

/// Types of the header and of the module that stand for each other.
template <typename Header, typename Module>
struct Stands : std::is_same<Header, Module> {};
template <typename Header, typename Module>
struct Stands<Header*, Module*> : Stands<Header, Module> {};
template <>
struct Stands<QxmixRequest, MixRequest> : std::true_type {};
template <>
struct Stands<QxmixResult, MixResult> : std::true_type {};
template <>
struct Stands<QxmixMixType, WFSCDMMIXTYPE> : std::true_type {};
template <>
struct Stands<HeaderMixAlgorithm, IMixAlgorithm> : std::true_type {};
template <>
struct Stands<HeaderMixAlgorithmHost, MixAlgorithmHost> : std::true_type {};

/// What a function or slot takes and returns, type by type.
template <typename R, typename... A, typename S, typename... B>
constexpr bool StandsFor(R (*)(A...), S (*)(B...)) {
    return Stands<R, S>::value && (Stands<A, B>::value && ...);
}
template <typename H, typename R, typename... A, typename M, typename S, typename... B>
constexpr bool StandsFor(R (H::*)(A...), S (M::*)(B...) noexcept) {
    return Stands<R, S>::value && (Stands<A, B>::value && ...);
}

static_assert(StandsFor(&HeaderMixAlgorithm::Destroy, &IMixAlgorithm::Destroy));
static_assert(StandsFor(&HeaderMixAlgorithm::GetMixTypes, &IMixAlgorithm::GetMixTypes));
static_assert(StandsFor(&HeaderMixAlgorithm::MixCalculate, &IMixAlgorithm::MixCalculate));
static_assert(StandsFor(&HeaderMixAlgorithmHost::Reserved, &MixAlgorithmHost::Reserved));
static_assert(StandsFor(&HeaderMixAlgorithmHost::OnObjectCreated,
                        &MixAlgorithmHost::OnObjectCreated));
static_assert(StandsFor(&HeaderCreateMixAlgorithm, &CreateMixAlgorithm));
static_assert(StandsFor(&HeaderDeleteMixAlgorithm, &DeleteMixAlgorithm));
static_assert(StandsFor(QxmixCreateFunction{}, &CreateMixAlgorithm));
static_assert(StandsFor(QxmixDeleteFunction{}, &DeleteMixAlgorithm));

/// A pointer to a slot holds its place in the table, whatever the class is called.
template <typename Header, typename Module>
bool IsSameSlot(Header headerSlot, Module moduleSlot) {
    static_assert(sizeof(headerSlot) == sizeof(moduleSlot));
    return std::memcmp(&headerSlot, &moduleSlot, sizeof(headerSlot)) == 0;
}

TEST(HostHeader, HasTheSlotsInTheModulesOrder) {
    EXPECT_TRUE(IsSameSlot(&HeaderMixAlgorithm::Destroy, &IMixAlgorithm::Destroy));
    EXPECT_TRUE(IsSameSlot(&HeaderMixAlgorithm::GetMixTypes, &IMixAlgorithm::GetMixTypes));
    EXPECT_TRUE(IsSameSlot(&HeaderMixAlgorithm::MixCalculate, &IMixAlgorithm::MixCalculate));
    EXPECT_TRUE(IsSameSlot(&HeaderMixAlgorithmHost::Reserved, &MixAlgorithmHost::Reserved));
    EXPECT_TRUE(
        IsSameSlot(&HeaderMixAlgorithmHost::OnObjectCreated, &MixAlgorithmHost::OnObjectCreated));
    EXPECT_FALSE(IsSameSlot(&HeaderMixAlgorithm::Destroy, &IMixAlgorithm::GetMixTypes));
}

}  // namespace
