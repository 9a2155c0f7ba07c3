// SPDX-License-Identifier: MIT
#include "qt/grid/GridFit.h"

#include <algorithm>
#include <cmath>

#include "components/GridControl.h"
#include "qt/grid/CellContentPainter.h"
#include "qt/grid/GridFonts.h"
#include "qt/grid/TextLines.h"

namespace planview {

namespace {

/// Above and below a line of text, together.
constexpr int HeightAir = 7;
/// The lines beside a cell.
constexpr int Edge = 2;

class FitMeasure {
public:
    FitMeasure(const GridControl& grid, const QFont& family) : grid_(grid), fonts_(family, 1.0) {}

    void add(Cell cell) {
        const CellLook look = grid_.Look(cell);
        const std::string text = grid_.DisplayText(cell, look);
        // Headings and totals are painted bold.
        const bool bold =
            grid_.Row(cell.row).area != RowArea::Center || grid_.Column(cell.column).area != ColumnArea::Center;
        TextShaper& shaper = fonts_.shaper(look.font, bold, look.helpLine);
        double needed = 0;
        int lineCount = 1;
        if (hasLineBreak(text)) {
            const std::vector<std::string> lines = textLines(text);
            lineCount = static_cast<int>(lines.size());
            for (const std::string& line : lines) {
                needed = std::max<double>(needed, shaper.shape(line).width);
            }
        } else if (!text.empty()) {
            needed = shaper.isPlainNumber(text) ? shaper.numberWidth(text) : shaper.shape(text).width;
        }
        const int bitmap = look.bitmap ? BitmapPixels : 0;
        needed += bitmap > 0 && !text.empty() ? bitmap + BitmapGap : bitmap;
        width_ = std::max(width_, needed);
        height_ = std::max({height_, lineCount * shaper.height(), bitmap});
    }
    void addColumn(ColumnId column) {
        for (const RowArea area : {RowArea::Top, RowArea::Center, RowArea::Bottom}) {
            for (const RowId row : grid_.Rows(area)) {
                if (!grid_.Row(row).hidden) {
                    add({column, row});
                }
            }
        }
    }
    void addRow(RowId row) {
        for (const ColumnArea area : {ColumnArea::Left, ColumnArea::Center, ColumnArea::Right}) {
            for (const ColumnId column : grid_.Columns(area)) {
                if (!grid_.Column(column).hidden) {
                    add({column, row});
                }
            }
        }
    }

    /// `labels`: with the room that labels keep free for marks.
    [[nodiscard]] int width(bool labels) const {
        const int air = 2 * CellPadding + Edge + (labels ? LabelIndent : 0);
        return std::min(static_cast<int>(std::ceil(width_)) + air, MaxTrackSize);
    }
    [[nodiscard]] int height() const { return std::min(height_ + HeightAir, MaxTrackSize); }

private:
    const GridControl& grid_;
    GridFonts fonts_;
    double width_ = 0;
    int height_ = 0;
};

}  // namespace

int fittingWidth(const GridControl& grid, const QFont& family, ColumnId column) {
    FitMeasure measure(grid, family);
    measure.addColumn(column);
    return measure.width(grid.Column(column).key == LabelColumnKey);
}

int fittingHeight(const GridControl& grid, const QFont& family, RowId row) {
    FitMeasure measure(grid, family);
    measure.addRow(row);
    return measure.height();
}

int fittingHeight(const GridControl& grid, const QFont& family, ColumnId column) {
    FitMeasure measure(grid, family);
    measure.addColumn(column);
    return measure.height();
}

int fittingWidth(const GridControl& grid, const QFont& family, RowId row) {
    FitMeasure measure(grid, family);
    measure.addRow(row);
    return measure.width(grid.Row(row).key == HeadingRowKey);
}

}  // namespace planview
