// SPDX-License-Identifier: MIT
#include "xlsx/XlsxFixture.h"

namespace planview::test {

namespace {

class ReadingTest : public XlsxTest {
protected:
    [[nodiscard]] Late Open(const char* name) const {
        return application_.Get("Workbooks").Call("Open", Path(name).string());
    }
    /// Opens a workbook whose only row is made of these cells.
    [[nodiscard]] Late OpenCells(const std::string& cells) const {
        WritePackage(Path("cells.xlsx"), PartsWith("<row r='1'>" + cells + "</row>"));
        return Open("cells.xlsx").Get("ActiveSheet");
    }
};

struct CellCase {
    const char* name;
    const char* xml;  ///< of cell A1
    const char* value;
};

TEST_F(ReadingTest, EveryKindOfCellAnswersItsValue) {
    const CellCase cases[] = {
        {"number", "<c r='A1'><v>12.5</v></c>", "d:12.5"},
        {"number with an exponent", "<c r='A1' t='n'><v>-1E-3</v></c>", "d:-0.001"},
        {"blanks around a number", "<c r='A1'><v> 7\n</v></c>", "d:7"},
        {"empty number", "<c r='A1' s='1'><v></v></c>", "e:"},
        {"only a format", "<c r='A1' s='1'/>", "e:"},
        {"no number", "<c r='A1'><v>1,5</v></c>", "t:#VALUE!"},
        {"no finite number", "<c r='A1'><v>inf</v></c>", "t:#NUM!"},
        {"too large a number", "<c r='A1'><v>1E999</v></c>", "t:#NUM!"},
        {"shared text", "<c r='A1' t='s'><v>0</v></c>", "t:first"},
        {"shared text of runs", "<c r='A1' t='s'><v>1</v></c>", "t:second "},
        {"text in its cell",
         "<c r='A1' t='inlineStr'><is><r><t>a</t></r><r><t>&lt;b</t></r><rPh><t>x</t></rPh></is></c>", "t:a<b"},
        {"escaped characters", "<c r='A1' t='str'><v>a_x000A_b_x005F_x0041_</v></c>", "t:a\nb_x0041_"},
        {"true", "<c r='A1' t='b'><v>1</v></c>", "b:True"},
        {"false", "<c r='A1' t='b'><v>0</v></c>", "b:False"},
        {"error", "<c r='A1' t='e'><v>#DIV/0!</v></c>", "t:#DIV/0!"},
        {"error that looks like a number", "<c r='A1' t='e'><v>5</v></c>", "t:#VALUE!"},
        {"date and time", "<c r='A1' t='d'><v>2026-11-21T12:00:00</v></c>", "t:2026-11-21 12:00:00"},
        {"no date", "<c r='A1' t='d'><v>tomorrow</v></c>", "t:#VALUE!"},
        {"formula with its last value", "<c r='A1'><f>B1*2</f><v>84</v></c>", "d:84"},
        {"formula with a text", "<c r='A1' t='str'><f>B1&amp;\"x\"</f><v>42x</v></c>", "t:42x"},
        {"formula with an empty text", "<c r='A1' t='str'><f>\"\"</f><v></v></c>", "e:"},
        {"formula that was never calculated", "<c r='A1'><f>B1*2</f></c>", "t:=B1*2"},
        {"the same, by another writer", "<c r='A1'><f>B1*2</f><v/></c>", "t:=B1*2"},
        {"unknown kind", "<c r='A1' t='new'><v>5</v></c>", "t:5"},
        {"without a place", "<c><v>3</v></c>", "d:3"},
    };
    for (const CellCase& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(ValueAt(OpenCells(one.xml), 1, 1), one.value);
    }
}

TEST_F(ReadingTest, ANumberThatIsShownAsADateIsThatDate) {
    struct DateCase {
        const char* name;
        const char* format;  ///< a code, or the number of a built-in one
        const char* number;
        const char* value;
    };
    const DateCase cases[] = {
        {"date", "dd/mm/yy;@", "46347", "t:2026-11-21"},
        {"built-in date", "14", "46347.75", "t:2026-11-21 18:00"},
        {"built-in date of East Asia", "57", "46347", "t:2026-11-21"},
        {"rounded to seconds", "yyyy-mm-dd", "46347.0000115", "t:2026-11-21 00:00:01"},
        {"the day before the first March", "d", "59", "t:1900-02-28"},
        {"the first March", "d", "61", "t:1900-03-01"},
        {"a leap day", "d", "36585", "t:2000-02-29"},
        {"the last day", "d", "2958465", "t:9999-12-31"},
        {"behind the last day", "d", "2958466", "t:#VALUE!"},
        {"before the first day", "d", "-1", "t:#VALUE!"},
        {"time", "[$-407]hh:mm", "0.75", "t:18:00"},
        {"hours beyond a day", "[h]:00", "0.5", "t:12:00"},
        {"general", "0", "46347", "d:46347"},
        {"percent", "10", "0.5", "d:0.5"},
        {"exponent", "0.00E+00", "46347", "d:46347"},
        {"quoted letters", "#,##0.0 \"days\"", "46347", "d:46347"},
        {"escaped letters", "0\\d\\a\\y_m*s", "46347", "d:46347"},
        {"colour, condition and currency", "[Red][&lt;5]0;[$USD-409] 0", "46347", "d:46347"},
        {"open quote", "0 &quot;d", "46347", "d:46347"},
        {"open bracket", "0[d", "46347", "d:46347"},
    };
    for (const DateCase& one : cases) {
        SCOPED_TRACE(one.name);
        const std::string format = one.format;
        const bool builtIn = format.find_first_not_of("0123456789") == std::string::npos;
        std::string code;
        for (const char c : format) {
            code += c == '"' ? std::string("&quot;") : std::string(1, c);
        }
        PackageParts parts = PartsWith("<row r='1'><c r='A1' s='1'><v>" + std::string(one.number) +
                                       "</v></c><c r='B1' s='2'><v>5</v></c></row>");
        parts["xl/styles.xml"] =
            "<styleSheet><numFmts><numFmt numFmtId='164' formatCode=\"" + code +
            "\"/></numFmts><cellStyleXfs><xf numFmtId='14'/></cellStyleXfs><cellXfs><xf/><xf numFmtId='" +
            (builtIn ? format : "164") + "'/><xf numFmtId='0'/></cellXfs></styleSheet>";
        std::string& list = parts["xl/_rels/workbook.xml.rels"];
        list.insert(list.find("<Relationship "), "<Relationship Id='y' Type='x/styles' Target='styles.xml'/>");
        WritePackage(Path("dates.xlsx"), parts);
        const Late sheet = Open("dates.xlsx").Get("ActiveSheet");
        EXPECT_EQ(ValueAt(sheet, 1, 1), one.value);
        EXPECT_EQ(ValueAt(sheet, 1, 2), "d:5");
        if (std::string_view(one.name) == "date") {
            std::string& book = parts["xl/workbook.xml"];
            book.insert(book.find("<sheets>"), "<workbookPr date1904='1'/>");
            WritePackage(Path("1904.xlsx"), parts);
            EXPECT_EQ(ValueAt(Open("1904.xlsx").Get("ActiveSheet"), 1, 1), "t:2030-11-22");
        }
    }
}

TEST_F(ReadingTest, CellsWithoutAPlaceFollowTheOneBefore) {
    WritePackage(Path("a.xlsx"),
                 PartsWith("<row r='3'><c r='C3'><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>"));
    const Late sheet = Open("a.xlsx").Get("ActiveSheet");
    EXPECT_EQ(ValueAt(sheet, 3, 4), "d:2");
    EXPECT_EQ(ValueAt(sheet, 4, 1), "d:3");
}

TEST_F(ReadingTest, AnotherPrefixAndOtherPartNamesMeanTheSame) {
    PackageParts parts = PartsWith("");
    parts["XL/Worksheets/Sheet1.xml"] =
        "<x:worksheet xmlns:x='http://purl.oclc.org/ooxml/spreadsheetml/main'><x:sheetData><x:row r='1'>"
        "<x:c r='A1'><x:v>5</x:v></x:c></x:row></x:sheetData></x:worksheet>";
    parts.erase("xl/worksheets/sheet1.xml");
    parts["xl/vbaProject.bin"] = "macros are left alone";
    WritePackage(Path("a.xlsm"), parts);
    EXPECT_EQ(ValueAt(Open("a.xlsm").Get("ActiveSheet"), 1, 1), "d:5");
}

TEST_F(ReadingTest, AWorkbookOfOpenpyxlIsRead) {
    ASSERT_EQ(RunScript("make-workbook " + Path("foreign.xlsx").string()), "");
    const Late book = Open("foreign.xlsx");
    EXPECT_EQ(book.Get("Title").Value(), Variant("From elsewhere"));
    EXPECT_EQ(book.Get("Worksheets").Get("Count").Value(), Variant(2)) << "the chart has no cells";

    const Late sheet = book.Get("ActiveSheet");
    EXPECT_EQ(sheet.Get("Name").Value(), Variant("Plan & Ist"));
    const std::vector<std::vector<const char*>> expected{
        {"t:Text", "d:12.5", "b:True", "t:2026-11-21", "t:1900-03-01 12:00", "t:=B1*2", "t:#DIV/0!", "e:"},
        {"t:<&>\n\"ü\"", "d:-0.0000001", "b:False", "e:", "d:123456789012345", "t:  blanks  ", "t:'1"},
    };
    for (std::size_t row = 0; row < expected.size(); ++row) {
        for (std::size_t column = 0; column < expected[row].size(); ++column) {
            EXPECT_EQ(ValueAt(sheet, static_cast<int>(row + 1), static_cast<int>(column + 1)), expected[row][column]);
        }
    }
    EXPECT_EQ(ValueAt(sheet, 1'048'576, 16'384), "t:last");

    const auto merged = [&](int row, int column) { return sheet.Get("Cells", row, column).Get("MergeCells").Value(); };
    EXPECT_EQ(ValueAt(sheet, 4, 2), "t:merged");
    EXPECT_EQ(merged(6, 4), Variant(true));
    EXPECT_EQ(merged(7, 4), Variant(false));
    EXPECT_EQ(merged(4, 5), Variant(false));

    const Late hidden = book.Get("Worksheets", "hidden");
    EXPECT_EQ(hidden.Get("Visible").Value(), Variant(0));
    EXPECT_EQ(ValueAt(hidden, 1, 1), "t:hidden value");
}

TEST_F(ReadingTest, WhatLibreOfficeChangedComesBackAndNothingElse) {
    const Late sheet = NewSheet();
    for (int row = 1; row <= 20; ++row) {
        for (int column = 1; column <= 20; ++column) {
            const Late cell = sheet.Get("Cells", row, column);
            cell.Put("Locked", column == 1);
            cell.Put("Value",
                     column == 1 ? Variant("Line " + std::to_string(row)) : Variant(row * 1000.5 + column / 8.0));
        }
    }
    sheet.Call("Protect");
    const std::string file = Path("plan ü.xlsx").string();
    book_.Call("Saveas", file);
    std::map<std::pair<int, int>, std::string> before;
    const Late own = application_.Get("Workbooks").Call("Open", file).Get("ActiveSheet");
    for (int row = 1; row <= 20; ++row) {
        for (int column = 1; column <= 20; ++column) {
            before[{row, column}] = ValueAt(own, row, column);
        }
    }

    ASSERT_EQ(RunScript("libreoffice-edit '" + file + "' B2=777.5 C2==B2*2 'D2=text <ü>' E2= H2==1/0"), "");
    before[{2, 2}] = "d:777.5";
    before[{2, 3}] = "d:1555";
    before[{2, 4}] = "t:text <ü>";
    before[{2, 5}] = "e:";
    before[{2, 8}] = "t:#DIV/0!";
    const Late changed = application_.Get("Workbooks").Call("Open", file).Get("ActiveSheet");
    for (const auto& [place, value] : before) {
        EXPECT_EQ(ValueAt(changed, place.first, place.second), value) << place.first << ", " << place.second;
    }
    EXPECT_EQ(changed.Get("Name").Value(), Variant("Tabelle1"));
    const Late used = changed.Get("UsedRange");
    EXPECT_EQ(used.Get("Rows").Get("Count").Value(), Variant(20));
    EXPECT_EQ(used.Get("Columns").Get("Count").Value(), Variant(20));
}

TEST_F(ReadingTest, AnOpenedWorkbookIsReadOnly) {
    const Late sheet = OpenCells("<c r='A1'><v>1</v></c>");
    EXPECT_NE(AutomationMessage([&] { sheet.Get("Cells", 1, 1).Put("Value", 2); }), "");
    EXPECT_NE(AutomationMessage([&] { sheet.Get("Cells", 1, 1).Call("Locked"); }), "");
    EXPECT_NE(AutomationMessage([&] { sheet.Call("Unprotect"); }), "");
    EXPECT_EQ(ValueAt(sheet, 1, 1), "d:1");
}

}  // namespace

}  // namespace planview::test
