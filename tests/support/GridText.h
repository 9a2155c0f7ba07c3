#pragma once

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "components/GridControl.h"

namespace planview {

/// The visible part of a grid as people would draw it: keys around it, "|" and lines of "-" between the areas, selected
/// cells as [text], the current one as <text>. What is hidden is named below.
inline std::string GridText(const GridControl& grid) {
    using Line = std::vector<std::string>;
    std::vector<ColumnId> columns;
    std::string hidden;
    Line keys{""};
    for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
        keys.emplace_back("|");
        columns.push_back(ColumnId{});
        for (const ColumnId id : grid.Columns(area)) {
            const GridColumn& column = grid.Column(id);
            if (column.hidden) {
                hidden += " " + column.key;
            } else {
                keys.push_back(column.key);
                columns.push_back(id);
            }
        }
    }
    std::vector<Line> lines{keys};
    for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
        lines.emplace_back();
        for (const RowId id : grid.Rows(area)) {
            const GridRow& row = grid.Row(id);
            if (row.hidden) {
                hidden += " " + row.key;
                continue;
            }
            Line line{row.key};
            for (const ColumnId column : columns) {
                if (column == ColumnId{}) {
                    line.emplace_back("|");
                    continue;
                }
                const Cell cell{column, id};
                std::string text = grid.DisplayText(cell);
                if (grid.Selection().HasCell(cell, grid.OrderOf(column), grid.OrderOf(id))) {
                    text = "[" + text + "]";
                }
                line.push_back(grid.CurrentCell() == cell ? "<" + text + ">" : text);
            }
            lines.push_back(std::move(line));
        }
    }
    std::vector<std::size_t> widths(keys.size());
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            widths[i] = std::max(widths[i], line[i].size());
        }
    }
    std::size_t total = 0;
    for (const std::size_t width : widths) {
        total += width + 1;
    }
    std::string text;
    for (const Line& line : lines) {
        std::string shown = line.empty() ? std::string(total - 1, '-') : "";
        for (std::size_t i = 0; i < line.size(); ++i) {
            shown += line[i] + std::string(widths[i] - line[i].size() + 1, ' ');
        }
        text += shown.substr(0, shown.find_last_not_of(' ') + 1) + "\n";
    }
    return hidden.empty() ? text : text + "hidden:" + hidden + "\n";
}

/// A test of a grid, which is printed when the test fails.
class GridTest : public testing::Test {
protected:
    void TearDown() override {
        if (HasFailure()) {
            std::cout << GridText(grid_);
        }
    }

    /// Creates the grid with three planning columns and rows and a fixed one on each side, without reporting any.
    void CreateSmallGrid() {
        ASSERT_EQ(grid_.CreateLabelled(false), GridStatus::Ok);
        ASSERT_EQ(grid_.CreateColor("red", 255, 0, 0), GridStatus::Ok);
        ASSERT_EQ(grid_.CreateColor("blue", 0, 0, 255), GridStatus::Ok);
        for (const char* key : {"COL1", "COL2", "COL3", "FLC1", "FRC1"}) {
            ASSERT_EQ(grid_.CreateColumn(key, 0, false), GridStatus::Ok) << key;
        }
        for (const char* key : {"ROW1", "ROW2", "ROW3", "FTR1", "FBR1"}) {
            ASSERT_EQ(grid_.CreateRow(key, 0, false), GridStatus::Ok) << key;
        }
    }

    GridStatus SetCell(CellKeyView keys, GridAttribute attribute, const Variant& value, bool redraw = false) {
        return grid_.SetAttribute(GridElement::Cell, keys, attribute, value, redraw);
    }
    GridStatus SetColumn(std::string_view key, GridAttribute attribute, const Variant& value, bool redraw = false) {
        return grid_.SetAttribute(GridElement::Column, {key, {}}, attribute, value, redraw);
    }
    GridStatus SetRow(std::string_view key, GridAttribute attribute, const Variant& value, bool redraw = false) {
        return grid_.SetAttribute(GridElement::Row, {{}, key}, attribute, value, redraw);
    }
    GridStatus SetGrid(GridAttribute attribute, const Variant& value, bool redraw = false) {
        return grid_.SetAttribute(GridElement::Grid, {}, attribute, value, redraw);
    }
    [[nodiscard]] Cell At(CellKeyView keys) const { return grid_.FindCell(keys).value(); }
    [[nodiscard]] ColumnId ColumnAt(std::string_view key) const { return grid_.FindColumn(key).value(); }
    [[nodiscard]] RowId RowAt(std::string_view key) const { return grid_.FindRow(key).value(); }

    GridControl grid_;
};

/// Writes down what a grid reports.
class ReportLog : public GridWatcher, public GridEvents {
public:
    void GridChanged(const GridChange& change) override { changes.push_back(change); }
    void ColumnResized(const std::string& column, int width) override { Add("ColumnResized", column, width); }
    void RowResized(const std::string& row, int height) override { Add("RowResized", row, height); }
    void HeaderHeightResized(const std::string& column, int height) override {
        Add("HeaderHeightResized", column, height);
    }
    void HeaderWidthResized(const std::string& row, int width) override { Add("HeaderWidthResized", row, width); }
    void SelectionChanged(const CellKey& cell, bool selected) override {
        Add("SelectionChanged", cell.column + "/" + cell.row, selected ? 1 : 0);
    }
    void ShowHiddenColumns(const std::vector<std::string>& columns) override { Show("ShowHiddenColumns", columns); }
    void ShowHiddenRows(const std::vector<std::string>& rows) override { Show("ShowHiddenRows", rows); }
    void FocusIn() override { events.emplace_back("FocusIn"); }
    void FocusOut() override { events.emplace_back("FocusOut"); }
    void ContentsChanged(const CellKey& cell, const std::string& text) override { Act("ContentsChanged", cell, text); }
    void StayCell() override { actions.emplace_back("StayCell"); }
    void DoubleClick(const CellKey& cell) override {
        Act("DoubleClick", cell, "");
        if (onDoubleClick) {
            onDoubleClick();
        }
    }
    void SimpleClick(const CellKey& cell) override { Act("SimpleClick", cell, ""); }
    void MouseDown(const CellKey& cell, std::int16_t button, std::int16_t shift) override {
        Act("MouseDown", cell, std::to_string(button) + " " + std::to_string(shift));
    }
    bool KeyDown(std::int16_t shift, std::int16_t keyCode) override {
        actions.push_back("KeyDown " + std::to_string(shift) + " " + std::to_string(keyCode));
        return true;
    }
    void KeyPress(std::int16_t character) override { actions.push_back("KeyPress " + std::to_string(character)); }

    std::vector<GridChange> changes;
    std::vector<std::string> events;   ///< of sizes, selection and focus
    std::vector<std::string> actions;  ///< of values, keys and clicks
    std::function<void()> onDoubleClick;

private:
    void Show(std::string action, const std::vector<std::string>& keys) {
        for (const std::string& key : keys) {
            action += " " + key;
        }
        actions.push_back(std::move(action));
    }
    void Act(const char* action, const CellKey& cell, const std::string& rest) {
        actions.push_back(std::string(action) + " " + cell.column + "/" + cell.row + (rest.empty() ? "" : " ") + rest);
    }
    void Add(const std::string& event, const std::string& key, int value) {
        events.push_back(event + " " + key + " " + std::to_string(value));
    }
};

}  // namespace planview
