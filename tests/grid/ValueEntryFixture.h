// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview::test {

/// A host that writes down what it hears.
struct Host : PlanViewEvents {
    Lines heard;
    std::function<void()> onValue;

    void GridValueChanged(std::int16_t column, const std::string& colPos, std::int16_t row, const std::string& rowPos,
                          const Variant& value) override {
        heard.push_back(std::to_string(column) + "/" + colPos + " " + std::to_string(row) + "/" + rowPos + " = " +
                        value.AsText());
        if (onValue) {
            onValue();
        }
    }
    void GridStartUpdate() override { heard.push_back("update"); }
    void GridReturnKeyPressed() override { heard.push_back("return"); }
};

/// Three periods, three lines (the last one read-only), a fixed column on the right that can be edited.
class ValueEntryTest : public TracedTest {
protected:
    ValueEntryTest() : control(std::make_unique<PlanView>(platform.Interfaces())) {
        for (int i = 1; i <= 3; ++i) {
            tables.AddColumn(i, "P");
            tables.AddLine(i, "Line", {{"READONLY", i == 3 ? "X" : ""}});
        }
        AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}});
        tables.AddValue(1, 1, 10);
        tables.AddValue(1, 2, 20);
        tables.AddValue(2, 1, 30);
        tables.GiveTo(*control);
        control->AddSink(host);
        control->DP_Import_Create();
        ForgetEntries();
    }
    ~ValueEntryTest() override { control->RemoveSink(host); }

    [[nodiscard]] GridControl& Grid() { return ControlParts(*control).Grid(); }
    [[nodiscard]] Cell At(const char* column, const char* row) {
        const std::optional<Cell> cell = Grid().FindCell({column, row});
        EXPECT_TRUE(cell) << column << "/" << row;
        return cell.value_or(Cell{});
    }
    void Type(const char* column, const char* row, const char* text) { Grid().EnterText(At(column, row), text); }
    void Select(const char* fromColumn, const char* fromRow, const char* toColumn, const char* toRow) {
        Grid().SelectCell(At(fromColumn, fromRow), SelectionMode::Replace);
        Grid().SelectCell(At(toColumn, toRow), SelectionMode::Extend);
    }
    [[nodiscard]] static std::string Rows(const MemoryTable& table) {
        std::string text;
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            text += (row > 1 ? " " : "") + table.Value(row, "Z").AsText() + "," + table.Value(row, "C").AsText() + "=" +
                    table.Value(row, "V").AsText();
        }
        return text;
    }
    /// The planning cells as they are shown, line by line.
    [[nodiscard]] std::string Shown() {
        std::string text;
        for (const RowId row : Grid().Rows(RowArea::Center)) {
            text += text.empty() ? "" : " | ";
            for (const ColumnId column : Grid().Columns(ColumnArea::Center)) {
                text += "[" + Grid().Contents({column, row}) + "]";
            }
        }
        return text;
    }

    Tables tables;
    Host host;
    std::unique_ptr<PlanView> control;
};

}  // namespace planview::test
