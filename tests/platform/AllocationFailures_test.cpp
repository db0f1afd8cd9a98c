/// Lets the n-th allocation of the library fail, for every n, in every function that the module
/// or a host calls. The operators below stand in front of the library's as well.

#include "PlatformTest.h"

#include <cstdlib>
#include <functional>
#include <new>

namespace {

/// Allocations of this thread until the failing one, itself included; 0 for none.
thread_local unsigned allocationsLeft = 0;

void* Allocate(std::size_t size) {
    if (allocationsLeft != 0 && --allocationsLeft == 0) {
        throw std::bad_alloc();
    }
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

struct Attempt {
    const char* name;
    std::int32_t success;
    std::int32_t failure;
    std::function<std::int32_t()> call;
};

class AllocationFailures : public PlatformTest, public testing::WithParamInterface<Attempt> {};

HKEY errorCode = nullptr;
void* root = nullptr;

const Bytes kManyBytes(100, 1);

TEST_P(AllocationFailures, AreReportedOneByOneUntilNoneIsLeft) {
    errorCode = OpenErrorCode();
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root), 0);
    unsigned n = 0;
    std::int32_t result = GetParam().failure;
    while (result == GetParam().failure) {
        allocationsLeft = ++n;
        result = GetParam().call();
        const bool reached = allocationsLeft == 0;
        allocationsLeft = 0;
        ASSERT_TRUE(reached || result == GetParam().success) << "allocation " << n;
    }
    EXPECT_EQ(result, GetParam().success);
    EXPECT_GT(n, 1U);
}

HKEY opened = nullptr;
void* block = nullptr;

INSTANTIATE_TEST_SUITE_P(
    Of,
    AllocationFailures,
    testing::Values(
        Attempt{"RegOpenKeyExW", 0, 14,
                [] {
                    return RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE\\ATM\\ErrorCode", 0, 1,
                                         &opened);
                }},
        Attempt{"RegCreateKeyExW", 0, 14,
                [] { return Create(HKEY_LOCAL_MACHINE, u"A long name of a new key\\B", &opened); }},
        Attempt{"RegQueryValueExW", 2, 14,
                [] { return QueryNamed(errorCode, u"A long name of a value", nullptr, nullptr); }},
        Attempt{"RegSetValueExW", 0, 14,
                [] { return Set(errorCode, u"A long name of a value", REG_SZ, kManyBytes); }},
        Attempt{"WFMAllocateBuffer", 0, -42, [] { return WFMAllocateBuffer(8, 0, &block); }},
        Attempt{"WFMAllocateMore", 0, -42, [] { return WFMAllocateMore(8, root, &block); }},
        Attempt{"RegistrySetValue", 0, 14,
                [] {
                    return QxmixRegistrySetValue(kErrorCodeKey, "A long name of a value", 3,
                                                 kManyBytes.data(), 100);
                }},
        Attempt{"RegistrySetText", 0, 14,
                [] { return QxmixRegistrySetText(kErrorCodeKey, "N", "A long text of a value"); }},
        Attempt{
            "RegistryCreateKey", 0, 14,
            [] { return QxmixRegistryCreateKey("HKEY_CLASSES_ROOT\\A long name of a new key"); }},
        Attempt{"RegistryLoadText", 0, 14,
                [] {
                    const std::string_view text =
                        "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"N\"=hex:01,02\n";
                    return QxmixRegistryLoadText(text.data(), text.size(), nullptr);
                }},
        Attempt{"RegistryLoadWrongText", 13, 14,
                [] {
                    const std::string_view text = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"N\"=?\n";
                    QxmixTextError error;
                    return QxmixRegistryLoadText(text.data(), text.size(), &error);
                }},
        Attempt{"RegistrySaveText", 234, 14,
                [] {
                    std::size_t size = 0;
                    return QxmixRegistrySaveText(nullptr, 0, &size);
                }},
        Attempt{"RegistrySaveFile", 0, 14,
                [] { return QxmixRegistrySaveFile("/dev/null", nullptr); }},
        Attempt{"EventCreate", 1, 0, [] { return QxmixEventCreate() != nullptr ? 1 : 0; }}),
    [](const testing::TestParamInfo<Attempt>& test) { return std::string(test.param.name); });

TEST_F(PlatformTest, LeavesTheContentWhenMemoryForALoadIsOut) {
    const std::string before = SavedText();
    const std::string_view text = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"N\"=hex:01,02\n";
    for (unsigned n = 1; n < 10; ++n) {
        allocationsLeft = n;
        QxmixTextError error;
        const std::int32_t result = QxmixRegistryLoadText(text.data(), text.size(), &error);
        allocationsLeft = 0;
        ASSERT_EQ(result, kQxmixErrorOutOfMemory) << n;
        EXPECT_EQ(error.line, 0U);
        EXPECT_STREQ(error.message, "no memory");
        EXPECT_EQ(SavedText(), before);
    }
}

TEST_F(PlatformTest, KeepsTheBooksOfMemoryWhenItIsOut) {
    void* list = nullptr;
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &list), 0);
    for (unsigned n = 1; n < 4; ++n) {
        allocationsLeft = n;
        void* linked = nullptr;
        const HRESULT result = WFMAllocateMore(8, list, &linked);
        allocationsLeft = 0;
        EXPECT_EQ(linked != nullptr, result == 0);
    }
    EXPECT_EQ(WFMFreeBuffer(list), 0);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
}

TEST_F(PlatformTest, GivesNoLoggedCallWithoutMemory) {
    QxmixLogCalls(1);
    const HKEY key = OpenErrorCode();
    ASSERT_NE(key, nullptr);
    QxmixCall call = {};
    allocationsLeft = 1;
    const int copied = QxmixGetLoggedCall(0, &call);
    allocationsLeft = 1;
    char text[200] = "";
    const int written = QxmixGetLoggedCallText(0, text, sizeof(text));
    allocationsLeft = 0;
    EXPECT_EQ(copied, 0);
    EXPECT_EQ(written, 0);
}

TEST_F(PlatformTest, MakesACallThoughItsLogHasNoMemory) {
    QxmixLogCalls(1);
    void* event = QxmixEventCreate();
    allocationsLeft = 1;
    const BOOL result = EventModify(event, EVENT_SET);
    allocationsLeft = 0;
    EXPECT_EQ(result, 1);
    EXPECT_EQ(QxmixEventIsSet(event), 1);
}

}  // namespace
