// SPDX-License-Identifier: MIT
#include <functional>

#include "support/GridText.h"

namespace planview {
namespace {

class GridReportsTest : public GridTest {
protected:
    void SetUp() override {
        CreateSmallGrid();
        grid_.Redraw();
        grid_.SetWatcher(&log_);
        grid_.SetEvents(&log_);
    }

    /// What was reported since the last call: L layout, E everything, C one cell; one group per report.
    std::string Reported() {
        std::string reported;
        for (const GridChange& change : log_.changes) {
            reported += change.layout ? "L" : "";
            reported += change.everything ? "E" : "";
            reported += change.oneCell ? "C" : "";
            reported += ' ';
        }
        log_.changes.clear();
        return reported;
    }

    ReportLog log_;
};

TEST_F(GridReportsTest, ChangesWaitForTheOneThatIsReported) {
    const CellKeyView first{"COL1", "ROW1"};
    SetCell(first, GridAttribute::Contents, "1", true);
    ASSERT_EQ(log_.changes.size(), 1U);
    EXPECT_EQ(log_.changes[0].cell, At(first));
    EXPECT_EQ(Reported(), "C ");
    SetCell(first, GridAttribute::Contents, "1", true);
    EXPECT_EQ(Reported(), "") << "the same contents";
    SetCell(first, GridAttribute::Contents, "2", false);
    SetCell(first, GridAttribute::BackgroundColor, "red", false);
    EXPECT_EQ(Reported(), "");
    SetCell(first, GridAttribute::Contents, "2", true);
    EXPECT_EQ(Reported(), "C ") << "what waited";
    SetCell(first, GridAttribute::Contents, "3", false);
    SetCell({"COL2", "ROW1"}, GridAttribute::Contents, "3", true);
    EXPECT_EQ(Reported(), "E ") << "two cells";
    SetColumn("COL1", GridAttribute::Width, 90, false);
    grid_.Redraw();
    grid_.Redraw();
    EXPECT_EQ(Reported(), "L ");

    grid_.SetRedraw(false);
    SetColumn("COL1", GridAttribute::Width, 100, true);
    SetRow("ROW1", GridAttribute::ReadOnly, true, true);
    grid_.Redraw();
    EXPECT_FALSE(grid_.RedrawOn());
    EXPECT_EQ(Reported(), "");
    grid_.SetRedraw(true);
    grid_.SetRedraw(true);
    EXPECT_EQ(Reported(), "LE ");
}

TEST_F(GridReportsTest, EachKindOfChange) {
    struct Row {
        const char* name;
        std::function<void()> change;
        const char* reported;
        bool newLayout;
    };
    const Row rows[] = {
        {"create", [this] { grid_.CreateColumn("COL4", 0, true); }, "L ", true},
        {"move", [this] { grid_.MoveColumn("COL4", 1, true); }, "L ", true},
        {"move to where it is", [this] { grid_.MoveColumn("COL4", 1, true); }, "", false},
        {"hide", [this] { SetRow("ROW2", GridAttribute::Hidden, true, true); }, "L ", true},
        {"hide again", [this] { SetRow("ROW2", GridAttribute::Hidden, "X", true); }, "", false},
        {"switch", [this] { SetGrid(GridAttribute::Switched, true, true); }, "L ", true},
        {"switch back", [this] { SetGrid(GridAttribute::Switched, false, true); }, "L ", true},
        {"scroll", [this] { grid_.SetFirstRow("ROW3", true); }, "L ", false},
        {"scroll by the user", [this] { grid_.ScrollToRow(RowAt("ROW1")); }, "L ", false},
        {"scroll to a hidden neighbour", [this] { grid_.SetFirstRow("ROW3", true); }, "L ", false},
        {"the same on screen", [this] { grid_.SetFirstRow("ROW2", true); }, "", false},
        {"grid colour", [this] { SetGrid(GridAttribute::BackgroundColor, "red", true); }, "E ", false},
        {"lines", [this] { SetGrid(GridAttribute::GridLineColor, "red", true); }, "E ", false},
        {"permission", [this] { SetGrid(GridAttribute::MovePermission, 1, true); }, "", false},
        {"select",
         [this] {
             grid_.SetSelection({"COL1", ""}, true);
         },
         "E ", false},
        {"deselect",
         [this] {
             grid_.DeleteSelection({"COL1", ""}, true);
         },
         "E ", false},
        {"label",
         [this] {
             SetCell({"FLC0", "ROW1"}, GridAttribute::Contents, "long", true);
         },
         "C ", false},
        {"auto fit", [this] { SetGrid(GridAttribute::LabelAutoFit, true, true); }, "L ", true},
        {"fitted label",
         [this] {
             SetCell({"FLC0", "ROW1"}, GridAttribute::Contents, "longer", true);
         },
         "LC ", true},
        {"destroy", [this] { grid_.Destroy(true); }, "LE ", true},
    };
    for (const Row& row : rows) {
        const std::uint64_t layout = grid_.LayoutVersion();
        const std::uint64_t version = grid_.ChangeVersion();
        row.change();
        const std::string reported = Reported();
        EXPECT_EQ(reported, row.reported) << row.name;
        EXPECT_EQ(grid_.LayoutVersion() > layout, row.newLayout) << row.name;
        EXPECT_EQ(grid_.ChangeVersion() > version, row.newLayout || reported.find_first_of("EC") != std::string::npos)
            << row.name << ": only scrolling shows the same";
    }
}

TEST_F(GridReportsTest, BordersAreDraggedWithOneEvent) {
    struct Row {
        const char* name;
        std::function<GridStatus()> press;
        std::function<int()> size;
        const char* event;
        const char* hides = nullptr;  ///< the event of a drag below the least size
    };
    const ColumnId column = ColumnAt("COL2");
    const RowId row = RowAt("ROW2");
    const auto firstColumnHeight = [this] { return grid_.Column(ColumnAt("COL1")).height; };
    const Row rows[] = {
        {"column", [&] { return grid_.PressColumnBorder(column, false); }, [&] { return grid_.Column(column).width; },
         "ColumnResized COL2 123", "HideColumn COL2"},
        {"row", [&] { return grid_.PressRowBorder(row, false); }, [&] { return grid_.Row(row).height; },
         "RowResized ROW2 123", "HideRow ROW2"},
        {"switched column", [&] { return grid_.PressColumnBorder(column, true); },
         [&] { return grid_.Column(column).height; }, "HeadingHeightResized COL2 123", "HideColumn COL2"},
        {"switched row", [&] { return grid_.PressRowBorder(row, true); }, [&] { return grid_.Row(row).width; },
         "HeadingWidthResized ROW2 123", "HideRow ROW2"},
        {"labels", [&] { return grid_.PressColumnBorder(ColumnAt("FLC0"), false); },
         [&] { return grid_.Settings().labelColumnWidth; }, "ColumnResized FLC0 123"},
        {"heading", [&] { return grid_.PressRowBorder(RowAt("FTR0"), false); }, firstColumnHeight,
         "HeadingHeightResized COL1 123"},
        {"switched heading", [&] { return grid_.PressColumnBorder(ColumnAt("FLC0"), true); },
         [&] { return grid_.Row(RowAt("ROW1")).height; }, "RowResized ROW1 123"},
    };
    for (const Row& border : rows) {
        const int before = border.size();
        EXPECT_EQ(border.press(), GridStatus::Ok) << border.name;
        grid_.DragBorder(-5);
        EXPECT_EQ(border.size(), border.hides ? 1 : LeastTrackSize) << border.name;
        grid_.DragBorder(1000000);
        EXPECT_EQ(border.size(), MaxTrackSize) << border.name;
        EXPECT_EQ(Reported(), "L L ") << border.name;
        EXPECT_EQ(grid_.CancelBorder(), GridStatus::Ok);
        EXPECT_EQ(border.size(), before) << border.name;
        for (const int size : {LeastTrackSize - 1, LeastTrackSize}) {
            border.press();
            grid_.DragBorder(size);
            grid_.ReleaseBorder();
            const bool hidden = border.hides && size < LeastTrackSize;
            EXPECT_EQ(border.size(), hidden ? before : LeastTrackSize) << border.name;
            EXPECT_EQ(log_.events.front().starts_with("Hide"), hidden) << log_.events.front();
            EXPECT_FALSE(hidden && log_.events.front() != border.hides) << log_.events.front();
            border.press();
            grid_.DragBorder(before);
            grid_.ReleaseBorder();
            log_.events.clear();
        }
        Reported();

        border.press();
        EXPECT_EQ(grid_.ReleaseBorder(), GridStatus::Ok) << "a click only";
        EXPECT_TRUE(log_.events.empty()) << border.name;
        border.press();
        grid_.DragBorder(99);
        EXPECT_TRUE(log_.events.empty()) << border.name;
        grid_.DragBorder(123);
        EXPECT_EQ(grid_.ReleaseBorder(), GridStatus::Ok);
        EXPECT_EQ(log_.events, std::vector<std::string>{border.event});
        EXPECT_EQ(grid_.DragBorder(99), GridStatus::NoRegisterPress) << border.name;
        log_.events.clear();
        Reported();
    }
    for (const ColumnId other : grid_.Columns(ColumnArea::Center)) {
        SetColumn(grid_.Column(other).key, GridAttribute::Hidden, other != column);
    }
    grid_.PressColumnBorder(column, false);
    grid_.DragBorder(2);
    EXPECT_EQ(grid_.Column(column).width, LeastTrackSize) << "the last one to be seen stays";
    grid_.CancelBorder();
    SetGrid(GridAttribute::LabelAutoFit, true);
    EXPECT_EQ(grid_.PressColumnBorder(ColumnAt("FLC0"), false), GridStatus::AttributeNotPossible);
    grid_.PressColumnBorder(column, false);
    grid_.Destroy(false);
    EXPECT_EQ(grid_.DragBorder(5), GridStatus::NoRegisterPress) << "the column is gone";
}

TEST_F(GridReportsTest, FocusIsPassedOn) {
    grid_.ReportFocus(true);
    grid_.ReportFocus(false);
    EXPECT_EQ(log_.events, (std::vector<std::string>{"FocusIn", "FocusOut"}));
}

/// Answers a report with a change of its own, twice.
class ChangingWatcher : public GridWatcher {
public:
    explicit ChangingWatcher(GridControl& grid) : grid_(grid) {}
    void GridChanged(const GridChange& change) override {
        ASSERT_EQ(++depth_, 1);
        ++calls;
        EXPECT_TRUE(change.everything || calls == 1);
        if (calls <= 2) {
            const GridStatus status = grid_.SetAttribute(GridElement::Row, {{}, "ROW1"}, GridAttribute::BackgroundColor,
                                                         calls == 1 ? "red" : "blue", true);
            EXPECT_EQ(status, GridStatus::Ok);
        }
        --depth_;
    }
    int calls = 0;

private:
    GridControl& grid_;
    int depth_ = 0;
};

TEST_F(GridReportsTest, AWatchersOwnChangesAreReportedAfterIt) {
    ChangingWatcher watcher(grid_);
    grid_.SetWatcher(&watcher);
    SetCell({"COL1", "ROW1"}, GridAttribute::Contents, "1", true);
    EXPECT_EQ(watcher.calls, 3);
}

}  // namespace
}  // namespace planview
