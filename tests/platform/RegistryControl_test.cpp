#include "NumberedName.h"
#include "PlatformTest.h"

namespace {

class RegistryControl : public PlatformTest {};

constexpr const char* kNew = "HKEY_LOCAL_MACHINE\\SOFTWARE\\New\\Key";

TEST_F(RegistryControl, StartsWithNothingButTheErrorCodeKey) {
    EXPECT_EQ(SavedAscii(), "Windows Registry Editor Version 5.00\r\n\r\n"
                            "[HKEY_LOCAL_MACHINE\\SOFTWARE]\r\n\r\n"
                            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM]\r\n\r\n"
                            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode]\r\n\r\n");
}

TEST_F(RegistryControl, ResetsToTheStartContent) {
    const std::string start = SavedText();
    ASSERT_EQ(QxmixRegistrySetNumber(kErrorCodeKey, "CDM", 1), 0);
    ASSERT_EQ(QxmixRegistryCreateKey(kNew), 0);
    QxmixRegistryReset();
    EXPECT_EQ(SavedText(), start);
}

TEST_F(RegistryControl, ClearsEverything) {
    ASSERT_EQ(QxmixRegistrySetNumber("HKEY_CLASSES_ROOT", "N", 1), 0);
    QxmixRegistryClear();
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 0);
    EXPECT_EQ(SavedAscii(), "Windows Registry Editor Version 5.00\r\n\r\n");
}

TEST_F(RegistryControl, SetsAValueAndCreatesItsKey) {
    EXPECT_EQ(QxmixRegistrySetValue(kNew, "Raw", 3, "\x01\x02", 2), 0);
    EXPECT_EQ(StoredType(kNew, "Raw"), 3U);
    EXPECT_EQ(StoredBytes(kNew, "raw"), (Bytes{1, 2}));
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\SOFTWARE\\New"), 1);
}

TEST_F(RegistryControl, SetsTextAsTerminatedUtf16) {
    EXPECT_EQ(QxmixRegistrySetText(kNew, "Text", "a\xC3\xA4\xF0\x9F\x98\x80"), 0);
    EXPECT_EQ(StoredType(kNew, "Text"), 1U);
    EXPECT_EQ(StoredBytes(kNew, "Text"), (Bytes{'a', 0, 0xE4, 0, 0x3D, 0xD8, 0x00, 0xDE, 0, 0}));
}

TEST_F(RegistryControl, TakesTheFirstAndLastCharacterOfEveryLength) {
    EXPECT_EQ(QxmixRegistrySetText(kNew, "T",
                                   "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80"
                                   "\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
              0);
    EXPECT_EQ(StoredBytes(kNew, "T"),
              (Bytes{0x7F, 0,    0x80, 0,    0xFF, 7,    0,    8,    0xFF, 0xD7, 0, 0xE0,
                     0xFF, 0xFF, 0,    0xD8, 0,    0xDC, 0xFF, 0xDB, 0xFF, 0xDF, 0, 0}));
}

TEST_F(RegistryControl, SetsANumberLowByteFirst) {
    EXPECT_EQ(QxmixRegistrySetNumber(kNew, "Number", 0x01020384), 0);
    EXPECT_EQ(StoredType(kNew, "Number"), 4U);
    EXPECT_EQ(StoredBytes(kNew, "Number"), (Bytes{0x84, 3, 2, 1}));
}

TEST_F(RegistryControl, SharesItsContentWithTheModule) {
    ASSERT_EQ(QxmixRegistrySetNumber("hkey_local_machine\\software\\atm\\errorcode\\", "N", 5), 0);
    std::uint8_t bytes[4] = {};
    DWORD size = 4;
    EXPECT_EQ(QueryNamed(OpenErrorCode(), u"n", bytes, &size), ERROR_SUCCESS);
    EXPECT_EQ(bytes[0], 5);
}

TEST_F(RegistryControl, TellsWhenTheRoomIsTooSmall) {
    ASSERT_EQ(QxmixRegistrySetValue(kNew, "Raw", 3, "abc", 3), 0);
    std::uint8_t bytes[2] = {0xEE, 0xEE};
    std::uint32_t size = 2;
    EXPECT_EQ(QxmixRegistryGetValue(kNew, "Raw", nullptr, bytes, &size), kQxmixErrorMoreData);
    EXPECT_EQ(size, 3U);
    EXPECT_EQ(bytes[0], 0xEE);
}

TEST_F(RegistryControl, ReportsMissingValuesAndKeys) {
    EXPECT_EQ(QxmixRegistryGetValue(kErrorCodeKey, "CDM", nullptr, nullptr, nullptr),
              kQxmixErrorFileNotFound);
    EXPECT_EQ(QxmixRegistryGetValue(kNew, "CDM", nullptr, nullptr, nullptr),
              kQxmixErrorFileNotFound);
}

TEST_F(RegistryControl, RefusesRoomWithoutSize) {
    std::uint8_t byte = 0;
    EXPECT_EQ(QxmixRegistryGetValue(kErrorCodeKey, "CDM", nullptr, &byte, nullptr),
              kQxmixErrorInvalidParameter);
}

TEST_F(RegistryControl, DeletesAValue) {
    ASSERT_EQ(QxmixRegistrySetNumber(kErrorCodeKey, "CDM", 1), 0);
    EXPECT_EQ(QxmixRegistryDeleteValue(kErrorCodeKey, "cdm"), 0);
    EXPECT_EQ(QxmixRegistryGetValue(kErrorCodeKey, "CDM", nullptr, nullptr, nullptr),
              kQxmixErrorFileNotFound);
    EXPECT_EQ(QxmixRegistryDeleteValue(kErrorCodeKey, "CDM"), kQxmixErrorFileNotFound);
    EXPECT_EQ(QxmixRegistryDeleteValue(kNew, "CDM"), kQxmixErrorFileNotFound);
}

TEST_F(RegistryControl, CreatesAKeyOnceAndKeepsIt) {
    EXPECT_EQ(QxmixRegistryKeyExists(kNew), 0);
    EXPECT_EQ(QxmixRegistryCreateKey(kNew), 0);
    EXPECT_EQ(QxmixRegistryKeyExists(kNew), 1);
    ASSERT_EQ(QxmixRegistrySetNumber(kNew, "N", 1), 0);
    EXPECT_EQ(QxmixRegistryCreateKey(kNew), 0);
    EXPECT_EQ(StoredType(kNew, "N"), 4U);
}

TEST_F(RegistryControl, DeletesAKeyWithEverythingBelowItAndNothingBeside) {
    for (const char* key : {"HKEY_LOCAL_MACHINE\\A\\B\\C", "HKEY_LOCAL_MACHINE\\A B",
                            "HKEY_LOCAL_MACHINE\\AB", "HKEY_CLASSES_ROOT\\A"}) {
        ASSERT_EQ(QxmixRegistryCreateKey(key), 0);
    }
    EXPECT_EQ(QxmixRegistryDeleteKey("HKEY_LOCAL_MACHINE\\a"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\A"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\A\\B"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\A\\B\\C"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\A B"), 1);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\AB"), 1);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_CLASSES_ROOT\\A"), 1);
    EXPECT_EQ(QxmixRegistryDeleteKey("HKEY_LOCAL_MACHINE\\A"), kQxmixErrorFileNotFound);
}

TEST_F(RegistryControl, DeletesAKeyAndNotTheShorterOneBehindIt) {
    ASSERT_EQ(QxmixRegistryCreateKey("HKEY_LOCAL_MACHINE\\LONG NAME\\A"), 0);
    ASSERT_EQ(QxmixRegistryCreateKey("HKEY_LOCAL_MACHINE\\M"), 0);
    EXPECT_EQ(QxmixRegistryDeleteKey("HKEY_LOCAL_MACHINE\\LONG NAME"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\LONG NAME"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\M"), 1);
}

TEST_F(RegistryControl, EmptiesARootButKeepsIt) {
    ASSERT_EQ(QxmixRegistrySetNumber("HKEY_LOCAL_MACHINE", "N", 1), 0);
    ASSERT_EQ(QxmixRegistryCreateKey("HKEY_CLASSES_ROOT\\A"), 0);
    EXPECT_EQ(QxmixRegistryDeleteKey("HKEY_LOCAL_MACHINE"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE"), 1);
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_CLASSES_ROOT\\A"), 1);
    EXPECT_EQ(QxmixRegistryGetValue("HKEY_LOCAL_MACHINE", "N", nullptr, nullptr, nullptr),
              kQxmixErrorFileNotFound);
}

std::string NameOf(const testing::TestParamInfo<const char*>& one) {
    return NumberedName(one.index, one.param != nullptr ? one.param : "null");
}

class RegistryControlPath : public PlatformTest, public testing::WithParamInterface<const char*> {};

TEST_P(RegistryControlPath, IsRefusedByEveryFunction) {
    const char* key = GetParam();
    EXPECT_EQ(QxmixRegistrySetValue(key, "N", 1, "", 0), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistrySetText(key, "N", ""), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistrySetNumber(key, "N", 0), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryGetValue(key, "N", nullptr, nullptr, nullptr),
              kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryDeleteValue(key, "N"), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryCreateKey(key), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryDeleteKey(key), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryKeyExists(key), 0);
}

INSTANTIATE_TEST_SUITE_P(Wrong,
                         RegistryControlPath,
                         testing::Values(static_cast<const char*>(nullptr),
                                         "",
                                         "SOFTWARE\\ATM",
                                         "HKEY_CURRENT_USER\\SOFTWARE",
                                         "HKEY_LOCAL_MACHINE_\\SOFTWARE",
                                         "HKEY_LOCAL_MACHINE\\\\SOFTWARE",
                                         "HKEY_LOCAL_MACHINE\\\xFF",
                                         "HKEY_LOCAL_MACHINE\\\xC3"),
                         NameOf);

class RegistryControlName : public PlatformTest, public testing::WithParamInterface<const char*> {};

TEST_P(RegistryControlName, IsRefusedByEveryFunction) {
    const char* const name = GetParam();
    EXPECT_EQ(QxmixRegistrySetValue(kNew, name, 1, "", 0), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistrySetText(kNew, name, ""), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistrySetNumber(kNew, name, 0), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryGetValue(kNew, name, nullptr, nullptr, nullptr),
              kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryDeleteValue(kNew, name), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryKeyExists(kNew), 0);
}

const std::string kTooLong(256, 'v');

INSTANTIATE_TEST_SUITE_P(Wrong,
                         RegistryControlName,
                         testing::Values("\xC0\x80",      // longer than it need be
                                         "\xED\xA0\x80",  // half of a pair, the first
                                         "\xED\xB0\x80",  // and the second
                                         "\xF4\x90\x80\x80",
                                         kTooLong.c_str()),
                         NameOf);

TEST_F(RegistryControl, TakesAMissingNameForTheKeysOwnValue) {
    ASSERT_EQ(QxmixRegistrySetNumber(kNew, nullptr, 7), 0);
    EXPECT_EQ(StoredBytes(kNew, "")[0], 7);
    EXPECT_EQ(StoredBytes(kNew, nullptr)[0], 7);
    EXPECT_EQ(QxmixRegistryDeleteValue(kNew, nullptr), 0);
    EXPECT_EQ(QxmixRegistryDeleteValue(kNew, ""), kQxmixErrorFileNotFound);
}

TEST_F(RegistryControl, RefusesWrongText) {
    EXPECT_EQ(QxmixRegistrySetText(kNew, "N", "\xED\xA0\x80"), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistrySetText(kNew, "N", nullptr), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistrySetValue(kNew, "N", 1, nullptr, 1), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QxmixRegistryKeyExists(kNew), 0);
}

}  // namespace
