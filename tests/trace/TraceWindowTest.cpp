// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "support/TraceOracle.h"

namespace planview {

using test::Lines;

namespace {

/// The window's menu while the window is shown.
class TraceWindowTest : public test::TracedTest {
protected:
    void WhileShown(const std::function<void(frmTrace&)>& act) {
        platform.whileShown = [act](Form& form) { act(dynamic_cast<frmTrace&>(form)); };
        modPlan::Trace_Show(platform.Interfaces());
    }
};

}  // namespace

TEST_F(TraceWindowTest, TheMenuKeepsItsIndexes) {
    std::string menu;
    for (const TraceMenuEntry& entry : frmTrace::Share()->mnuTrac) {
        menu +=
            std::to_string(entry.Index) + " " + std::string(entry.Caption) + (entry.RadioCheck ? " (o)" : "") + "\n";
    }
    EXPECT_EQ(menu,
              "10 Window always on top (o)\n19 -\n20 Delete all items\n30 Memory check\n79 -\n80 Insert bookmark\n"
              "89 -\n90 Exit\n");
}

TEST_F(TraceWindowTest, AlwaysOnTopGoesBackAndForth) {
    WhileShown([&](frmTrace& form) {
        form.mnuTrac_Click(10);
        EXPECT_TRUE(form.mnuTrac[0].Checked);
        form.mnuTrac_Click(10);
        EXPECT_FALSE(form.mnuTrac[0].Checked);
    });
    EXPECT_EQ(Entries(),
              (Lines{"TRACE WINDOW |  | Always on top | {Enabled}", "TRACE WINDOW |  | Always on top | {Disabled}"}));
}

TEST_F(TraceWindowTest, DeletingAsksAndThenDeletesWhateverTheAnswer) {
    modPlan::TraceWrite("CHART", "", "Redraw", "{}");
    const std::int32_t before = modPlan::TraceCounter;
    platform.answer = MessageAnswer::No;
    WhileShown([](frmTrace& form) { form.mnuTrac_Click(20); });
    EXPECT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(Entries(), Lines{"TRACE WINDOW |  | All items deleted | {}"});
    EXPECT_EQ(frmTrace::Share()->TraceView.Item(0).key, "TRACE{" + std::to_string(before + 1) + "}")
        << "the numbers go on";
}

TEST_F(TraceWindowTest, BookmarksAndMemoryStandInTheList) {
    WhileShown([](frmTrace& form) {
        form.mnuTrac_Click(80);
        form.mnuTrac_Click(30);
        form.mnuTrac_Click(11);  // no entry
        form.mnuTrac_Click(90);
    });
    const Lines entries = Entries();
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0], "TRACE WINDOW | # BOOKMARK # | InsertBookmark | {" + std::string(40, '#') + "}");
    EXPECT_EQ(platform.formCalls.back(), "hide frmTrace");
    EXPECT_TRUE(frmTrace::Find()) << "hidden, not ended";
}

TEST_F(TraceWindowTest, ABookmarkInAFullListDropsTheOldest) {
    for (std::size_t i = 0; i < modPlan::MaxTraceEntries; ++i) {
        modPlan::TraceWrite("CHART", "", "Redraw", "{}");
    }
    const std::string second = frmTrace::Share()->TraceView.Item(1).key;
    WhileShown([](frmTrace& form) { form.mnuTrac_Click(80); });
    EXPECT_EQ(frmTrace::Share()->TraceView.Count(), modPlan::MaxTraceEntries);
    EXPECT_EQ(frmTrace::Share()->TraceView.Item(0).key, second);
}

TEST_F(TraceWindowTest, TheListFollowsTheForm) {
    const struct {
        const char* name;
        int width, height, listWidth, listHeight;
    } cases[] = {{"usual", 9000, 6000, 8820, 5280},
                 {"a width of nothing is taken", 180, 6000, 0, 5280},
                 {"below it the last one stays", 179, 6000, 0, 5280},
                 {"a height of nothing is not taken", 9000, 720, 8820, 5280},
                 {"the least height", 9000, 721, 8820, 1}};
    frmTrace& form = *frmTrace::Share();
    EXPECT_EQ(form.TraceViewPlace.Left, 30);
    EXPECT_EQ(form.TraceViewPlace.Top, 30);
    for (const auto& row : cases) {
        form.Form_Resize(row.width, row.height);
        EXPECT_EQ(form.TraceViewPlace.Width, row.listWidth) << row.name;
        EXPECT_EQ(form.TraceViewPlace.Height, row.listHeight) << row.name;
    }
}

TEST_F(TraceWindowTest, TheTraceMayEndWhileTheWindowAsks) {
    struct EndsTheTrace final : test::ScriptedPlatform {
        MessageAnswer Show(const MessageBoxRequest&) override {
            modPlan::TraceEnabled = false;
            frmTrace::End(*frmTrace::Share());
            return MessageAnswer::No;
        }
    } ending;
    ending.whileShown = [](Form& form) { dynamic_cast<frmTrace&>(form).mnuTrac_Click(20); };
    modPlan::Trace_Show(ending.Interfaces());
    EXPECT_FALSE(frmTrace::Find());
}

TEST_F(TraceWindowTest, WithoutItsWindowTheMenuDeletesNothing) {
    modPlan::TraceWrite("CHART", "", "Redraw", "{}");
    frmTrace::Share()->mnuTrac_Click(20);
    EXPECT_EQ(Entries().size(), 1U);
    EXPECT_TRUE(platform.messages.empty());
}

/// Several controls may show the one list; a window that goes takes nobody else's place.
TEST(TraceList, TellsEveryWindowThatShowsIt) {
    class Window : public ListViewWatcher {
    public:
        void ItemAdded(std::uint64_t number) override { heard += std::to_string(number); }
        void Cleared() override { heard += "-"; }
        void Ended() override { heard += "."; }
        std::string heard;
    };
    const auto one = std::make_shared<Window>();
    const auto other = std::make_shared<Window>();
    ListView list;
    list.AddWatcher(one);
    list.AddWatcher(other);
    const auto add = [&](const char* text) { list.Add(2, [&](ListItem& item) { item.text = text; }); };
    for (const char* text : {"a", "b", "c"}) {
        add(text);
    }
    list.RemoveWatcher(*one);
    EXPECT_ANY_THROW(list.Add(9, [](ListItem&) { throw std::runtime_error("no text"); }));
    ListItem item;
    EXPECT_TRUE(!list.Read(0, item) && list.Read(2, item) && item.text == "c" && !list.Read(3, item));
    EXPECT_EQ(list.Item(0).text, "b");
    list.Clear();
    add("d");
    EXPECT_TRUE(!list.Read(2, item) && list.Read(3, item) && item.text == "d") << "a number is never given again";
    list.End();
    EXPECT_EQ(one->heard, "012");
    EXPECT_EQ(other->heard, "012-3.");
}

}  // namespace planview
