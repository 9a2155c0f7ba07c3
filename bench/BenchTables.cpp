// SPDX-License-Identifier: MIT
#include "BenchTables.h"

#include <algorithm>
#include <cstdio>

namespace planview::bench {

namespace {

constexpr int FixedPerSide = 2;

}  // namespace

double Plan::Value(int row, int column) const noexcept {
    return static_cast<double>(10000 + (row * 37 + column * 101) % 90000) / 10;
}

std::string Plan::ValueText(int row, int column) const {
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", Value(row, column));
    std::string result(text);
    std::replace(result.begin(), result.end(), '.', ',');
    return result;
}

test::Tables MakeTables(const Plan& plan) {
    test::Tables tables;
    tables.gridAttr->SetValue(1, "LABELCOL_WIDTH", LabelWidth);
    tables.gridAttr->SetValue(1, "GRIDLINE_COLOR", 8);
    for (int i = 1; i <= plan.Side(); ++i) {
        tables.AddColumn(i, Plan::ColumnTitle(i).c_str(), {{"COL_WIDTH", ColumnWidth}, {"COL_HEIGHT", RowHeight}});
        tables.AddLine(i, Plan::RowTitle(i).c_str(), {{"ROW_HEIGHT", RowHeight}, {"ROW_WIDTH", ColumnWidth}});
    }
    const auto cells = static_cast<std::int32_t>(plan.CellCount());
    tables.tab->Reserve(cells);
    tables.cellAttr->Reserve(cells);
    for (int row = 1; row <= plan.Side(); ++row) {
        for (int column = 1; column <= plan.Side(); ++column) {
            tables.AddValue(row, column, plan.Value(row, column));
            test::AddRow(*tables.cellAttr, {{"COLUMN", column},
                                            {"LINE", row},
                                            {"BGCOLOR", Plan::Background(row, column)},
                                            {"FGCOLOR", Plan::Foreground(row, column)}});
        }
    }
    return tables;
}

void AddFixedSides(const test::Tables& tables, const Plan& plan) {
    const auto addCell = [&](int column, const char* columnSide, int row, const char* rowSide) {
        test::AddRow(*tables.fixedTab, {{"COLUMN", column},
                                        {"FLG_COL_FIX", columnSide},
                                        {"LINE", row},
                                        {"FLG_LINE_FIX", rowSide},
                                        {"VALUE", Variant(plan.ValueText(row, column))},
                                        {"BGCOLOR", 8},
                                        {"FGCOLOR", 1}});
    };
    for (int fixed = 1; fixed <= FixedPerSide; ++fixed) {
        for (const char* side : {"L", "R"}) {
            for (int row = 1; row <= FixedPerSide; ++row) {
                addCell(fixed, side, row, "T");
                addCell(fixed, side, row, "B");
            }
            test::AddRow(
                *tables.fixedCols,
                {{"COLUMN_FIX", fixed}, {"FLG_POSITION", side}, {"COL_WIDTH", ColumnWidth}, {"COL_HEIGHT", RowHeight}});
            for (int row = 1; row <= plan.Side(); ++row) {
                addCell(fixed, side, row, "");
            }
        }
        for (const char* side : {"T", "B"}) {
            test::AddRow(
                *tables.fixedLines,
                {{"LINE_FIX", fixed}, {"FLG_POSITION", side}, {"ROW_WIDTH", ColumnWidth}, {"ROW_HEIGHT", RowHeight}});
            for (int column = 1; column <= plan.Side(); ++column) {
                addCell(column, "", fixed, side);
            }
        }
    }
}

}  // namespace planview::bench
