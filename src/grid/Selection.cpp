// SPDX-License-Identifier: MIT
#include "grid/Selection.h"

#include <string>
#include <unordered_set>
#include <utility>

#include "grid/IndexAxis.h"
#include "grid/LoaderSupport.h"
#include "grid/modGrid.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

/// One run of an operation over its table.
class IndexWalk {
public:
    IndexWalk(std::string_view method, const IndexAxis& axis, HostTable table)
        : method_(method), axis_(axis), table_(std::move(table)) {}

    /// Calls body(row, key) for each row until it answers false; a failure is traced with the key it happened at.
    template <class Body>
    void Run(const Body& body) {
        const std::optional<std::string> error = ErrorTextOf([&] {
            const int count = table_.RowCount();
            for (int i = 1; i <= count; ++i) {
                const auto row = static_cast<HostTable::Row>(i);
                key_ = table_.Text(row, "GRID_ID");
                if (!body(row, key_)) {
                    return;
                }
            }
        });
        if (error) {
            Trace("", "ERROR");
        }
    }

    /// The entry of a changed row; `detail` stands behind the key (" - width: 80").
    void Trace(std::string_view detail = {}, std::string_view parameter = {}) const {
        if (TraceEnabled) {
            TraceWrite("GRIDCTL", TraceText(axis_.traceLabel, key_, detail, "}"), method_, parameter);
        }
    }

    [[nodiscard]] const HostTable& Table() const noexcept { return table_; }
    [[nodiscard]] const IndexAxis& Axis() const noexcept { return axis_; }

private:
    std::string_view method_;
    const IndexAxis& axis_;
    HostTable table_;
    std::string key_;
};

void ClearSelection(GridControl& grid) {
    modGrid::DeleteSelection(grid, {LabelColumnKey, HeadingRowKey}, NoRedraw);
}

void SelectAll(IndexWalk walk, GridControl& grid) {
    ClearSelection(grid);
    walk.Run([&](HostTable::Row i, const std::string& key) {
        modGrid::SetSelection(grid, walk.Axis().KeysOf(key), NoRedraw);
        walk.Table().PutFlag(i, walk.Axis().markedField, true);
        walk.Trace();
        return true;
    });
}

void DeselectAll(IndexWalk walk, GridControl& grid) {
    ClearSelection(grid);
    walk.Run([&](HostTable::Row i, const std::string& key) {
        modGrid::DeleteSelection(grid, walk.Axis().KeysOf(key), NoRedraw);
        walk.Table().PutFlag(i, walk.Axis().markedField, false);
        walk.Trace();
        return true;
    });
}

/// Which headers are selected, by table row from 0. Asked before the selection is cleared.
std::vector<bool> SelectedHeaders(const HostTable& table, const IndexAxis& axis, const GridControl& grid) {
    std::vector<bool> selected;
    ForEachRow(table, [&](HostTable::Row i) {
        selected.push_back(modGrid::HeaderSelected(grid, axis.KeysOf(table.Text(i, "GRID_ID"))) == 1);
    });
    return selected;
}

void SelectBlock(IndexWalk walk, GridControl& grid) {
    std::vector<bool> selected;
    if (ErrorTextOf([&] { selected = SelectedHeaders(walk.Table(), walk.Axis(), grid); })) {
        walk.Trace("", "ERROR");
        return;
    }
    ClearSelection(grid);
    bool inside = false;
    walk.Run([&](HostTable::Row i, const std::string& key) {
        if (selected.at(static_cast<std::size_t>(i) - 1)) {
            if (inside) {
                return false;  // the closing header is left as it is
            }
            inside = true;
        }
        if (inside) {
            if (!key.empty()) {
                modGrid::SetSelection(grid, walk.Axis().KeysOf(key), NoRedraw);
            }
            walk.Table().PutFlag(i, walk.Axis().markedField, true);
            walk.Trace();
        }
        return true;
    });
}

/// `concerns` says by its key whether a column or row is meant.
template <class Concerns>
void SetHidden(IndexWalk walk, GridControl& grid, bool hidden, const Concerns& concerns) {
    walk.Run([&](HostTable::Row i, const std::string& key) {
        if (concerns(key)) {
            modGrid::CenterHidden(grid, walk.Axis().KeysOf(key), hidden, NoRedraw);
            walk.Table().PutFlag(i, walk.Axis().hiddenField, hidden);
            walk.Trace();
        }
        return true;
    });
}

void SetSelectedHidden(IndexWalk walk, GridControl& grid, bool hidden) {
    const IndexAxis& axis = walk.Axis();
    SetHidden(std::move(walk), grid, hidden,
              [&](const std::string& key) { return modGrid::HeaderSelected(grid, axis.KeysOf(key)) == 1; });
}

void ShowNamed(IndexWalk walk, GridControl& grid, const std::vector<std::string>& keys) {
    const std::unordered_set<std::string_view> named(keys.begin(), keys.end());
    SetHidden(std::move(walk), grid, false, [&](const std::string& key) { return named.contains(key); });
}

template <class SetColor>
void ApplyRowColor(std::string_view method, HostTable lineIndex, GridControl& grid, std::string_view field,
                   const SetColor& setColor) {
    IndexWalk walk(method, RowAxis, std::move(lineIndex));
    walk.Run([&](HostTable::Row i, const std::string& key) {
        const CellKeyView keys = RowAxis.KeysOf(key);
        if (modGrid::HeaderSelected(grid, keys) == 1) {
            const std::int16_t color = walk.Table().Int16(i, field);
            setColor(grid, keys, color, NoRedraw);
            walk.Trace(TraceText(" - color: ", color));
        }
        return true;
    });
}

void Mirror(const HostTable& table, const IndexAxis& axis, const GridControl& grid) {
    ForEachRow(table, [&](HostTable::Row i) {
        table.PutFlag(i, axis.markedField, modGrid::HeaderSelected(grid, axis.KeysOf(table.Text(i, "GRID_ID"))) == 1);
    });
}

}  // namespace

void SelectAllColumns(HostTable colsIndex, GridControl& grid) {
    SelectAll({"SelectAllColumns", ColumnAxis, std::move(colsIndex)}, grid);
}

void SelectAllRows(HostTable lineIndex, GridControl& grid) {
    SelectAll({"SelectAllRows", RowAxis, std::move(lineIndex)}, grid);
}

void SelectBlockColumns(HostTable colsIndex, GridControl& grid) {
    SelectBlock({"SelectBlockColumns", ColumnAxis, std::move(colsIndex)}, grid);
}

void SelectBlockRows(HostTable lineIndex, GridControl& grid) {
    SelectBlock({"SelectBlockRows", RowAxis, std::move(lineIndex)}, grid);
}

void DeselectAllColumns(HostTable colsIndex, GridControl& grid) {
    DeselectAll({"DeselectAllColumns", ColumnAxis, std::move(colsIndex)}, grid);
}

void DeselectAllRows(HostTable lineIndex, GridControl& grid) {
    DeselectAll({"DeselectAllRows", RowAxis, std::move(lineIndex)}, grid);
}

void HideColumn(HostTable colsIndex, GridControl& grid) {
    SetSelectedHidden({"HideColumn", ColumnAxis, std::move(colsIndex)}, grid, true);
}

void ShowColumn(HostTable colsIndex, GridControl& grid) {
    SetSelectedHidden({"ShowColumn", ColumnAxis, std::move(colsIndex)}, grid, false);
}

void ShowColumn(HostTable colsIndex, GridControl& grid, const std::vector<std::string>& keys) {
    ShowNamed({"ShowColumn", ColumnAxis, std::move(colsIndex)}, grid, keys);
}

void HideRow(HostTable lineIndex, GridControl& grid) {
    SetSelectedHidden({"HideRow", RowAxis, std::move(lineIndex)}, grid, true);
}

void ShowRow(HostTable lineIndex, GridControl& grid) {
    SetSelectedHidden({"ShowRow", RowAxis, std::move(lineIndex)}, grid, false);
}

void ShowRow(HostTable lineIndex, GridControl& grid, const std::vector<std::string>& keys) {
    ShowNamed({"ShowRow", RowAxis, std::move(lineIndex)}, grid, keys);
}

void ColWidthReset(HostTable colsIndex, GridControl& grid, ResetScope scope) {
    IndexWalk walk("ColWidthReset", ColumnAxis, std::move(colsIndex));
    walk.Run([&](HostTable::Row i, const std::string& key) {
        if (scope == ResetScope::All || modGrid::HeaderSelected(grid, {key, {}}) == 1) {
            modGrid::ColumnWidth(grid, key, ResetColumnWidth, NoRedraw);
            walk.Table().Put(i, "COL_WIDTH", ResetColumnWidth);
            walk.Trace(TraceText(" - width: ", ResetColumnWidth));
        }
        return true;
    });
}

void RowHeightReset(HostTable lineIndex, GridControl& grid, ResetScope scope) {
    IndexWalk walk("RowHeightReset", RowAxis, std::move(lineIndex));
    walk.Run([&](HostTable::Row i, const std::string& key) {
        if (scope == ResetScope::All || modGrid::HeaderSelected(grid, {{}, key}) == 1) {
            modGrid::RowHeight(grid, key, ResetRowHeight, NoRedraw);
            walk.Table().Put(i, "ROW_HEIGHT", ResetRowHeight);
            walk.Trace(TraceText(" - height: ", ResetRowHeight));
        }
        return true;
    });
}

void RowBgColor(HostTable lineIndex, GridControl& grid) {
    ApplyRowColor("RowBgColor", std::move(lineIndex), grid, "ROW_BG", modGrid::CenterBgColor);
}

void RowFgColor(HostTable lineIndex, GridControl& grid) {
    ApplyRowColor("RowFgColor", std::move(lineIndex), grid, "ROW_FG", modGrid::CenterFgColor);
}

void MirrorSelection(HostTable colsIndex, HostTable lineIndex, GridControl& grid) {
    Mirror(colsIndex, ColumnAxis, grid);
    Mirror(lineIndex, RowAxis, grid);
}

}  // namespace planview
