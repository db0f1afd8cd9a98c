#include "PlatformTest.h"

namespace {

class RegistryNames : public PlatformTest {};

LONG TryOpen(const PlatformChar* subKey) {
    HKEY opened = nullptr;
    const LONG result = RegOpenKeyExW(HKEY_LOCAL_MACHINE, subKey, 0, KEY_READ, &opened);
    RegCloseKey(opened);
    return result;
}

TEST_F(RegistryNames, OfKeysCompareWithoutRegardToCase) {
    EXPECT_EQ(TryOpen(u"software\\atm\\ERRORCODE"), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(u"SOFTWARE\\ATM\\ErrorCod"), kQxmixErrorFileNotFound);
}

TEST_F(RegistryNames, OfValuesCompareWithoutRegardToCase) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"Cdm", REG_SZ, {1}), ERROR_SUCCESS);
    ASSERT_EQ(Set(key, u"cDM", REG_SZ, {2}), ERROR_SUCCESS);
    EXPECT_EQ(StoredBytes(kErrorCodeKey, "CDM"), Bytes{2});
}

TEST_F(RegistryNames, CompareLatinLettersWithoutRegardToCase) {
    for (char16_t small = 0xE0; small <= 0xFF; ++small) {
        const char16_t capital = small == 0xFF ? char16_t{0x178} : char16_t(small - 0x20);
        HKEY created = nullptr;
        ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, std::u16string(2, small).c_str(), &created),
                  ERROR_SUCCESS);
        EXPECT_EQ(TryOpen(std::u16string(2, capital).c_str()),
                  small == 0xF7 ? kQxmixErrorFileNotFound : ERROR_SUCCESS)
            << int{small};
    }
}

TEST_F(RegistryNames, KeepCharactersApartThatHaveNoOtherCase) {
    HKEY created = nullptr;
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"\u00F7", &created), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(u"\u00D7"), kQxmixErrorFileNotFound);
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"a\\b", &created), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(u"a\001b"), kQxmixErrorFileNotFound);
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"`", &created), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(u"@"), kQxmixErrorFileNotFound);
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"{", &created), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(u"["), kQxmixErrorFileNotFound);
}

TEST_F(RegistryNames, IgnoreBackslashesAtTheEndAndDoubledOnes) {
    EXPECT_EQ(TryOpen(u"SOFTWARE\\ATM\\ErrorCode\\"), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(u"SOFTWARE\\ATM\\ErrorCode\\\\"), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(u"SOFTWARE\\\\ATM\\ErrorCode"), ERROR_SUCCESS);
}

TEST_F(RegistryNames, TakeTheForwardSlashAsAnOrdinaryCharacter) {
    HKEY created = nullptr;
    ASSERT_EQ(
        Create(HKEY_CLASSES_ROOT, u"WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser\\", &created),
        ERROR_SUCCESS);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_CLASSES_ROOT\\WOSA/XFS_ROOT"), 1);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_CLASSES_ROOT\\WOSA"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_CLASSES_ROOT\\WOSA\\XFS_ROOT"), 0);
}

TEST_F(RegistryNames, OfKeysHoldUpTo255Characters) {
    HKEY created = nullptr;
    const std::u16string longest(255, u'k');
    EXPECT_EQ(Create(HKEY_LOCAL_MACHINE, longest.c_str(), &created), ERROR_SUCCESS);
    EXPECT_EQ(Create(HKEY_LOCAL_MACHINE, (longest + u"\\" + longest).c_str(), &created),
              ERROR_SUCCESS);
    EXPECT_EQ(Create(HKEY_LOCAL_MACHINE, (longest + u"k").c_str(), &created),
              kQxmixErrorInvalidParameter);
    EXPECT_EQ(TryOpen((longest + u"k").c_str()), kQxmixErrorInvalidParameter);
}

TEST_F(RegistryNames, OfValuesHoldUpTo255Characters) {
    const HKEY key = OpenErrorCode();
    const std::u16string longest(255, u'v');
    EXPECT_EQ(Set(key, longest.c_str(), REG_SZ, {1}), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, (longest + u"v").c_str(), REG_SZ, {1}), kQxmixErrorInvalidParameter);
    EXPECT_EQ(QueryNamed(key, (longest + u"v").c_str(), nullptr, nullptr), kQxmixErrorFileNotFound);
}

TEST_F(RegistryNames, StaySpelledAsFirstWritten) {
    HKEY created = nullptr;
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"software\\atm\\New", &created), ERROR_SUCCESS);
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\NEW", &created), ERROR_SUCCESS);
    ASSERT_EQ(Set(created, u"Value", REG_SZ, {1}), ERROR_SUCCESS);
    ASSERT_EQ(Set(created, u"VALUE", REG_SZ, {2}), ERROR_SUCCESS);
    const std::string saved = SavedAscii();
    EXPECT_NE(saved.find("[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\New]\r\n\"Value\"="),
              std::string::npos)
        << saved;
}

TEST_F(RegistryNames, OfMissingOrEmptyTextMeanTheKeysOwnValue) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, nullptr, REG_SZ, {1}), ERROR_SUCCESS);
    ASSERT_EQ(Set(key, u"", REG_SZ, {2}), ERROR_SUCCESS);
    EXPECT_EQ(StoredBytes(kErrorCodeKey, ""), Bytes{2});
    EXPECT_EQ(StoredBytes(kErrorCodeKey, nullptr), Bytes{2});
}

}  // namespace
