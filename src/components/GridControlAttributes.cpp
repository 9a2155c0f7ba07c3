// SPDX-License-Identifier: MIT
#include "automation/Utf8.h"
#include "components/GridControl.h"
#include "components/GridState.h"

namespace planview {

namespace {

constexpr std::int32_t MaxDragMode = 2;

/// A size in logical pixels, 0 giving the default.
std::optional<std::int16_t> ReadSize(const Variant& value, int defaultSize) {
    const std::optional<std::int32_t> size = ReadNumber(value, 0, MaxTrackSize);
    if (!size) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(*size == 0 ? defaultSize : *size);
}

/// Assigns the value to the target; false if the target already has it.
template <class Value>
bool Assign(Value& target, Value value) {
    if (target == value) {
        return false;
    }
    target = value;
    return true;
}

}  // namespace

GridStatus GridControl::SetAttribute(GridElement element, CellKeyView keys, GridAttribute attribute,
                                     const Variant& value, bool redraw) {
    State& state = *state_;
    if (!state.settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    if (!HasAttribute(element, attribute)) {
        return UndefinedAttribute(element);
    }
    GridStatus status = GridStatus::Ok;
    switch (element) {
        case GridElement::Grid:
            status = state.SetOnGrid(attribute, value);
            break;
        case GridElement::Column:
        case GridElement::Row:
            status = state.SetOnTrack(element, keys, attribute, value, false);
            break;
        case GridElement::Cell: {
            Cell cell;
            status = state.Find(keys, cell);
            if (status == GridStatus::Ok) {
                status = state.SetOnCell(cell, attribute, value);
            }
            break;
        }
    }
    return status == GridStatus::Ok ? state.Done(redraw) : status;
}

GridStatus GridControl::SetCenterAttribute(GridElement element, CellKeyView keys, GridAttribute attribute,
                                           const Variant& value, bool redraw) {
    State& state = *state_;
    if (!state.settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    const bool hasCenter = element == GridElement::Column || element == GridElement::Row;
    if (!hasCenter || !HasAttribute(element, attribute)) {
        return UndefinedAttribute(element);
    }
    const GridStatus status = state.SetOnTrack(element, keys, attribute, value, true);
    return status == GridStatus::Ok ? state.Done(redraw) : status;
}

GridStatus GridControl::ResetLook(CellKeyView keys, bool redraw) {
    State& state = *state_;
    if (!state.settings.created) {
        return GridStatus::AttributeNotPossible;
    }
    const auto reset = [&](auto& tracks, auto id) {
        auto& track = tracks.Change(id);
        const bool own = Assign(track.style, PlainStyle);
        if (Assign(track.centerStyle, PlainStyle) || own) {
            state.reports.NoteEverything();
        }
    };
    GridStatus status = GridStatus::Ok;
    Cell cell;
    if (!keys.column.empty() && !keys.row.empty()) {
        status = state.Find(keys, cell);
        if (status == GridStatus::Ok && state.cells.SetStyle(cell, PlainStyle, state.columns.Count())) {
            state.reports.NoteCell(cell);
        }
    } else if (!keys.column.empty()) {
        status = state.Find(keys.column, cell.column);
        if (status == GridStatus::Ok) {
            reset(state.columns, cell.column);
        }
    } else {
        status = state.Find(keys.row, cell.row);
        if (status == GridStatus::Ok) {
            reset(state.rows, cell.row);
        }
    }
    return status == GridStatus::Ok ? state.Done(redraw) : status;
}

GridStatus GridControl::State::SetOnGrid(GridAttribute attribute, const Variant& value) {
    if (IsLayered(attribute)) {
        std::optional<std::int32_t> meaning;
        if (const GridStatus status = styles.Read(attribute, value, meaning); status != GridStatus::Ok) {
            return status;
        }
        if (Assign(gridStyle, styles.With(gridStyle, attribute, meaning))) {
            settings.backgroundColor = styles.Set(gridStyle).background;
            reports.NoteEverything();
        }
        return GridStatus::Ok;
    }
    if (attribute == GridAttribute::GridLineColor) {
        std::optional<std::int32_t> color;
        if (const GridStatus status = styles.ReadColor(value, color); status != GridStatus::Ok) {
            return status;
        }
        if (Assign(settings.gridLineColor, static_cast<std::int16_t>(*color))) {
            reports.NoteEverything();
        }
        return GridStatus::Ok;
    }
    return SetOption(attribute, value);
}

GridStatus GridControl::State::SetOption(GridAttribute attribute, const Variant& value) {
    if (attribute == GridAttribute::LabelColumnWidth) {
        return SetLabelWidth(value);
    }
    if (attribute == GridAttribute::DragDrop) {
        const std::optional<std::int32_t> mode = ReadNumber(value, 0, MaxDragMode);
        settings.dragDrop = static_cast<std::int16_t>(mode.value_or(settings.dragDrop));
        return mode ? GridStatus::Ok : GridStatus::InvalidAttribute;
    }
    const bool isFlag = attribute == GridAttribute::LabelAutoFit || attribute == GridAttribute::Switched;
    const std::optional<bool> on = isFlag ? ReadFlag(value) : ReadPermission(value);
    if (!on) {
        return GridStatus::InvalidAttribute;
    }
    switch (attribute) {
        case GridAttribute::MovePermission:
            settings.moveAllowed = *on;
            break;
        case GridAttribute::ResizePermission:
            settings.resizeAllowed = *on;
            break;
        case GridAttribute::DoubleBuffering:
            settings.doubleBuffering = *on;
            break;
        case GridAttribute::LabelAutoFit:
            if (Assign(settings.labelAutoFit, *on)) {
                LayoutChanged();
            }
            break;
        default:
            if (Assign(settings.switched, *on)) {
                LayoutChanged();
            }
            break;
    }
    return GridStatus::Ok;
}

GridStatus GridControl::State::SetLabelWidth(const Variant& value) {
    const std::optional<std::int16_t> width = ReadSize(value, DefaultLabelColumnWidth);
    if (!width) {
        return GridStatus::InvalidAttribute;
    }
    Resize({PressedBorder::Size::LabelWidth}, *width);
    return GridStatus::Ok;
}

GridStatus GridControl::State::SetOnTrack(GridElement element, CellKeyView keys, GridAttribute attribute,
                                          const Variant& value, bool centerOnly) {
    if (element == GridElement::Column) {
        ColumnId column;
        const GridStatus status = Find(keys.column, column);
        return status == GridStatus::Ok ? SetOnTrack(columns, column, attribute, value, centerOnly) : status;
    }
    RowId row;
    const GridStatus status = Find(keys.row, row);
    return status == GridStatus::Ok ? SetOnTrack(rows, row, attribute, value, centerOnly) : status;
}

template <class Tracks, class Id>
GridStatus GridControl::State::SetOnTrack(Tracks& tracks, Id id, GridAttribute attribute, const Variant& value,
                                          bool centerOnly) {
    auto& track = tracks.Change(id);
    const bool isLabel = id == Id{0};
    switch (attribute) {
        case GridAttribute::Hidden:
        case GridAttribute::Selectable: {
            const std::optional<bool> on = ReadFlag(value);
            if (isLabel) {
                return GridStatus::AttributeNotPossible;
            }
            if (!on) {
                return GridStatus::InvalidAttribute;
            }
            if (attribute == GridAttribute::Selectable) {
                SetSelectable(id, track, *on);
            } else if (tracks.SetHidden(id, *on)) {
                LayoutChanged();
            }
            return GridStatus::Ok;
        }
        case GridAttribute::Width:
        case GridAttribute::Height: {
            const bool isWidth = attribute == GridAttribute::Width;
            if (isLabel && isWidth) {
                return SetLabelWidth(value);
            }
            const auto size = ReadSize(value, isWidth ? DefaultColumnWidth : DefaultRowHeight);
            if (!size) {
                return GridStatus::InvalidAttribute;
            }
            if (Assign(isWidth ? track.width : track.height, *size)) {
                LayoutChanged();
            }
            return GridStatus::Ok;
        }
        default:
            break;
    }
    std::optional<std::int32_t> meaning;
    if (const GridStatus status = styles.Read(attribute, value, meaning); status != GridStatus::Ok) {
        return status;
    }
    // What is set on the whole column or row takes the place of what was set on its centre alone.
    const StyleId center = styles.With(track.centerStyle, attribute, centerOnly ? meaning : std::nullopt);
    bool changed = Assign(track.centerStyle, center);
    if (!centerOnly) {
        changed |= Assign(track.style, styles.With(track.style, attribute, meaning));
    }
    if (changed) {
        reports.NoteEverything();
    }
    return GridStatus::Ok;
}

template <class Id, class Track>
void GridControl::State::SetSelectable(Id id, Track& track, bool on) {
    track.selectable = on;
    if (!on && HasWhole(id)) {
        SetWhole(id, false);
        reports.NoteEverything();
    }
}

GridStatus GridControl::State::SetOnCell(Cell cell, GridAttribute attribute, const Variant& value) {
    if (attribute == GridAttribute::Contents || attribute == GridAttribute::Tooltip) {
        const std::string* text = value.TextIf();
        if (!text) {
            return GridStatus::InvalidAttribute;
        }
        if (!IsValidUtf8(*text)) {
            return GridStatus::InvalidText;
        }
        if (attribute == GridAttribute::Tooltip) {
            if (cells.SetTooltip(cell, *text)) {
                reports.NoteCell(cell);
            }
        } else if (cells.SetContents(cell, *text, columns.Count())) {
            reports.NoteCell(cell);
            const bool isLabel = settings.switched ? cell.row == HeadingRow : cell.column == LabelColumn;
            if (settings.labelAutoFit && isLabel) {
                LayoutChanged();
            }
        }
        return GridStatus::Ok;
    }
    std::optional<std::int32_t> meaning;
    if (const GridStatus status = styles.Read(attribute, value, meaning); status != GridStatus::Ok) {
        return status;
    }
    if (cells.SetStyle(cell, styles.With(cells.Style(cell), attribute, meaning), columns.Count())) {
        reports.NoteCell(cell);
    }
    return GridStatus::Ok;
}

AttributeSet GridControl::State::MergedStyle(Cell cell) const {
    const ColumnTrack& column = columns.At(cell.column);
    const RowTrack& row = rows.At(cell.row);
    AttributeSet merged = styles.Set(gridStyle);
    merged.LayOver(styles.Set(column.style));
    if (row.area == RowArea::Center) {
        merged.LayOver(styles.Set(column.centerStyle));
    }
    merged.LayOver(styles.Set(row.style));
    if (column.area == ColumnArea::Center) {
        merged.LayOver(styles.Set(row.centerStyle));
    }
    merged.LayOver(styles.Set(cells.Style(cell)));
    return merged;
}

}  // namespace planview
