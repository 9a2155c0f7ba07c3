// SPDX-License-Identifier: MIT
#include <string>

#include <gtest/gtest.h>

#include "automation/ListenerList.h"

namespace planview {

TEST(ListenerList, AllHearInOrderUntilTheyAreRemoved) {
    ListenerList<void(int)> list;
    std::string heard;
    const ListenerId first = list.Add([&](int number) { heard += "a" + std::to_string(number); });
    list.Add([&](int number) { heard += "b" + std::to_string(number); });
    EXPECT_EQ(list.Add({}), ListenerId{});
    list.Tell(1);
    list.Remove(first);
    list.Remove(ListenerId{});
    list.Tell(2);
    EXPECT_EQ(heard, "a1b1b2");
}

TEST(ListenerList, ChangesWhileOneIsCalledHoldAtOnce) {
    ListenerList<void()> list;
    std::string heard;
    ListenerId self{};
    ListenerId next{};
    self = list.Add([&] {
        heard += "a";
        list.Remove(self);
        list.Remove(next);
        list.Add([&] { heard += "new"; });
    });
    next = list.Add([&] { heard += "b"; });
    list.Tell();
    EXPECT_EQ(heard, "a") << "removed ones are not called, new ones not for what is being told";
    list.Tell();
    EXPECT_EQ(heard, "anew");
}

TEST(ListenerList, TheNewestIsAskedFirst) {
    ListenerList<bool(int)> list;
    EXPECT_FALSE(list.Ask(1));
    std::string asked;
    list.Add([&](int) {
        asked += "old";
        return true;
    });
    list.Add([&](int number) {
        asked += "new";
        return number == 1;
    });
    EXPECT_TRUE(list.Ask(1));
    EXPECT_EQ(asked, "new");
    EXPECT_TRUE(list.Ask(2));
    EXPECT_EQ(asked, "newnewold");
}

}  // namespace planview
