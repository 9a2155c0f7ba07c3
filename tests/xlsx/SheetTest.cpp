// SPDX-License-Identifier: MIT
#include <array>
#include <random>

#include <gtest/gtest.h>

#include <planview/AutomationObject.h>

#include "xlsx/CellReference.h"
#include "xlsx/Sheet.h"

namespace planview::xlsx {

namespace {

constexpr int Side = 6;

/// What formats for cells, rows, columns and the sheet must give, kept cell by cell.
struct PlainSheet {
    std::array<std::array<CellStyle, Side>, Side> styles{};

    void Change(const Area& area, StyleChange change) {
        for (int row = area.firstRow; row <= std::min(area.lastRow, Side); ++row) {
            for (int column = area.firstColumn; column <= std::min(area.lastColumn, Side); ++column) {
                CellStyle& style = styles[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
                style = Apply(style, change);
            }
        }
    }
};

TEST(SheetTest, FormatsInAnyOrderShowAsIfEachCellHadBeenAsked) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        std::mt19937 random(seed);
        const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)) + 1; };
        StyleTable styles;
        Sheet sheet(styles);
        PlainSheet plain;
        for (int step = 0; step < 25; ++step) {
            const int row = upTo(Side);
            const int column = upTo(Side);
            const Area areas[] = {{}, {row, row}, {1, MostRows, column, column}, {row, row, column, column}};
            const Area& area = areas[random() % 4];
            const StyleChange changes[] = {{StyleProperty::Bold, 1.0 * (step % 2)},
                                           {StyleProperty::Fill, 1.0 * step},
                                           {StyleProperty::BorderColor, 1.0 * step},
                                           {StyleProperty::FontSize, 8 + step / 2.0}};
            const StyleChange change = changes[random() % 4];
            sheet.Change(area, change);
            plain.Change(area, change);
        }
        for (int row = 1; row <= Side; ++row) {
            for (int column = 1; column <= Side; ++column) {
                ASSERT_EQ(styles[sheet.StyleAt(row, column)],
                          plain.styles[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)])
                    << "seed " << seed << ", cell " << CellName(row, column);
            }
        }
    }
}

TEST(SheetTest, CellsComeInOrderHoweverTheyWerePut) {
    StyleTable styles;
    Sheet sheet(styles);
    for (const int column : {5, 1, 16'384, 3, 4, 2}) {
        sheet.At(MostRows, column).kind = CellKind::Number;
        sheet.At(7, column).number = column;
    }
    std::string order;
    sheet.ForEachRow([&](std::int32_t row, const SheetRow& cells) {
        for (const Cell& cell : cells.cells) {
            order += CellName(row, cell.column) + " ";
        }
    });
    EXPECT_EQ(order, "A7 B7 C7 D7 E7 XFD7 A1048576 B1048576 C1048576 D1048576 E1048576 XFD1048576 ");
    EXPECT_EQ(sheet.UsedArea(), (Area{MostRows, MostRows, 1, MostColumns}));
    EXPECT_EQ(sheet.Find(7, 6), nullptr);
}

TEST(SheetTest, FormatsThatWouldTouchEveryCellAreRefused) {
    StyleTable styles;
    Sheet sheet(styles);
    const StyleChange bold{StyleProperty::Bold, 1};
    EXPECT_THROW(sheet.Change({1, 100'000, 1, 1'000}, bold), AutomationError);
    sheet.Change({1, 10'000}, bold);
    EXPECT_THROW(sheet.Change({1, MostRows, 1, MostColumns - 1}, bold), AutomationError);
    EXPECT_EQ(sheet.StyleAt(10'001, 1), 0);
}

TEST(SheetTest, ReferencesAreReadAsTheyAreWritten) {
    EXPECT_EQ(CellName(1'048'576, 16'384), "XFD1048576");
    EXPECT_EQ(CellName(1, 26) + CellName(1, 27) + CellName(1, 702) + CellName(1, 703), "Z1AA1ZZ1AAA1");
    EXPECT_EQ(ParseArea("$B$7:c9"), (Area{7, 9, 2, 3}));
    EXPECT_EQ(ParseArea("XFD1048576"), (Area{MostRows, MostRows, MostColumns, MostColumns}));
    EXPECT_EQ(ParseArea("$3:$1"), (Area{1, 3}));
    EXPECT_EQ(ParseArea("A:XFD"), Area{});
    for (const char* const wrong : {"", "A", "1", "A0", "XFE1", "A1048577", "A1:", ":", "A1:B", "A1:2", "A99999999999",
                                    "1A", "A-1", "A1 ", "AAAAAAAAAAAAA1", "$", "A1:B2:C3"}) {
        EXPECT_FALSE(ParseArea(wrong)) << wrong;
    }
}

}  // namespace

}  // namespace planview::xlsx
