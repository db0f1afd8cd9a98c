#include "PlatformTest.h"

#include <cstdio>

namespace {

class RegSetValue : public PlatformTest {};
class RegQueryValue : public PlatformTest {};

LONG Query(HKEY key, DWORD* type, std::uint8_t* bytes, DWORD* size) {
    return type == nullptr ? QueryNamed(key, u"CDM", bytes, size)
                           : RegQueryValueExW(key, u"CDM", nullptr, type, bytes, size);
}

TEST_F(RegSetValue, KeepsTypeAndBytesAsTheyAre) {
    const HKEY key = OpenErrorCode();
    EXPECT_EQ(Set(key, u"CDM", REG_SZ, BytesOf("971A5")), ERROR_SUCCESS);
    EXPECT_EQ(StoredType(kErrorCodeKey, "CDM"), 1U);
    EXPECT_EQ(StoredBytes(kErrorCodeKey, "CDM"), BytesOf("971A5"));
}

TEST_F(RegSetValue, ReplacesTypeAndBytes) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", REG_SZ, BytesOf("971A5")), ERROR_SUCCESS);
    ASSERT_EQ(Set(key, u"CDM", 0xFFFFFFFF, {9}), ERROR_SUCCESS);
    EXPECT_EQ(StoredType(kErrorCodeKey, "CDM"), 0xFFFFFFFFU);
    EXPECT_EQ(StoredBytes(kErrorCodeKey, "CDM"), Bytes{9});
}

TEST_F(RegSetValue, StoresNoBytes) {
    EXPECT_EQ(RegSetValueExW(OpenErrorCode(), u"CDM", 0, REG_SZ, nullptr, 0), ERROR_SUCCESS);
    EXPECT_EQ(StoredBytes(kErrorCodeKey, "CDM"), Bytes());
}

TEST_F(RegSetValue, RefusesWrongArguments) {
    const HKEY key = OpenErrorCode();
    const std::uint8_t byte = 1;
    EXPECT_EQ(RegSetValueExW(key, u"CDM", 1, REG_SZ, &byte, 1), kQxmixErrorInvalidParameter);
    EXPECT_EQ(RegSetValueExW(key, u"CDM", 0, REG_SZ, nullptr, 1), kQxmixErrorInvalidParameter);
    EXPECT_EQ(RegSetValueExW(nullptr, u"CDM", 0, REG_SZ, &byte, 1), kQxmixErrorInvalidHandle);
    EXPECT_EQ(QxmixRegistryGetValue(kErrorCodeKey, "CDM", nullptr, nullptr, nullptr),
              kQxmixErrorFileNotFound);
}

struct AccessCase {
    REGSAM access;
    bool reads;
    bool writes;
};

class RegAccess : public PlatformTest, public testing::WithParamInterface<AccessCase> {};

TEST_P(RegAccess, DecidesWhatAHandleMayDo) {
    ASSERT_EQ(QxmixRegistrySetNumber(kErrorCodeKey, "CDM", 1), 0);
    const HKEY key = OpenErrorCode(GetParam().access);
    EXPECT_EQ(Query(key, nullptr, nullptr, nullptr),
              GetParam().reads ? ERROR_SUCCESS : kQxmixErrorAccessDenied);
    EXPECT_EQ(Set(key, u"CDM", REG_SZ, {7}),
              GetParam().writes ? ERROR_SUCCESS : kQxmixErrorAccessDenied);
    EXPECT_EQ(StoredBytes(kErrorCodeKey, "CDM").size(), GetParam().writes ? 1U : 4U);
}

INSTANTIATE_TEST_SUITE_P(Masks,
                         RegAccess,
                         testing::Values(AccessCase{KEY_ALL_ACCESS, true, true},
                                         AccessCase{KEY_READ, true, false},
                                         AccessCase{0x0001, true, false},
                                         AccessCase{0x0002, false, true},
                                         AccessCase{0x0004, false, false},
                                         AccessCase{0, false, false},
                                         AccessCase{0x02000000, true, true},
                                         AccessCase{0x10000000, true, true},
                                         AccessCase{0x40000000, false, true},
                                         AccessCase{0x80000000, true, false}),
                         [](const testing::TestParamInfo<AccessCase>& one) {
                             char name[9];
                             std::snprintf(name, sizeof(name), "%08X", one.param.access);
                             return std::string(name);
                         });

TEST_F(RegQueryValue, GivesTypeSizeAndBytes) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", REG_SZ, BytesOf("971A5")), ERROR_SUCCESS);
    std::uint8_t bytes[8] = {0, 0, 0, 0, 0, 0xEE, 0xEE, 0xEE};
    DWORD type = 0;
    DWORD size = sizeof(bytes);
    EXPECT_EQ(Query(key, &type, bytes, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 5U);
    EXPECT_EQ(Bytes(bytes, bytes + 8), (Bytes{'9', '7', '1', 'A', '5', 0xEE, 0xEE, 0xEE}));
}

TEST_F(RegQueryValue, FillsABufferOfExactlyItsSize) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", REG_SZ, {1, 2, 3, 4}), ERROR_SUCCESS);
    Bytes bytes(4);
    DWORD size = 4;
    EXPECT_EQ(Query(key, nullptr, bytes.data(), &size), ERROR_SUCCESS);
    EXPECT_EQ(bytes, (Bytes{1, 2, 3, 4}));
}

TEST_F(RegQueryValue, TellsTheSizeWhenTheBufferIsTooSmall) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", 3, {1, 2, 3, 4}), ERROR_SUCCESS);
    Bytes bytes(3, 0xEE);
    DWORD type = 0;
    DWORD size = 3;
    EXPECT_EQ(Query(key, &type, bytes.data(), &size), kQxmixErrorMoreData);
    EXPECT_EQ(type, 3U);
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(bytes, Bytes(3, 0xEE));
}

TEST_F(RegQueryValue, TellsTheSizeWithoutABuffer) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", REG_SZ, {1, 2, 3, 4}), ERROR_SUCCESS);
    DWORD size = 0;
    EXPECT_EQ(Query(key, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 4U);
}

TEST_F(RegQueryValue, TellsTheTypeAlone) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", 4, {1, 2, 3, 4}), ERROR_SUCCESS);
    DWORD type = 0;
    EXPECT_EQ(Query(key, &type, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(type, 4U);
}

TEST_F(RegQueryValue, GivesAnEmptyValue) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", REG_SZ, {}), ERROR_SUCCESS);
    std::uint8_t byte = 0xEE;
    DWORD size = 0;
    EXPECT_EQ(Query(key, nullptr, &byte, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 0U);
    EXPECT_EQ(byte, 0xEE);
}

TEST_F(RegQueryValue, ReportsAMissingValueAndTouchesNothing) {
    std::uint8_t byte = 0xEE;
    DWORD type = 77;
    DWORD size = 1;
    EXPECT_EQ(Query(OpenErrorCode(), &type, &byte, &size), kQxmixErrorFileNotFound);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(byte, 0xEE);
}

TEST_F(RegQueryValue, RefusesWrongArguments) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", REG_SZ, {1}), ERROR_SUCCESS);
    std::uint8_t byte = 0xEE;
    DWORD reserved = 0;
    EXPECT_EQ(Query(key, nullptr, &byte, nullptr), kQxmixErrorInvalidParameter);
    DWORD type = 77;
    EXPECT_EQ(RegQueryValueExW(key, u"CDM", &reserved, &type, nullptr, nullptr),
              kQxmixErrorInvalidParameter);
    DWORD size = 1;
    EXPECT_EQ(RegQueryValueExW(key, u"CDM", nullptr, nullptr, &byte, &size),
              kQxmixErrorInvalidParameter);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(Query(nullptr, nullptr, nullptr, nullptr), kQxmixErrorInvalidHandle);
    EXPECT_EQ(byte, 0xEE);
}

TEST_F(RegQueryValue, ReadsValuesOfTheRoots) {
    ASSERT_EQ(Set(HKEY_CLASSES_ROOT, u"CDM", REG_SZ, {1}), ERROR_SUCCESS);
    EXPECT_EQ(Query(HKEY_CLASSES_ROOT, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(Query(HKEY_LOCAL_MACHINE, nullptr, nullptr, nullptr), kQxmixErrorFileNotFound);
}

}  // namespace
