// SPDX-License-Identifier: MIT
#include "grid/modGrid.h"

#include <charconv>

#include "automation/ShortText.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

/// The error routine.
void ReportError(GridStatus status, const CellKeyView& keys) {
    TraceWrite("==>", modGrid::StatusText(status), "ERROR",
               TraceText("{cid: ", keys.column, " - rid: ", keys.row, "}"));
}

/// The three steps of every operation. `call` answers the status, `parameter` the trace text.
template <class Call, class Parameter>
GridStatus Run(modGrid& driver, std::string_view operation, const CellKeyView& keys, const Call& call,
               const Parameter& parameter, std::string_view message = {}) {
    const GridStatus status = call();
    if (status != GridStatus::Ok) {
        driver.NoteRefusal(status, operation, keys);
    }
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", message, operation, parameter());
        if (status != GridStatus::Ok) {
            ReportError(status, keys);
        }
    }
    return status;
}

GridElement ElementOf(const CellKeyView& keys) noexcept {
    if (keys.column.empty()) {
        return keys.row.empty() ? GridElement::Grid : GridElement::Row;
    }
    return keys.row.empty() ? GridElement::Column : GridElement::Cell;
}

/// Sets an attribute of the cell, column or row that the keys name. A key that a caller does not have must not mean the
/// whole grid.
GridStatus SetByKeys(GridControl& grid, const CellKeyView& keys, GridAttribute attribute, const Variant& value,
                     bool redraw) {
    const GridElement element = ElementOf(keys);
    return element == GridElement::Grid ? GridStatus::InvalidName
                                        : grid.SetAttribute(element, keys, attribute, value, redraw);
}

/// An attribute of the grid as a whole: "{label:value - redraw:flag}".
template <class Value>
GridStatus SetOfGrid(modGrid& driver, std::string_view operation, GridAttribute attribute, std::string_view label,
                     const Value& value, bool redraw) {
    return Run(
        driver, operation, {},
        [&] { return driver.Grid().SetAttribute(GridElement::Grid, {}, attribute, value, redraw); },
        [&] { return TraceText("{", label, ":", value, " - redraw:", redraw, "}"); });
}

/// A size of a column or row: "{cid: key - label:size - redraw:flag}".
GridStatus SetSize(modGrid& driver, std::string_view operation, const CellKeyView& keys, GridAttribute attribute,
                   std::string_view label, std::int16_t size, bool redraw) {
    return Run(
        driver, operation, keys, [&] { return SetByKeys(driver.Grid(), keys, attribute, size, redraw); },
        [&] { return TraceText("{cid: ", keys.column, keys.row, " - ", label, ":", size, " - redraw:", redraw, "}"); });
}

/// The parameter of an operation on keys: "{cid: column - rid: row - label:value - redraw:flag}".
template <class Value>
TraceBuffer KeysText(const CellKeyView& keys, std::string_view label, const Value& value, bool redraw) {
    return TraceText("{cid: ", keys.column, " - rid: ", keys.row, " - ", label, ":", value, " - redraw:", redraw, "}");
}

/// An attribute of a cell, column or row. `shown` is what the trace says of the value.
template <class Shown>
GridStatus Set(modGrid& driver, std::string_view operation, const CellKeyView& keys, GridAttribute attribute,
               const Variant& value, std::string_view label, const Shown& shown, bool redraw) {
    return Run(
        driver, operation, keys, [&] { return SetByKeys(driver.Grid(), keys, attribute, value, redraw); },
        [&] { return KeysText(keys, label, shown, redraw); });
}

/// An attribute of the centre cells of a column or row.
template <class Shown>
GridStatus SetCenter(modGrid& driver, std::string_view operation, const CellKeyView& keys, GridAttribute attribute,
                     const Variant& value, std::string_view label, const Shown& shown, bool redraw) {
    return Run(
        driver, operation, keys,
        [&] {
            const GridElement element = ElementOf(keys);
            return element == GridElement::Grid
                       ? GridStatus::InvalidName
                       : driver.Grid().SetCenterAttribute(element, keys, attribute, value, redraw);
        },
        [&] { return KeysText(keys, label, shown, redraw); });
}

/// An operation that has keys and no value.
template <class Call>
GridStatus RunOnKeys(modGrid& driver, std::string_view operation, const CellKeyView& keys, bool redraw,
                     const Call& call) {
    return Run(driver, operation, keys, call,
               [&] { return TraceText("{cid: ", keys.column, " - rid: ", keys.row, " - redraw:", redraw, "}"); });
}

/// The prefix with its closing 0, as it stands in a literal.
using KeyPrefix = char[4];

std::string Key(const KeyPrefix& prefix, std::int16_t position, std::string_view operation) {
    std::array<char, 12> key{prefix[0], prefix[1], prefix[2]};
    char* end = std::to_chars(key.data() + 3, key.data() + key.size(), position).ptr;
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", operation, TraceText("{index: ", position, "}"));
    }
    return {key.data(), end};
}

}  // namespace

std::string_view modGrid::StatusText(GridStatus status) noexcept {
    switch (status) {
        case GridStatus::RowDefined:
            return "Row is already defined";
        case GridStatus::ColumnDefined:
            return "Col is already defined";
        case GridStatus::UnknownRow:
            return "Unknown row";
        case GridStatus::UnknownColumn:
            return "Unknown col";
        case GridStatus::InvalidName:
            return "Invalid name";
        case GridStatus::UndefinedGridAttribute:
            return "Undefined grid attribute";
        case GridStatus::UndefinedRowAttribute:
            return "Undefined row attribute";
        case GridStatus::UndefinedColumnAttribute:
            return "Undefined col attribute";
        case GridStatus::UndefinedCellAttribute:
            return "Undefined cell attribute";
        case GridStatus::NoItemAtLocation:
            return "No item at location";
        case GridStatus::InvalidRowPosition:
            return "Invalid row position";
        case GridStatus::InvalidColumnPosition:
            return "Invalid col position";
        case GridStatus::InvalidCellPosition:
            return "Invalid cell position";
        case GridStatus::AttributeNotPossible:
            return "SetAttribute not possible";
        case GridStatus::UnknownBitmap:
            return "Unknown bitmap";
        case GridStatus::UnknownColor:
            return "Unknown color";
        case GridStatus::UnknownFont:
            return "Unknown font";
        case GridStatus::ColorDefined:
            return "Already defined color";
        case GridStatus::NoRegisterPress:
            return "No register press";
        case GridStatus::InvalidAttribute:
            return "Invalid attribute";
        default:
            return "Unknown error";
    }
}

void modGrid::NoteRefusal(GridStatus status, std::string_view operation, const CellKeyView& keys) {
    lastRefusal_.status = status;
    lastRefusal_.operation = operation;
    lastRefusal_.keys.column = keys.column;
    lastRefusal_.keys.row = keys.row;
    ++refusals_;
}

GridStatus modGrid::CreateColor(std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return Run(
        *this, "CreateColor", {}, [&] { return grid_.CreateColor(name, red, green, blue); },
        [&] { return TraceText("{color:", name, "}"); });
}

std::string modGrid::ColumnKey(std::int16_t position, std::string_view kind) {
    return Key(kind == "L" ? "FLC" : kind == "R" ? "FRC" : "COL", position, "column key");
}

std::string modGrid::RowKey(std::int16_t position, std::string_view kind) {
    return Key(kind == "T" ? "FTR" : kind == "B" ? "FBR" : "ROW", position, "row key");
}

std::int16_t modGrid::PositionOf(std::string_view key) {
    constexpr std::size_t PrefixLength = 3;
    std::int16_t position = 0;
    if (key.starts_with("COL") || key.starts_with("ROW")) {
        std::from_chars(key.data() + PrefixLength, key.data() + key.size(), position);
    }
    return position;
}

GridStatus modGrid::CreateLabelled() {
    return Run(
        *this, "CreateLabelled", {}, [&] { return grid_.CreateLabelled(false); }, [] { return std::string("{}"); },
        "CONSTRUCTOR");
}

GridStatus modGrid::Destructor(bool redraw) {
    return Run(
        *this, "DESTRUCTOR", {}, [&] { return grid_.Destroy(redraw); },
        [&] { return TraceText("{redraw:", redraw, "}"); });
}

GridStatus modGrid::LabelColWidth(std::int16_t width) {
    return Run(
        *this, "LabelColWidth", {},
        [&] { return grid_.SetAttribute(GridElement::Grid, {}, GridAttribute::LabelColumnWidth, width, false); },
        [&] { return TraceText("{width:", width, "}"); });
}

GridStatus modGrid::LabelAutoFit(std::int16_t width) {
    return Run(
        *this, "LabelAutoFit", {},
        [&] { return grid_.SetAttribute(GridElement::Grid, {}, GridAttribute::LabelAutoFit, width, false); },
        [&] { return TraceText("{width:", width, "}"); });
}

GridStatus modGrid::DoubleBuffering(std::int16_t value, bool redraw) {
    return SetOfGrid(*this, "DoubleBuffering", GridAttribute::DoubleBuffering, "value", value, redraw);
}

GridStatus modGrid::MovePermission(std::int16_t value, bool redraw) {
    return SetOfGrid(*this, "move permission", GridAttribute::MovePermission, "value", value, redraw);
}

GridStatus modGrid::ResizePermission(std::int16_t value, bool redraw) {
    return SetOfGrid(*this, "resize permission", GridAttribute::ResizePermission, "value", value, redraw);
}

GridStatus modGrid::DragDrop(std::int16_t value, bool redraw) {
    return SetOfGrid(*this, "DragDrop", GridAttribute::DragDrop, "value", value, redraw);
}

GridStatus modGrid::GridlinesColor(std::int16_t color, bool redraw) {
    return Run(
        *this, "Gridlines color", {},
        [&] {
            return grid_.SetAttribute(GridElement::Grid, {}, GridAttribute::GridLineColor, ColorName(color), redraw);
        },
        [&] { return TraceText("{color:", color, " - redraw:", redraw, "}"); });
}

GridStatus modGrid::Switch(bool switched, bool redraw) {
    return SetOfGrid(*this, "switch", GridAttribute::Switched, "switched", switched, redraw);
}

void modGrid::SetRedraw(bool on, Entries entries) {
    grid_.SetRedraw(on);
    if (TraceEnabled && entries == Entries::Written) {
        TraceWrite("GRIDCTL", "", "SetRedraw", TraceText("{redraw:", on, "}"));
    }
}

void modGrid::Redraw(Entries entries) {
    grid_.Redraw();
    if (TraceEnabled && entries == Entries::Written) {
        TraceWrite("GRIDCTL", "", "Redraw", "{}");
    }
}

void modGrid::State(bool waiting, Entries entries) {
    grid_.SetWaiting(waiting);
    if (TraceEnabled && entries == Entries::Written) {
        TraceWrite("GRIDCTL", "", "state", TraceText("{value:", waiting, "}"));
    }
}

modGrid::RedrawAtEnd::RedrawAtEnd(modGrid& driver, Entries entries)
    : driver_(driver), entries_(entries), before_(driver.Grid().RedrawOn()) {
    driver_.SetRedraw(false, entries_);
}

modGrid::RedrawAtEnd::~RedrawAtEnd() {
    ErrorTrap("GRIDCTL", "Redraw", [&] {
        driver_.SetRedraw(before_, entries_);
        driver_.Redraw(entries_);
    });
}

modGrid::WaitingState::WaitingState(modGrid& driver, Entries entries) : driver_(driver), entries_(entries) {
    driver_.State(true, entries_);
}

modGrid::WaitingState::~WaitingState() {
    ErrorTrap("GRIDCTL", "state", [&] { driver_.State(false, entries_); });
}

GridStatus modGrid::FirstColumn(std::string_view key, bool redraw) {
    return Run(
        *this, "FirstColumn", {key, {}}, [&] { return grid_.SetFirstColumn(key, redraw); },
        [&] { return TraceText("{cid: ", key, " - redraw:", redraw, "}"); });
}

GridStatus modGrid::FirstRow(std::string_view key, bool redraw) {
    return Run(
        *this, "FirstRow", {{}, key}, [&] { return grid_.SetFirstRow(key, redraw); },
        [&] { return TraceText("{cid: ", key, " - redraw:", redraw, "}"); });
}

GridStatus modGrid::CreateColumn(std::string_view key, std::int16_t position, bool redraw) {
    return Run(
        *this, "CreateColumn", {key, {}}, [&] { return grid_.CreateColumn(key, position, redraw); },
        [&] { return TraceText("{cid: ", key, " - pos:", position, " - redraw:", redraw, "}"); });
}

GridStatus modGrid::CreateRow(std::string_view key, std::int16_t position, bool redraw) {
    return Run(
        *this, "CreateRow", {{}, key}, [&] { return grid_.CreateRow(key, position, redraw); },
        [&] { return TraceText("{cid: ", key, " - pos:", position, " - redraw:", redraw, "}"); });
}

GridStatus modGrid::ColumnWidth(std::string_view key, std::int16_t width, bool redraw) {
    return SetSize(*this, "column width", {key, {}}, GridAttribute::Width, "width", width, redraw);
}

GridStatus modGrid::ColumnHeight(std::string_view key, std::int16_t height, bool redraw) {
    return SetSize(*this, "ColumnHeight", {key, {}}, GridAttribute::Height, "height", height, redraw);
}

GridStatus modGrid::RowHeight(std::string_view key, std::int16_t height, bool redraw) {
    return SetSize(*this, "row height", {{}, key}, GridAttribute::Height, "height", height, redraw);
}

GridStatus modGrid::RowWidth(std::string_view key, std::int16_t width, bool redraw) {
    return SetSize(*this, "RowWidth", {{}, key}, GridAttribute::Width, "width", width, redraw);
}

GridStatus modGrid::SelectionFlag(const CellKeyView& keys, bool redraw) {
    return RunOnKeys(*this, "SelectionFlag", keys, redraw,
                     [&] { return SetByKeys(grid_, keys, GridAttribute::Selectable, false, redraw); });
}

GridStatus modGrid::SetSelection(const CellKeyView& keys, bool redraw) {
    return RunOnKeys(*this, "SetSelection", keys, redraw, [&] { return grid_.SetSelection(keys, redraw); });
}

GridStatus modGrid::DeleteSelection(const CellKeyView& keys, bool redraw) {
    return RunOnKeys(*this, "DeleteSelection", keys, redraw, [&] { return grid_.DeleteSelection(keys, redraw); });
}

GridStatus modGrid::CenterHidden(const CellKeyView& keys, bool hidden, bool redraw) {
    return SetCenter(*this, "CenterHidden", keys, GridAttribute::Hidden, hidden, "hidden", hidden, redraw);
}

bool modGrid::HeadingSelected(const CellKeyView& keys) const {
    return grid_.HeadingKind(keys) != 0 && grid_.IsSelected(keys);
}

GridStatus modGrid::Contents(const CellKeyView& keys, std::string_view text, bool redraw) {
    return Set(*this, "Contents", keys, GridAttribute::Contents, text, "contents", text, redraw);
}

std::string modGrid::CellText(const CellKeyView& keys) const {
    const std::optional<Cell> cell = grid_.FindCell(keys);
    return cell ? grid_.Contents(*cell) : std::string();
}

GridStatus modGrid::Tooltip(const CellKeyView& keys, std::string_view text, bool redraw) {
    return Set(*this, "Tooltip", keys, GridAttribute::Tooltip, text, "contents", text, redraw);
}

GridStatus modGrid::ReadOnly(const CellKeyView& keys, bool readOnly, bool redraw) {
    return Set(*this, "ReadOnly", keys, GridAttribute::ReadOnly, readOnly, "readonly", readOnly, redraw);
}

GridStatus modGrid::Format(const CellKeyView& keys, std::string_view format, bool redraw) {
    return Set(*this, "format", keys, GridAttribute::Format, format, "format", format, redraw);
}

GridStatus modGrid::Font(const CellKeyView& keys, std::string_view font, bool redraw) {
    return Set(*this, "font", keys, GridAttribute::Font, font, "font", font, redraw);
}

GridStatus modGrid::Alignment(const CellKeyView& keys, std::int16_t alignment, bool redraw) {
    return Set(*this, "Alignment", keys, GridAttribute::Alignment, alignment, "align", alignment, redraw);
}

GridStatus modGrid::Relief(const CellKeyView& keys, bool relief, bool redraw) {
    return Set(*this, "relief", keys, GridAttribute::Relief, relief, "relief", relief, redraw);
}

GridStatus modGrid::Bitmap(const CellKeyView& keys, std::string_view bitmap, std::int16_t alignment, bool redraw) {
    // Nearly all cells have no bitmap, and then there is nothing to align.
    const bool nothingToAlign = bitmap.empty() && alignment == static_cast<std::int16_t>(GridAlignment::Right);
    const bool canAlign = alignment >= static_cast<std::int16_t>(GridAlignment::Right) &&
                          alignment <= static_cast<std::int16_t>(GridAlignment::Center);
    return Run(
        *this, "bitmap", keys,
        [&] {
            GridStatus status = GridStatus::Ok;
            if (canAlign) {  // an alignment that the grid will refuse must not leave the bitmap behind
                status = SetByKeys(grid_, keys, GridAttribute::Bitmap, bitmap, nothingToAlign && redraw);
            }
            if (status != GridStatus::Ok || nothingToAlign) {
                return status;
            }
            return SetByKeys(grid_, keys, GridAttribute::BitmapAlignment, alignment, redraw);
        },
        [&] { return KeysText(keys, "bitmap", bitmap, redraw); });
}

GridStatus modGrid::BackgroundColor(const CellKeyView& keys, std::int16_t color, bool redraw) {
    // The one attribute here that the grid as a whole has too.
    return Run(
        *this, "background colour", keys,
        [&] {
            return grid_.SetAttribute(ElementOf(keys), keys, GridAttribute::BackgroundColor, ColorName(color), redraw);
        },
        [&] { return KeysText(keys, "color", color, redraw); });
}

GridStatus modGrid::ForegroundColor(const CellKeyView& keys, std::int16_t color, bool redraw) {
    return Set(*this, "foreground colour", keys, GridAttribute::ForegroundColor, ColorName(color), "color", color,
               redraw);
}

GridStatus modGrid::CenterFormat(const CellKeyView& keys, std::string_view format, bool redraw) {
    return SetCenter(*this, "CenterFormat", keys, GridAttribute::Format, format, "format", format, redraw);
}

GridStatus modGrid::CenterFont(const CellKeyView& keys, std::string_view font, bool redraw) {
    return SetCenter(*this, "CenterFont", keys, GridAttribute::Font, font, "font", font, redraw);
}

GridStatus modGrid::CenterAlignment(const CellKeyView& keys, std::int16_t alignment, bool redraw) {
    return SetCenter(*this, "CenterAlignment", keys, GridAttribute::Alignment, alignment, "align", alignment, redraw);
}

GridStatus modGrid::CenterReadOnly(const CellKeyView& keys, bool readOnly, bool redraw) {
    return SetCenter(*this, "CenterReadOnly", keys, GridAttribute::ReadOnly, readOnly, "readonly", readOnly, redraw);
}

GridStatus modGrid::CenterTextLine(const CellKeyView& keys, std::string_view textLine, bool redraw) {
    return SetCenter(*this, "CenterTextLine", keys, GridAttribute::TextLine, textLine == "X", "textline", textLine,
                     redraw);
}

GridStatus modGrid::CenterHelpLine(const CellKeyView& keys, std::string_view lineType, bool redraw) {
    return SetCenter(*this, "CenterHelpLine", keys, GridAttribute::HelpLine, lineType == "H", "helpline", lineType,
                     redraw);
}

GridStatus modGrid::CenterRelief(const CellKeyView& keys, bool relief, bool redraw) {
    return SetCenter(*this, "CenterRelief", keys, GridAttribute::Relief, relief, "relief", relief, redraw);
}

GridStatus modGrid::CenterBgColor(const CellKeyView& keys, std::int16_t color, bool redraw) {
    return SetCenter(*this, "CenterBgColor", keys, GridAttribute::BackgroundColor, ColorName(color), "color", color,
                     redraw);
}

GridStatus modGrid::CenterFgColor(const CellKeyView& keys, std::int16_t color, bool redraw) {
    return SetCenter(*this, "CenterFgColor", keys, GridAttribute::ForegroundColor, ColorName(color), "color", color,
                     redraw);
}

const Variant& modGrid::ColorName(std::int16_t color) const noexcept {
    static const Variant NoName("");
    return color >= 0 && color < PaletteSize ? colorNames_[static_cast<std::size_t>(color)] : NoName;
}

}  // namespace planview
