// SPDX-License-Identifier: MIT
#include "import/BookBuilder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "book/HostCommands.h"
#include "import/MacroRows.h"
#include "import/PlannedLines.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

// Palette indices. 0 and 1 stand for the view's own background and text.
constexpr int White = 0;
constexpr int Black = 1;
constexpr int Gray = 8;
constexpr int LightRed = 13;

enum class Align { Right = 0, Left = 1, Center = 2 };

constexpr const char* Set = "X";
constexpr const char* LeftSide = "L";
constexpr const char* RightSide = "R";
constexpr const char* TopSide = "T";
constexpr const char* BottomSide = "B";
constexpr const char* Planning = "";

// Sizes in logical pixels.
constexpr int RowHeight = 23;
constexpr int HeadingHeight = 24;
constexpr int DigitWidth = 8;
constexpr int MarkWidth = 4;  // of "." and ","
constexpr int LetterWidth = 7;
constexpr int CellMargins = 16;
constexpr int BoldMargins = 26;   // means are bold
constexpr int LabelMargins = 26;  // the margins and the mark of a line that is in the chart
constexpr std::pair<int, int> ColumnWidths = {76, 200};
constexpr std::pair<int, int> UnitWidths = {72, 160};
constexpr std::pair<int, int> LabelWidths = {185, 320};

/// Sets the fields of a new row.
class NewRow {
public:
    explicit NewRow(MemoryTable& table) : table_(table), row_(table.AddRow()) {}

    NewRow& Put(std::string_view field, Variant value) {
        table_.SetValue(row_, field, std::move(value));
        return *this;
    }
    NewRow& Put(std::string_view field, Align value) { return Put(field, static_cast<std::int32_t>(value)); }

private:
    MemoryTable& table_;
    std::int32_t row_;
};

/// The number of characters, counted as code points.
int Length(std::string_view text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(),
                                          [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

int FittingWidth(int contents, int margins, std::pair<int, int> limits) {
    return std::clamp(contents + margins, limits.first, limits.second);
}

int TextWidth(std::string_view text) {
    return Length(text) * LetterWidth;
}

/// Shows `decimals` digits behind the mark always and up to `optional` more where there are any.
std::string NumberFormat(int decimals, int optional = 0) {
    const std::string digits =
        std::string(static_cast<std::size_t>(decimals), '0') + std::string(static_cast<std::size_t>(optional), '#');
    return digits.empty() ? "#,##0" : "#,##0." + digits;
}

/// The width of the number as it is shown, with groups.
int NumberWidth(double number, int decimals) {
    const int digits = std::abs(number) < 1 ? 1 : static_cast<int>(std::log10(std::abs(number))) + 1;
    const int marks = (digits - 1) / 3 + (decimals > 0 ? 1 : 0);
    return (digits + decimals + (number < 0 ? 1 : 0)) * DigitWidth + marks * MarkWidth;
}

/// Fills the tables of a book, one function per table or per side of the grid.
class Builder {
public:
    Builder(const SourceTable& source, const NamesFile& names, const std::vector<PlannedColumn>& columns)
        : source_(source), names_(names), columns_(columns), lines_(PlanLines(source, names)) {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (columns_[i].period) {
                columnOf_.push_back(static_cast<std::int32_t>(i) + 1);
            }
        }
        for (const PlannedLine& line : lines_) {
            hasUnits_ = hasUnits_ || !line.name.unit.empty();
        }
    }

    Book Build() {
        AddSettings();
        AddColumns();
        AddLines();
        AddCells();
        AddCorner();
        AddYears();
        AddUnits();
        AddMeans();
        AddSource();
        AddTexts();
        AddMacros();
        AddMenus();
        return std::move(book_);
    }

private:
    void AddSettings() {
        int labelWidth = TextWidth(names_.title);
        for (const PlannedLine& line : lines_) {
            labelWidth = std::max(labelWidth, TextWidth(Label(line)));
        }
        NewRow(book_[BookTable::GridAttr])
            .Put("CHART", names_.chart.shown ? Set : "")
            .Put("HIDDEN_LIST", "")
            .Put("NOMOVE_ALLOWED", Set)  // periods stay in their order
            .Put("NORESIZE_ALLOWED", "")
            .Put("SINGLEVALUE", "")
            .Put("SWITCHED", "")
            .Put("ZOOMED", "")
            .Put("BGCOLOR", White)
            .Put("GRIDLINE_COLOR", Gray)
            .Put("FIRST_COL", FirstColumn())
            .Put("FIRST_ROW", 0)
            .Put("CHART_TYPE", 0)
            .Put("NO_AUTOMIN", "")
            .Put("NO_AUTOMAX", "")
            .Put("MINVALUE", 0.0)
            .Put("MAXVALUE", 0.0)
            .Put("MINRANGE", names_.chart.rangeFrom.value_or(0.0))
            .Put("MAXRANGE", names_.chart.rangeTo.value_or(0.0))
            .Put("OPTIMUM", names_.chart.optimum.value_or(0.0))
            .Put("LABELCOL_WIDTH", FittingWidth(labelWidth, LabelMargins, LabelWidths))
            .Put("TITELTEXT", names_.chart.title);
    }

    [[nodiscard]] std::size_t PlaceOf(const std::string& period, std::size_t otherwise) const {
        const auto found = std::find(source_.periods.begin(), source_.periods.end(), period);
        return found == source_.periods.end() ? otherwise : static_cast<std::size_t>(found - source_.periods.begin());
    }

    /// Whether the period is in the chart: those that the names file says, else two years from where the book opens.
    [[nodiscard]] bool IsCharted(std::size_t column) const {
        constexpr std::size_t UsualPeriods = 24;
        const std::size_t last = source_.periods.size() - 1;
        const std::size_t start = PlaceOf(names_.openAt, 0);
        return names_.chart.shown ? column >= PlaceOf(names_.chart.from, 0) && column <= PlaceOf(names_.chart.to, last)
                                  : column >= start && column < start + UsualPeriods;
    }

    /// 0 leaves the view at its beginning.
    [[nodiscard]] int FirstColumn() const {
        const auto found = std::find(source_.periods.begin(), source_.periods.end(), names_.openAt);
        return found == source_.periods.end() ? 0
                                              : columnOf_[static_cast<std::size_t>(found - source_.periods.begin())];
    }

    void AddColumns() {
        const int width = FittingWidth(WidestCell(), CellMargins, ColumnWidths);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            NewRow(book_[BookTable::ColsIndex])
                .Put("GRID_ID", "")
                .Put("COLUMN", static_cast<std::int32_t>(i) + 1)
                .Put("PERDY", columns_[i].caption)
                .Put("COL_WIDTH", width)
                .Put("COL_HEIGHT", HeadingHeight)
                .Put("BITMAP", "")
                .Put("BMP_ALIGN", Align::Right)
                .Put("COL_HIDDEN", "")
                .Put("COL_MARKED", "")
                .Put("SHOW_CHART", columns_[i].period && IsCharted(*columns_[i].period) ? Set : "")
                .Put("CHART_ID", 0)
                .Put("CHART_TYPE", 0);
        }
    }

    [[nodiscard]] int WidestCell() const {
        constexpr double MostInTotal = 12;
        int widest = 0;
        bool totals = false;
        for (const PlannedColumn& column : columns_) {
            widest = std::max(widest, TextWidth(column.caption));
            totals = totals || !column.period;
        }
        for (const PlannedLine& line : lines_) {
            for (const std::optional<double>& value : *line.values) {
                widest = std::max(widest, value ? NumberWidth(*value, line.decimals) : 0);
                // The total of a year has a digit or two more.
                widest = std::max(widest, value && totals ? NumberWidth(*value * MostInTotal, line.decimals) : 0);
            }
        }
        return widest;
    }

    void AddLines() {
        std::int32_t number = 0;
        for (const PlannedLine& line : lines_) {
            NewRow(book_[BookTable::LineIndex])
                .Put("GRID_ID", "")
                .Put("LINE", ++number)
                .Put("LINETYPE", line.IsHelp() ? "H" : "")
                .Put("ROW_WIDTH", ColumnWidths.first)
                .Put("ROW_HEIGHT", RowHeight)
                .Put("READONLY", line.IsEditable() ? "" : Set)
                .Put("ROW_TEXT", "")
                .Put("ROW_FORMAT", NumberFormat(line.decimals))
                .Put("ROW_FONT", line.IsHelp() ? ";;Cursiv" : "")
                .Put("ROW_ALIGN", Align::Right)
                .Put("ROW_BG", White)
                .Put("ROW_FG", Black)
                .Put("RELIEF", "")
                .Put("BITMAP", "")
                .Put("BMP_ALIGN", Align::Right)
                .Put("LTEXT", "F")
                .Put("FREET", Label(line))
                .Put("DDICT", line.name.column)
                .Put("PLOBT", "")
                .Put("ROW_HIDDEN", "")
                .Put("ROW_MARKED", "")
                .Put("SHOW_CHART", line.name.chart == ChartUse::None ? "" : Set)
                .Put("CHART_ID", 0)
                .Put("CHART_TYPE", ChartTypeCode(line.name.chart));
        }
    }

    static std::int32_t ChartTypeCode(ChartUse use) {
        switch (use) {
            case ChartUse::Line:
                return 23;
            case ChartUse::StackedLine:
                return 21;
            case ChartUse::StackedLine100:
                return 22;
            default:
                return 0;
        }
    }

    static std::string Label(const PlannedLine& line) {
        constexpr std::size_t BlanksPerIndent = 3;
        return std::string(BlanksPerIndent * static_cast<std::size_t>(line.name.indent), ' ') + line.name.label;
    }

    void AddCells() {
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            for (std::size_t period = 0; period < lines_[line].values->size(); ++period) {
                if (const std::optional<double> value = (*lines_[line].values)[period]) {
                    NewRow(book_[BookTable::Tab])
                        .Put("Z", static_cast<std::int32_t>(line) + 1)
                        .Put("C", columnOf_[period])
                        .Put("V", *value);
                    if (*value < 0) {
                        AddNegative(line, columnOf_[period], *value);
                    }
                }
            }
        }
    }

    void AddNegative(std::size_t line, std::int32_t column, double value) {
        NewRow(book_[BookTable::CellAttr])
            .Put("COLUMN", column)
            .Put("LINE", static_cast<std::int32_t>(line) + 1)
            .Put("BGCOLOR", White)
            .Put("FGCOLOR", LightRed)
            .Put("BITMAP", "")
            .Put("BMP_ALIGN", Align::Right)
            .Put("TOOLTIP", lines_[line].name.label + ", " + columns_[static_cast<std::size_t>(column) - 1].caption +
                                ": " + GridNumber(value) + " (negative)");
    }

    /// A fixed cell; `columnSide` and `lineSide` say of which side its column and its row are.
    NewRow AddFixedCell(const char* columnSide, std::size_t column, const char* lineSide, std::size_t line,
                        const std::string& value, Align align) {
        NewRow row(book_[BookTable::FixedTab]);
        row.Put("COLUMN", static_cast<std::int32_t>(column))
            .Put("FLG_COL_FIX", columnSide)
            .Put("LINE", static_cast<std::int32_t>(line))
            .Put("FLG_LINE_FIX", lineSide)
            .Put("VALUE", value)
            .Put("TOOLTIP", "")
            .Put("BGCOLOR", White)
            .Put("FGCOLOR", Black)
            .Put("BITMAP", "")
            .Put("BMP_ALIGN", Align::Right)
            .Put("TEXTALIGN", align);
        return row;
    }

    void AddFixedColumn(const char* side, int width, const std::string& format, Align align) {
        NewRow(book_[BookTable::FixedCols])
            .Put("COLUMN_FIX", 1)
            .Put("FLG_POSITION", side)
            .Put("COL_WIDTH", width)
            .Put("COL_HEIGHT", HeadingHeight)
            .Put("COL_FORMAT", format)
            .Put("COL_ALIGN", align)
            .Put("READONLY", Set)
            .Put("GRID_ID", "");
    }

    void AddFixedLine(const char* side) {
        NewRow(book_[BookTable::FixedLines])
            .Put("LINE_FIX", 1)
            .Put("FLG_POSITION", side)
            .Put("ROW_WIDTH", ColumnWidths.first)
            .Put("ROW_HEIGHT", RowHeight)
            .Put("ROW_FORMAT", "")
            .Put("ROW_ALIGN", Align::Left)
            .Put("READONLY", Set)
            .Put("GRID_ID", "");
    }

    void AddCorner() { AddFixedCell(LeftSide, 0, TopSide, 0, names_.title, Align::Left); }

    void AddYears() {
        if (std::all_of(columns_.begin(), columns_.end(),
                        [](const PlannedColumn& column) { return column.year.empty(); })) {
            return;
        }
        AddFixedLine(TopSide);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (!columns_[i].year.empty()) {
                AddFixedCell(Planning, i + 1, TopSide, 1, columns_[i].year, Align::Left);
            }
        }
    }

    void AddUnits() {
        if (!hasUnits_) {
            return;
        }
        const std::string heading = "Unit";
        int widest = TextWidth(heading);
        for (const PlannedLine& line : lines_) {
            widest = std::max(widest, TextWidth(line.name.unit));
        }
        AddFixedColumn(LeftSide, FittingWidth(widest, CellMargins, UnitWidths), "", Align::Left);
        AddFixedCell(LeftSide, 1, TopSide, 0, heading, Align::Center);
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            AddFixedCell(LeftSide, 1, Planning, i + 1, lines_[i].name.unit, Align::Left);
        }
    }

    void AddMeans() {
        int widest = 0;
        int fewest = PlannedLine::MaxDecimals;
        int most = 1;
        for (const PlannedLine& line : lines_) {
            widest = std::max(widest, line.mean ? NumberWidth(*line.mean, line.MeanDecimals()) : 0);
            fewest = std::min(fewest, line.MeanDecimals());
            most = std::max(most, line.MeanDecimals());
        }
        AddFixedColumn(RightSide, FittingWidth(widest, BoldMargins, ColumnWidths), NumberFormat(fewest, most - fewest),
                       Align::Right);
        AddFixedCell(RightSide, 1, TopSide, 0, "Mean", Align::Center);
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            if (lines_[i].mean) {
                AddFixedCell(RightSide, 1, Planning, i + 1, GridNumber(*lines_[i].mean), Align::Right)
                    .Put("TOOLTIP", "Mean of " + lines_[i].name.label);
            }
        }
    }

    void AddSource() {
        if (names_.source.empty()) {
            return;
        }
        AddFixedLine(BottomSide);
        AddFixedCell(LeftSide, 0, BottomSide, 1, "Source", Align::Left).Put("TOOLTIP", names_.source);
        // Once per year, so that it can be read wherever the view stands.
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (i == 0 || !columns_[i].year.empty()) {
                AddFixedCell(Planning, i + 1, BottomSide, 1, names_.source, Align::Left).Put("TOOLTIP", names_.source);
            }
        }
    }

    void AddTexts() {
        struct Entry {
            std::int32_t number;
            std::string text;
        };
        const std::array<Entry, 6> entries = {{
            {97, "stacked"},
            {98, "stacked to 100 %"},
            {180, names_.title},
            {181, names_.unit.empty() ? "selected lines" : names_.unit},
            {183, "Choose the line that holds the forecast: click its heading."},
            {184, "Choose the line that holds the sales: click its heading."},
        }};
        for (const Entry& entry : entries) {
            // The captions of the macro elements stand in every row: a reader may take them from any.
            NewRow(book_[BookTable::Texts])
                .Put("ENTRY", entry.number)
                .Put("TEXT", entry.text)
                .Put("CONDSTRING", "Condition text")
                .Put("CONDITION", "Condition")
                .Put("TABLINE", "Line of the table")
                .Put("TABELEMENT", "Cell of the table")
                .Put("TABAREA", "Area of the table")
                .Put("OPERATOR", "Operator")
                .Put("FUNCTION", "Function")
                .Put("MAKLINE", "Line of the macro")
                .Put("MAKELEMENT", "Value of the macro")
                .Put("MAKAREA", "Area of the macro")
                .Put("ATTRIBUTE", "Attribute")
                .Put("GENERATE", "Generated")
                .Put("INACTIVE", "Inactive");
        }
    }

    void AddMacros() {
        MacroPlaces places{{}, source_.periods, {}, columnOf_};
        for (const std::int32_t column : columnOf_) {
            places.captions.push_back(columns_[static_cast<std::size_t>(column) - 1].caption);
        }
        for (const PlannedLine& line : lines_) {
            places.lines.push_back(line.name);
        }
        AddMacroRows(book_[BookTable::MacroTree], names_.macros, places);
    }

    void AddMenus() {
        const auto add = [this](BookTable menu, HostCommand command, const char* text) {
            NewRow(book_[menu]).Put("PFID", static_cast<std::int32_t>(command)).Put("TEXT", text).Put("ENABLED", Set);
        };
        add(BookTable::GridMenu, HostCommand::Reload, "Reload book");
        add(BookTable::GridMenu, HostCommand::AcceptChanges, "Accept all changes");
        add(BookTable::GridMenu, HostCommand::RevertChanges, "Revert all changes…");
        add(BookTable::ColMenu, HostCommand::CopyPeriod, "Copy to next period");
        add(BookTable::ColMenu, HostCommand::ClearPeriod, "Clear pending changes in period");
        add(BookTable::RowMenu, HostCommand::CopyLine, "Copy line to…");
        add(BookTable::RowMenu, HostCommand::SpreadTotal, "Spread total over periods…");
        add(BookTable::RowMenu, HostCommand::ClearLine, "Clear pending changes in line");
        add(BookTable::RowMenu, HostCommand::RaiseLine, RaiseText);
        add(BookTable::CellMenu, HostCommand::CopyValue, "Copy value to following periods");
        add(BookTable::CellMenu, HostCommand::ClearCell, "Clear pending change");
        add(BookTable::CellMenu, HostCommand::RaiseCells, RaiseText);
    }

    const SourceTable& source_;
    const NamesFile& names_;
    const std::vector<PlannedColumn>& columns_;
    std::vector<std::int32_t> columnOf_;  // by period of the source
    std::vector<PlannedLine> lines_;
    bool hasUnits_ = false;
    Book book_;
};

}  // namespace

Book BuildBook(const SourceTable& source, const NamesFile& names, const std::vector<PlannedColumn>& columns) {
    return Builder(source, names, columns).Build();
}

}  // namespace planbook
