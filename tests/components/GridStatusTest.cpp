// SPDX-License-Identifier: MIT
#include <cmath>
#include <functional>

#include "components/GridEvents.h"
#include "support/GridText.h"

namespace planview {
namespace {

class GridStatusTest : public GridTest {
protected:
    struct Row {
        const char* name;
        GridStatus status;
        std::function<GridStatus()> call;
    };

    /// An attribute of COL1, of ROW1, of the cell where they cross, or of the grid.
    struct AttributeRow {
        const char* name;
        GridStatus status;
        GridElement element;
        GridAttribute attribute;
        Variant value;
    };

    void CheckAttributes(const std::vector<AttributeRow>& rows) {
        grid_.Redraw();
        for (const AttributeRow& row : rows) {
            const bool hasColumn = row.element == GridElement::Column || row.element == GridElement::Cell;
            const bool hasRow = row.element == GridElement::Row || row.element == GridElement::Cell;
            const CellKeyView keys{hasColumn ? "COL1" : "", hasRow ? "ROW1" : ""};
            Check({{row.name, row.status,
                    [&] { return grid_.SetAttribute(row.element, keys, row.attribute, row.value, true); }}});
        }
    }

    /// Makes each call and sees that nothing changes by it.
    void Check(const std::vector<Row>& rows) {
        ReportLog log;
        for (const Row& row : rows) {
            const std::string before = GridText(grid_);
            const std::uint64_t version = grid_.LayoutVersion();
            grid_.SetWatcher(&log);
            EXPECT_EQ(row.call(), row.status) << row.name;
            grid_.Redraw();  // would report what was noted, but must not have been
            grid_.SetWatcher(nullptr);
            EXPECT_EQ(GridText(grid_), before) << row.name;
            EXPECT_EQ(grid_.LayoutVersion(), version) << row.name;
            EXPECT_TRUE(log.changes.empty()) << row.name;
        }
    }
};

constexpr const char* InvalidUtf8 = "\xC3\x28";

TEST_F(GridStatusTest, RefusalsByKeyAndPosition) {
    CreateSmallGrid();
    grid_.Redraw();
    const auto contents = [this](CellKeyView keys) { return SetCell(keys, GridAttribute::Contents, "x", true); };
    Check({
        {"a row twice", GridStatus::RowDefined, [this] { return grid_.CreateRow("ROW2", 0, true); }},
        {"the heading row", GridStatus::RowDefined, [this] { return grid_.CreateRow("FTR0", 0, true); }},
        {"a column twice", GridStatus::ColumnDefined, [this] { return grid_.CreateColumn("COL2", 0, true); }},
        {"a second grid", GridStatus::ColumnDefined, [this] { return grid_.CreateLabelled(true); }},
        {"no such row", GridStatus::UnknownRow,
         [&] {
             return contents({"COL1", "ROW9"});
         }},
        {"no such column", GridStatus::UnknownColumn,
         [&] {
             return contents({"COL9", "ROW1"});
         }},
        {"neither exists", GridStatus::InvalidCellPosition,
         [&] {
             return contents({"COL9", "ROW9"});
         }},
        {"a row's key for a column", GridStatus::InvalidName,
         [&] {
             return contents({"ROW1", "ROW1"});
         }},
        {"no key", GridStatus::InvalidName,
         [&] {
             return contents({"", "ROW1"});
         }},
        {"no number", GridStatus::InvalidName, [this] { return grid_.CreateColumn("COL", 0, true); }},
        {"a negative number", GridStatus::InvalidName, [this] { return grid_.CreateColumn("COL-1", 0, true); }},
        {"lower case", GridStatus::InvalidName, [this] { return grid_.CreateRow("row4", 0, true); }},
        {"a column's key for a row", GridStatus::InvalidName, [this] { return grid_.CreateRow("FRC4", 0, true); }},
        {"a colour without a name", GridStatus::InvalidName, [this] { return grid_.CreateColor("", 0, 0, 0); }},
        {"a colour twice", GridStatus::ColorDefined, [this] { return grid_.CreateColor("red", 1, 2, 3); }},
        {"row position below", GridStatus::InvalidRowPosition, [this] { return grid_.CreateRow("ROW4", -1, true); }},
        {"row position beyond", GridStatus::InvalidRowPosition, [this] { return grid_.CreateRow("ROW4", 5, true); }},
        {"top row beyond", GridStatus::InvalidRowPosition, [this] { return grid_.CreateRow("FTR4", 3, true); }},
        {"column beyond", GridStatus::InvalidColumnPosition, [this] { return grid_.CreateColumn("COL4", 5, true); }},
        {"left beyond", GridStatus::InvalidColumnPosition, [this] { return grid_.CreateColumn("FLC4", 3, true); }},
        {"move to 0", GridStatus::InvalidColumnPosition, [this] { return grid_.MoveColumn("COL1", 0, true); }},
        {"move beyond", GridStatus::InvalidRowPosition, [this] { return grid_.MoveRow("ROW1", 4, true); }},
        {"move the labels", GridStatus::AttributeNotPossible, [this] { return grid_.MoveColumn("FLC0", 1, true); }},
        {"scroll fixed", GridStatus::NoItemAtLocation, [this] { return grid_.SetFirstColumn("FRC1", true); }},
        {"scroll unknown", GridStatus::UnknownRow, [this] { return grid_.SetFirstRow("ROW9", true); }},
        {"select the labels", GridStatus::NoItemAtLocation,
         [this] {
             return grid_.SetSelection({"FLC0", ""}, true);
         }},
        {"select a heading", GridStatus::NoItemAtLocation,
         [this] {
             return grid_.SelectCell(At({"COL1", "FTR0"}), SelectionMode::Replace);
         }},
        {"select a foreign id", GridStatus::UnknownColumn,
         [this] { return grid_.SelectColumn(ColumnId{77}, SelectionMode::Replace); }},
        {"drag without press", GridStatus::NoRegisterPress, [this] { return grid_.DragBorder(50); }},
        {"release without press", GridStatus::NoRegisterPress, [this] { return grid_.ReleaseBorder(); }},
        {"cancel without press", GridStatus::NoRegisterPress, [this] { return grid_.CancelBorder(); }},
    });
}

TEST_F(GridStatusTest, AttributesThatTheElementDoesNotHave) {
    CreateSmallGrid();
    CheckAttributes({
        {"contents of the grid", GridStatus::UndefinedGridAttribute, GridElement::Grid, GridAttribute::Contents, "x"},
        {"hidden grid", GridStatus::UndefinedGridAttribute, GridElement::Grid, GridAttribute::Hidden, true},
        {"tooltip of a row", GridStatus::UndefinedRowAttribute, GridElement::Row, GridAttribute::Tooltip, "x"},
        {"switched column", GridStatus::UndefinedColumnAttribute, GridElement::Column, GridAttribute::Switched, true},
        {"width of a cell", GridStatus::UndefinedCellAttribute, GridElement::Cell, GridAttribute::Width, 9},
        {"no attribute at all", GridStatus::UndefinedGridAttribute, GridElement::Grid, static_cast<GridAttribute>(200),
         1},
    });
    Check({
        {"the centre of a cell", GridStatus::UndefinedCellAttribute,
         [this] {
             return grid_.SetCenterAttribute(GridElement::Cell, {"COL1", "ROW1"}, GridAttribute::ReadOnly, true, true);
         }},
        {"hidden labels", GridStatus::AttributeNotPossible,
         [this] { return SetColumn("FLC0", GridAttribute::Hidden, true, true); }},
        {"hidden heading", GridStatus::AttributeNotPossible,
         [this] { return SetRow("FTR0", GridAttribute::Hidden, "X", true); }},
    });
}

TEST_F(GridStatusTest, NamesAndTextsThatTheGridDoesNotTake) {
    CreateSmallGrid();
    grid_.RegisterFonts({"Arial", "Courier New"});
    CheckAttributes({
        {"bitmap", GridStatus::UnknownBitmap, GridElement::Cell, GridAttribute::Bitmap, "skull"},
        {"colour", GridStatus::UnknownColor, GridElement::Cell, GridAttribute::BackgroundColor, "pink"},
        {"no colour", GridStatus::UnknownColor, GridElement::Row, GridAttribute::ForegroundColor, ""},
        {"line colour", GridStatus::UnknownColor, GridElement::Grid, GridAttribute::GridLineColor, "pink"},
        {"font family", GridStatus::UnknownFont, GridElement::Cell, GridAttribute::Font, "Wingdings;10;Bold"},
        {"font too small", GridStatus::UnknownFont, GridElement::Cell, GridAttribute::Font, "Arial;3"},
        {"font too large", GridStatus::UnknownFont, GridElement::Cell, GridAttribute::Font, "Arial;97"},
        {"font size no number", GridStatus::UnknownFont, GridElement::Cell, GridAttribute::Font, "Arial;ten"},
        {"font style", GridStatus::UnknownFont, GridElement::Cell, GridAttribute::Font, "Arial;10;Fat"},
        {"four pieces", GridStatus::UnknownFont, GridElement::Cell, GridAttribute::Font, "Arial;10;Bold;x"},
        {"text of bad bytes", GridStatus::InvalidText, GridElement::Cell, GridAttribute::Contents, InvalidUtf8},
        {"tooltip of bad bytes", GridStatus::InvalidText, GridElement::Cell, GridAttribute::Tooltip, InvalidUtf8},
        {"colour of bad bytes", GridStatus::InvalidText, GridElement::Cell, GridAttribute::BackgroundColor,
         InvalidUtf8},
        {"quoted bad bytes", GridStatus::InvalidText, GridElement::Cell, GridAttribute::Format, "0\"\xFF\""},
    });
    Check({{"new colour of bad bytes", GridStatus::InvalidText,
            [this] { return grid_.CreateColor(InvalidUtf8, 1, 2, 3); }}});
}

TEST_F(GridStatusTest, ValuesOfTheWrongKindOrRange) {
    CreateSmallGrid();
    CheckAttributes({
        {"number code", GridStatus::InvalidAttribute, GridElement::Cell, GridAttribute::Format, "yyyy"},
        {"contents of a number", GridStatus::InvalidAttribute, GridElement::Cell, GridAttribute::Contents, 12},
        {"colour of a number", GridStatus::InvalidAttribute, GridElement::Cell, GridAttribute::BackgroundColor, 1},
        {"alignment 3", GridStatus::InvalidAttribute, GridElement::Cell, GridAttribute::Alignment, 3},
        {"alignment as text", GridStatus::InvalidAttribute, GridElement::Cell, GridAttribute::BitmapAlignment, "1"},
        {"flag H", GridStatus::InvalidAttribute, GridElement::Row, GridAttribute::HelpLine, "H"},
        {"flag empty", GridStatus::InvalidAttribute, GridElement::Row, GridAttribute::ReadOnly, Variant()},
        {"flag nothing", GridStatus::InvalidAttribute, GridElement::Row, GridAttribute::ReadOnly, Variant::Nothing()},
        {"width below 0", GridStatus::InvalidAttribute, GridElement::Column, GridAttribute::Width, -1},
        {"width too large", GridStatus::InvalidAttribute, GridElement::Column, GridAttribute::Width, MaxTrackSize + 1},
        {"height no number", GridStatus::InvalidAttribute, GridElement::Row, GridAttribute::Height, std::nan("")},
        {"height infinite", GridStatus::InvalidAttribute, GridElement::Row, GridAttribute::Height, HUGE_VAL},
        {"height 1E10", GridStatus::InvalidAttribute, GridElement::Row, GridAttribute::Height, 1e10},
        {"permission 2", GridStatus::InvalidAttribute, GridElement::Grid, GridAttribute::MovePermission, 2},
        {"permission text", GridStatus::InvalidAttribute, GridElement::Grid, GridAttribute::DragDrop, "X"},
    });
    EXPECT_EQ(SetGrid(GridAttribute::ResizePermission, 0), GridStatus::Ok);
    Check({{"resize without permission", GridStatus::AttributeNotPossible,
            [this] { return grid_.PressColumnBorder(ColumnAt("COL1"), false); }}});
}

TEST_F(GridStatusTest, BeforeThereIsAGrid) {
    Check({
        {"column", GridStatus::AttributeNotPossible, [this] { return grid_.CreateColumn("COL1", 0, true); }},
        {"row", GridStatus::AttributeNotPossible, [this] { return grid_.CreateRow("ROW1", 0, true); }},
        {"grid attribute", GridStatus::AttributeNotPossible,
         [this] { return SetGrid(GridAttribute::Switched, true, true); }},
        {"cell", GridStatus::AttributeNotPossible,
         [this] {
             return SetCell({"COL1", "ROW1"}, GridAttribute::Contents, "x", true);
         }},
        {"move", GridStatus::AttributeNotPossible, [this] { return grid_.MoveRow("ROW1", 1, true); }},
        {"scroll", GridStatus::AttributeNotPossible, [this] { return grid_.SetFirstColumn("COL1", true); }},
        {"select", GridStatus::AttributeNotPossible,
         [this] {
             return grid_.SetSelection({"COL1", ""}, true);
         }},
        {"deselect", GridStatus::AttributeNotPossible,
         [this] {
             return grid_.DeleteSelection({"", ""}, true);
         }},
        {"destroy", GridStatus::Ok, [this] { return grid_.Destroy(true); }},
    });
    grid_.SelectAll();
    grid_.ClearSelection();
    EXPECT_FALSE(grid_.CurrentCell());
    EXPECT_FALSE(grid_.FirstRow());
}

TEST_F(GridStatusTest, CountsNoFurtherThan16Bits) {
    constexpr int Most = 32767;
    ASSERT_EQ(grid_.CreateLabelled(false), GridStatus::Ok);
    for (int i = 1; i <= Most; ++i) {
        ASSERT_EQ(grid_.CreateColumn("FLC" + std::to_string(i), 0, false), GridStatus::Ok);
        ASSERT_EQ(grid_.CreateRow("ROW" + std::to_string(i), 0, false), GridStatus::Ok);
        ASSERT_EQ(grid_.CreateColor("color" + std::to_string(i), 0, 0, 0), GridStatus::Ok);
    }
    EXPECT_EQ(grid_.CreateColumn("FLC40000", 1, false), GridStatus::TooManyElements);
    EXPECT_EQ(grid_.CreateRow("ROW40000", 0, false), GridStatus::TooManyElements);
    EXPECT_EQ(grid_.CreateRow("FTR1", 0, false), GridStatus::Ok) << "another area";
    EXPECT_EQ(grid_.CreateColor("last", 0, 0, 0), GridStatus::Ok);
    EXPECT_EQ(grid_.CreateColor("one more", 0, 0, 0), GridStatus::TooManyElements);
}

/// Calls everything that a watcher must not.
class BuildingWatcher : public GridWatcher {
public:
    explicit BuildingWatcher(GridControl& grid) : grid_(grid) {}
    void GridChanged(const GridChange&) override {
        statuses = {grid_.CreateLabelled(true),          grid_.Destroy(true),
                    grid_.CreateColumn("COL9", 0, true), grid_.CreateRow("ROW9", 0, true),
                    grid_.MoveColumn("COL1", 2, true),   grid_.MoveRow("ROW1", 2, true),
                    grid_.CreateColor("late", 0, 0, 0)};
    }
    std::vector<GridStatus> statuses;

private:
    GridControl& grid_;
};

TEST_F(GridStatusTest, WatchersMustNotBuild) {
    CreateSmallGrid();
    const std::string before = GridText(grid_);
    BuildingWatcher watcher(grid_);
    grid_.SetWatcher(&watcher);
    grid_.Redraw();
    EXPECT_EQ(watcher.statuses, std::vector<GridStatus>(7, GridStatus::Busy));
    EXPECT_EQ(GridText(grid_), before);
    grid_.SetWatcher(nullptr);
    EXPECT_EQ(grid_.CreateColumn("COL9", 0, true), GridStatus::Ok) << "free again";
}

}  // namespace
}  // namespace planview
