// SPDX-License-Identifier: MIT
#include <array>
#include <span>

#include "components/chart/ChartMembers.h"

namespace planview {

namespace chart {

namespace {

using Arguments = AutomationObject::Arguments;

/// A plain part of the state with a few fields: which part, and how its members are called.
template <class Self, class Part>
class PartObject : public Object<Self> {
public:
    using Object<Self>::Object;
    [[nodiscard]] Part& Target() const noexcept { return Self::Of(this->Model().state); }
};

/// "Interior" and "Border" and "Font" exist in several places, told apart by the function that finds theirs.
template <ChartInterior& (*Find)(ChartState&)>
class Interior final : public PartObject<Interior<Find>, ChartInterior> {
public:
    using PartObject<Interior, ChartInterior>::PartObject;
    static constexpr std::string_view ObjectName = "Interior";
    static ChartInterior& Of(ChartState& state) { return Find(state); }
    static std::span<const typename TableObject<Interior>::Member> Members() {
        static constexpr std::array Table{Property<Interior, &ChartInterior::pattern>("Pattern", 1),
                                          ColorIndex<Interior, &ChartInterior::colorIndex>("ColorIndex", 2)};
        return Table;
    }
};

template <ChartFont& (*Find)(ChartState&)>
class Font final : public PartObject<Font<Find>, ChartFont> {
public:
    using PartObject<Font, ChartFont>::PartObject;
    static constexpr std::string_view ObjectName = "Font";
    static ChartFont& Of(ChartState& state) { return Find(state); }
    static std::span<const typename TableObject<Font>::Member> Members() {
        static constexpr std::array Table{Property<Font, &ChartFont::name>("Name", 1),
                                          Property<Font, &ChartFont::size>("Size", 2)};
        return Table;
    }
};

ChartInterior& AreaInterior(ChartState& state) {
    return state.chartArea;
}
ChartInterior& PlotInterior(ChartState& state) {
    return state.plotArea;
}
ChartInterior& LegendInterior(ChartState& state) {
    return state.legend.interior;
}
ChartFont& TitleFont(ChartState& state) {
    return state.titleFont;
}
ChartFont& LegendFont(ChartState& state) {
    return state.legend.font;
}

class LegendBorder final : public PartObject<LegendBorder, ChartLegend> {
public:
    using PartObject::PartObject;
    static constexpr std::string_view ObjectName = "Border";
    static ChartLegend& Of(ChartState& state) { return state.legend; }
    static std::span<const Member> Members() {
        static constexpr std::array Table{ColorIndex<LegendBorder, &ChartLegend::borderColorIndex>("ColorIndex", 1)};
        return Table;
    }
};

class Legend final : public PartObject<Legend, ChartLegend> {
public:
    using PartObject::PartObject;
    static constexpr std::string_view ObjectName = "Legend";
    static ChartLegend& Of(ChartState& state) { return state.legend; }
    static std::span<const Member> Members() {
        static constexpr std::array Table{Property<Legend, &ChartLegend::position>("Position", 1),
                                          ChildObject<Legend, Font<LegendFont>>("Font", 2),
                                          ChildObject<Legend, Interior<LegendInterior>>("Interior", 3),
                                          ChildObject<Legend, LegendBorder>("Border", 4)};
        return Table;
    }
};

class ChartTitle final : public PartObject<ChartTitle, ChartState> {
public:
    using PartObject::PartObject;
    static constexpr std::string_view ObjectName = "ChartTitle";
    static ChartState& Of(ChartState& state) { return state; }
    static std::span<const Member> Members() {
        static constexpr std::array Table{Property<ChartTitle, &ChartState::title>("Text", 1),
                                          ChildObject<ChartTitle, Font<TitleFont>>("Font", 2)};
        return Table;
    }
};

/// "ChartArea" and "PlotArea".
template <ChartInterior& (*Find)(ChartState&)>
class Area final : public Object<Area<Find>> {
public:
    using Object<Area>::Object;
    static constexpr std::string_view ObjectName = "Area";
    static std::span<const typename TableObject<Area>::Member> Members() {
        static constexpr std::array Table{ChildObject<Area, Interior<Find>>("Interior", 1)};
        return Table;
    }
};

class Chart final : public Object<Chart> {
public:
    using Object::Object;
    static constexpr std::string_view ObjectName = "Chart";
    [[nodiscard]] ChartLegend& Target() const noexcept { return Model().state.legend; }
    static std::span<const Member> Members() {
        static constexpr std::array Table{
            Member{"SeriesCollection", 1,
                   [](Chart& self, Arguments a) { return SeriesCollectionMember(self.ModelRef(), a); }},
            Member{"Axes", 2, [](Chart& self, Arguments a) { return Variant(MakeAxis(self.ModelRef(), a)); }},
            ChildObject<Chart, ChartTitle>("ChartTitle", 3),
            ChildObject<Chart, Legend>("Legend", 4),
            Property<Chart, &ChartLegend::shown>("HasLegend", 5),
            ChildObject<Chart, Area<AreaInterior>>("ChartArea", 6),
            ChildObject<Chart, Area<PlotInterior>>("PlotArea", 7)};
        return Table;
    }
};

class Root final : public Object<Root> {
public:
    using Object::Object;
    static constexpr std::string_view ObjectName = "The chart control";
    [[nodiscard]] ChartState& Target() const noexcept { return Model().state; }

    static Variant AutoArrange(Root& self, Arguments) {
        self.Model().state.categoryAxis.startAtCategory = 1;
        self.Model().Touch();
        return {};
    }
    /// First category, first value, category count, first series, series count, where the series stand.
    static Variant CreateDataRows(Root& self, Arguments a) {
        constexpr std::size_t ArgumentCount = 6;
        ExpectArguments(a, ArgumentCount, "CreateDataRows");
        self.Model().CreateDataRows(a[2].AsInt32(), a[4].AsInt32(), a[5].AsInt16());
        return {};
    }
    /// A type for the whole chart is one for each of its series, too.
    static void PutChartType(Root& self, Arguments, const Variant& value) {
        ChartState& state = self.Model().state;
        state.type = FromVariant<ChartType>(value);
        for (ChartSeries& series : state.series) {
            series.type = state.type;
        }
        self.Model().Touch();
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{
            Member{"Redraw", 1, [](Root& self, Arguments) { return Variant(self.Model().redraw); },
                   [](Root& self, Arguments, const Variant& value) { self.Model().SetRedraw(value.AsBoolean()); }},
            Member{"ChartType", 2, &GetField<Root, &ChartState::type>, &PutChartType},
            Property<Root, &ChartState::allowContextMenus>("AllowContextMenus", 3),
            Property<Root, &ChartState::allowDialogs>("AllowDialogs", 4),
            Property<Root, &ChartState::allowSelect>("AllowSelect", 5),
            Property<Root, &ChartState::allowValueChange>("AllowValueChange", 6),
            Member{"AutoArrange", 7, nullptr, nullptr, &AutoArrange},
            Member{"CreateDataRows", 8, nullptr, nullptr, &CreateDataRows},
            Member{"DataSheet", 9, [](Root& self, Arguments) { return Variant(MakeDataSheet(self.ModelRef())); }},
            ChildObject<Root, Chart>("Chart", 10)};
        return Table;
    }
};

}  // namespace

}  // namespace chart

ObjectRef MakeChartObject(const std::shared_ptr<ChartModel>& model) {
    return std::make_shared<chart::Root>(model);
}

}  // namespace planview
