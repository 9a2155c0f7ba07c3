// SPDX-License-Identifier: MIT
#include "components/AxisLayout.h"
#include "support/GridText.h"

namespace planview {
namespace {

using Area = AxisLayout::Area;
using Axis = AxisLayout::Axis;

constexpr int LabelWidth = 150;

class AxisLayoutTest : public GridTest {
protected:
    void SetUp() override {
        CreateSmallGrid();
        SetColumn("COL1", GridAttribute::Width, 50);
        SetColumn("COL1", GridAttribute::Height, 31);
        SetColumn("COL3", GridAttribute::Height, 33);
        SetColumn("FRC1", GridAttribute::Width, 70);
        SetRow("ROW1", GridAttribute::Height, 25);
        SetRow("ROW1", GridAttribute::Width, 61);
        SetRow("FBR1", GridAttribute::Height, 40);
    }

    /// "key start+size" of each item, areas divided by "|".
    std::string Text(Axis axis) {
        layout_.Update(grid_, axis, LabelWidth);
        std::string text;
        for (const Area area : {Area::Leading, Area::Center, Area::Trailing}) {
            text += area == Area::Leading ? "" : "| ";
            for (const AxisItem& item : layout_.Items(area)) {
                const std::string& key =
                    layout_.ShowsColumns() ? grid_.Column(ColumnId{item.track}).key : grid_.Row(RowId{item.track}).key;
                text += key + " " + std::to_string(item.start) + "+" + std::to_string(item.size) + " ";
            }
        }
        return text;
    }

    AxisLayout layout_;
};

TEST_F(AxisLayoutTest, BothAxesBothWays) {
    SetColumn("COL2", GridAttribute::Hidden, true);
    SetRow("FTR1", GridAttribute::Hidden, true);
    EXPECT_EQ(Text(Axis::Horizontal), "FLC0 0+150 FLC1 150+80 | COL1 0+50 COL3 50+80 | FRC1 0+70 ");
    EXPECT_EQ(Text(Axis::Vertical), "FTR0 0+31 | ROW1 0+25 ROW2 25+22 ROW3 47+22 | FBR1 0+40 ");
    SetGrid(GridAttribute::Switched, true);
    EXPECT_EQ(Text(Axis::Horizontal), "FTR0 0+150 | ROW1 0+61 ROW2 61+80 ROW3 141+80 | FBR1 0+80 ");
    EXPECT_EQ(Text(Axis::Vertical), "FLC0 0+25 FLC1 25+22 | COL1 0+31 COL3 31+33 | FRC1 0+22 ");
}

TEST_F(AxisLayoutTest, FindsPlacesAndTracks) {
    SetColumn("COL2", GridAttribute::Hidden, true);
    layout_.Update(grid_, Axis::Horizontal, LabelWidth);
    EXPECT_EQ(layout_.Extent(Area::Center), 130);
    EXPECT_EQ(layout_.IndexOf(Area::Center, ColumnAt("COL3").value), 1);
    EXPECT_EQ(layout_.IndexOf(Area::Center, ColumnAt("COL2").value), -1) << "hidden";
    EXPECT_EQ(layout_.IndexOf(Area::Center, ColumnAt("FRC1").value), -1) << "another area";
    EXPECT_EQ(layout_.IndexOf(Area::Trailing, ColumnAt("FRC1").value), 0);
    EXPECT_EQ(layout_.IndexOf(Area::Center, -1), -1);
    EXPECT_EQ(layout_.IndexOf(Area::Center, 1000), -1);
    grid_.Destroy(false);
    EXPECT_EQ(Text(Axis::Horizontal), "| | ");
    grid_.CreateLabelled(false);
    EXPECT_EQ(Text(Axis::Vertical), "FTR0 0+22 | | ") << "no column to take the height from";
}

}  // namespace
}  // namespace planview
