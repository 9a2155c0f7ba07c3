// SPDX-License-Identifier: MIT
// Workbooks: the spreadsheet application, late-bound, beside its own libraries without it.

#include "Spreadsheet.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <unistd.h>
#include <xlsxwriter.h>
#include <zip.h>

#include <planview/xlsx/SpreadsheetApplication.h>

#include "BenchTables.h"
#include "automation/Late.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;

std::string TemporaryFile(const char* name) {
    return (std::filesystem::temp_directory_path() / (std::to_string(getpid()) + name)).string();
}

/// Removes its file at the end.
struct WorkbookFile {
    explicit WorkbookFile(const char* name) : path(TemporaryFile(name)) {}
    ~WorkbookFile() { std::remove(path.c_str()); }
    WorkbookFile(const WorkbookFile&) = delete;
    WorkbookFile& operator=(const WorkbookFile&) = delete;
    std::string path;
};

bool IsReadOnly(int row) {
    return row % 5 == 0;
}

void FormatSheet(const Late& sheet) {
    const Late cells = sheet.Get("Cells");
    cells.Put("HorizontalAlignment", 4);
    cells.Get("Borders").Put("LineStyle", 1);
    cells.Get("Borders").Put("ColorIndex", 1);
    cells.Get("Font").Put("Size", 10);
    for (const Late& captions : {sheet.Get("Columns", 1), sheet.Get("Rows", 1)}) {
        captions.Get("Font").Put("Bold", true);
        captions.Get("Interior").Put("ColorIndex", 15);
        captions.Get("Borders").Put("LineStyle", 9);
        captions.Get("Borders").Put("ColorIndex", 1);
        captions.Put("HorizontalAlignment", 2);
    }
    sheet.Get("Columns", 1).Put("ColumnWidth", 20);
}

struct FreeFormats {
    lxw_format* caption;
    lxw_format* cell;
    lxw_format* readOnly;
    lxw_format* open;
};

lxw_format* MakeFormat(lxw_workbook* book, int alignment, int border) {
    lxw_format* const format = workbook_add_format(book);
    format_set_font_size(format, 10);
    format_set_align(format, static_cast<std::uint8_t>(alignment));
    format_set_border(format, static_cast<std::uint8_t>(border));
    format_set_border_color(format, static_cast<lxw_color_t>(LXW_COLOR_BLACK));
    return format;
}

FreeFormats MakeFormats(lxw_workbook* book) {
    FreeFormats formats{
        MakeFormat(book, LXW_ALIGN_LEFT, LXW_BORDER_DOUBLE), MakeFormat(book, LXW_ALIGN_RIGHT, LXW_BORDER_THIN),
        MakeFormat(book, LXW_ALIGN_RIGHT, LXW_BORDER_THIN), MakeFormat(book, LXW_ALIGN_RIGHT, LXW_BORDER_THIN)};
    format_set_bold(formats.caption);
    format_set_bg_color(formats.caption, 0xC0C0C0);
    format_set_bg_color(formats.readOnly, 0xC0C0C0);
    format_set_num_format(formats.readOnly, "#,##0.0");
    format_set_bg_color(formats.open, 0xFFFFFF);
    format_set_num_format(formats.open, "#,##0.0");
    format_set_unlocked(formats.open);
    return formats;
}

void WriteWorkbook(benchmark::State& state) {
    const WorkbookFile file("-own.xlsx");
    for ([[maybe_unused]] auto _ : state) {
        WriteOwnWorkbook(file.path);
    }
}

void PeerWriteWorkbook(benchmark::State& state) {
    const WorkbookFile file("-peer.xlsx");
    for ([[maybe_unused]] auto _ : state) {
        WritePeerWorkbook(file.path);
    }
}

double SumOfAll() {
    const Plan plan(Side);
    double sum = 0;
    for (int row = 1; row <= Side; ++row) {
        for (int column = 1; column <= Side; ++column) {
            sum += plan.Value(row, column);
        }
    }
    return sum;
}

void ReadWorkbook(benchmark::State& state) {
    const WorkbookFile file("-own.xlsx");
    WriteOwnWorkbook(file.path);
    const double expected = SumOfAll();
    for ([[maybe_unused]] auto _ : state) {
        const Late application(xlsx::MakeApplication());
        const Late sheet = application.Get("Workbooks").Call("Open", file.path).Get("ActiveSheet");
        double sum = 0;
        for (int column = 1; column <= Side + 1; ++column) {
            for (int row = 1; row <= Side + 1; ++row) {
                const Late value = sheet.Get("Cells", row, column).Get("Value");
                sum += value.Value().GetKind() == Variant::Kind::Double ? value.Value().AsDouble() : 0;
            }
        }
        if (sum < expected - 1 || sum > expected + 1) {
            state.SkipWithError("not every value came back");
        }
    }
}

void XMLCALL IgnoreStart(void* count, const char*, const char**) {
    ++*static_cast<std::size_t*>(count);
}
void XMLCALL IgnoreEnd(void*, const char*) {}
void XMLCALL IgnoreText(void* count, const char*, int length) {
    *static_cast<std::size_t*>(count) += static_cast<std::size_t>(length);
}

/// Unpacks and parses the parts that hold a workbook's values, and keeps nothing of them.
void PeerReadWorkbook(benchmark::State& state) {
    const WorkbookFile file("-own.xlsx");
    WriteOwnWorkbook(file.path);
    for ([[maybe_unused]] auto _ : state) {
        zip_t* const archive = zip_open(file.path.c_str(), ZIP_RDONLY, nullptr);
        std::size_t count = 0;
        for (const char* const part : {"_rels/.rels", "xl/workbook.xml", "xl/_rels/workbook.xml.rels",
                                       "docProps/core.xml", "xl/worksheets/sheet1.xml"}) {
            zip_file_t* const entry = zip_fopen(archive, part, 0);
            XML_ParserStruct* const parser = XML_ParserCreate(nullptr);
            XML_SetUserData(parser, &count);
            XML_SetElementHandler(parser, &IgnoreStart, &IgnoreEnd);
            XML_SetCharacterDataHandler(parser, &IgnoreText);
            char buffer[32768];
            for (zip_int64_t size = 0; (size = zip_fread(entry, buffer, sizeof buffer)) > 0;) {
                XML_Parse(parser, buffer, static_cast<int>(size), XML_FALSE);
            }
            if (XML_Parse(parser, nullptr, 0, XML_TRUE) != XML_STATUS_OK) {
                state.SkipWithError("the peer cannot read it");
            }
            XML_ParserFree(parser);
            zip_fclose(entry);
        }
        zip_discard(archive);
        benchmark::DoNotOptimize(count);
    }
}

BENCHMARK(WriteWorkbook)->Unit(benchmark::kMicrosecond);
BENCHMARK(PeerWriteWorkbook)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadWorkbook)->Unit(benchmark::kMicrosecond);
BENCHMARK(PeerReadWorkbook)->Unit(benchmark::kMicrosecond);

}  // namespace

void WriteOwnWorkbook(const std::string& path) {
    const Plan plan(Side);
    const Late application(xlsx::MakeApplication());
    const Late book = application.Get("Workbooks").Call("Add");
    const Late sheet = book.Get("Worksheets", "Tabelle1");
    FormatSheet(sheet);
    for (int i = 1; i <= Side; ++i) {
        sheet.Get("Cells", 1, i + 1).Put("Value", Plan::ColumnTitle(i));
        sheet.Get("Cells", i + 1, 1).Put("Value", Plan::RowTitle(i));
    }
    for (int column = 1; column <= Side; ++column) {
        for (int row = 1; row <= Side; ++row) {
            const Late cell = sheet.Get("Cells", row + 1, column + 1);
            cell.Get("Interior").Put("ColorIndex", IsReadOnly(row) ? 15 : 2);
            cell.Put("Locked", IsReadOnly(row));
            cell.Put("NumberFormat", "#,##0.0");
            cell.Put("Value", plan.Value(row, column));
        }
    }
    sheet.Call("Protect");
    book.Call("Saveas", path);
}

void WritePeerWorkbook(const std::string& path) {
    const Plan plan(Side);
    lxw_workbook* const book = workbook_new(path.c_str());
    const FreeFormats formats = MakeFormats(book);
    lxw_worksheet* const sheet = workbook_add_worksheet(book, "Tabelle1");
    worksheet_set_column(sheet, 1, 16'383, LXW_DEF_COL_WIDTH, formats.cell);
    worksheet_set_column(sheet, 0, 0, 20, formats.caption);
    worksheet_set_row(sheet, 0, LXW_DEF_ROW_HEIGHT, formats.caption);
    worksheet_write_blank(sheet, 0, 0, formats.caption);
    for (int i = 1; i <= Side; ++i) {
        worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(i), Plan::ColumnTitle(i).c_str(), formats.caption);
        worksheet_write_string(sheet, static_cast<lxw_row_t>(i), 0, Plan::RowTitle(i).c_str(), formats.caption);
    }
    for (int column = 1; column <= Side; ++column) {
        for (int row = 1; row <= Side; ++row) {
            worksheet_write_number(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                   plan.Value(row, column), IsReadOnly(row) ? formats.readOnly : formats.open);
        }
    }
    worksheet_protect(sheet, nullptr, nullptr);
    workbook_close(book);
}

}  // namespace planview::bench
