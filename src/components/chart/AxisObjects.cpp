// SPDX-License-Identifier: MIT
#include <array>
#include <span>

#include "components/chart/ChartMembers.h"

namespace planview::chart {

namespace {

using Arguments = AutomationObject::Arguments;

/// The type that says whether a limit is shown: 1 or 2.
template <ChartLimit ChartValueAxis::*Limit>
Variant GetLimitType(ChartModel& model) {
    return Variant((model.state.valueAxis.*Limit).type);
}
template <ChartLimit ChartValueAxis::*Limit>
void PutLimitType(ChartModel& model, const Variant& value) {
    const std::int16_t type = value.AsInt16();
    if (type != ChartLimit::Hidden && type != ChartLimit::Shown) {
        ThrowNoSuchCode(type);
    }
    (model.state.valueAxis.*Limit).type = type;
    model.Touch();
}

class ValueRange final : public Object<ValueRange> {
public:
    using Object::Object;
    static constexpr std::string_view ObjectName = "ValueRange";

    template <ChartLimit ChartValueAxis::*Limit>
    static constexpr Member TypeMember(std::string_view name, DispatchId id) {
        return {name, id, [](ValueRange& self, Arguments) { return GetLimitType<Limit>(self.Model()); },
                [](ValueRange& self, Arguments, const Variant& value) { PutLimitType<Limit>(self.Model(), value); }};
    }
    template <ChartLimit ChartValueAxis::*Limit>
    static constexpr Member ValueMember(std::string_view name, DispatchId id) {
        return {name, id,
                [](ValueRange& self, Arguments) { return Variant((self.Model().state.valueAxis.*Limit).value); },
                [](ValueRange& self, Arguments, const Variant& value) {
                    (self.Model().state.valueAxis.*Limit).value = FromVariant<double>(value);
                    self.Model().Touch();
                }};
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{TypeMember<&ChartValueAxis::rangeMinimum>("MinimumType", 1),
                                          ValueMember<&ChartValueAxis::rangeMinimum>("Minimum", 2),
                                          TypeMember<&ChartValueAxis::rangeMaximum>("MaximumType", 3),
                                          ValueMember<&ChartValueAxis::rangeMaximum>("Maximum", 4),
                                          TypeMember<&ChartValueAxis::optimum>("OptimumType", 5),
                                          ValueMember<&ChartValueAxis::optimum>("Optimum", 6)};
        return Table;
    }
};

/// `Axis` is ChartCategoryAxis or ChartValueAxis.
template <class Axis>
Axis& AxisOf(ChartState& state) {
    if constexpr (std::is_same_v<Axis, ChartCategoryAxis>) {
        return state.categoryAxis;
    } else {
        return state.valueAxis;
    }
}

template <class Axis>
class TickLabels final : public Object<TickLabels<Axis>> {
public:
    using Object<TickLabels>::Object;
    static constexpr std::string_view ObjectName = "TickLabels";
    [[nodiscard]] Axis& Target() const noexcept { return AxisOf<Axis>(this->Model().state); }
    static std::span<const typename TableObject<TickLabels>::Member> Members() {
        static constexpr std::array Table{Property<TickLabels, &Axis::orientation>("Orientation", 1)};
        return Table;
    }
};

class CategoryAxis final : public Object<CategoryAxis> {
public:
    using Object::Object;
    static constexpr std::string_view ObjectName = "The category axis";
    [[nodiscard]] ChartCategoryAxis& Target() const noexcept { return Model().state.categoryAxis; }

    /// A number of categories or the first of them: at least 1.
    template <std::int16_t ChartCategoryAxis::*Field>
    static void PutCount(CategoryAxis& self, Arguments, const Variant& value) {
        const std::int16_t count = value.AsInt16();
        if (count < 1) {
            ThrowNoSuchCode(count);
        }
        self.Target().*Field = count;
        self.Model().Touch();
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{
            ChildObject<CategoryAxis, TickLabels<ChartCategoryAxis>>("TickLabels", 1),
            Property<CategoryAxis, &ChartCategoryAxis::visible>("Visible", 2),
            Property<CategoryAxis, &ChartCategoryAxis::scrollBar>("VisibleCategoriesIsAuto", 3),
            Member{"VisibleCategories", 4, &GetField<CategoryAxis, &ChartCategoryAxis::visibleCategories>,
                   &PutCount<&ChartCategoryAxis::visibleCategories>},
            Member{"StartAtCategory", 5, &GetField<CategoryAxis, &ChartCategoryAxis::startAtCategory>,
                   &PutCount<&ChartCategoryAxis::startAtCategory>}};
        return Table;
    }
};

class ValueAxis final : public Object<ValueAxis> {
public:
    using Object::Object;
    static constexpr std::string_view ObjectName = "The value axis";
    [[nodiscard]] ChartValueAxis& Target() const noexcept { return Model().state.valueAxis; }

    static Variant GetValueRange(ValueAxis& self, Arguments arguments) {
        ExpectArguments(arguments, 1, "ValueRanges");
        if (const std::int32_t index = arguments[0].AsInt32(); index != 1) {
            ThrowNoSuchIndex("Value range", index, 1);
        }
        return Variant(std::make_shared<ValueRange>(self.ModelRef()));
    }

    static std::span<const Member> Members() {
        static constexpr std::array Table{ChildObject<ValueAxis, TickLabels<ChartValueAxis>>("TickLabels", 1),
                                          Property<ValueAxis, &ChartValueAxis::visible>("Visible", 2),
                                          Property<ValueAxis, &ChartValueAxis::minimum>("MinimumScale", 3),
                                          Property<ValueAxis, &ChartValueAxis::maximum>("MaximumScale", 4),
                                          Property<ValueAxis, &ChartValueAxis::minimumIsAuto>("MinimumScaleIsAuto", 5),
                                          Property<ValueAxis, &ChartValueAxis::maximumIsAuto>("MaximumScaleIsAuto", 6),
                                          Member{"ValueRanges", 7, &GetValueRange}};
        return Table;
    }
};

}  // namespace

ObjectRef MakeAxis(const std::shared_ptr<ChartModel>& model, Arguments arguments) {
    ExpectArguments(arguments, 2, "Axes");
    const std::int32_t type = arguments[0].AsInt32();
    const std::int32_t group = arguments[1].AsInt32();
    if (group != 0) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "The chart has no axis group " + std::to_string(group));
    }
    switch (type) {
        case 1:
            return std::make_shared<CategoryAxis>(model);
        case 2:
            return std::make_shared<ValueAxis>(model);
        default:
            ThrowNoSuchIndex("Axis", type, 2);
    }
}

}  // namespace planview::chart
