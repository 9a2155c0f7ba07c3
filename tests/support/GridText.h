// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <iostream>
#include <numeric>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "components/GridControl.h"

namespace planview {

/// The visible part of a grid as people would draw it: keys around it, "|" and lines of "-" between the areas, selected
/// cells as [text], the current one as <text>. What is hidden is named below.
class GridDrawing {
public:
    explicit GridDrawing(const GridControl& grid) : grid_(grid) {
        AddKeys();
        for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
            lines_.emplace_back();
            for (const RowId row : grid_.Rows(area)) {
                AddRow(row);
            }
        }
    }

    [[nodiscard]] std::string Text() const {
        std::vector<std::size_t> widths(columns_.size() + 1);
        for (const Line& line : lines_) {
            for (std::size_t i = 0; i < line.size(); ++i) {
                widths[i] = std::max(widths[i], line[i].size());
            }
        }
        const std::size_t total = std::accumulate(widths.begin(), widths.end(), widths.size() - 1);
        std::string text;
        for (const Line& line : lines_) {
            std::string shown = line.empty() ? std::string(total, '-') : "";
            for (std::size_t i = 0; i < line.size(); ++i) {
                shown += line[i] + std::string(widths[i] - line[i].size() + 1, ' ');
            }
            text += shown.substr(0, shown.find_last_not_of(' ') + 1) + "\n";
        }
        return hidden_.empty() ? text : text + "hidden:" + hidden_ + "\n";
    }

private:
    using Line = std::vector<std::string>;

    void AddKeys() {
        lines_.push_back({""});
        for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
            lines_[0].emplace_back("|");
            columns_.push_back(ColumnId{});
            for (const ColumnId id : grid_.Columns(area)) {
                const GridColumn& column = grid_.Column(id);
                if (column.hidden) {
                    hidden_ += " " + column.key;
                } else {
                    lines_[0].push_back(column.key);
                    columns_.push_back(id);
                }
            }
        }
    }
    void AddRow(RowId id) {
        const GridRow& row = grid_.Row(id);
        if (row.hidden) {
            hidden_ += " " + row.key;
            return;
        }
        Line line{row.key};
        for (const ColumnId column : columns_) {
            line.push_back(column == ColumnId{} ? "|" : CellText({column, id}));
        }
        lines_.push_back(std::move(line));
    }
    [[nodiscard]] std::string CellText(Cell cell) const {
        std::string text = grid_.DisplayText(cell);
        if (grid_.Selection().HasCell(cell, grid_.OrderOf(cell.column), grid_.OrderOf(cell.row))) {
            text = "[" + text + "]";
        }
        return grid_.CurrentCell() == cell ? "<" + text + ">" : text;
    }

    const GridControl& grid_;
    std::vector<ColumnId> columns_;  ///< no id: the mark between two areas
    std::vector<Line> lines_;        ///< without pieces: the line between two areas
    std::string hidden_;
};

inline std::string GridText(const GridControl& grid) {
    return GridDrawing(grid).Text();
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
    void HeadingHeightResized(const std::string& column, int height) override {
        Add("HeadingHeightResized", column, height);
    }
    void HeadingWidthResized(const std::string& row, int width) override { Add("HeadingWidthResized", row, width); }
    void HideColumn(const std::string& column) override { events.push_back("HideColumn " + column); }
    void HideRow(const std::string& row) override { events.push_back("HideRow " + row); }
    void Moved(MovedTracks moved, const std::vector<std::string>& before) override {
        Show(moved == MovedTracks::Columns ? "MovedColumns" : "MovedRows", before);
    }
    void SelectionChanged(const CellKey& cell, bool selected) override {
        Add("SelectionChanged", cell.column + "/" + cell.row, selected ? 1 : 0);
    }
    void ShowHiddenColumns(const std::vector<std::string>& columns) override { Show("ShowHiddenColumns", columns); }
    void ShowHiddenRows(const std::vector<std::string>& rows) override { Show("ShowHiddenRows", rows); }
    void FocusIn() override { events.emplace_back("FocusIn"); }
    void FocusOut() override { events.emplace_back("FocusOut"); }
    void TextEntered(const CellKey& cell, const std::string& text) override {
        Act("TextEntered", cell, text);
        if (taking) {
            taking->SetAttribute(GridElement::Cell, cell, GridAttribute::Contents, text, true);
        }
    }
    void StayCell() override { actions.emplace_back("StayCell"); }
    void DoubleClick(const CellKey& cell) override {
        Act("DoubleClick", cell, "");
        if (onDoubleClick) {
            onDoubleClick();
        }
    }
    void Dropped(const CellKey& cell, const std::string& text, const std::string& /*html*/) override {
        Act("Dropped", cell, text);
    }
    void SimpleClick(const CellKey& cell) override { Act("SimpleClick", cell, ""); }
    void MouseDown(const CellKey& cell, MouseButton button, ShiftState shift) override {
        Act("MouseDown", cell,
            std::to_string(static_cast<int>(button)) + " " + std::to_string(static_cast<int>(shift)));
    }
    void MenuKey(const CellKey& cell) override { Act("MenuKey", cell, ""); }
    bool KeyDown(std::int16_t shift, std::int16_t keyCode) override {
        actions.push_back("KeyDown " + std::to_string(shift) + " " + std::to_string(keyCode));
        return true;
    }
    void KeyPress(std::int16_t character) override { actions.push_back("KeyPress " + std::to_string(character)); }

    std::vector<GridChange> changes;
    std::vector<std::string> events;   ///< of sizes, selection and focus
    std::vector<std::string> actions;  ///< of values, keys and clicks
    std::function<void()> onDoubleClick;
    GridControl* taking = nullptr;  ///< the grid that gets every entered text

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
