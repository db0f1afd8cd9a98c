#include "HandleTable.h"

#include <gtest/gtest.h>

#include <set>

namespace {

TEST(HandleTable, FindsWhatWasInserted) {
    HandleTable<int> table(0x100);
    void* first = table.Insert(1);
    void* second = table.Insert(2);
    EXPECT_EQ(*table.Find(first), 1);
    EXPECT_EQ(*table.Find(second), 2);
    EXPECT_EQ(table.Size(), 2U);
}

TEST(HandleTable, NumbersHandlesInSteps) {
    HandleTable<int> table(0x101);
    EXPECT_EQ(table.Insert(1), reinterpret_cast<void*>(std::uintptr_t{0x101}));
    EXPECT_EQ(table.Insert(1), reinterpret_cast<void*>(std::uintptr_t{0x105}));
}

TEST(HandleTable, KnowsNoErasedAndNoForeignHandle) {
    HandleTable<int> table(0x100);
    void* handle = table.Insert(1);
    EXPECT_TRUE(table.Erase(handle));
    EXPECT_FALSE(table.Erase(handle));
    EXPECT_EQ(table.Find(handle), nullptr);
    EXPECT_EQ(table.Find(nullptr), nullptr);
}

TEST(HandleTable, GivesAnErasedHandleAgainOnlyAfterAllOthers) {
    HandleTable<int> table(0x100, 4);
    std::set<void*> seen;
    for (int k = 0; k < 4; ++k) {
        void* handle = table.Insert(k);
        EXPECT_TRUE(seen.insert(handle).second);
        table.Erase(handle);
    }
    EXPECT_FALSE(seen.insert(table.Insert(4)).second);
}

TEST(HandleTable, PassesOverHandlesInUse) {
    HandleTable<int> table(0x100, 3);
    void* kept = table.Insert(7);
    for (int k = 0; k < 10; ++k) {
        void* handle = table.Insert(k);
        EXPECT_NE(handle, kept);
        table.Erase(handle);
    }
    EXPECT_EQ(*table.Find(kept), 7);
}

TEST(HandleTable, RefusesMoreThanItHasHandlesFor) {
    HandleTable<int> table(0x100, 2);
    table.Insert(1);
    table.Insert(2);
    EXPECT_THROW(table.Insert(3), std::bad_alloc);
    EXPECT_EQ(table.Size(), 2U);
}

TEST(HandleTable, ForgetsAllAndGoesOnCounting) {
    HandleTable<int> table(0x100);
    void* handle = table.Insert(1);
    table.Clear();
    EXPECT_EQ(table.Find(handle), nullptr);
    EXPECT_NE(table.Insert(2), handle);
}

}  // namespace
