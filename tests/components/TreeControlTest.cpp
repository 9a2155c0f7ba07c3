// SPDX-License-Identifier: MIT
#include <functional>

#include <gtest/gtest.h>

#include <planview/AutomationObject.h>

#include "components/TreeControl.h"
#include "support/TreeText.h"

namespace planview {

namespace {

using Relation = TreeRelationship;

/// Writes down what a view hears.
class WatchLog : public TreeWatcher {
public:
    void NodesReset() override { heard.emplace_back("reset"); }
    void TextChanged(TreeNode node) override { heard.push_back("text " + node.Key()); }
    void ExpandedChanged(TreeNode node) override { heard.push_back("expanded " + (node ? node.Key() : "many")); }
    void SelectionChanged() override { heard.emplace_back("selection"); }
    void ShowNode(TreeNode node) override { heard.push_back("show " + node.Key()); }
    void EditLabel(TreeNode node) override { heard.push_back("edit " + node.Key()); }

    std::vector<std::string> heard;
};

class TreeControlTest : public testing::Test {
protected:
    TreeNode Add(const char* relative, Relation relation, const char* key) {
        return tree.Nodes().Add(relative, relation, key, key);
    }
    /// A: (B: (C), D), E
    void Fill() {
        Add("", Relation::Last, "A");
        Add("A", Relation::Child, "B");
        Add("B", Relation::Child, "C");
        Add("A", Relation::Child, "D");
        Add("", Relation::Last, "E");
    }
    void TearDown() override {
        if (HasFailure()) {
            std::cout << test::TreeText(tree) << '\n';
        }
    }

    TreeControl tree;
};

using Heard = std::vector<std::string>;

}  // namespace

TEST_F(TreeControlTest, EachRelationshipHasItsPlace) {
    const struct {
        const char* name;
        const char* relative;
        Relation relation;
        const char* tree;
    } cases[] = {
        {"first of the siblings", "D", Relation::First, "A(N B(C) D) E"},
        {"last of the siblings", "B", Relation::Last, "A(B(C) D N) E"},
        {"next", "B", Relation::Next, "A(B(C) N D) E"},
        {"previous", "D", Relation::Previous, "A(B(C) N D) E"},
        {"child behind others", "A", Relation::Child, "A(B(C) D N) E"},
        {"first child", "D", Relation::Child, "A(B(C) D(N)) E"},
        {"first of all", "E", Relation::First, "N A(B(C) D) E"},
        {"previous of the first", "A", Relation::Previous, "N A(B(C) D) E"},
        {"last of all", "A", Relation::Last, "A(B(C) D) E N"},
        {"without a relative, whatever the relationship", "", Relation::First, "A(B(C) D) E N"},
    };
    for (const auto& row : cases) {
        tree.Nodes().Clear();
        Fill();
        const TreeNode added = Add(row.relative, row.relation, "N");
        EXPECT_EQ(test::TreeText(tree), row.tree) << row.name;
        EXPECT_EQ(added.Index(), 6) << row.name;
    }
}

TEST_F(TreeControlTest, WhatCannotBeAddedChangesNothing) {
    Fill();
    const std::function<void()> faults[] = {
        [&] { Add("X", Relation::Child, "N"); },          [&] { Add("", Relation::Last, "C"); },
        [&] { Add("A", Relation::Child, ""); },           [&] { Add("A", static_cast<Relation>(5), "N"); },
        [&] { Add("N", Relation::Child, "N"); },          [&] { static_cast<void>(tree.Nodes().Item(0)); },
        [&] { static_cast<void>(tree.Nodes().Item(6)); }, [&] { static_cast<void>(tree.Nodes().Item("N")); },
    };
    for (const auto& fault : faults) {
        EXPECT_THROW(fault(), AutomationError);
    }
    EXPECT_EQ(test::TreeText(tree), "A(B(C) D) E");
    EXPECT_FALSE(tree.Nodes().Find("N"));
    EXPECT_EQ(tree.Nodes().Item(3).Key(), "C");
}

TEST_F(TreeControlTest, NodesOfAnEarlierTreeNameNothing) {
    Fill();
    const TreeNode before = tree.Nodes().Item("C");
    before.SetSelected(true);
    ASSERT_TRUE(tree.UserBeginLabelEdit(before));
    tree.Nodes().Clear();
    Fill();
    EXPECT_FALSE(before);
    EXPECT_THROW(before.SetText("late"), AutomationError);
    EXPECT_FALSE(tree.SelectedItem());
    tree.UserEndLabelEdit("late");
    tree.UserExpand(before, true);
    tree.UserClick(before, false);
    tree.UserDrop(before, tree.Nodes().Item("A"), TreeDrop::Below);
    EXPECT_EQ(test::TreeText(tree), "A(B(C) D) E");
}

TEST_F(TreeControlTest, WatchersHearWhatChangedOnce) {
    Fill();
    WatchLog log;
    tree.AddWatcher(log);
    const TreeNode c = tree.Nodes().Item("C");
    c.SetSelected(true);
    c.SetSelected(true);
    c.EnsureVisible();
    EXPECT_EQ(log.heard, (Heard{"selection", "expanded B", "expanded A", "show C"}));
    log.heard.clear();
    tree.SetRedraw(false);
    tree.Nodes().Item("A").SetExpanded(false);
    tree.Nodes().Item("B").SetExpanded(false);
    tree.Nodes().Item("E").SetSelected(true);
    c.EnsureVisible();
    EXPECT_EQ(log.heard, Heard{});
    tree.SetRedraw(true);
    EXPECT_EQ(log.heard, (Heard{"expanded many", "selection", "show C"}));
    log.heard.clear();
    tree.SetRedraw(false);
    tree.Nodes().Clear();
    Fill();
    tree.Nodes().Item("D").StartLabelEdit();
    tree.SetRedraw(true);
    EXPECT_EQ(log.heard, (Heard{"reset", "edit D"}));
}

TEST_F(TreeControlTest, ClosingABranchTakesTheSelectionOutOfIt) {
    Fill();
    tree.UserExpand(tree.Nodes().Item("A"), true);
    tree.Nodes().Item("C").SetSelected(true);
    tree.UserExpand(tree.Nodes().Item("A"), false);
    EXPECT_TRUE(tree.Nodes().Item("A").Selected());
    tree.Nodes().Item("E").SetSelected(true);
    tree.Nodes().Item("A").SetSelected(false);
    EXPECT_EQ(tree.SelectedItem().Key(), "E") << "another one stays selected";
}

/// Depth must cost neither stack nor more than linear time.
TEST_F(TreeControlTest, AChainOfAHundredThousandNodes) {
    constexpr int Depth = 100'000;
    tree.SetRedraw(false);
    std::string above;
    for (int i = 0; i < Depth; ++i) {
        const std::string key = "N" + std::to_string(i);
        tree.Nodes().Add(above, Relation::Child, key, key);
        above = key;
    }
    const TreeNode last = tree.Nodes().Item(Depth);
    EXPECT_EQ(last.Level(), Depth - 1);
    last.EnsureVisible();
    EXPECT_TRUE(tree.Nodes().Item(1).Expanded());
    EXPECT_FALSE(last.Expanded());
    tree.SetRedraw(true);
    tree.UserExpand(tree.Nodes().Item(1), false);
    EXPECT_THROW(tree.Nodes().Add("N5", Relation::Child, "N7", ""), AutomationError);
    tree.Nodes().Clear();
    EXPECT_EQ(tree.Nodes().Count(), 0);
}

}  // namespace planview
