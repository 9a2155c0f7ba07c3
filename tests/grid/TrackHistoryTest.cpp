// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "dialogs/frmRow.h"
#include "grid/TrackOrder.h"
#include "support/ContextOnTables.h"

namespace planview {

using test::Lines;

namespace {

/// Four columns and four lines; the tables keep the order on the screen.
class TrackHistoryTest : public test::ContextTest, public EventSink {
protected:
    TrackHistoryTest() {
        for (const auto& [table, field] :
             {std::pair(&tables.colsIndex, "COL_ORDER"), std::pair(&tables.lineIndex, "ROW_ORDER")}) {
            std::vector<std::string> fields = (*table)->Fields();
            fields.emplace_back(field);
            *table = std::make_shared<MemoryTable>(std::move(fields));
        }
        for (int i = 1; i <= 4; ++i) {
            tables.AddColumn(i, "P", {{"COL_WIDTH", 70}});
            tables.AddLine(i, "Line", {{"ROW_HEIGHT", 24}, {"READONLY", i == 4 ? "X" : ""}});
            tables.AddValue(1, i, i);
        }
        Build();
        ForgetEntries();
        context.shared.events.AddSink(*this);
    }
    ~TrackHistoryTest() override { context.shared.events.RemoveSink(*this); }

    void OnEvent(EventId event, std::span<const Variant>) override {
        updates += event == EventId::GridStartUpdate ? 1 : 0;
    }
    [[nodiscard]] GridControl& Grid() { return context.grid.control; }
    void Move(const char* key, std::int16_t place) {
        const bool column = std::string_view(key).starts_with("COL");
        const std::vector<std::string> before = OrderedKeys(Grid(), column ? ColumnAxis : RowAxis);
        column ? Grid().MoveColumn(key, place, true) : Grid().MoveRow(key, place, true);
        Grid().ReportMoved(column ? MovedTracks::Columns : MovedTracks::Rows, before);
    }
    static std::string Joined(const Lines& texts) {
        std::string all;
        for (const std::string& text : texts) {
            all += (all.empty() ? "" : " ") + text;
        }
        return all;
    }
    [[nodiscard]] std::string Order(const IndexAxis& axis) { return Joined(OrderedKeys(Grid(), axis)); }
    static std::string Field(const MemoryTable& table, const char* field) {
        Lines texts;
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            texts.push_back(table.Value(row, field).AsText());
        }
        return Joined(texts);
    }
    /// All that can be done to columns and rows, in the tables and on the screen.
    [[nodiscard]] std::string State() {
        std::string state = Order(ColumnAxis) + " | " + Order(RowAxis);
        for (const char* field : {"COL_HIDDEN", "COL_WIDTH", "COL_HEIGHT", "COL_ORDER"}) {
            state += std::string("\n") + field + " " + Field(*tables.colsIndex, field);
        }
        for (const char* field : {"ROW_HIDDEN", "ROW_WIDTH", "ROW_HEIGHT", "ROW_BG", "ROW_FG", "RELIEF", "ROW_ALIGN",
                                  "ROW_FONT", "SHOW_CHART", "ROW_ORDER"}) {
            state += std::string("\n") + field + " " + Field(*tables.lineIndex, field);
        }
        for (const ColumnId id : Grid().Columns(ColumnArea::Center)) {
            const GridColumn& column = Grid().Column(id);
            state += "\n" + column.key + " " + std::to_string(column.width) + " " + std::to_string(column.height) +
                     (column.hidden ? " hidden" : "");
        }
        for (const RowId id : Grid().Rows(RowArea::Center)) {
            const GridRow& row = Grid().Row(id);
            const CellLook look = Grid().Look({Grid().FindColumn("COL1").value(), id});
            state += "\n" + row.key + " " + std::to_string(row.height) + " " + std::to_string(row.width) +
                     (row.hidden ? " hidden" : "") + " " + std::to_string(look.background) + " " +
                     std::to_string(look.foreground) + (look.relief ? " relief " : " ") +
                     std::to_string(static_cast<int>(look.alignment)) + " " + (look.font ? look.font->name : "");
        }
        return state;
    }

    int updates = 0;
};

}  // namespace

TEST_F(TrackHistoryTest, EachActionIsTakenBackAndMadeAgainAsOne) {
    const struct {
        const char* name;
        std::function<void()> act;
    } cases[] = {
        {"hide columns",
         [&] {
             context.runner.Run(Command::HideColumns, {.columns = {"COL2", "COL3"}});
         }},
        {"show them", [&] { context.runner.Run(Command::ShowColumns, {.columns = {"COL2"}}); }},
        {"hide rows", [&] { context.runner.Run(Command::HideRows, {.rows = {"ROW2"}}); }},
        {"a dragged width",
         [&] {
             Grid().PressColumnBorder(Grid().FindColumn("COL1").value(), false);
             Grid().DragBorder(33);
             Grid().ReleaseBorder();
         }},
        {"a border dragged together",
         [&] {
             Grid().PressRowBorder(Grid().FindRow("ROW1").value(), false);
             Grid().DragBorder(3);
             Grid().ReleaseBorder();
         }},
        {"a height for several",
         [&] {
             context.runner.Run(Command::SetRowHeight, {.rows = {"ROW1", "ROW3"}, .value = 40});
         }},
        {"switched sizes",
         [&] {
             Grid().PressColumnBorder(Grid().FindColumn("COL4").value(), true);
             Grid().DragBorder(31);
             Grid().ReleaseBorder();
         }},
        {"reset widths", [&] { context.runner.Run(Command::ResetWidths); }},
        {"colours, of a locked line, too",
         [&] {
             context.runner.Run(Command::ColorRowBackground, {.rows = {"ROW3", "ROW4"}, .value = 5});
         }},
        {"attributes",
         [&] {
             platform.whileShown = [](Form& form) {
                 auto& row = dynamic_cast<frmRow&>(form);
                 row.chkRelief.Value = 1;
                 row.chkChart.Value = 1;
                 row.Set_Alignment(2);
                 row.ListFont.Choose("Courier");
                 row.txtHeight = "50";
                 row.cmdOk_Click();
             };
             Grid().SetSelection({{}, "ROW3"}, true);
             context.runner.Run(Command::EditRowAttributes);
         }},
        {"a moved column", [&] { Move("COL1", 3); }},
        {"a moved row", [&] { Move("ROW4", 1); }},
        {"and back", [&] { Move("COL1", 1); }},
    };
    std::vector<std::string> states{State()};
    for (const auto& row : cases) {
        row.act();
        states.push_back(State());
        EXPECT_NE(states.back(), states[states.size() - 2]) << row.name;
    }
    for (std::size_t i = std::size(cases); i-- > 0;) {
        updates = 0;
        context.grid.valueEntry.Undo();
        EXPECT_EQ(State(), states[i]) << cases[i].name;
        EXPECT_EQ(updates, 1) << cases[i].name;
    }
    EXPECT_FALSE(context.grid.history.CanUndo());
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        context.grid.valueEntry.Redo();
        EXPECT_EQ(State(), states[i + 1]) << cases[i].name;
    }
    const std::string last = State();
    context.grid.construction.CreateFromTables();
    EXPECT_EQ(State(), last) << "a build shows the same";
}

TEST_F(TrackHistoryTest, ValuesAndColumnsAreUndoneInOneLine) {
    Grid().EnterText(Grid().FindCell({"COL1", "ROW1"}).value(), "7");
    context.runner.Run(Command::HideColumns, {.columns = {"COL2"}});
    Grid().EnterText(Grid().FindCell({"COL1", "ROW1"}).value(), "8");
    const auto state = [&] {
        return Grid().Contents(Grid().FindCell({"COL1", "ROW1"}).value()) +
               (Grid().Column(Grid().FindColumn("COL2").value()).hidden ? " hidden" : "");
    };
    Lines states{state()};
    for (int i = 0; i < 3; ++i) {
        context.grid.valueEntry.Undo();
        states.push_back(state());
    }
    EXPECT_EQ(states, (Lines{"8 hidden", "7 hidden", "7", "1"}));
}

TEST_F(TrackHistoryTest, AMoveIsKeptByTheTableAndOutlivesABuild) {
    Move("COL4", 1);
    Move("ROW1", 2);
    EXPECT_EQ(updates, 2) << "the host hears of it";
    EXPECT_EQ(Field(*tables.colsIndex, "COL_ORDER"), "2 3 4 1");
    EXPECT_EQ(Field(*tables.lineIndex, "ROW_ORDER"), "2 1 3 4");
    context.grid.construction.CreateFromTables();
    EXPECT_EQ(Order(ColumnAxis), "COL4 COL1 COL2 COL3");
    EXPECT_EQ(Order(RowAxis), "ROW2 ROW1 ROW3 ROW4");
    tables.AddColumn(9, "New");
    context.grid.construction.CreateFromTables();
    EXPECT_EQ(Order(ColumnAxis), "COL4 COL1 COL2 COL3 COL9") << "one without a place stands where the table has it";
    Move("COL4", 4);
    EXPECT_EQ(Field(*tables.colsIndex, "COL_ORDER"), "0 0 0 0 ") << "the table's own order again";
}

TEST_F(TrackHistoryTest, TablesWithoutTheFieldStayAsTheyAre) {
    const auto plain = MemoryTable::WithFieldsOf("COLS_INDEX");
    for (int i = 1; i <= 4; ++i) {
        test::AddRow(*plain, {{"COLUMN", i}});
    }
    context.shared.tables.COLS_INDEX = HostTable(plain);
    context.grid.construction.CreateFromTables();
    Move("COL3", 1);
    EXPECT_EQ(Order(ColumnAxis), "COL3 COL1 COL2 COL4");
    EXPECT_EQ(updates, 0) << "no table has changed";
    context.grid.valueEntry.Undo();
    EXPECT_EQ(Order(ColumnAxis), "COL1 COL2 COL3 COL4") << "undone all the same";
}

}  // namespace planview
