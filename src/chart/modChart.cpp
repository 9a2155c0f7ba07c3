// SPDX-License-Identifier: MIT
#include "chart/modChart.h"

#include <array>

#include "automation/CheckedInt.h"
#include "automation/Late.h"
#include "chart/ChartRun.h"
#include "components/chart/ChartTypes.h"

namespace planview::modChart {

namespace {

constexpr std::int16_t CategoryAxis = 1;
constexpr std::int16_t ValueAxis = 2;
constexpr std::int16_t MainGroup = 0;

Late ChartOf(const ObjectRef& chart) {
    return Late(chart).Get("Chart");
}

Late Axis(const ObjectRef& chart, std::int16_t type) {
    return ChartOf(chart).Get("Axes", type, MainGroup);
}

/// The same with wide integers, as some of the setters pass them.
Late WideAxis(const ObjectRef& chart, std::int32_t type) {
    return ChartOf(chart).Get("Axes", type, std::int32_t{MainGroup});
}

/// "{value:...}"
template <class Value>
auto ValueText(const Value& value) {
    return [&value] { return TraceText("{value:", value, "}"); };
}

/// A value limit is shown when it is above zero.
void SetLimit(const ObjectRef& chart, std::string_view method, std::string_view typeMember,
              std::string_view valueMember, double value) noexcept {
    constexpr std::int16_t Hidden = 1;
    constexpr std::int16_t Shown = 2;
    Run(
        method,
        [&] {
            const Late range = Axis(chart, ValueAxis).Get("ValueRanges", std::int16_t{1});
            range.Put(typeMember, value > 0 ? Shown : Hidden);
            range.Put(valueMember, value);
        },
        ValueText(value));
}

void SetInterior(const ObjectRef& chart, std::string_view method, std::string_view area, std::int16_t color) noexcept {
    if (color < 0) {
        return;
    }
    Run(
        method,
        [&] {
            const Late interior = ChartOf(chart).Get(area).Get("Interior");
            interior.Put("Pattern", std::int16_t{0});
            interior.Put("ColorIndex", color);
        },
        [&] { return TraceText("{color:", color, "}"); });
}

void SetStacked(const ObjectRef& chart, std::string_view method, bool flag, std::int16_t code) noexcept {
    Run(
        method,
        [&] {
            if (flag) {
                ChartType(chart, code);
            }
        },
        ValueText(flag));
}

}  // namespace

void Redraw(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "Redraw", [&] { Late(chart).Put("Redraw", flag); }, [&] { return TraceText("{redraw:", flag, "}"); });
}

void AllowContextMenus(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "AllowContextMenus", [&] { Late(chart).Put("AllowContextMenus", flag); }, ValueText(flag));
}

void AllowDialogs(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "AllowDialogs", [&] { Late(chart).Put("AllowDialogs", flag); }, ValueText(flag));
}

void AllowSelection(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "AllowSelection", [&] { Late(chart).Put("AllowSelect", flag); }, ValueText(flag));
}

void AllowValueChange(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "AllowValueChange", [&] { Late(chart).Put("AllowValueChange", flag); }, ValueText(flag));
}

void HasLegend(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "HasLegend", [&] { ChartOf(chart).Put("HasLegend", flag); }, ValueText(flag));
}

void LegendPosition(const ObjectRef& chart, std::int16_t code) noexcept {
    Run(
        "LegendPosition", [&] { ChartOf(chart).Get("Legend").Put("Position", code); }, ValueText(code));
}

void MinValue(const ObjectRef& chart, double value) noexcept {
    Run(
        "MinValue", [&] { Axis(chart, ValueAxis).Put("MinimumScale", value); }, ValueText(value));
}

void MaxValue(const ObjectRef& chart, double value) noexcept {
    Run(
        "MaxValue", [&] { Axis(chart, ValueAxis).Put("MaximumScale", value); }, ValueText(value));
}

void XaxisOrientation(const ObjectRef& chart, std::int16_t code) noexcept {
    Run(
        "XaxisOrientation", [&] { WideAxis(chart, CategoryAxis).Get("TickLabels").Put("Orientation", code); },
        ValueText(code));
}

void LabelX(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "LabelX", [&] { WideAxis(chart, CategoryAxis).Put("Visible", flag); }, ValueText(flag));
}

void LabelY(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "LabelY", [&] { WideAxis(chart, ValueAxis).Put("Visible", flag); }, ValueText(flag));
}

void XScrollBar(const ObjectRef& chart, bool flag) noexcept {
    Run(
        "XScrollBar", [&] { Axis(chart, CategoryAxis).Put("VisibleCategoriesIsAuto", flag); }, ValueText(flag));
}

void AutoArrange(const ObjectRef& chart) noexcept {
    Run(
        "Arrange", [&] { Late(chart).Call("AutoArrange"); }, [] { return TraceText("{}"); });
}

void DeleteContents(const ObjectRef& chart) noexcept {
    Run(
        "Delete", [&] { Late(chart).Get("DataSheet").Call("DeleteContents"); }, [] { return TraceText("{}"); });
}

void CreateDataRows(const ObjectRef& chart, std::int16_t categories, std::int16_t series,
                    std::int16_t dataRows) noexcept {
    constexpr std::int16_t First = 1;
    Run(
        "Create", [&] { Late(chart).Call("CreateDataRows", First, First, categories, First, series, dataRows); },
        [] { return TraceText("{}"); });
}

void ChartType(const ObjectRef& chart, std::int16_t code) noexcept {
    Run(
        "ChartType",
        [&] {
            const Late series = ChartOf(chart).Get("SeriesCollection");
            const std::int16_t count = series.Get("Count").Value().AsInt16();
            for (std::int16_t i = 1; i <= count; i = CheckedAdd(i, std::int16_t{1})) {
                const Late interior = ChartOf(chart).Get("SeriesCollection", i).Get("Interior");
                const Variant color = interior.Get("Color").Value();
                interior.Put("Gradient", std::int16_t{1});
                interior.Put("Color", color);
            }
            Late(chart).Put("ChartType", code);
        },
        ValueText(code));
}

void ChartTitle(const ObjectRef& chart, std::string_view text) noexcept {
    constexpr std::int16_t TitleSize = 10;
    Run(
        "ChartTitle",
        [&] {
            const Late title = ChartOf(chart).Get("ChartTitle");
            title.Put("Text", text);
            title.Get("Font").Put("Size", TitleSize);
        },
        ValueText(text));
}

void LegendFont(const ObjectRef& chart, std::string_view name) noexcept {
    if (name.empty()) {
        return;
    }
    Run(
        "LegendFont",
        [&] {
            ChartOf(chart).Get("ChartTitle").Get("Font").Put("Name", name);
            ChartOf(chart).Get("Legend").Get("Font").Put("Name", name);
        },
        ValueText(name));
}

void AutoScale(const ObjectRef& chart, bool minimumIsAuto, bool maximumIsAuto) noexcept {
    Run(
        "AutoScale",
        [&] {
            const Late axis = Axis(chart, ValueAxis);
            axis.Put("MinimumScaleIsAuto", minimumIsAuto);
            axis.Put("MaximumScaleIsAuto", maximumIsAuto);
        },
        [&] { return TraceText("{min value:", minimumIsAuto, " - max value:", maximumIsAuto, "}"); });
}

void MinRange(const ObjectRef& chart, double value) noexcept {
    SetLimit(chart, "MinRange", "MinimumType", "Minimum", value);
}

void MaxRange(const ObjectRef& chart, double value) noexcept {
    SetLimit(chart, "MaxRange", "MaximumType", "Maximum", value);
}

void Optimum(const ObjectRef& chart, double value) noexcept {
    SetLimit(chart, "Optimum", "OptimumType", "Optimum", value);
}

void Caterogies(const ObjectRef& chart, std::int16_t count) noexcept {
    Run(
        "Caterogies",
        [&] {
            const std::int16_t visible = CheckedAdd(count, std::int16_t{1});
            const Late axis = Axis(chart, CategoryAxis);
            axis.Put("VisibleCategories", visible);
            axis.Put("StartAtCategory", std::int16_t{1});
        },
        ValueText(count));
}

void StackView(const ObjectRef& chart, bool flag) noexcept {
    SetStacked(chart, "StackView", flag, static_cast<std::int16_t>(planview::ChartType::StackedColumn));
}

void StackView100(const ObjectRef& chart, bool flag) noexcept {
    SetStacked(chart, "StackView100", flag, static_cast<std::int16_t>(planview::ChartType::StackedColumn100));
}

void AreaBgColor(const ObjectRef& chart, std::int16_t color) noexcept {
    SetInterior(chart, "AreaBgColor", "ChartArea", color);
}

void PlotBgColor(const ObjectRef& chart, std::int16_t color) noexcept {
    SetInterior(chart, "PlotBgColor", "PlotArea", color);
}

void LegendBgColor(const ObjectRef& chart, std::int16_t color) noexcept {
    SetInterior(chart, "LegendBgColor", "Legend", color);
}

void LegendBorderColor(const ObjectRef& chart, std::int16_t color) noexcept {
    if (color < 0) {
        return;
    }
    Run(
        "LegendBorderColor", [&] { ChartOf(chart).Get("Legend").Get("Border").Put("ColorIndex", color); },
        [&] { return TraceText("{color:", color, "}"); });
}

void SeriesCollection(const ObjectRef& chart, std::int16_t id, std::int16_t code) noexcept {
    Run(
        "SeriesCollection",
        [&] {
            const Late series = ChartOf(chart).Get("SeriesCollection", id);
            const Late interior = series.Get("Interior");
            const Variant color = interior.Get("Color").Value();
            series.Put("ChartType", code);
            interior.Put("Gradient", std::int16_t{1});
            interior.Put("Color", color);
        },
        [&] { return TraceText("{id:", id, " - charttype:", code, "}"); });
}

void DataSheet::Put(std::int16_t row, std::int16_t column, const Variant& value) {
    const std::array<Variant, 2> place{Variant(row), Variant(column)};
    const ObjectRef cell = sheet_ ? sheet_->Get(cells_.Of(*sheet_), place).AsObject() : nullptr;
    if (!cell) {
        throw AutomationError(AutomationErrorCode::ObjectNotSet, "The chart gave no cell of its data sheet");
    }
    cell->Put(value_.Of(*cell), {}, value);
}

void CellTextY(DataSheet& dataSheet, std::int16_t column, std::string_view text) noexcept {
    Run(
        "CellTextY",
        [&] {
            const std::int16_t sheetRow = CheckedAdd(column, std::int16_t{1});
            dataSheet.Put(sheetRow, 1, Variant(text));
        },
        [&] { return TraceText("{column:", column, " - value: ", text, "}"); });
}

void CellTextX(DataSheet& dataSheet, std::int16_t row, std::string_view text) noexcept {
    Run(
        "CellTextX",
        [&] {
            const std::int16_t sheetColumn = CheckedAdd(row, std::int16_t{1});
            dataSheet.Put(1, sheetColumn, Variant(text));
        },
        [&] { return TraceText("{row:", row, " - value: ", text, "}"); });
}

void CellValue(DataSheet& dataSheet, std::int16_t column, std::int16_t row, double value) noexcept {
    Run(
        "CellValue",
        [&] {
            const std::int16_t sheetRow = CheckedAdd(column, std::int16_t{1});
            const std::int16_t sheetColumn = CheckedAdd(row, std::int16_t{1});
            dataSheet.Put(sheetRow, sheetColumn, Variant(value));
        },
        [&] { return TraceText("{column:", column, " - row:", row, " - value:", value, "}"); });
}

}  // namespace planview::modChart
