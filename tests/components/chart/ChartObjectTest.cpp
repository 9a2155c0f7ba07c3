// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "automation/Late.h"
#include "components/chart/ChartControl.h"

namespace planview {

namespace {

constexpr std::int16_t One = 1;

class ChartObjectTest : public testing::Test, protected ChartWatcher {
protected:
    ChartObjectTest() {
        chart.SetWatcher(this);
        Fill(3, 2);
    }
    ~ChartObjectTest() override { chart.SetWatcher(nullptr); }

    void ChartChanged() override { ++changes; }
    void CopyPicture() override {}

    void Fill(std::int16_t categories, std::int16_t series) {
        root.Call("CreateDataRows", One, One, categories, One, series, One);
    }
    [[nodiscard]] Late Series(std::int32_t number) const { return root.Get("Chart").Get("SeriesCollection", number); }
    [[nodiscard]] const ChartState& State() const { return chart.State(); }

    ChartControl chart;
    Late root{chart.Object()};
    int changes = 0;
};

template <class Call>
AutomationErrorCode ErrorOf(const Call& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return error.Code();
    }
    ADD_FAILURE() << "no error";
    return AutomationErrorCode::Failed;
}

TEST_F(ChartObjectTest, EveryPlainMemberReachesItsPlaceAndReadsBack) {
    const struct {
        const char* name;
        Late owner;
        const char* member;
        Variant value;
        std::function<Variant(const ChartState&)> landed;
    } rows[] = {
        {"menus", root, "AllowContextMenus", true, [](auto& s) { return Variant(s.allowContextMenus); }},
        {"dialogs", root, "AllowDialogs", true, [](auto& s) { return Variant(s.allowDialogs); }},
        {"select", root, "AllowSelect", false, [](auto& s) { return Variant(s.allowSelect); }},
        {"change", root, "AllowValueChange", false, [](auto& s) { return Variant(s.allowValueChange); }},
        {"legend", root.Get("Chart"), "HasLegend", false, [](auto& s) { return Variant(s.legend.shown); }},
        {"legend place", root.Get("Chart").Get("Legend"), "Position", std::int16_t{3},
         [](auto& s) { return Variant(static_cast<std::int16_t>(s.legend.position)); }},
        {"legend font", root.Get("Chart").Get("Legend").Get("Font"), "Name", "Serif",
         [](auto& s) { return Variant(s.legend.font.name); }},
        {"legend ground", root.Get("Chart").Get("Legend").Get("Interior"), "ColorIndex", std::int16_t{3},
         [](auto& s) { return Variant(s.legend.interior.colorIndex); }},
        {"legend border", root.Get("Chart").Get("Legend").Get("Border"), "ColorIndex", std::int16_t{4},
         [](auto& s) { return Variant(s.legend.borderColorIndex); }},
        {"title", root.Get("Chart").Get("ChartTitle"), "Text", "Sales", [](auto& s) { return Variant(s.title); }},
        {"title size", root.Get("Chart").Get("ChartTitle").Get("Font"), "Size", std::int16_t{10},
         [](auto& s) { return Variant(s.titleFont.size); }},
        {"area ground", root.Get("Chart").Get("ChartArea").Get("Interior"), "ColorIndex", std::int16_t{5},
         [](auto& s) { return Variant(s.chartArea.colorIndex); }},
        {"plot pattern", root.Get("Chart").Get("PlotArea").Get("Interior"), "Pattern", std::int16_t{2},
         [](auto& s) { return Variant(s.plotArea.pattern); }},
        {"minimum", root.Get("Chart").Get("Axes", 2, 0), "MinimumScale", 1.5,
         [](auto& s) { return Variant(s.valueAxis.minimum); }},
        {"maximum", root.Get("Chart").Get("Axes", std::int16_t{2}, std::int16_t{0}), "MaximumScale", 2.5,
         [](auto& s) { return Variant(s.valueAxis.maximum); }},
        {"auto minimum", root.Get("Chart").Get("Axes", 2, 0), "MinimumScaleIsAuto", false,
         [](auto& s) { return Variant(s.valueAxis.minimumIsAuto); }},
        {"auto maximum", root.Get("Chart").Get("Axes", 2, 0), "MaximumScaleIsAuto", false,
         [](auto& s) { return Variant(s.valueAxis.maximumIsAuto); }},
        {"value labels", root.Get("Chart").Get("Axes", 2, 0), "Visible", false,
         [](auto& s) { return Variant(s.valueAxis.visible); }},
        {"range type", root.Get("Chart").Get("Axes", 2, 0).Get("ValueRanges", 1), "MinimumType", std::int16_t{2},
         [](auto& s) { return Variant(s.valueAxis.rangeMinimum.type); }},
        {"range", root.Get("Chart").Get("Axes", 2, 0).Get("ValueRanges", 1), "Maximum", 7.0,
         [](auto& s) { return Variant(s.valueAxis.rangeMaximum.value); }},
        {"optimum", root.Get("Chart").Get("Axes", 2, 0).Get("ValueRanges", 1), "Optimum", 8.0,
         [](auto& s) { return Variant(s.valueAxis.optimum.value); }},
        {"orientation", root.Get("Chart").Get("Axes", 1, 0).Get("TickLabels"), "Orientation", std::int16_t{2},
         [](auto& s) { return Variant(static_cast<std::int16_t>(s.categoryAxis.orientation)); }},
        {"scroll bar", root.Get("Chart").Get("Axes", 1, 0), "VisibleCategoriesIsAuto", true,
         [](auto& s) { return Variant(s.categoryAxis.scrollBar); }},
        {"visible", root.Get("Chart").Get("Axes", 1, 0), "VisibleCategories", std::int16_t{2},
         [](auto& s) { return Variant(s.categoryAxis.visibleCategories); }},
        {"start", root.Get("Chart").Get("Axes", 1, 0), "StartAtCategory", std::int16_t{2},
         [](auto& s) { return Variant(s.categoryAxis.startAtCategory); }},
        {"series type", Series(2), "ChartType", std::int16_t{23},
         [](auto& s) { return Variant(static_cast<std::int16_t>(s.series[1].type)); }},
        {"gradient", Series(2).Get("Interior"), "Gradient", std::int16_t{0},
         [](auto& s) { return Variant(s.series[1].look->gradient); }},
        {"caption", root.Get("DataSheet").Get("Cells", 1, 3), "Value", "Second",
         [](auto& s) { return Variant(s.series[1].caption); }},
        {"category", root.Get("DataSheet").Get("Cells", 4, 1), "Value", "Mar",
         [](auto& s) { return Variant(s.categories[2]); }},
        {"value", root.Get("DataSheet").Get("Cells", 4, 3), "Value", 12.5,
         [](auto& s) { return Variant(s.series[1].values[2]); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const int before = changes;
        row.owner.Put(row.member, row.value);
        EXPECT_EQ(row.landed(State()), row.value);
        EXPECT_EQ(row.owner.Get(row.member).Value(), row.value);
        EXPECT_EQ(changes, before + 1);
    }
}

TEST_F(ChartObjectTest, WhatDoesNotExistIsAnError) {
    const struct {
        const char* name;
        std::function<void()> call;
        AutomationErrorCode code;
    } rows[] = {
        {"member", [&] { static_cast<void>(root.Get("Wings")); }, AutomationErrorCode::UnknownMember},
        {"member below", [&] { root.Get("Chart").Get("Legend").Put("Wings", 1); }, AutomationErrorCode::UnknownMember},
        {"series 0", [&] { static_cast<void>(Series(0)); }, AutomationErrorCode::SubscriptOutOfRange},
        {"series 3", [&] { static_cast<void>(Series(3)); }, AutomationErrorCode::SubscriptOutOfRange},
        {"axis 3", [&] { static_cast<void>(root.Get("Chart").Get("Axes", 3, 0)); },
         AutomationErrorCode::SubscriptOutOfRange},
        {"axis group 1", [&] { static_cast<void>(root.Get("Chart").Get("Axes", 1, 1)); },
         AutomationErrorCode::SubscriptOutOfRange},
        {"axis without group", [&] { static_cast<void>(root.Get("Chart").Get("Axes", 1)); },
         AutomationErrorCode::WrongArguments},
        {"sheet row", [&] { static_cast<void>(root.Get("DataSheet").Get("Cells", 5, 1)); },
         AutomationErrorCode::SubscriptOutOfRange},
        {"sheet corner", [&] { root.Get("DataSheet").Get("Cells", 1, 1).Put("Value", 1); },
         AutomationErrorCode::Failed},
        {"chart type", [&] { root.Put("ChartType", 5); }, AutomationErrorCode::SubscriptOutOfRange},
        {"colour", [&] { root.Get("Chart").Get("PlotArea").Get("Interior").Put("ColorIndex", 16); },
         AutomationErrorCode::SubscriptOutOfRange},
        {"no number", [&] { root.Get("DataSheet").Get("Cells", 2, 2).Put("Value", "x"); },
         AutomationErrorCode::TypeMismatch},
        {"too many values", [&] { Fill(32767, 32767); }, AutomationErrorCode::SubscriptOutOfRange},
        {"missing arguments", [&] { root.Call("CreateDataRows", 1, 1); }, AutomationErrorCode::WrongArguments},
        {"setting a method", [&] { root.Put("AutoArrange", 1); }, AutomationErrorCode::Failed},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ErrorOf(row.call), row.code) << row.name;
    }
    EXPECT_EQ(State().SeriesCount(), 2);
}

TEST_F(ChartObjectTest, SeriesStandInRowsWhereTheSheetIsTurned) {
    root.Call("CreateDataRows", One, One, std::int16_t{3}, One, std::int16_t{2}, std::int16_t{2});
    root.Get("DataSheet").Get("Cells", 3, 4).Put("Value", 9.0);
    EXPECT_EQ(State().series[1].values[2], 9.0);
}

TEST_F(ChartObjectTest, AChartTypeIsOneForEverySeries) {
    Series(1).Put("ChartType", std::int16_t{23});
    root.Put("ChartType", std::int16_t{1});
    EXPECT_EQ(State().series[0].type, ChartType::StackedColumn);
    Fill(1, 1);
    EXPECT_EQ(State().series[0].type, ChartType::StackedColumn) << "new series, too";
}

TEST_F(ChartObjectTest, RedrawOffHoldsChangesBack) {
    changes = 0;
    root.Put("Redraw", false);
    root.Get("Chart").Get("ChartTitle").Put("Text", "a");
    Fill(2, 2);
    EXPECT_EQ(changes, 0);
    root.Put("Redraw", true);
    EXPECT_EQ(changes, 1);
    root.Put("Redraw", true);
    EXPECT_EQ(changes, 1) << "nothing new";
}

TEST_F(ChartObjectTest, AColourOfTheHostStaysAndLeavesItsStyleToAnother) {
    chart.NameSeries(1, "ROW4", "");
    EXPECT_EQ(State().series[0].look->style, 0);
    constexpr std::int32_t Own = 90 + 256 * 140 + 65536 * 10;
    Series(1).Get("Interior").Put("Color", Own);
    Fill(4, 3);
    chart.NameSeries(1, "ROW9", "");
    chart.NameSeries(2, "ROW4", "");
    chart.NameSeries(3, "ROW5", "");
    EXPECT_EQ(State().series[1].look->color, (ChartColor{90, 140, 10}));
    EXPECT_EQ(State().series[0].look->style, 0) << "the host's series does not use it";
    EXPECT_EQ(State().series[2].look->style, 1);
}

TEST_F(ChartObjectTest, LooksStayWithTheirKeysThroughARebuild) {
    chart.NameSeries(1, "ROW4", "");
    chart.NameSeries(2, "ROW9", "");
    const ChartColor fourth = *chart.ColorOf("ROW4");
    const ChartColor ninth = *chart.ColorOf("ROW9");
    EXPECT_NE(fourth, ninth);
    const Late trend = Series(2).Get("Trendlines").Call("Add");
    chart.UserSelected({ChartHitCode::Series, 2, 0});

    root.Get("DataSheet").Call("DeleteContents");
    Fill(4, 3);
    chart.NameSeries(1, "ROW9", "");
    chart.NameSeries(2, "ROW2", "");
    chart.NameSeries(3, "ROW4", "");
    EXPECT_EQ(State().series[0].look->color, ninth);
    EXPECT_EQ(State().series[2].look->color, fourth);
    EXPECT_NE(State().series[1].look->color, ninth);
    EXPECT_NE(State().series[1].look->color, fourth);
    EXPECT_EQ(State().series[0].look->trends.size(), 1u);
    EXPECT_EQ(State().selected, (ChartHit{ChartHitCode::Series, 1, 0}));

    trend.Put("Type", 3);
    EXPECT_EQ(State().series[0].look->trends[0]->kind, TrendKind::Exponential) << "the reference is still good";
    Series(1).Get("Interior").Put("Color", 0x0201FF);
    EXPECT_EQ(*chart.ColorOf("ROW9"), (ChartColor{255, 1, 2}));
}

TEST_F(ChartObjectTest, TrendLinesAnswerToNumbersAndSayWhenTheyAreGone) {
    const Late trend = Series(1).Get("Trendlines").Call("Add");
    const ObjectRef object = trend.Value().AsObject();
    object->Put(8, {}, Variant(std::int32_t{2}));
    object->Put(5, {}, Variant("ROW1"));
    EXPECT_EQ(object->Get(5, {}).AsText(), "ROW1");
    EXPECT_EQ(State().series[0].look->trends[0]->kind, TrendKind::Power);
    EXPECT_EQ(Series(1).Get("Trendlines", 1).Get("Name").Value().AsText(), "ROW1");
    const Late border = trend.Get("Border");
    object->Call(12, {});
    EXPECT_TRUE(State().series[0].look->trends.empty());
    EXPECT_EQ(ErrorOf([&] { border.Put("ColorIndex", One); }), AutomationErrorCode::ObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { object->Call(12, {}); }), AutomationErrorCode::ObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Series(1).Get("Trendlines", 1)); }),
              AutomationErrorCode::SubscriptOutOfRange);
}

TEST_F(ChartObjectTest, ObjectsOutliveTheChart) {
    auto own = std::make_unique<ChartControl>();
    const Late kept(own->Object());
    own.reset();
    kept.Get("Chart").Get("ChartTitle").Put("Text", "late");
    EXPECT_EQ(kept.Get("Chart").Get("ChartTitle").Get("Text").Value().AsText(), "late");
}

TEST_F(ChartObjectTest, ScrollingStaysWithinTheCategories) {
    root.Get("Chart").Get("Axes", 1, 0).Put("VisibleCategories", std::int16_t{2});
    chart.UserScrolledTo(99);
    EXPECT_EQ(State().FirstVisible(), 2);
    chart.UserScrolledTo(-5);
    EXPECT_EQ(State().FirstVisible(), 1);
    root.Get("Chart").Get("Axes", 1, 0).Put("StartAtCategory", std::int16_t{3});
    EXPECT_EQ(State().FirstVisible(), 2);
    root.Call("AutoArrange");
    EXPECT_EQ(State().FirstVisible(), 1);
}

}  // namespace

}  // namespace planview
