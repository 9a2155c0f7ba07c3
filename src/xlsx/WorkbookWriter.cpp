// SPDX-License-Identifier: MIT
#include "xlsx/WorkbookWriter.h"

#include <array>
#include <cerrno>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <xlsxwriter.h>

#include <planview/AutomationObject.h>
#include <planview/SaveBeside.h>

#include "xlsx/Palette.h"
#include "xlsx/TextEscapes.h"
#include "xlsx/Workbook.h"
#include "xlsx/ZipParts.h"

namespace planview::xlsx {

namespace {

struct FreeBook {
    void operator()(lxw_workbook* book) const noexcept { lxw_workbook_free(book); }
};
using Book = std::unique_ptr<lxw_workbook, FreeBook>;

lxw_color_t ColorOf(int index) {
    const std::uint32_t color = PaletteColor(index).value_or(0);
    // 0 means to the library that no colour was chosen.
    return color == 0 ? static_cast<lxw_color_t>(LXW_COLOR_BLACK) : color;
}

lxw_format_borders BorderOf(LineStyle style) {
    switch (style) {
        case LineStyle::None:
            return LXW_BORDER_NONE;
        case LineStyle::Thin:
            return LXW_BORDER_THIN;
        case LineStyle::Double:
            return LXW_BORDER_DOUBLE;
        case LineStyle::Dash:
            return LXW_BORDER_DASHED;
        case LineStyle::Dot:
            return LXW_BORDER_DOTTED;
        case LineStyle::DashDot:
            return LXW_BORDER_DASH_DOT;
        case LineStyle::DashDotDot:
            return LXW_BORDER_DASH_DOT_DOT;
        case LineStyle::SlantDashDot:
            return LXW_BORDER_SLANT_DASH_DOT;
    }
    return LXW_BORDER_NONE;
}

lxw_format_alignments AlignmentOf(Alignment alignment) {
    switch (alignment) {
        case Alignment::General:
            return LXW_ALIGN_NONE;
        case Alignment::Left:
            return LXW_ALIGN_LEFT;
        case Alignment::Center:
            return LXW_ALIGN_CENTER;
        case Alignment::Right:
            return LXW_ALIGN_RIGHT;
    }
    return LXW_ALIGN_NONE;
}

/// The library's formats of a workbook's styles, each made when first used.
class Formats {
public:
    Formats(const Workbook& workbook, lxw_workbook& book)
        : workbook_(&workbook), book_(&book), formats_(workbook.styles.Size()) {}

    /// Null for the style of an untouched cell.
    [[nodiscard]] lxw_format* operator[](StyleId id) {
        lxw_format*& format = formats_[id];
        if (!format && id != 0) {
            format = Make(workbook_->styles[id]);
        }
        return format;
    }

private:
    [[nodiscard]] lxw_format* Make(const CellStyle& style) {
        lxw_format* const format = workbook_add_format(book_);
        if (!format) {
            throw std::bad_alloc();
        }
        format_set_font_size(format, style.fontSize);
        if (style.bold) {
            format_set_bold(format);
        }
        if (style.fill != 0) {
            format_set_pattern(format, LXW_PATTERN_SOLID);
            format_set_bg_color(format, ColorOf(style.fill));
        }
        if (style.border != LineStyle::None) {
            format_set_border(format, static_cast<std::uint8_t>(BorderOf(style.border)));
            if (style.borderColor != 0) {
                format_set_border_color(format, ColorOf(style.borderColor));
            }
        }
        if (style.alignment != Alignment::General) {
            format_set_align(format, static_cast<std::uint8_t>(AlignmentOf(style.alignment)));
        }
        if (!style.locked) {
            format_set_unlocked(format);
        }
        if (style.numberFormat != 0) {
            format_set_num_format(format, workbook_->numberFormats[style.numberFormat].c_str());
        }
        return format;
    }

    const Workbook* workbook_;
    lxw_workbook* book_;
    std::vector<lxw_format*> formats_;  // owned by the book
};

void Expect(lxw_error error, const char* step) {
    if (error != LXW_NO_ERROR) {
        throw AutomationError(AutomationErrorCode::Failed,
                              std::string("The workbook cannot be written: ") + step + ": " + lxw_strerror(error));
    }
}

void WriteCell(lxw_worksheet* out, std::int32_t row, const Cell& cell, const TextPool& texts, lxw_format* format) {
    const auto line = static_cast<lxw_row_t>(row - 1);
    const auto column = static_cast<lxw_col_t>(cell.column - 1);
    switch (cell.kind) {
        case CellKind::Empty:
            Expect(worksheet_write_blank(out, line, column, format), "a cell");
            break;
        case CellKind::Number:
            Expect(worksheet_write_number(out, line, column, cell.number, format), "a cell");
            break;
        case CellKind::Boolean:
            Expect(worksheet_write_boolean(out, line, column, static_cast<int>(cell.number), format), "a cell");
            break;
        case CellKind::Text: {
            const std::string& text = texts[static_cast<std::uint32_t>(cell.number)];
            Expect(NeedsEscapes(text) ? worksheet_write_string(out, line, column, WithEscapes(text).c_str(), format)
                                      : worksheet_write_string(out, line, column, text.c_str(), format),
                   "a cell");
            break;
        }
    }
}

void WriteColumns(lxw_worksheet* out, const Sheet& sheet, Formats& formats) {
    const auto write = [&](std::size_t first, std::size_t last, const SheetColumn& column) {
        const StyleId style = column.style == SheetRow::NoStyle ? sheet.OwnStyle() : column.style;
        if (style != 0 || column.width != SheetColumn::DefaultWidth) {
            Expect(worksheet_set_column(out, static_cast<lxw_col_t>(first), static_cast<lxw_col_t>(last),
                                        static_cast<double>(column.width), formats[style]),
                   "a column");
        }
    };
    const std::vector<SheetColumn>& columns = sheet.Columns();
    for (std::size_t first = 0; first < columns.size();) {
        std::size_t last = first;
        while (last + 1 < columns.size() && columns[last + 1] == columns[first]) {
            ++last;
        }
        write(first, last, columns[first]);
        first = last + 1;
    }
    if (columns.size() < MostColumns) {
        write(columns.size(), MostColumns - 1, sheet.OtherColumns());
    }
}

void WritePanes(lxw_worksheet* out, const Panes& panes, const Sheet& sheet) {
    if (panes.rows == 0 && panes.columns == 0) {
        return;
    }
    if (panes.frozen) {
        worksheet_freeze_panes(out, static_cast<lxw_row_t>(panes.rows), static_cast<lxw_col_t>(panes.columns));
        return;
    }
    double width = 0;
    for (std::size_t column = 0; column < static_cast<std::size_t>(panes.columns); ++column) {
        width += static_cast<double>(column < sheet.Columns().size() ? sheet.Columns()[column].width
                                                                     : sheet.OtherColumns().width);
    }
    worksheet_split_panes(out, panes.rows * LXW_DEF_ROW_HEIGHT, width);
}

void WritePageSetup(lxw_worksheet* out, const PageSetup& page) {
    if (page.landscape) {
        worksheet_set_landscape(out);
    }
    if (page.firstTitleRow != 0) {
        Expect(worksheet_repeat_rows(out, static_cast<lxw_row_t>(page.firstTitleRow - 1),
                                     static_cast<lxw_row_t>(page.lastTitleRow - 1)),
               "the repeated rows");
    }
    if (page.firstTitleColumn != 0) {
        Expect(worksheet_repeat_columns(out, static_cast<lxw_col_t>(page.firstTitleColumn - 1),
                                        static_cast<lxw_col_t>(page.lastTitleColumn - 1)),
               "the repeated columns");
    }
}

void WriteWorksheet(lxw_workbook& book, const Workbook& workbook, const Worksheet& from, Formats& formats) {
    lxw_worksheet* const out = workbook_add_worksheet(&book, from.name.c_str());
    if (!out) {
        throw AutomationError(AutomationErrorCode::Failed, "The sheet '" + from.name + "' cannot be written");
    }
    // Rows go to the disk one by one, so that they must come from the top and each with its format first.
    from.sheet.ForEachRow([&](std::int32_t number, const SheetRow& row) {
        if (row.style != SheetRow::NoStyle) {
            Expect(worksheet_set_row(out, static_cast<lxw_row_t>(number - 1), LXW_DEF_ROW_HEIGHT, formats[row.style]),
                   "a row");
        }
        for (const Cell& cell : row.cells) {
            WriteCell(out, number, cell, workbook.texts, formats[cell.style]);
        }
    });
    // Behind the rows: the library looks at every column that has a format whenever it writes a row.
    WriteColumns(out, from.sheet, formats);
    WritePanes(out, from.panes, from.sheet);
    WritePageSetup(out, from.page);
    if (from.isProtected) {
        worksheet_protect(out, nullptr, nullptr);
    }
    if (from.visibility != SheetVisibility::Visible) {
        worksheet_hide(out);
    } else if (&from == workbook.worksheets[workbook.activeSheet].get()) {
        worksheet_activate(out);
    }
}

void WriteFile(const Workbook& workbook, const std::filesystem::path& path, const std::filesystem::path& target) {
    // Rows that are done leave the memory; texts then stand in their cells.
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    Book book(workbook_new_opt(path.c_str(), &options));
    if (!book) {
        throw std::bad_alloc();
    }
    std::string title = workbook.title;
    std::string subject = workbook.subject;
    lxw_doc_properties properties{};
    properties.title = title.data();
    properties.subject = subject.data();
    Expect(workbook_set_properties(book.get(), &properties), "title and subject");
    Formats formats(workbook, *book);
    for (const auto& worksheet : workbook.worksheets) {
        WriteWorksheet(*book, workbook, *worksheet, formats);
    }
    errno = 0;
    const lxw_error error = workbook_close(book.release());
    if (error != LXW_NO_ERROR) {
        ThrowCannotSave(target, errno);
    }
}

/// The library does not tell when the disk that takes its temporary files was full.
void ExpectWhole(const std::filesystem::path& path, const std::filesystem::path& target) {
    try {
        ZipParts parts = ZipParts::OfFile(path);
        for (const std::string& name : parts.Names()) {
            std::string tail;
            parts.Read(name, [&](std::string_view piece) {
                constexpr std::size_t TailLength = 32;
                tail.append(piece.size() > TailLength ? piece.substr(piece.size() - TailLength) : piece);
                tail.erase(0, tail.size() > TailLength ? tail.size() - TailLength : 0);
            });
            if (name.starts_with("xl/worksheets/sheet") && tail.find("</worksheet>") == std::string::npos) {
                ThrowCannotSave(target, ENOSPC);
            }
        }
    } catch (const BrokenFile&) {
        ThrowCannotSave(target, ENOSPC);
    }
}

}  // namespace

void SaveWorkbook(const Workbook& workbook, const std::filesystem::path& target) {
    SaveBeside(target, [&](const std::filesystem::path& beside) {
        WriteFile(workbook, beside, target);
        ExpectWhole(beside, target);
    });
}

}  // namespace planview::xlsx
