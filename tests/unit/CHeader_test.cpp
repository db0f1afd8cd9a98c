#include "qxmix.h"

#include "CashUnitCodes.h"
#include "ObjectLayout.h"
#include "Records.h"
#include "ResultCodes.h"

#include <gtest/gtest.h>

namespace {

#define EXPECT_SAME_SIZE(First, Second) EXPECT_EQ(sizeof(First), sizeof(Second))
#define EXPECT_SAME_FIELD(First, Second, field)                                                    \
    EXPECT_EQ(offsetof(First, field), offsetof(Second, field));                                    \
    EXPECT_EQ(sizeof(First::field), sizeof(Second::field))
#define EXPECT_SAME_OBJECT_FIELD(First, Fields, field)                                             \
    EXPECT_EQ(offsetof(First, field), sizeof(void*) + offsetof(Fields, field));                    \
    EXPECT_EQ(sizeof(First::field), sizeof(Fields::field))

TEST(CHeader, DescribesTheCassette) {
    EXPECT_SAME_SIZE(QxmixCassette, PhysicalCashUnit);
    EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, usPosition);
    EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, usType);
    EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, cCurrencyID);
    EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, ulValues);
    EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, ulCount);
    EXPECT_SAME_FIELD(QxmixCassette, PhysicalCashUnit, usStatus);
}

TEST(CHeader, DescribesRequestAndResult) {
    EXPECT_SAME_SIZE(QxmixRequest, MixRequest);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, usMixNumber);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, usMaxDispenseItems);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, bAllowPartial);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, cCurrencyID);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, sExponent);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, ulAmount);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, usNumPhysicalCUs);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, aPhysicalCUs);
    EXPECT_SAME_FIELD(QxmixRequest, MixRequest, ulRemainder);
    EXPECT_SAME_SIZE(QxmixResult, MixResult);
}

TEST(CHeader, DescribesTheObjects) {
    // Where pointers have eight bytes, the objects are rounded up behind their last field.
    EXPECT_EQ(sizeof(QxmixOuterObject), 4 * sizeof(void*) + 100);
    EXPECT_EQ(sizeof(QxmixInnerObject), 2 * sizeof(void*) + 116);
    EXPECT_EQ(offsetof(QxmixObject, self), sizeof(void*));
    EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, inner);
    EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, hMixTypesEvent);
    EXPECT_SAME_OBJECT_FIELD(QxmixOuterObject, MixAlgorithmProxyFields, usMaxCashUnits);
    EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, ulTraceLevel);
    EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, usNumMixTypes);
    EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, usFirstMixNumber);
    EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, usLastMixNumber);
    EXPECT_SAME_OBJECT_FIELD(QxmixInnerObject, MixAlgorithmFields, ulCstMinimum4Mix6);
}

TEST(CHeader, DescribesTheMixType) {
    EXPECT_SAME_SIZE(QxmixMixType, WFSCDMMIXTYPE);
    EXPECT_SAME_FIELD(QxmixMixType, WFSCDMMIXTYPE, usSubType);
    EXPECT_SAME_FIELD(QxmixMixType, WFSCDMMIXTYPE, lpszName);
}

TEST(CHeader, NumbersAsTheModuleDoes) {
    EXPECT_EQ(int{kQxmixMaxCassettes}, int{kMaxCashUnits});
    EXPECT_EQ(int{kQxmixInvalidMixNumber}, kInvalidMixNumber);
    EXPECT_EQ(int{kQxmixNotDispensable}, kNotDispensable);
    EXPECT_EQ(int{kQxmixTooManyItems}, kTooManyItems);
    EXPECT_EQ(int{kQxmixInvalidCashUnit}, kInvalidCashUnit);
    EXPECT_EQ(int{kQxmixCoinDispenser}, static_cast<int>(CashUnitType::CoinDispenser));
    EXPECT_EQ(int{kQxmixRecyclingCassette}, static_cast<int>(CashUnitType::RecyclingCassette));
    EXPECT_EQ(int{kQxmixLow}, static_cast<int>(CashUnitStatus::Low));
    EXPECT_EQ(int{kQxmixManipulated}, static_cast<int>(CashUnitStatus::Manipulated));
}

}  // namespace
