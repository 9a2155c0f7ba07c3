// SPDX-License-Identifier: MIT
#include <algorithm>

#include "xlsx/XlsxFixture.h"
#include "xlsx/ZipParts.h"

namespace planview::test {

namespace {

using BrokenFileTest = XlsxTest;

/// A file by its bytes that must be refused with a message that says why.
struct BrokenBytes {
    const char* name;
    std::string bytes;
    const char* message;
};

TEST_F(BrokenFileTest, WhatIsNoWorkbookIsRefusedWithTheReason) {
    WritePackage(Path("whole.xlsx"), PartsWith("<row r='1'><c r='A1'><v>1</v></c></row>"));
    const std::string whole = ReadAll(Path("whole.xlsx"));
    std::string corrupt = whole;
    corrupt[corrupt.find("xl/worksheets/sheet1.xml") + 40] ^= 0x55;
    std::string encrypted = whole;  // the flag in the local header and in the directory
    for (std::size_t at = 0; (at = encrypted.find("PK\x03\x04", at)) != std::string::npos; at += 4) {
        encrypted[at + 6] |= 1;
    }
    for (std::size_t at = 0; (at = encrypted.find("PK\x01\x02", at)) != std::string::npos; at += 4) {
        encrypted[at + 8] |= 1;
    }
    std::string manyParts = whole;
    for (int i = 0; i < 10'001; ++i) {
        manyParts += "PK\x01\x02";
    }
    WritePackage(Path("ods.xlsx"),
                 {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", "<a/>"}});
    WritePackage(Path("zip.xlsx"), {{"letter.txt", "Dear reader"}});

    const BrokenBytes cases[] = {
        {"empty", "", "it is empty"},
        {"csv", "Line;P1;P2\nSales;1;2\n", "it is a text (such as .csv)"},
        {"binary",
         std::string("\x7F"
                     "ELF\0\1\2",
                     7),
         "it is no .xlsx workbook"},
        {"protected by a password, or .xls", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "password"},
        {"zip encryption", encrypted, "password"},
        {"cut in the middle", whole.substr(0, whole.size() / 2), "damaged or not complete"},
        {"cut by one byte", whole.substr(0, whole.size() - 1), "damaged or not complete"},
        {"a changed byte in a part", corrupt, "damaged"},
        {"too many parts", manyParts, "more than 10000 parts"},
        {"OpenDocument", ReadAll(Path("ods.xlsx")), "OpenDocument"},
        {"another zip", ReadAll(Path("zip.xlsx")), "no part for the workbook"},
    };
    for (const BrokenBytes& broken : cases) {
        SCOPED_TRACE(broken.name);
        WriteAll(Path("broken.xlsx"), broken.bytes);
        const std::string message = OpenMessage(Path("broken.xlsx"));
        EXPECT_NE(message.find(broken.message), std::string::npos) << message;
        EXPECT_NE(message.find(Path("broken.xlsx").string()), std::string::npos) << message;
    }
    EXPECT_NE(OpenMessage(Path("missing.xlsx")).find("No such file"), std::string::npos);
    EXPECT_NE(OpenMessage(Path(".")).find("Is a directory"), std::string::npos);
    EXPECT_NE(OpenMessage("/dev/zero").find("no ordinary file"), std::string::npos);
}

/// Parts of an otherwise good workbook that are replaced; an empty text removes the part.
struct BrokenPart {
    const char* name;
    const char* part;
    std::string text;
    const char* message;
};

std::string Rows(std::string_view rows) {
    return PartsWith(rows)["xl/worksheets/sheet1.xml"];
}

TEST_F(BrokenFileTest, ABrokenPartIsRefusedWithTheReason) {
    const char* const sheet = "xl/worksheets/sheet1.xml";
    const BrokenPart cases[] = {
        {"no sheet part", sheet, "", "'xl/worksheets/sheet1.xml' is missing"},
        {"no workbook part", "xl/workbook.xml", "", "no part for the workbook"},
        {"no sheets", "xl/workbook.xml", "<workbook/>", "no sheet with cells"},
        {"no XML", sheet, "sheetData", "line 1 cannot be read"},
        {"cut XML", sheet, Rows("").substr(0, 150), "cannot be read"},
        {"entities that grow", sheet, "<!DOCTYPE w [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;'>]><w>&b;&b;</w>",
         "document type"},
        {"nested too deeply", sheet,
         [] {
             std::string text;
             for (int i = 0; i < 100'000; ++i) {
                 text += "<a>";
             }
             return text;
         }(),
         "nested too deeply"},
        {"an endless tag", sheet, "<worksheet a='" + std::string(3 << 20, 'x'), "longer than 1024 KB"},
        {"a text that is not there", sheet, Rows("<row r='7'><c r='B7' t='s'><v>2</v></c></row>"),
         "sheet 'S', cell B7: it shows a text that the file does not have"},
        {"a text by a negative number", sheet, Rows("<row r='7'><c r='B7' t='s'><v>-1</v></c></row>"), "cell B7"},
        {"row 0", sheet, Rows("<row r='0'/>"), "the row after row 0"},
        {"a row beyond the last", sheet, Rows("<row r='1048577'/>"), "no right number"},
        {"a row twice", sheet, Rows("<row r='2'/><row r='2'/>"), "the row after row 2"},
        {"a column beyond the last", sheet, Rows("<row r='1'><c r='XFE1'><v>1</v></c></row>"), "no right place"},
        {"columns back to front", sheet, Rows("<row r='1'><c r='B1'/><c r='A1'/></row>"), "cell B1"},
        {"a cell of another row", sheet, Rows("<row r='1'><c r='A2'/></row>"), "no right place"},
        {"a cell outside of rows", sheet, Rows("<c r='A2'/>"), "stands in no row"},
        {"a text without end", sheet,
         Rows("<row r='1'><c r='A1' t='str'><v>" + std::string(2 << 20, 'x') + "</v></c></row>"), "text is too long"},
    };
    for (const BrokenPart& broken : cases) {
        SCOPED_TRACE(broken.name);
        PackageParts parts = PartsWith("<row r='1'><c r='A1'><v>1</v></c></row>");
        parts[broken.part] = broken.text;
        if (broken.text.empty()) {
            parts.erase(broken.part);
        }
        WritePackage(Path("broken.xlsx"), parts);
        const std::string message = OpenMessage(Path("broken.xlsx"));
        EXPECT_NE(message.find(broken.message), std::string::npos) << message;
    }
}

TEST_F(BrokenFileTest, WhatUnpacksWithoutEndIsReadToTheLimitAndTakesLittleMemory) {
    constexpr const char* Sheet = "xl/worksheets/sheet1.xml";
    WritePackage(Path("good.xlsx"), PartsWith(""));
    const std::string script = "make-bomb " + Path("good.xlsx").string() + " ";
    ASSERT_EQ(RunScript(script + Path("bomb.xlsx").string() + " xl/worksheets/sheet1.xml '<worksheet>' ' '"), "");
    ASSERT_EQ(
        RunScript(script + Path("texts.xlsx").string() + " xl/sharedStrings.xml '<sst>' '<si><t>aaaaaaaa</t></si>'"),
        "");
    struct Case {
        const char* file;
        const char* message;
    };
    for (const Case& one :
         {Case{"bomb.xlsx", "unpacks to more than 250 times"}, {"texts.xlsx", "more than 1000000 texts"}}) {
        SCOPED_TRACE(one.file);
        const std::size_t before = MostMemory();
        const std::string message = OpenMessage(Path(one.file));
        EXPECT_NE(message.find(one.message), std::string::npos) << message;
        EXPECT_LT(MostMemory() - before, std::size_t{100} << 20);
    }

    xlsx::ZipParts parts = xlsx::ZipParts::OfFile(Path("bomb.xlsx"));
    std::uint64_t read = 0;
    EXPECT_THROW(parts.Read(Sheet, [&](std::string_view piece) { read += piece.size(); }), xlsx::BrokenFile);
    const xlsx::ReadLimits limits;
    EXPECT_GT(read, limits.ratioFreeBytes);
    EXPECT_LE(read, std::max(limits.ratioFreeBytes, limits.ratio * std::filesystem::file_size(Path("bomb.xlsx"))));
    int pieces = 0;
    const auto enough = [&](std::string_view) {
        ++pieces;
        throw xlsx::BrokenFile("enough");
    };
    EXPECT_THROW(parts.Read(Sheet, enough), xlsx::BrokenFile);
    EXPECT_EQ(pieces, 1) << "a reader that has had enough gets no more";
}

TEST_F(BrokenFileTest, AMillionEmptyRowsAreRead) {
    std::string rows;
    for (int row = 1; row < 1'000'000; ++row) {
        rows += "<row r='" + std::to_string(row) + "' spans='1:3'/>";
    }
    rows += "<row r='1000000'><c r='C1000000'><v>7</v></c></row>";
    WritePackage(Path("rows.xlsx"), PartsWith(rows));
    const Late sheet = application_.Get("Workbooks").Call("Open", Path("rows.xlsx").string()).Get("ActiveSheet");
    EXPECT_EQ(ValueAt(sheet, 1'000'000, 3), "d:7");
    EXPECT_EQ(sheet.Get("UsedRange").Get("Row").Value(), Variant(1'000'000));
}

}  // namespace

}  // namespace planview::test
