// SPDX-License-Identifier: MIT
#include "grid/Selection.h"

#include <string>
#include <unordered_set>
#include <utility>

#include "grid/IndexAxis.h"
#include "grid/LoaderSupport.h"
#include "grid/LockedLine.h"
#include "trace/ErrorTrap.h"
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

    /// Calls body(row, key) for each row until it answers false. A failure is traced with the key it happened at;
    /// answers whether there was none.
    template <class Body>
    [[nodiscard]] bool Run(const Body& body) {
        const std::optional<CaughtError> error = CaughtErrorOf([&] {
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
            Fail(*error);
        }
        return !error;
    }

    /// The entry of a failure, with the key it happened at, and word of it to who wants to hear.
    void Fail(const CaughtError& error) const {
        Trace("", "ERROR");
        NoteFailure(method_, error);
    }
    /// The entry of a changed row; the detail stands behind the key (" - width: 80"), its text is made only where it is
    /// written.
    template <class... Parts>
    void TraceDetail(const Parts&... parts) const {
        if (TraceEnabled) {
            Trace(TraceText(parts...));
        }
    }
    /// The same without a detail; `parameter` is "ERROR" for a failure.
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

void ClearSelection(modGrid& driver) {
    driver.DeleteSelection({LabelColumnKey, HeadingRowKey}, NoRedraw);
}

bool SelectAll(IndexWalk walk, modGrid& driver) {
    ClearSelection(driver);
    return walk.Run([&](HostTable::Row i, const std::string& key) {
        driver.SetSelection(walk.Axis().KeysOf(key), NoRedraw);
        walk.Table().PutFlag(i, walk.Axis().markedField, true);
        walk.Trace();
        return true;
    });
}

bool DeselectAll(IndexWalk walk, modGrid& driver) {
    ClearSelection(driver);
    return walk.Run([&](HostTable::Row i, const std::string& key) {
        driver.DeleteSelection(walk.Axis().KeysOf(key), NoRedraw);
        walk.Table().PutFlag(i, walk.Axis().markedField, false);
        walk.Trace();
        return true;
    });
}

/// Which headings are selected, by table row from 0. Asked before the selection is cleared.
std::vector<bool> SelectedHeadings(const HostTable& table, const IndexAxis& axis, const modGrid& driver) {
    std::vector<bool> selected;
    ForEachRow(table, [&](HostTable::Row i) {
        selected.push_back(driver.HeadingSelected(axis.KeysOf(table.Text(i, "GRID_ID"))));
    });
    return selected;
}

bool SelectBlock(IndexWalk walk, modGrid& driver) {
    std::vector<bool> selected;
    if (const auto error = CaughtErrorOf([&] { selected = SelectedHeadings(walk.Table(), walk.Axis(), driver); })) {
        walk.Fail(*error);
        return false;
    }
    ClearSelection(driver);
    bool inside = false;
    return walk.Run([&](HostTable::Row i, const std::string& key) {
        if (selected.at(static_cast<std::size_t>(i) - 1)) {
            if (inside) {
                return false;  // the closing heading is left as it is
            }
            inside = true;
        }
        if (inside) {
            if (!key.empty()) {
                driver.SetSelection(walk.Axis().KeysOf(key), NoRedraw);
            }
            walk.Table().PutFlag(i, walk.Axis().markedField, true);
            walk.Trace();
        }
        return true;
    });
}

/// `concerns` says by its key whether a column or row is meant.
template <class Concerns>
bool SetHidden(IndexWalk walk, modGrid& driver, bool hidden, const Concerns& concerns) {
    return walk.Run([&](HostTable::Row i, const std::string& key) {
        if (concerns(key)) {
            driver.CenterHidden(walk.Axis().KeysOf(key), hidden, NoRedraw);
            walk.Table().PutFlag(i, walk.Axis().hiddenField, hidden);
            walk.Trace();
        }
        return true;
    });
}

bool SetSelectedHidden(IndexWalk walk, modGrid& driver, bool hidden) {
    const IndexAxis& axis = walk.Axis();
    return SetHidden(std::move(walk), driver, hidden,
                     [&](const std::string& key) { return driver.HeadingSelected(axis.KeysOf(key)); });
}

bool ShowNamed(IndexWalk walk, modGrid& driver, const std::vector<std::string>& keys) {
    const std::unordered_set<std::string_view> named(keys.begin(), keys.end());
    return SetHidden(std::move(walk), driver, false, [&](const std::string& key) { return named.contains(key); });
}

bool ApplyRowColor(std::string_view method, HostTable lineIndex, modGrid& driver, std::string_view field,
                   GridStatus (modGrid::*setColor)(const CellKeyView& keys, std::int16_t color, bool redraw)) {
    IndexWalk walk(method, RowAxis, std::move(lineIndex));
    return walk.Run([&](HostTable::Row i, const std::string& key) {
        const CellKeyView keys = RowAxis.KeysOf(key);
        if (driver.HeadingSelected(keys)) {
            const std::int16_t color = walk.Table().Int16(i, field);
            (driver.*setColor)(keys, color, NoRedraw);
            if (IsLockedLine(walk.Table(), i)) {
                ShowLocked(driver, keys);
            }
            walk.TraceDetail(" - color: ", color);
        }
        return true;
    });
}

void Mirror(const HostTable& table, const IndexAxis& axis, const modGrid& driver) {
    ForEachRow(table, [&](HostTable::Row i) {
        table.PutFlag(i, axis.markedField, driver.HeadingSelected(axis.KeysOf(table.Text(i, "GRID_ID"))));
    });
}

}  // namespace

bool SelectAllColumns(HostTable colsIndex, modGrid& driver) {
    return SelectAll({"SelectAllColumns", ColumnAxis, std::move(colsIndex)}, driver);
}

bool SelectAllRows(HostTable lineIndex, modGrid& driver) {
    return SelectAll({"SelectAllRows", RowAxis, std::move(lineIndex)}, driver);
}

bool SelectBlockColumns(HostTable colsIndex, modGrid& driver) {
    return SelectBlock({"SelectBlockColumns", ColumnAxis, std::move(colsIndex)}, driver);
}

bool SelectBlockRows(HostTable lineIndex, modGrid& driver) {
    return SelectBlock({"SelectBlockRows", RowAxis, std::move(lineIndex)}, driver);
}

bool DeselectAllColumns(HostTable colsIndex, modGrid& driver) {
    return DeselectAll({"DeselectAllColumns", ColumnAxis, std::move(colsIndex)}, driver);
}

bool DeselectAllRows(HostTable lineIndex, modGrid& driver) {
    return DeselectAll({"DeselectAllRows", RowAxis, std::move(lineIndex)}, driver);
}

bool HideColumn(HostTable colsIndex, modGrid& driver) {
    return SetSelectedHidden({"HideColumn", ColumnAxis, std::move(colsIndex)}, driver, true);
}

bool ShowColumn(HostTable colsIndex, modGrid& driver) {
    return SetSelectedHidden({"ShowColumn", ColumnAxis, std::move(colsIndex)}, driver, false);
}

bool ShowColumn(HostTable colsIndex, modGrid& driver, const std::vector<std::string>& keys) {
    return ShowNamed({"ShowColumn", ColumnAxis, std::move(colsIndex)}, driver, keys);
}

bool HideRow(HostTable lineIndex, modGrid& driver) {
    return SetSelectedHidden({"HideRow", RowAxis, std::move(lineIndex)}, driver, true);
}

bool ShowRow(HostTable lineIndex, modGrid& driver) {
    return SetSelectedHidden({"ShowRow", RowAxis, std::move(lineIndex)}, driver, false);
}

bool ShowRow(HostTable lineIndex, modGrid& driver, const std::vector<std::string>& keys) {
    return ShowNamed({"ShowRow", RowAxis, std::move(lineIndex)}, driver, keys);
}

bool ColWidthReset(HostTable colsIndex, modGrid& driver, ResetScope scope) {
    IndexWalk walk("ColWidthReset", ColumnAxis, std::move(colsIndex));
    return walk.Run([&](HostTable::Row i, const std::string& key) {
        if (scope == ResetScope::All || driver.HeadingSelected({key, {}})) {
            driver.ColumnWidth(key, ResetColumnWidth, NoRedraw);
            walk.Table().Put(i, "COL_WIDTH", ResetColumnWidth);
            walk.TraceDetail(" - width: ", ResetColumnWidth);
        }
        return true;
    });
}

bool RowHeightReset(HostTable lineIndex, modGrid& driver, ResetScope scope) {
    IndexWalk walk("RowHeightReset", RowAxis, std::move(lineIndex));
    return walk.Run([&](HostTable::Row i, const std::string& key) {
        if (scope == ResetScope::All || driver.HeadingSelected({{}, key})) {
            driver.RowHeight(key, ResetRowHeight, NoRedraw);
            walk.Table().Put(i, "ROW_HEIGHT", ResetRowHeight);
            walk.TraceDetail(" - height: ", ResetRowHeight);
        }
        return true;
    });
}

bool RowBgColor(HostTable lineIndex, modGrid& driver) {
    return ApplyRowColor("RowBgColor", std::move(lineIndex), driver, "ROW_BG", &modGrid::CenterBgColor);
}

bool RowFgColor(HostTable lineIndex, modGrid& driver) {
    return ApplyRowColor("RowFgColor", std::move(lineIndex), driver, "ROW_FG", &modGrid::CenterFgColor);
}

void SelectMarkedHeadings(const HostTable& table, const IndexAxis& axis, GridControl& grid) noexcept {
    ResumeNext([&] {
        std::vector<std::pair<std::string, bool>> marks;
        ForEachRow(table, [&](HostTable::Row i) {
            marks.emplace_back(table.Text(i, "GRID_ID"), table.Flag(i, axis.markedField));
        });
        for (const auto& [key, marked] : marks) {
            const CellKeyView keys = axis.KeysOf(key);
            if (!key.empty() && grid.IsSelected(keys) != marked) {
                marked ? grid.SetSelection(keys, NoRedraw) : grid.DeleteSelection(keys, NoRedraw);
            }
        }
    });
}

void MirrorSelection(HostTable colsIndex, HostTable lineIndex, const modGrid& driver) {
    Mirror(colsIndex, ColumnAxis, driver);
    Mirror(lineIndex, RowAxis, driver);
}

}  // namespace planview
