// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview::test {

/// Six months and four lines; "Total" is read-only. Line n holds n * 100 + the month's number.
class RecordingTest : public TracedTest, protected PlanViewEvents {
protected:
    RecordingTest() : control(std::make_unique<PlanView>(platform.Interfaces())) {
        constexpr const char* Months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun"};
        constexpr const char* Captions[] = {"Retail", "  Wholesale", "Utilities", "Total"};
        for (int column = 1; column <= 6; ++column) {
            tables.AddColumn(column, Months[column - 1]);
        }
        for (int line = 1; line <= 4; ++line) {
            tables.AddLine(line, Captions[line - 1], {{"READONLY", line == 4 ? "X" : ""}});
            for (int column = 1; column <= 6; ++column) {
                tables.AddValue(line, column, line * 100 + column);
            }
        }
        tables.GiveTo(*control);
        control->AddSink(*this);
        control->DP_Import_Create();
        ForgetEntries();
    }
    ~RecordingTest() override { control->RemoveSink(*this); }

    void MacroRecordSave() override { ++saves; }

    [[nodiscard]] GridControl& Grid() { return ControlParts(*control).Grid(); }
    [[nodiscard]] Cell At(const std::string& column, const std::string& row) {
        const std::optional<Cell> cell = Grid().FindCell({column, row});
        EXPECT_TRUE(cell) << column << "/" << row;
        return cell.value_or(Cell{});
    }
    void Select(const char* fromColumn, const char* fromRow, const char* toColumn, const char* toRow) {
        Grid().SelectCell(At(fromColumn, fromRow), SelectionMode::Replace);
        Grid().SelectCell(At(toColumn, toRow), SelectionMode::Extend);
    }
    void SelectRows(std::initializer_list<const char*> rows) {
        SelectionMode mode = SelectionMode::Replace;
        for (const char* row : rows) {
            Grid().SelectRow(*Grid().FindRow(row), std::exchange(mode, SelectionMode::Add));
        }
    }

    /// The steps of a recording table: "COMMAND column line value", captions in brackets.
    [[nodiscard]] Lines Steps() const {
        Lines lines;
        const MemoryTable& table = *tables.macroRec;
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            const auto field = [&](const char* name) { return table.Value(row, name).AsText(); };
            if (!field("COMMAND").empty()) {
                EXPECT_EQ(field("STEP"), std::to_string(row));
                lines.push_back(field("COMMAND") + " " + field("COLUMN") + "[" + field("COLUMN_NAME") + "] " +
                                field("LINE") + "[" + field("LINE_NAME") + "] " + field("VALUE"));
            }
        }
        return lines;
    }

    /// A line of the grid as it is shown, "101 102 103 ...".
    [[nodiscard]] std::string Line(const std::string& row) {
        std::string text;
        for (const ColumnId column : Grid().Columns(ColumnArea::Center)) {
            text += (text.empty() ? "" : " ") + Grid().Contents(At(Grid().Column(column).key, row));
        }
        return text;
    }

    Tables tables;
    std::unique_ptr<PlanView> control;
    int saves = 0;
};

}  // namespace planview::test
