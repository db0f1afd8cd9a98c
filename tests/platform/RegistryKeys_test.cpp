#include "PlatformTest.h"

namespace {

class RegOpenKey : public PlatformTest {};
class RegCreateKey : public PlatformTest {};
class RegClose : public PlatformTest {};

HKEY Unopened() {
    return reinterpret_cast<HKEY>(std::uintptr_t{0x1234});
}

TEST_F(RegOpenKey, FindsTheErrorCodeKeyAtTheStart) {
    HKEY opened = nullptr;
    EXPECT_EQ(
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\ErrorCode", 0, KEY_ALL_ACCESS, &opened),
        ERROR_SUCCESS);
    EXPECT_NE(opened, nullptr);
}

TEST_F(RegOpenKey, FindsTheKeysAboveACreatedOne) {
    EXPECT_NE(Open(HKEY_LOCAL_MACHINE, u"SOFTWARE"), nullptr);
    EXPECT_NE(Open(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM"), nullptr);
}

TEST_F(RegOpenKey, ReportsAMissingKeyAndLeavesTheHandleAlone) {
    HKEY opened = Unopened();
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\DevInfo", 0, KEY_READ, &opened),
              kQxmixErrorFileNotFound);
    EXPECT_EQ(opened, Unopened());
}

TEST_F(RegOpenKey, KeepsTheRootsApart) {
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, u"SOFTWARE\\ATM\\ErrorCode", 0, KEY_READ, &opened),
              kQxmixErrorFileNotFound);
}

TEST_F(RegOpenKey, OpensRelativeToAnOpenKey) {
    const HKEY software = Open(HKEY_LOCAL_MACHINE, u"SOFTWARE", KEY_READ);
    EXPECT_NE(Open(software, u"ATM\\ErrorCode"), nullptr);
}

TEST_F(RegOpenKey, OpensTheKeyItselfForAnEmptyOrMissingName) {
    const HKEY key = OpenErrorCode();
    ASSERT_EQ(Set(key, u"CDM", REG_SZ, {1}), ERROR_SUCCESS);
    for (const PlatformChar* subKey : {static_cast<const PlatformChar*>(nullptr), u""}) {
        const HKEY again = Open(key, subKey);
        EXPECT_NE(again, key);
        EXPECT_EQ(QueryNamed(again, u"CDM", nullptr, nullptr), ERROR_SUCCESS);
    }
    EXPECT_NE(Open(HKEY_LOCAL_MACHINE, u""), nullptr);
}

TEST_F(RegOpenKey, GivesEveryOpeningItsOwnHandle) {
    const HKEY first = OpenErrorCode();
    const HKEY second = OpenErrorCode();
    EXPECT_NE(first, second);
    EXPECT_EQ(RegCloseKey(first), ERROR_SUCCESS);
    EXPECT_EQ(Set(second, u"CDM", REG_SZ, {1}), ERROR_SUCCESS);
}

TEST_F(RegOpenKey, RefusesWrongArguments) {
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE", 0, KEY_READ, nullptr),
              kQxmixErrorInvalidParameter);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE", 1, KEY_READ, &opened),
              kQxmixErrorInvalidParameter);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"\\SOFTWARE", 0, KEY_READ, &opened),
              kQxmixErrorBadPathName);
    EXPECT_EQ(opened, nullptr);
}

TEST_F(RegOpenKey, RefusesForeignClosedAndForgottenHandles) {
    HKEY opened = nullptr;
    const HKEY closed = OpenErrorCode();
    ASSERT_EQ(RegCloseKey(closed), ERROR_SUCCESS);
    const HKEY currentUser = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001U});
    for (const HKEY key : {Unopened(), closed, currentUser, static_cast<HKEY>(nullptr)}) {
        EXPECT_EQ(RegOpenKeyExW(key, u"", 0, KEY_READ, &opened), kQxmixErrorInvalidHandle);
    }
}

TEST_F(RegCreateKey, CreatesTheKeyAndThoseAboveIt) {
    HKEY created = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\DevInfo\\CDM\\", 0, nullptr, 0,
                              KEY_ALL_ACCESS, nullptr, &created, &disposition),
              ERROR_SUCCESS);
    EXPECT_EQ(disposition, 1U);
    EXPECT_NE(created, nullptr);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo"), 1);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM"), 1);
}

TEST_F(RegCreateKey, OpensAKeyThatIsThereAndKeepsItsValues) {
    ASSERT_EQ(QxmixRegistrySetNumber(kErrorCodeKey, "N", 7), 0);
    HKEY opened = nullptr;
    DWORD disposition = 0;
    PlatformChar noClass[] = u"";
    EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\ErrorCode", 0, noClass, 0,
                              KEY_ALL_ACCESS, nullptr, &opened, &disposition),
              ERROR_SUCCESS);
    EXPECT_EQ(disposition, 2U);
    EXPECT_EQ(QueryNamed(opened, u"N", nullptr, nullptr), ERROR_SUCCESS);
}

TEST_F(RegCreateKey, OpensTheKeyItselfForAnEmptyName) {
    HKEY opened = nullptr;
    EXPECT_EQ(Create(OpenErrorCode(), u"", &opened), ERROR_SUCCESS);
    EXPECT_EQ(Set(opened, u"CDM", REG_SZ, {1}), ERROR_SUCCESS);
    EXPECT_EQ(StoredBytes(kErrorCodeKey, "CDM"), Bytes{1});
}

TEST_F(RegCreateKey, CreatesBelowAKeyOpenedForReading) {
    const HKEY atm = Open(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM", KEY_READ);
    HKEY created = nullptr;
    EXPECT_EQ(Create(atm, u"DevInfo", &created), ERROR_SUCCESS);
}

TEST_F(RegCreateKey, RefusesWrongArgumentsAndCreatesNothing) {
    HKEY opened = nullptr;
    DWORD disposition = 0;
    const auto create = [&](const PlatformChar* subKey, DWORD reserved, DWORD options, HKEY* out) {
        return RegCreateKeyExW(HKEY_LOCAL_MACHINE, subKey, reserved, nullptr, options, KEY_READ,
                               nullptr, out, &disposition);
    };
    EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"New", 0, nullptr, 0, KEY_READ, nullptr, &opened,
                              nullptr),
              kQxmixErrorInvalidParameter);
    EXPECT_EQ(create(u"New", 0, 0, nullptr), kQxmixErrorInvalidParameter);
    EXPECT_EQ(create(nullptr, 0, 0, &opened), kQxmixErrorInvalidParameter);
    EXPECT_EQ(create(u"New", 1, 0, &opened), kQxmixErrorInvalidParameter);
    EXPECT_EQ(create(u"New", 0, 1, &opened), kQxmixErrorInvalidParameter);
    EXPECT_EQ(create(u"\\New", 0, 0, &opened), kQxmixErrorBadPathName);
    EXPECT_EQ(Create(Unopened(), u"New", &opened), kQxmixErrorInvalidHandle);
    EXPECT_EQ(opened, nullptr);
    EXPECT_EQ(disposition, 0U);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\New"), 0);
}

TEST_F(RegClose, MakesTheHandleUnknown) {
    const HKEY key = OpenErrorCode();
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), kQxmixErrorInvalidHandle);
    EXPECT_EQ(Set(key, u"CDM", REG_SZ, {1}), kQxmixErrorInvalidHandle);
    EXPECT_EQ(QueryNamed(key, u"CDM", nullptr, nullptr), kQxmixErrorInvalidHandle);
}

TEST_F(RegClose, RefusesForeignHandles) {
    EXPECT_EQ(RegCloseKey(nullptr), kQxmixErrorInvalidHandle);
    EXPECT_EQ(RegCloseKey(Unopened()), kQxmixErrorInvalidHandle);
}

TEST_F(RegClose, LeavesTheRootsOpen) {
    EXPECT_EQ(RegCloseKey(HKEY_LOCAL_MACHINE), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(HKEY_CLASSES_ROOT), ERROR_SUCCESS);
    EXPECT_NE(OpenErrorCode(), nullptr);
}

TEST_F(RegClose, IsCountedByTheNumberOfOpenKeys) {
    EXPECT_EQ(QxmixRegistryOpenKeys(), 0U);
    const HKEY first = OpenErrorCode();
    const HKEY second = OpenErrorCode();
    EXPECT_EQ(QxmixRegistryOpenKeys(), 2U);
    RegCloseKey(first);
    EXPECT_EQ(QxmixRegistryOpenKeys(), 1U);
    RegCloseKey(second);
    EXPECT_EQ(QxmixRegistryOpenKeys(), 0U);
}

/// Ways in which an open key goes away, and comes back as another one.
struct Deletion {
    const char* name;
    void (*run)();
};

class RegKeyDeleted : public PlatformTest, public testing::WithParamInterface<Deletion> {};

TEST_P(RegKeyDeleted, EverythingButClosingFails) {
    const HKEY key = OpenErrorCode();
    GetParam().run();
    HKEY opened = nullptr;
    EXPECT_EQ(Set(key, u"CDM", REG_SZ, {1}), kQxmixErrorKeyDeleted);
    EXPECT_EQ(QueryNamed(key, u"CDM", nullptr, nullptr), kQxmixErrorKeyDeleted);
    EXPECT_EQ(RegOpenKeyExW(key, u"", 0, KEY_READ, &opened), kQxmixErrorKeyDeleted);
    EXPECT_EQ(Create(key, u"X", &opened), kQxmixErrorKeyDeleted);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

INSTANTIATE_TEST_SUITE_P(
    Ways,
    RegKeyDeleted,
    testing::Values(
        Deletion{"Clearing", [] { QxmixRegistryClear(); }},
        Deletion{"Resetting", [] { QxmixRegistryReset(); }},
        Deletion{"DeletingAbove", [] { QxmixRegistryDeleteKey("HKEY_LOCAL_MACHINE\\SOFTWARE"); }},
        Deletion{"DeletingAndCreating",
                 [] {
                     QxmixRegistryDeleteKey(kErrorCodeKey);
                     QxmixRegistryCreateKey(kErrorCodeKey);
                 }},
        Deletion{"Loading",
                 [] { Load("REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode]\n"); }}),
    [](const testing::TestParamInfo<Deletion>& one) { return std::string(one.param.name); });

TEST_F(RegOpenKey, KeepsRootsUsableWhenTheContentIsReplaced) {
    const HKEY root = Open(HKEY_LOCAL_MACHINE, u"");
    QxmixRegistryClear();
    EXPECT_EQ(Set(root, u"A", REG_SZ, {1}), ERROR_SUCCESS);
    EXPECT_EQ(Set(HKEY_LOCAL_MACHINE, u"B", REG_SZ, {1}), ERROR_SUCCESS);
}

}  // namespace
