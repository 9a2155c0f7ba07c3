// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "automation/TableObject.h"
#include "components/chart/ChartModel.h"

/// How the objects of the chart's object model get and put plain fields of the chart's state.
namespace planview::chart {

/// The base of every object of the model: holds on to the chart.
template <class Self>
class Object : public TableObject<Self> {
public:
    explicit Object(std::shared_ptr<ChartModel> model) : model_(std::move(model)) {}
    [[nodiscard]] ChartModel& Model() const noexcept { return *model_; }
    [[nodiscard]] const std::shared_ptr<ChartModel>& ModelRef() const noexcept { return model_; }

private:
    std::shared_ptr<ChartModel> model_;
};

[[noreturn]] inline void ThrowNoSuchCode(std::int32_t code) {
    throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                          "The code " + std::to_string(code) + " has no meaning here");
}

template <class Value>
[[nodiscard]] Variant ToVariant(const Value& value) {
    if constexpr (std::is_enum_v<Value>) {
        return Variant(static_cast<std::underlying_type_t<Value>>(value));
    } else {
        return Variant(value);
    }
}

/// Throws TypeMismatch, Overflow, or SubscriptOutOfRange for a code that the enumeration does not have.
template <class Value>
[[nodiscard]] Value FromVariant(const Variant& value) {
    if constexpr (std::is_same_v<Value, bool>) {
        return value.AsBoolean();
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return value.AsText();
    } else if constexpr (std::is_same_v<Value, double>) {
        const double number = value.AsDouble();
        if (!std::isfinite(number)) {
            throw AutomationError(AutomationErrorCode::TypeMismatch, "A chart takes finite numbers only");
        }
        return number;
    } else if constexpr (std::is_same_v<Value, ChartType>) {
        const std::int32_t code = value.AsInt32();
        if (!IsChartType(code)) {
            ThrowNoSuchCode(code);
        }
        return static_cast<ChartType>(code);
    } else if constexpr (std::is_enum_v<Value>) {
        constexpr std::int32_t LastCode = std::is_same_v<Value, TrendKind> ? 4 : 3;
        const std::int32_t code = value.AsInt32();
        if (code < 0 || code > LastCode) {
            ThrowNoSuchCode(code);
        }
        return static_cast<Value>(code);
    } else {
        return value.AsInt16();
    }
}

/// `Self::Target()` is the part of the state that has the field.
template <class Self, auto Field>
[[nodiscard]] Variant GetField(Self& self, AutomationObject::Arguments) {
    return ToVariant(self.Target().*Field);
}

template <class Self, auto Field>
void PutField(Self& self, AutomationObject::Arguments, const Variant& value) {
    auto& field = self.Target().*Field;
    field = FromVariant<std::remove_reference_t<decltype(field)>>(value);
    self.Model().Touch();
}

template <class Self, auto Field>
[[nodiscard]] constexpr typename TableObject<Self>::Member Property(std::string_view name, DispatchId id) {
    return {name, id, &GetField<Self, Field>, &PutField<Self, Field>, nullptr};
}

/// A member that answers another object of the model.
template <class Self, class Child>
[[nodiscard]] Variant GetChild(Self& self, AutomationObject::Arguments) {
    return Variant(std::make_shared<Child>(self.ModelRef()));
}

template <class Self, class Child>
[[nodiscard]] constexpr typename TableObject<Self>::Member ChildObject(std::string_view name, DispatchId id) {
    return {name, id, &GetChild<Self, Child>, nullptr, nullptr};
}

/// Colours cross the border as red + 256 * green + 65536 * blue.
[[nodiscard]] inline std::int32_t ColorNumber(ChartColor color) noexcept {
    return color.red + (color.green << 8) + (color.blue << 16);
}
[[nodiscard]] inline ChartColor ColorOfNumber(const Variant& value) {
    const std::int32_t number = value.AsInt32();
    if (number < 0 || number > 0xFFFFFF) {
        ThrowNoSuchCode(number);
    }
    return {static_cast<std::uint8_t>(number & 0xFF), static_cast<std::uint8_t>((number >> 8) & 0xFF),
            static_cast<std::uint8_t>((number >> 16) & 0xFF)};
}

/// Puts "ColorIndex" into a palette index: -1 to 15.
template <class Self, auto Field>
void PutColorIndex(Self& self, AutomationObject::Arguments, const Variant& value) {
    const std::int16_t index = value.AsInt16();
    if (index < -1 || index >= ChartPaletteSize) {
        ThrowNoSuchCode(index);
    }
    self.Target().*Field = index;
    self.Model().Touch();
}

template <class Self, auto Field>
[[nodiscard]] constexpr typename TableObject<Self>::Member ColorIndex(std::string_view name, DispatchId id) {
    return {name, id, &GetField<Self, Field>, &PutColorIndex<Self, Field>, nullptr};
}

/// The collection of series, and the objects below it.
[[nodiscard]] Variant SeriesCollectionMember(const std::shared_ptr<ChartModel>& model,
                                             AutomationObject::Arguments arguments);
[[nodiscard]] ObjectRef MakeDataSheet(const std::shared_ptr<ChartModel>& model);
/// "Axes"(type, group): type 1 categories, 2 values; group 0.
[[nodiscard]] ObjectRef MakeAxis(const std::shared_ptr<ChartModel>& model, AutomationObject::Arguments arguments);

}  // namespace planview::chart
