// SPDX-License-Identifier: MIT
#include "grid/modGrid.h"

#include <charconv>

#include "automation/ShortText.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"
#include "trace/modPlan.h"

namespace planview::modGrid {

namespace {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

void ReportError() {
    if (TraceEnabled) {
        TraceWrite("==>", StatusText(Status), "ERROR", TraceText("{cid: ", LastColumnKey, " - rid: ", LastRowKey, "}"));
    }
}

/// Most operations go to the same column or row as the one before.
void Keep(std::string& last, std::string_view key) {
    if (!SameShortText(last, key)) {
        last = key;
    }
}

/// The four steps of every operation. `call` answers the status, `parameter` the trace text.
template <class Call, class Parameter>
void Run(std::string_view operation, const CellKeyView& keys, const Call& call, const Parameter& parameter,
         std::string_view message = {}) {
    Keep(LastColumnKey, keys.column);
    Keep(LastRowKey, keys.row);
    Status = call();
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", message, operation, parameter());
    }
    if (Status != GridStatus::Ok) {
        ReportError();
    }
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
void SetOfGrid(GridControl& grid, std::string_view operation, GridAttribute attribute, std::string_view label,
               const Value& value, bool redraw) {
    Run(
        operation, {}, [&] { return grid.SetAttribute(GridElement::Grid, {}, attribute, value, redraw); },
        [&] { return TraceText("{", label, ":", value, " - redraw:", redraw, "}"); });
}

/// A size of a column or row: "{cid: key - label:size - redraw:flag}".
void SetSize(GridControl& grid, std::string_view operation, const CellKeyView& keys, GridAttribute attribute,
             std::string_view label, std::int16_t size, bool redraw) {
    Run(
        operation, keys, [&] { return SetByKeys(grid, keys, attribute, size, redraw); },
        [&] { return TraceText("{cid: ", keys.column, keys.row, " - ", label, ":", size, " - redraw:", redraw, "}"); });
}

/// The parameter of an operation on keys: "{cid: column - rid: row - label:value - redraw:flag}".
template <class Value>
TraceBuffer KeysText(const CellKeyView& keys, std::string_view label, const Value& value, bool redraw) {
    return TraceText("{cid: ", keys.column, " - rid: ", keys.row, " - ", label, ":", value, " - redraw:", redraw, "}");
}

/// An attribute of a cell, column or row. `shown` is what the trace says of the value.
template <class Shown>
void Set(GridControl& grid, std::string_view operation, const CellKeyView& keys, GridAttribute attribute,
         const Variant& value, std::string_view label, const Shown& shown, bool redraw) {
    Run(
        operation, keys, [&] { return SetByKeys(grid, keys, attribute, value, redraw); },
        [&] { return KeysText(keys, label, shown, redraw); });
}

/// An attribute of the centre cells of a column or row.
template <class Shown>
void SetCenter(GridControl& grid, std::string_view operation, const CellKeyView& keys, GridAttribute attribute,
               const Variant& value, std::string_view label, const Shown& shown, bool redraw) {
    Run(
        operation, keys,
        [&] {
            const GridElement element = ElementOf(keys);
            return element == GridElement::Grid ? GridStatus::InvalidName
                                                : grid.SetCenterAttribute(element, keys, attribute, value, redraw);
        },
        [&] { return KeysText(keys, label, shown, redraw); });
}

/// The name of a palette colour; the empty one, which no grid knows, outside the palette.
const Variant& ColorName(std::int16_t color) {
    static const Variant NoName("");
    return color >= 0 && color < PaletteSize ? ColorNames[static_cast<std::size_t>(color)] : NoName;
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

std::string_view StatusText(GridStatus status) noexcept {
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

void CreateColor(GridControl& grid, std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    Run(
        "CreateColor", {}, [&] { return grid.CreateColor(name, red, green, blue); },
        [&] { return TraceText("{color:", name, "}"); });
}

std::string ColumnKey(std::int16_t position, std::string_view kind) {
    return Key(kind == "L" ? "FLC" : kind == "R" ? "FRC" : "COL", position, "column key");
}

std::string RowKey(std::int16_t position, std::string_view kind) {
    return Key(kind == "T" ? "FTR" : kind == "B" ? "FBR" : "ROW", position, "row key");
}

std::int16_t PositionOf(std::string_view key) {
    constexpr std::size_t PrefixLength = 3;
    std::int16_t position = 0;
    if (key.starts_with("COL") || key.starts_with("ROW")) {
        std::from_chars(key.data() + PrefixLength, key.data() + key.size(), position);
    }
    return position;
}

void CreateLabelled(GridControl& grid) {
    Run(
        "CreateLabelled", {}, [&] { return grid.CreateLabelled(false); }, [] { return std::string("{}"); },
        "CONSTRUCTOR");
}

void Destructor(GridControl& grid, bool redraw) {
    Run(
        "DESTRUCTOR", {}, [&] { return grid.Destroy(redraw); }, [&] { return TraceText("{redraw:", redraw, "}"); });
}

void LabelColWidth(GridControl& grid, std::int16_t width) {
    Run(
        "LabelColWidth", {},
        [&] { return grid.SetAttribute(GridElement::Grid, {}, GridAttribute::LabelColumnWidth, width, false); },
        [&] { return TraceText("{width:", width, "}"); });
}

void LabelAutoFit(GridControl& grid, std::int16_t width) {
    Run(
        "LabelAutoFit", {},
        [&] { return grid.SetAttribute(GridElement::Grid, {}, GridAttribute::LabelAutoFit, width, false); },
        [&] { return TraceText("{width:", width, "}"); });
}

void DoubleBuffering(GridControl& grid, std::int16_t value, bool redraw) {
    SetOfGrid(grid, "DoubleBuffering", GridAttribute::DoubleBuffering, "value", value, redraw);
}

void MovePermission(GridControl& grid, std::int16_t value, bool redraw) {
    SetOfGrid(grid, "move permission", GridAttribute::MovePermission, "value", value, redraw);
}

void ResizePermission(GridControl& grid, std::int16_t value, bool redraw) {
    SetOfGrid(grid, "resize permission", GridAttribute::ResizePermission, "value", value, redraw);
}

void DragDrop(GridControl& grid, std::int16_t value, bool redraw) {
    SetOfGrid(grid, "DragDrop", GridAttribute::DragDrop, "value", value, redraw);
}

void GridlinesColor(GridControl& grid, std::int16_t color, bool redraw) {
    Run(
        "Gridlines color", {},
        [&] {
            return grid.SetAttribute(GridElement::Grid, {}, GridAttribute::GridLineColor, ColorName(color), redraw);
        },
        [&] { return TraceText("{color:", color, " - redraw:", redraw, "}"); });
}

void Switch(GridControl& grid, bool switched, bool redraw) {
    SetOfGrid(grid, "switch", GridAttribute::Switched, "switched", switched, redraw);
}

void SetRedraw(GridControl& grid, bool on) {
    Run(
        "SetRedraw", {},
        [&] {
            grid.SetRedraw(on);
            return GridStatus::Ok;
        },
        [&] { return TraceText("{redraw:", on, "}"); });
}

void Redraw(GridControl& grid) {
    Run(
        "Redraw", {},
        [&] {
            grid.Redraw();
            return GridStatus::Ok;
        },
        [] { return std::string_view("{}"); });
}

void State(GridControl& grid, bool waiting) {
    Run(
        "state", {},
        [&] {
            grid.SetWaiting(waiting);
            return GridStatus::Ok;
        },
        [&] { return TraceText("{value:", waiting, "}"); });
}

RedrawAtEnd::RedrawAtEnd(GridControl& grid) : grid_(grid), before_(grid.RedrawOn()) {
    SetRedraw(grid_, false);
}

RedrawAtEnd::~RedrawAtEnd() {
    ErrorTrap("GRIDCTL", "Redraw", [&] {
        SetRedraw(grid_, before_);
        Redraw(grid_);
    });
}

void FirstColumn(GridControl& grid, std::string_view key, bool redraw) {
    Run(
        "FirstColumn", {key, {}}, [&] { return grid.SetFirstColumn(key, redraw); },
        [&] { return TraceText("{cid: ", key, " - redraw:", redraw, "}"); });
}

void FirstRow(GridControl& grid, std::string_view key, bool redraw) {
    Run(
        "FirstRow", {{}, key}, [&] { return grid.SetFirstRow(key, redraw); },
        [&] { return TraceText("{cid: ", key, " - redraw:", redraw, "}"); });
}

void CreateColumn(GridControl& grid, std::string_view key, std::int16_t position, bool redraw) {
    Run(
        "CreateColumn", {key, {}}, [&] { return grid.CreateColumn(key, position, redraw); },
        [&] { return TraceText("{cid: ", key, " - pos:", position, " - redraw:", redraw, "}"); });
}

void CreateRow(GridControl& grid, std::string_view key, std::int16_t position, bool redraw) {
    Run(
        "CreateRow", {{}, key}, [&] { return grid.CreateRow(key, position, redraw); },
        [&] { return TraceText("{cid: ", key, " - pos:", position, " - redraw:", redraw, "}"); });
}

void ColumnWidth(GridControl& grid, std::string_view key, std::int16_t width, bool redraw) {
    SetSize(grid, "column width", {key, {}}, GridAttribute::Width, "width", width, redraw);
}

void ColumnHeight(GridControl& grid, std::string_view key, std::int16_t height, bool redraw) {
    SetSize(grid, "ColumnHeight", {key, {}}, GridAttribute::Height, "height", height, redraw);
}

void RowHeight(GridControl& grid, std::string_view key, std::int16_t height, bool redraw) {
    SetSize(grid, "row height", {{}, key}, GridAttribute::Height, "height", height, redraw);
}

void RowWidth(GridControl& grid, std::string_view key, std::int16_t width, bool redraw) {
    SetSize(grid, "RowWidth", {{}, key}, GridAttribute::Width, "width", width, redraw);
}

namespace {

/// An operation that has keys and no value.
template <class Call>
void RunOnKeys(std::string_view operation, const CellKeyView& keys, bool redraw, const Call& call) {
    Run(operation, keys, call,
        [&] { return TraceText("{cid: ", keys.column, " - rid: ", keys.row, " - redraw:", redraw, "}"); });
}

}  // namespace

void SelectionFlag(GridControl& grid, const CellKeyView& keys, bool redraw) {
    RunOnKeys("SelectionFlag", keys, redraw,
              [&] { return SetByKeys(grid, keys, GridAttribute::Selectable, false, redraw); });
}

void SetSelection(GridControl& grid, const CellKeyView& keys, bool redraw) {
    RunOnKeys("SetSelection", keys, redraw, [&] { return grid.SetSelection(keys, redraw); });
}

void DeleteSelection(GridControl& grid, const CellKeyView& keys, bool redraw) {
    RunOnKeys("DeleteSelection", keys, redraw, [&] { return grid.DeleteSelection(keys, redraw); });
}

void CenterHidden(GridControl& grid, const CellKeyView& keys, bool hidden, bool redraw) {
    SetCenter(grid, "CenterHidden", keys, GridAttribute::Hidden, hidden, "hidden", hidden, redraw);
}

int HeaderSelected(const GridControl& grid, const CellKeyView& keys) {
    return grid.HeaderKind(keys) != 0 && grid.IsSelected(keys) ? 1 : 0;
}

void Contents(GridControl& grid, const CellKeyView& keys, std::string_view text, bool redraw) {
    Set(grid, "Contents", keys, GridAttribute::Contents, text, "contents", text, redraw);
}

std::string CellText(const GridControl& grid, const CellKeyView& keys) {
    const std::optional<Cell> cell = grid.FindCell(keys);
    return cell ? grid.Contents(*cell) : std::string();
}

void Tooltip(GridControl& grid, const CellKeyView& keys, std::string_view text, bool redraw) {
    Set(grid, "Tooltip", keys, GridAttribute::Tooltip, text, "contents", text, redraw);
}

void ReadOnly(GridControl& grid, const CellKeyView& keys, bool readOnly, bool redraw) {
    Set(grid, "ReadOnly", keys, GridAttribute::ReadOnly, readOnly, "readonly", readOnly, redraw);
}

void Format(GridControl& grid, const CellKeyView& keys, std::string_view format, bool redraw) {
    Set(grid, "format", keys, GridAttribute::Format, format, "format", format, redraw);
}

void Font(GridControl& grid, const CellKeyView& keys, std::string_view font, bool redraw) {
    Set(grid, "font", keys, GridAttribute::Font, font, "font", font, redraw);
}

void Alignment(GridControl& grid, const CellKeyView& keys, std::int16_t alignment, bool redraw) {
    Set(grid, "Alignment", keys, GridAttribute::Alignment, alignment, "align", alignment, redraw);
}

void Relief(GridControl& grid, const CellKeyView& keys, bool relief, bool redraw) {
    Set(grid, "relief", keys, GridAttribute::Relief, relief, "relief", relief, redraw);
}

void Bitmap(GridControl& grid, const CellKeyView& keys, std::string_view bitmap, std::int16_t alignment, bool redraw) {
    // Nearly all cells have no bitmap, and then there is nothing to align.
    const bool nothingToAlign = bitmap.empty() && alignment == static_cast<std::int16_t>(GridAlignment::Right);
    const bool canAlign = alignment >= static_cast<std::int16_t>(GridAlignment::Right) &&
                          alignment <= static_cast<std::int16_t>(GridAlignment::Center);
    Run(
        "bitmap", keys,
        [&] {
            GridStatus status = GridStatus::Ok;
            if (canAlign) {  // an alignment that the grid will refuse must not leave the bitmap behind
                status = SetByKeys(grid, keys, GridAttribute::Bitmap, bitmap, nothingToAlign && redraw);
            }
            if (status != GridStatus::Ok || nothingToAlign) {
                return status;
            }
            return SetByKeys(grid, keys, GridAttribute::BitmapAlignment, alignment, redraw);
        },
        [&] { return KeysText(keys, "bitmap", bitmap, redraw); });
}

void BackgroundColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw) {
    // The one attribute here that the grid as a whole has too.
    Run(
        "background colour", keys,
        [&] {
            return grid.SetAttribute(ElementOf(keys), keys, GridAttribute::BackgroundColor, ColorName(color), redraw);
        },
        [&] { return KeysText(keys, "color", color, redraw); });
}

void ForegroundColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw) {
    Set(grid, "foreground colour", keys, GridAttribute::ForegroundColor, ColorName(color), "color", color, redraw);
}

void CenterFormat(GridControl& grid, const CellKeyView& keys, std::string_view format, bool redraw) {
    SetCenter(grid, "CenterFormat", keys, GridAttribute::Format, format, "format", format, redraw);
}

void CenterFont(GridControl& grid, const CellKeyView& keys, std::string_view font, bool redraw) {
    SetCenter(grid, "CenterFont", keys, GridAttribute::Font, font, "font", font, redraw);
}

void CenterAlignment(GridControl& grid, const CellKeyView& keys, std::int16_t alignment, bool redraw) {
    SetCenter(grid, "CenterAlignment", keys, GridAttribute::Alignment, alignment, "align", alignment, redraw);
}

void CenterReadOnly(GridControl& grid, const CellKeyView& keys, bool readOnly, bool redraw) {
    SetCenter(grid, "CenterReadOnly", keys, GridAttribute::ReadOnly, readOnly, "readonly", readOnly, redraw);
}

void CenterTextLine(GridControl& grid, const CellKeyView& keys, std::string_view textLine, bool redraw) {
    SetCenter(grid, "CenterTextLine", keys, GridAttribute::TextLine, textLine == "X", "textline", textLine, redraw);
}

void CenterHelpLine(GridControl& grid, const CellKeyView& keys, std::string_view lineType, bool redraw) {
    SetCenter(grid, "CenterHelpLine", keys, GridAttribute::HelpLine, lineType == "H", "helpline", lineType, redraw);
}

void CenterRelief(GridControl& grid, const CellKeyView& keys, bool relief, bool redraw) {
    SetCenter(grid, "CenterRelief", keys, GridAttribute::Relief, relief, "relief", relief, redraw);
}

void CenterBgColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw) {
    SetCenter(grid, "CenterBgColor", keys, GridAttribute::BackgroundColor, ColorName(color), "color", color, redraw);
}

void CenterFgColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw) {
    SetCenter(grid, "CenterFgColor", keys, GridAttribute::ForegroundColor, ColorName(color), "color", color, redraw);
}

}  // namespace planview::modGrid
