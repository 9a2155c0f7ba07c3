// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <span>

#include "components/chart/ChartMembers.h"

namespace planview::chart {

namespace {

using Arguments = AutomationObject::Arguments;
using LookRef = std::shared_ptr<ChartSeriesLook>;

/// One trend line. A reference to it stays good through rebuilds, and says so once the trend line is deleted.
class Trendline final : public Object<Trendline> {
public:
    Trendline(std::shared_ptr<ChartModel> model, LookRef look, std::shared_ptr<ChartTrend> trend)
        : Object(std::move(model)), look_(std::move(look)), trend_(std::move(trend)) {}
    static constexpr std::string_view ObjectName = "The trend line";

    [[nodiscard]] ChartTrend& Target() const {
        if (std::find(look_->trends.begin(), look_->trends.end(), trend_) == look_->trends.end()) {
            throw AutomationError(AutomationErrorCode::ObjectNotSet, "The trend line has been deleted");
        }
        return *trend_;
    }

    class BorderObject final : public Object<BorderObject> {
    public:
        explicit BorderObject(std::shared_ptr<Trendline> line) : Object(line->ModelRef()), line_(std::move(line)) {}
        static constexpr std::string_view ObjectName = "Border";
        [[nodiscard]] ChartTrend& Target() const { return line_->Target(); }
        static std::span<const Member> Members() {
            static constexpr std::array Table{ColorIndex<BorderObject, &ChartTrend::borderColorIndex>("ColorIndex", 1)};
            return Table;
        }

    private:
        std::shared_ptr<Trendline> line_;
    };

    static Variant Delete(Trendline& self, Arguments) {
        const ChartTrend& own = self.Target();
        std::erase_if(self.look_->trends, [&](const auto& trend) { return trend.get() == &own; });
        self.Model().Touch();
        return {};
    }
    static void PutPeriod(Trendline& self, Arguments, const Variant& value) {
        constexpr std::int16_t LeastPeriod = 2;
        const std::int16_t period = value.AsInt16();
        if (period < LeastPeriod) {
            ThrowNoSuchCode(period);
        }
        self.Target().period = period;
        self.Model().Touch();
    }

    // The numbers of "Name", "Type" and "Delete" are fixed: callers use them instead of the names.
    static std::span<const Member> Members() {
        static constexpr std::array Table{
            Member{"Border", 1,
                   [](Trendline& self, Arguments) {
                       return Variant(std::make_shared<BorderObject>(
                           std::make_shared<Trendline>(self.ModelRef(), self.look_, self.trend_)));
                   }},
            Member{"Period", 2, &GetField<Trendline, &ChartTrend::period>, &PutPeriod},
            Property<Trendline, &ChartTrend::name>("Name", 5), Property<Trendline, &ChartTrend::kind>("Type", 8),
            Member{"Delete", 12, nullptr, nullptr, &Delete}};
        return Table;
    }

private:
    LookRef look_;
    std::shared_ptr<ChartTrend> trend_;
};

class Trendlines final : public Object<Trendlines> {
public:
    Trendlines(std::shared_ptr<ChartModel> model, LookRef look) : Object(std::move(model)), look_(std::move(look)) {}
    static constexpr std::string_view ObjectName = "Trendlines";

    [[nodiscard]] Variant Item(std::int32_t index) const {
        const auto count = static_cast<std::int32_t>(look_->trends.size());
        if (index < 1 || index > count) {
            ThrowNoSuchIndex("Trend line", index, count);
        }
        return Variant(
            std::make_shared<Trendline>(ModelRef(), look_, look_->trends[static_cast<std::size_t>(index) - 1]));
    }
    static Variant GetItem(Trendlines& self, Arguments arguments) {
        ExpectArguments(arguments, 1, "Trendlines");
        return self.Item(arguments[0].AsInt32());
    }
    static Variant Add(Trendlines& self, Arguments) {
        self.look_->trends.push_back(std::make_shared<ChartTrend>());
        self.Model().Touch();
        return self.Item(static_cast<std::int32_t>(self.look_->trends.size()));
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{
            Member{"Item", DefaultMember, &GetItem},
            Member{"Count", 1,
                   [](Trendlines& self, Arguments) {
                       return Variant(static_cast<std::int32_t>(self.look_->trends.size()));
                   }},
            Member{"Add", 2, nullptr, nullptr, &Add}};
        return Table;
    }

private:
    LookRef look_;
};

class Series;

class SeriesInterior final : public Object<SeriesInterior> {
public:
    SeriesInterior(std::shared_ptr<ChartModel> model, std::int32_t number)
        : Object(std::move(model)), number_(number) {}
    static constexpr std::string_view ObjectName = "Interior";

    [[nodiscard]] ChartSeriesLook& Target() const { return *Model().SeriesAt(number_).look; }

    static Variant GetColor(SeriesInterior& self, Arguments) { return Variant(ColorNumber(self.Target().color)); }
    static void PutColor(SeriesInterior& self, Arguments, const Variant& value) {
        self.Target().color = ColorOfNumber(value);
        self.Model().Touch();
    }
    static Variant GetPattern(SeriesInterior& self, Arguments) { return Variant(self.Target().interior.pattern); }
    static void PutPattern(SeriesInterior& self, Arguments, const Variant& value) {
        self.Target().interior.pattern = value.AsInt16();
        self.Model().Touch();
    }
    static Variant GetColorIndex(SeriesInterior& self, Arguments) { return Variant(self.Target().interior.colorIndex); }
    /// A colour of the palette becomes the colour of the series.
    static void PutColorIndex(SeriesInterior& self, Arguments, const Variant& value) {
        const std::int16_t index = value.AsInt16();
        ChartSeriesLook& look = self.Target();
        look.color = ChartPaletteColor(index);
        look.interior.colorIndex = index;
        self.Model().Touch();
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{Member{"Color", 1, &GetColor, &PutColor},
                                          Property<SeriesInterior, &ChartSeriesLook::gradient>("Gradient", 2),
                                          Member{"Pattern", 3, &GetPattern, &PutPattern},
                                          Member{"ColorIndex", 4, &GetColorIndex, &PutColorIndex}};
        return Table;
    }

private:
    std::int32_t number_;
};

class Series final : public Object<Series> {
public:
    Series(std::shared_ptr<ChartModel> model, std::int32_t number) : Object(std::move(model)), number_(number) {}
    static constexpr std::string_view ObjectName = "The series";

    [[nodiscard]] ChartSeries& Target() const { return Model().SeriesAt(number_); }

    static Variant GetTrendlines(Series& self, Arguments arguments) {
        auto lines = std::make_shared<Trendlines>(self.ModelRef(), self.Target().look);
        return arguments.empty() ? Variant(std::move(lines)) : Trendlines::GetItem(*lines, arguments);
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{
            Member{"Interior", 1,
                   [](Series& self, Arguments) {
                       return Variant(std::make_shared<SeriesInterior>(self.ModelRef(), self.number_));
                   }},
            Property<Series, &ChartSeries::type>("ChartType", 2), Member{"Trendlines", 3, &GetTrendlines},
            Property<Series, &ChartSeries::caption>("Name", 4)};
        return Table;
    }

private:
    std::int32_t number_;
};

class SeriesCollection final : public Object<SeriesCollection> {
public:
    using Object::Object;
    static constexpr std::string_view ObjectName = "SeriesCollection";

    static Variant Item(const std::shared_ptr<ChartModel>& model, Arguments arguments) {
        ExpectArguments(arguments, 1, "SeriesCollection");
        const std::int32_t number = arguments[0].AsInt32();
        static_cast<void>(model->SeriesAt(number));
        return Variant(std::make_shared<Series>(model, number));
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{
            Member{"Item", DefaultMember, [](SeriesCollection& self, Arguments a) { return Item(self.ModelRef(), a); }},
            Member{"Count", 1, [](SeriesCollection& self, Arguments) {
                       return Variant(std::int32_t{self.Model().state.SeriesCount()});
                   }}};
        return Table;
    }
};

}  // namespace

Variant SeriesCollectionMember(const std::shared_ptr<ChartModel>& model, Arguments arguments) {
    return arguments.empty() ? Variant(std::make_shared<SeriesCollection>(model))
                             : SeriesCollection::Item(model, arguments);
}

}  // namespace planview::chart
