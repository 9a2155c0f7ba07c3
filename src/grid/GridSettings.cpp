// SPDX-License-Identifier: MIT
#include "grid/GridSettings.h"

#include "trace/ErrorTrap.h"

namespace planview {

namespace {

constexpr HostTable::Row Row = 1;

}  // namespace

void ReadGridAttributes(const HostTable gridAttr, GridSettings& settings) {
    const auto flag = [&](const char* field) { return gridAttr.Flag(Row, field); };
    const auto permission = [&](const char* forbidden) { return static_cast<std::int16_t>(flag(forbidden) ? 0 : 1); };
    const auto number = [&](const char* field) { return gridAttr.Int16(Row, field); };
    const auto real = [&](const char* field) { return gridAttr.Double(Row, field); };

    settings.chartShown = flag("CHART");
    settings.treeShown = flag("HIDDEN_LIST") && settings.layoutMode;
    settings.moveAllowed = permission("NOMOVE_ALLOWED");
    settings.resizeAllowed = permission("NORESIZE_ALLOWED");
    settings.singleValue = flag("SINGLEVALUE") ? 1 : 0;
    settings.switched = flag("SWITCHED");
    settings.zoomed = flag("ZOOMED");
    settings.backgroundColor = number("BGCOLOR");
    settings.gridLineColor = gridAttr.Int16(Row, "GRIDLINE_COLOR", ThemeLineColor);
    settings.firstColumn = number("FIRST_COL");
    settings.firstRow = number("FIRST_ROW");
    settings.chartType = number("CHART_TYPE");
    settings.autoMinimum = !flag("NO_AUTOMIN");
    settings.autoMaximum = !flag("NO_AUTOMAX");
    settings.minimum = real("MINVALUE");
    settings.maximum = real("MAXVALUE");
    settings.rangeMinimum = real("MINRANGE");
    settings.rangeMaximum = real("MAXRANGE");
    settings.optimum = real("OPTIMUM");
    settings.labelColumnWidth = number("LABELCOL_WIDTH");
    settings.titleText = gridAttr.Text(Row, "TITELTEXT");
}

void PutGridAttribute(const HostTable& gridAttr, std::string_view field, const Variant& value) noexcept {
    if (gridAttr.IsSet()) {
        ErrorTrap("GRIDCTL", field, [&] { gridAttr.Put(Row, field, value); });
    }
}

void PutGridFlag(const HostTable& gridAttr, std::string_view field, bool set) noexcept {
    if (gridAttr.IsSet()) {
        ErrorTrap("GRIDCTL", field, [&] { gridAttr.PutFlag(Row, field, set); });
    }
}

}  // namespace planview
