// SPDX-License-Identifier: MIT
#include "grid/SizeEvents.h"

#include "automation/CheckedInt.h"
#include "grid/IndexAxis.h"
#include "grid/LoaderSupport.h"
#include "trace/TraceText.h"

namespace planview {

/// One kind of size: the event's name in the trace, the field that keeps it, and the operation that sets it.
struct SizeEvents::Change {
    std::string_view method;
    const IndexAxis& axis;
    std::string_view sizeLabel;
    std::string_view field;
    GridStatus (modGrid::*set)(std::string_view key, std::int16_t size, bool redraw);
};

SizeEvents::Sized SizeEvents::ColumnResized(const std::string& column, int width) {
    return Apply({"ColumnResized", ColumnAxis, " - width:", "COL_WIDTH", &modGrid::ColumnWidth}, column, width);
}

SizeEvents::Sized SizeEvents::RowResized(const std::string& row, int height) {
    return Apply({"RowResized", RowAxis, " - height:", "ROW_HEIGHT", &modGrid::RowHeight}, row, height);
}

SizeEvents::Sized SizeEvents::SwitchedColumnResized(const std::string& column, int height) {
    return Apply({"SwitchedColumnResized", ColumnAxis, " - height:", "COL_HEIGHT", &modGrid::ColumnHeight}, column,
                 height);
}

SizeEvents::Sized SizeEvents::SwitchedRowResized(const std::string& row, int width) {
    return Apply({"SwitchedRowResized", RowAxis, " - width:", "ROW_WIDTH", &modGrid::RowWidth}, row, width);
}

SizeEvents::Sized SizeEvents::Apply(const Change& change, const std::string& key, int size) {
    if (!key.starts_with(change.axis.keyPrefix)) {
        return {};
    }
    (change.axis.columns ? keys_.column : keys_.row) = key;
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite("GRIDCTL", "", change.method,
                            TraceText(change.axis.traceLabel, key, change.sizeLabel, size, "}"));
    }
    const HostTable table = change.axis.columns ? tables_.COLS_INDEX : tables_.LINE_INDEX;
    const auto value = CheckedCast<std::int16_t>(size);
    Sized sized{key};
    const HostTable::Row own = table.FindRow("GRID_ID", key);
    if (own != 0) {
        table.Put(own, change.field, value);
    }
    ForEachRow(table, [&](HostTable::Row i) {
        if (i != own && table.Flag(i, change.axis.markedField)) {
            table.Put(i, change.field, value);
            (driver_.*change.set)(sized.emplace_back(table.Text(i, "GRID_ID")), value, NoRedraw);
        }
    });
    driver_.Redraw();
    hostUpdate_.StartUpdate();
    return sized;
}

}  // namespace planview
