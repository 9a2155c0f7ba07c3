// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "automation/FlatMap.h"

namespace planview {
namespace {

/// All keys want the same slot, the last one of the smallest map.
struct Crowded {
    std::size_t operator()(int) const noexcept { return 31; }
};

TEST(FlatMapTest, KeepsTheFirstValueOfEachKeyHoweverManyThereAre) {
    FlatMap<int, int, std::hash<int>> map;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_TRUE(map.Add(i * 64, i)) << i;
    }
    EXPECT_FALSE(map.Add(64, 7));
    for (int i = 0; i < 1000; ++i) {
        const int* const found = map.Find(i * 64);
        ASSERT_NE(found, nullptr) << i;
        EXPECT_EQ(*found, i);
        EXPECT_EQ(map.Find(i * 64 + 1), nullptr) << i;
    }
}

TEST(FlatMapTest, KeysThatWantOneSlotAreToldApart) {
    FlatMap<int, int, Crowded> map;
    for (int i = 0; i < 7; ++i) {
        EXPECT_TRUE(map.Add(i, 10 * i));
    }
    for (int i = 0; i < 7; ++i) {
        ASSERT_NE(map.Find(i), nullptr) << i;
        EXPECT_EQ(*map.Find(i), 10 * i);
    }
    EXPECT_EQ(map.Find(7), nullptr);
}

TEST(FlatMapTest, NamesAreFoundWithoutACopy) {
    NameMap map;
    EXPECT_EQ(map.Find(std::string_view("COL1")), nullptr) << "an empty map";
    map.Reserve(100);
    EXPECT_TRUE(map.Add("COL1", 1));
    EXPECT_TRUE(map.Add("COL10", 10));
    EXPECT_EQ(*map.Find(std::string_view("COL10999").substr(0, 5)), 10);
    map.Clear();
    EXPECT_EQ(map.Find(std::string_view("COL1")), nullptr);
    EXPECT_TRUE(map.Add("COL1", 2));
    EXPECT_EQ(*map.Find(std::string_view("COL1")), 2);
}

}  // namespace
}  // namespace planview
