// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "layout/PaneLayout.h"
#include "support/TraceOracle.h"

namespace planview {

namespace {

class PaneLayoutTest : public test::TracedTest, public PaneWatcher {
protected:
    PaneLayoutTest() { panes.SetWatcher(this); }
    void PanesChanged() override { ++changes; }

    GridSettings settings;
    PaneLayout panes{settings};
    int changes = 0;
};

}  // namespace

TEST_F(PaneLayoutTest, ZoomLeavesTheGridAloneAndGivesThePanesBack) {
    settings.treeShown = settings.chartShown = true;
    panes.LayOut();
    EXPECT_TRUE(panes.TreePaneVisible());
    EXPECT_TRUE(panes.ChartPaneVisible());
    settings.zoomed = true;
    panes.LayOut(Splitter::GridSplit);
    EXPECT_FALSE(panes.TreePaneVisible());
    EXPECT_FALSE(panes.ChartPaneVisible());
    settings.treeShown = false;
    panes.LayOut(Splitter::CtrlSplit);
    settings.zoomed = false;
    panes.LayOut(Splitter::GridSplit);
    EXPECT_FALSE(panes.TreePaneVisible()) << "hidden meanwhile";
    EXPECT_TRUE(panes.ChartPaneVisible());
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(Entries(), (test::Lines{"CTRLSPLIT |  | Layout | {width: 0 - height: 0 - tree: True}",
                                      "GRIDSPLIT |  | Layout | {chart: True - zoomed: False}",
                                      "GRIDSPLIT |  | Layout | {chart: True - zoomed: True}",
                                      "CTRLSPLIT |  | Layout | {width: 0 - height: 0 - tree: False}",
                                      "GRIDSPLIT |  | Layout | {chart: True - zoomed: False}"}));
}

TEST_F(PaneLayoutTest, SplittersKeepTheirPlacesWithinBounds) {
    panes.MoveSplitter(Splitter::CtrlSplit, 300);
    panes.MoveSplitter(Splitter::MacroSplit, -5);
    panes.MoveSplitter(Splitter::GridSplit, 2000);
    EXPECT_EQ(panes.Position(Splitter::CtrlSplit), 300);
    EXPECT_EQ(panes.Position(Splitter::MacroSplit), 50);
    EXPECT_EQ(panes.Position(Splitter::GridSplit), 950);
    EXPECT_EQ(Entries(), (test::Lines{"CTRLSPLIT |  | Moved | {pos: 300}", "MACROSPLIT |  | Moved | {pos: 50}",
                                      "GRIDSPLIT |  | Moved | {pos: 950}"}));
    panes.Resize(800, 600);
    EXPECT_EQ(panes.Position(Splitter::CtrlSplit), 300) << "resizing moves no splitter";
}

}  // namespace planview
