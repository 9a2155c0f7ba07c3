// SPDX-License-Identifier: MIT
#include <functional>

#include "macro/recording/RecordingFixture.h"

namespace planview::test {

namespace {

/// What the mouse does to headings and cells, done by commands that have a key.
class HeadingCommandsTest : public RecordingTest {
protected:
    void AllowMoves(bool on) {
        const auto number = static_cast<std::int16_t>(on ? 1 : 0);
        Grid().SetAttribute(GridElement::Grid, {}, GridAttribute::MovePermission, number, true);
        Grid().SetAttribute(GridElement::Grid, {}, GridAttribute::DragDrop, number, true);
    }
    /// The numbers of the planning columns, or of the rows, as they stand.
    [[nodiscard]] std::string Order(bool columns) {
        std::string order;
        if (columns) {
            for (const ColumnId id : Grid().Columns(ColumnArea::Center)) {
                order += Grid().Column(id).key.substr(3);
            }
        } else {
            for (const RowId id : Grid().Rows(RowArea::Center)) {
                order += Grid().Row(id).key.substr(3);
            }
        }
        return order;
    }
    [[nodiscard]] int Width(const char* column) { return Grid().Column(*Grid().FindColumn(column)).width; }
    [[nodiscard]] int Height(const char* row) { return Grid().Row(*Grid().FindRow(row)).height; }
    void Choose(const char* column, const char* row) { Grid().SelectCell(At(column, row), SelectionMode::Replace); }
};

TEST_F(HeadingCommandsTest, MoveColumnsAndRowsByOnePlace) {
    AllowMoves(true);
    const struct {
        const char* name;
        std::function<void()> prepare;
        Command command;
        bool columns;
        const char* order;
    } cases[] = {
        {"the column of the current cell", [&] { Choose("COL2", "ROW1"); }, Command::MoveRight, true, "132456"},
        {"again", [] {}, Command::MoveRight, true, "134256"},
        {"back", [] {}, Command::MoveLeft, true, "132456"},
        {"over a hidden one",
         [&] {
             Grid().SetAttribute(GridElement::Column, {"COL3", {}}, GridAttribute::Hidden, true, true);
         },
         Command::MoveLeft, true, "213456"},
        {"not over the edge", [] {}, Command::MoveLeft, true, "213456"},
        {"selected rows together",
         [&] {
             SelectRows({"ROW2", "ROW3"});
         },
         Command::MoveDown, false, "1423"},
        {"and they stop together", [] {}, Command::MoveDown, false, "1423"},
        {"up", [] {}, Command::MoveUp, false, "1234"},
        {"two that do not touch",
         [&] {
             SelectRows({"ROW2", "ROW4"});
         },
         Command::MoveUp, false, "2143"},
    };
    for (const auto& row : cases) {
        row.prepare();
        control->Run(row.command);
        EXPECT_EQ(Order(row.columns), row.order) << row.name;
    }
    control->Run(Command::Undo);
    EXPECT_EQ(Order(false), "1234") << "undo covers it";
    AllowMoves(false);
    control->Run(Command::MoveDown);
    EXPECT_EQ(Order(false), "1234");
    EXPECT_EQ(control->StateOf(Command::MoveDown).reason, "In this table columns and rows cannot be moved.");
}

TEST_F(HeadingCommandsTest, MakeColumnsAndRowsLargerAndSmaller) {
    Choose("COL2", "ROW3");
    const int width = Width("COL2");
    const int height = Height("ROW3");
    control->Run(Command::MakeWider);
    control->Run(Command::MakeWider);
    control->Run(Command::MakeLower);
    EXPECT_EQ(Width("COL2"), width + 16);
    EXPECT_EQ(Height("ROW3"), height - 4);
    EXPECT_EQ(Width("COL1"), width);
    control->Run(Command::Undo);
    EXPECT_EQ(Height("ROW3"), height);
    for (int i = 0; i < 40; ++i) {
        control->Run(Command::MakeNarrower);
    }
    EXPECT_EQ(Width("COL2"), LeastTrackSize) << "smaller ones would be hidden";
    EXPECT_FALSE(Grid().Column(*Grid().FindColumn("COL2")).hidden);
    Grid().SelectColumn(*Grid().FindColumn("COL4"), SelectionMode::Replace);
    Grid().SelectColumn(*Grid().FindColumn("COL6"), SelectionMode::Add);
    control->Run(Command::MakeWider);
    EXPECT_EQ(Width("COL4"), width + 8);
    EXPECT_EQ(Width("COL6"), width + 8) << "all selected ones, as when a border is dragged";
}

TEST_F(HeadingCommandsTest, KeysAddToTheSelection) {
    Choose("COL1", "ROW1");
    control->Run(Command::AddToSelection);
    EXPECT_TRUE(control->StateOf(Command::AddToSelection).checked);
    Grid().GoToCell(At("COL3", "ROW3"));
    EXPECT_TRUE(Grid().IsSelected({"COL1", "ROW1"}));
    EXPECT_FALSE(Grid().IsSelected({"COL3", "ROW3"})) << "only gone to";
    Grid().SelectCell(At("COL4", "ROW3"), SelectionMode::Extend);
    EXPECT_TRUE(Grid().IsSelected({"COL3", "ROW3"}) && Grid().IsSelected({"COL4", "ROW3"}));
    EXPECT_TRUE(Grid().IsSelected({"COL1", "ROW1"}));
    Grid().GoToCell(At("COL6", "ROW1"));
    control->Run(Command::SelectColumn);
    Grid().GoToCell(At("COL5", "ROW1"));
    control->Run(Command::SelectRow);
    EXPECT_TRUE(Grid().IsSelected({"COL6", {}}) && Grid().IsSelected({{}, "ROW1"}));
    EXPECT_TRUE(Grid().IsSelected({"COL3", "ROW3"}));
    Choose("COL2", "ROW2");
    EXPECT_FALSE(Grid().IsAdding()) << "a selection that replaces another ends it";
    EXPECT_FALSE(Grid().IsSelected({"COL6", {}}));
}

TEST_F(HeadingCommandsTest, TheLinesOfTheForecastViewAreChosen) {
    Choose("COL1", "ROW2");
    EXPECT_EQ(control->StateOf(Command::ChooseForecastLine).reason, "The chart does not show the forecast view.");
    control->View().SwitchChart();
    control->Run(Command::ForecastChart);
    control->Run(Command::ChooseForecastLine);
    Choose("COL1", "ROW3");
    control->Run(Command::ChooseForecastLine);
    const HostTable lines(tables.lineIndex);
    EXPECT_EQ(lines.Text(2, "SHOW_CHART") + lines.Text(3, "SHOW_CHART"), "SF");
}

TEST_F(HeadingCommandsTest, OutcomesAndWhatACellSaysAreTold) {
    Lines told;
    control->Editing().AddOutcomeListener([&](std::string_view sentence) { told.emplace_back(sentence); });
    control->Editing().AddHintListener([&](const CellKey&, std::string_view sentence) {
        told.emplace_back(sentence);
        return true;
    });
    Select("COL1", "ROW1", "COL2", "ROW1");
    control->Run(Command::DeleteContents);
    control->Run(Command::Undo);
    control->Run(Command::Redo);
    Choose("COL3", "ROW1");
    Grid().SetAttribute(GridElement::Cell, {"COL3", "ROW1"}, GridAttribute::Tooltip, "from the budget", true);
    control->Run(Command::TellAboutCell);
    EXPECT_EQ(told, (Lines{"2 cells emptied", "2 cells undone", "2 cells redone", "103\nfrom the budget"}));
}

}  // namespace

}  // namespace planview::test
