// SPDX-License-Identifier: MIT
#include <planview/Commands.h>

#include "grid/CellEntry.h"
#include "grid/ValueEntryFixture.h"

namespace planview {

using test::Lines;
using test::ValueEntryTest;

/// The first line is shown with groups, the second as it is; the fixed column has a code, too.
class CellEntryTest : public ValueEntryTest {
protected:
    CellEntryTest() {
        tables.lineIndex->SetValue(1, "ROW_FORMAT", "#,##0.##");
        control->DP_Import_Create();
        ForgetEntries();
        control->Editing().AddHintListener([this](const CellKey& cell, std::string_view sentence) {
            told.push_back(cell.column + "/" + cell.row + " " + std::string(sentence));
            return true;
        });
    }

    void Paste(const char* column, const char* row, const char* text, const char* html = "") {
        Grid().SelectCell(At(column, row), SelectionMode::Replace);
        platform.onClipboard = {text, html};
        control->Editing().Paste();
    }
    [[nodiscard]] bool IsOffered() { return control->StateOf(Command::TakeOtherReading).enabled; }

    Lines told;
};

TEST_F(CellEntryTest, ATypedTextIsReadInItsCell) {
    const struct {
        const char* row;
        const char* typed;
        const char* stored;
        const char* shown;
        const char* told = "";
    } cases[] = {
        {"ROW1", "136.000", "136000", "136.000,", "COL1/ROW1 Taken as 136.000. Ctrl+M takes it as 136."},
        {"ROW2", "136.000", "136.000", "136", "COL1/ROW2 Taken as 136. Ctrl+M takes it as 136.000."},
        {"ROW1", "1,234", "1,234", "1,23", "COL1/ROW1 Taken as 1,234. Ctrl+M takes it as 1.234."},
        {"ROW1", "135.450,", "135.450,", "135.450,"},
        {"ROW1", "136.5", "136.5", "136,5"},
        {"ROW1", "50%", "0,5", "0,5"},
        {"ROW2", "(5)", "-5", "-5"},
        {"ROW2", "5-", "-5", "-5"},
        {"ROW2", "1'234,5", "1234,5", "1234,5"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.typed);
        told.clear();
        host.heard.clear();
        const Cell cell = At("COL1", row.row);
        ASSERT_EQ(RefusalOfEntry(Grid(), cell, row.typed), Refusal::None);
        Type("COL1", row.row, row.typed);
        EXPECT_EQ(host.heard, Lines{std::string("1/COL1 ") + row.row[3] + "/" + row.row + " = " + row.stored});
        EXPECT_EQ(Grid().DisplayText(cell), row.shown);
        EXPECT_EQ(told, *row.told == '\0' ? Lines{} : Lines{row.told});
        EXPECT_EQ(IsOffered(), *row.told != '\0');
    }
    EXPECT_EQ(RefusalOfEntry(Grid(), At("COL1", "ROW1"), "5 EUR"), Refusal::NoNumber);
}

TEST_F(CellEntryTest, FixedCellsWithACodeReadTheirTextsByItOthersKeepThem) {
    Type("FRC1", "ROW1", "1.234");
    Type("FRC1", "ROW2", "1.234");
    EXPECT_EQ(host.heard, (Lines{"0/FRC1 1/ROW1 = 1.234", "0/FRC1 2/ROW2 = 1.234"}));
    tables.fixedCols->SetValue(1, "COL_FORMAT", "#,##0");
    control->DP_Import_Create();
    host.heard.clear();
    Type("FRC1", "ROW1", "1.234");
    Type("FRC1", "ROW2", "see 1.234");
    EXPECT_EQ(host.heard, (Lines{"0/FRC1 1/ROW1 = 1234", "0/FRC1 2/ROW2 = see 1.234"}));
}

TEST_F(CellEntryTest, TheOtherReadingIsOneKeyAwayOnce) {
    Type("COL1", "ROW1", "136.000");
    EXPECT_TRUE(Grid().ReportKeyDown(2, 'M'));
    EXPECT_EQ(Shown(), "[136][20][] | [30][][] | [][][]");
    EXPECT_EQ(Rows(*tables.tab), "1,1=136 1,2=20 2,1=30");
    EXPECT_FALSE(IsOffered());
    Grid().ReportKeyDown(2, 'M');
    EXPECT_EQ(Shown(), "[136][20][] | [30][][] | [][][]");
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[136000][20][] | [30][][] | [][][]") << "it is an action of its own";
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");

    Type("COL1", "ROW1", "136.000");
    control->Editing().Undo();
    EXPECT_FALSE(IsOffered()) << "the cell holds something else again";
    Type("COL1", "ROW1", "136.000");
    Type("COL1", "ROW2", "5");
    EXPECT_FALSE(IsOffered()) << "another value was entered since";
    Type("COL1", "ROW1", "136.000");
    control->DP_Import_Create();
    EXPECT_TRUE(IsOffered()) << "a rebuild from the same tables changes nothing";
    control->Run(Command::TakeOtherReading);
    EXPECT_EQ(Shown(), "[136][20][] | [5][][] | [][][]");
}

TEST_F(CellEntryTest, OneTextOfAPastedBlockDecidesForTheOthers) {
    const struct {
        const char* why;
        const char* text;
        const char* shown;
        std::size_t hints = 0;
    } cases[] = {
        {"groups by comma", "12,345\n1,234,567", "[12345][20][] | [1234567][][] | [][][]"},
        {"the deciding text comes first", "1,234,567\n12,345", "[1234567][20][] | [12345][][] | [][][]"},
        {"decimal commas against the cell's groups", "1.234,5\n136.000", "[1234,5][20][] | [136000][][] | [][][]"},
        {"decimal points against the cell's groups", "136.000\n1.5", "[136][20][] | [1,5][][] | [][][]"},
        {"beyond the edge of the table", "12,345\n5\n\n1,234,567", "[12345][20][] | [5][][] | [][][]"},
        {"texts decide nothing", "136.000\nQ1.5", "[136000][20][] | [30][][] | [][][]", 1},
        {"no text decides", "136.000\n136.000", "[136000][20][] | [136][][] | [][][]", 1},
        {"they contradict each other", "136.000\n1.5\t1,5", "[136000][20][] | [1,5][1,5][] | [][][]", 1},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        tables.tab->Clear();
        tables.AddValue(1, 1, 10);
        tables.AddValue(1, 2, 20);
        tables.AddValue(2, 1, 30);
        control->DP_Import_Create();
        told.clear();
        Paste("COL1", "ROW1", row.text);
        EXPECT_EQ(Shown(), row.shown);
        EXPECT_EQ(told.size(), row.hints);
    }
}

TEST_F(CellEntryTest, AGuessedBlockIsTakenTheOtherWayAsOne) {
    Paste("COL1", "ROW1", "136.000\t1.000\t7\n2.000");
    EXPECT_EQ(Shown(), "[136000][1000][7] | [2][][] | [][][]");
    EXPECT_EQ(told, Lines{"COL1/ROW1 Taken as 136.000, and 2 other values in the same way. Ctrl+M takes them as 136."});
    control->Run(Command::TakeOtherReading);
    EXPECT_EQ(Shown(), "[136][1][7] | [2000][][] | [][][]");
    control->Editing().Undo();
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[10][20][] | [30][][] | [][][]");
}

TEST_F(CellEntryTest, TheNumberBehindAPastedCellIsNoGuess) {
    Paste("COL1", "ROW1", "1,235\t12,345\n1,234.5\t9",
          "<table><tr><td x:num=\"1.235\">1,235</td><td>12,345</td></tr>"
          "<tr><td>1,234.5</td><td data-sheets-value='{\"1\":3,\"3\":8.75}'>9</td></tr></table>");
    EXPECT_EQ(Shown(), "[1,235][12345][] | [1234,5][8,75][] | [][][]");
    EXPECT_TRUE(told.empty());
}

TEST_F(CellEntryTest, WhatACellShowsCanBeTypedOverIt) {
    for (const char* code :
         {"#,##0.0\" EUR\"", "0%", "0;(0)", "\"n/a\";\"loss\";0", "_(* #,##0_);_(* (#,##0);_(* \"-\"??_)"}) {
        tables.lineIndex->SetValue(1, "ROW_FORMAT", code);
        for (const double value : {1234.5, -1234.5, 0.0, 0.5}) {
            SCOPED_TRACE(std::string(code) + " " + std::to_string(value));
            tables.tab->Clear();
            tables.AddValue(1, 1, value);
            control->DP_Import_Create();
            const Cell cell = At("COL1", "ROW1");
            const std::string shown = Grid().DisplayText(cell);
            ASSERT_EQ(RefusalOfEntry(Grid(), cell, shown), Refusal::None) << shown;
            Type("COL1", "ROW1", shown.c_str());
            EXPECT_EQ(Grid().DisplayText(At("COL1", "ROW1")), shown);
        }
    }
}

}  // namespace planview
