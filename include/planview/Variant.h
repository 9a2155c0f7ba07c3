// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include <planview/Export.h>

namespace planview {

class AutomationObject;

/// A counted reference to an object shared between the host and the control.
using ObjectRef = std::shared_ptr<AutomationObject>;

/// A value that crosses the border between the control and its host.
///
/// The conversions follow one set of rules everywhere: booleans count as -1 and 0, a number is rounded to the nearest
/// whole number (halves to the even one). In a text, where both "." and "," occur, the last one is the decimal mark and
/// the other one groups digits by three; the one that occurs alone is the decimal mark if it occurs once, else it
/// groups. A conversion that cannot be made throws AutomationError with the code TypeMismatch, one that leaves the
/// range of the target throws Overflow.
class PLANVIEW_EXPORT Variant {
public:
    /// What a value holds. `Nothing` is an object reference that refers to no object, `Empty` no value at all.
    enum class Kind : std::uint8_t { Empty, Nothing, Boolean, Int16, Int32, Double, Text, Object };

    Variant() noexcept = default;
    /// @{
    /// Of the kind of the argument; texts are UTF-8.
    Variant(bool value) noexcept : value_(value) {}
    Variant(std::int16_t value) noexcept : value_(value) {}
    Variant(std::int32_t value) noexcept : value_(value) {}
    Variant(double value) noexcept : value_(value) {}
    Variant(std::string value) noexcept : value_(std::move(value)) {}
    Variant(std::string_view value) : value_(std::in_place_type<std::string>, value) {}
    Variant(const char* value) : value_(std::in_place_type<std::string>, value) {}
    /// @}
    /// @{
    /// A null reference becomes Nothing.
    Variant(ObjectRef object) noexcept;
    template <class Object, class = std::enable_if_t<std::is_base_of_v<AutomationObject, Object>>>
    Variant(std::shared_ptr<Object> object) noexcept : Variant(ObjectRef(std::move(object))) {}
    /// @}

    /// The object reference that refers to no object.
    [[nodiscard]] static Variant Nothing() noexcept { return Variant(ObjectRef()); }

    /// The kind that the value was made with; converting does not change it.
    [[nodiscard]] Kind GetKind() const noexcept { return static_cast<Kind>(value_.index()); }
    /// Whether there is no value. The empty text is one.
    [[nodiscard]] bool IsEmpty() const noexcept { return GetKind() == Kind::Empty; }

    /// The text itself when the value is a text, else a null pointer. For readers that must not copy.
    [[nodiscard]] const std::string* TextIf() const noexcept { return std::get_if<std::string>(&value_); }

    /// @{
    /// The value as this kind, converted by the rules above; Empty counts as 0.
    [[nodiscard]] bool AsBoolean() const;
    [[nodiscard]] std::int16_t AsInt16() const;
    [[nodiscard]] std::int32_t AsInt32() const;
    [[nodiscard]] double AsDouble() const;
    /// @}
    /// Empty gives the empty text, booleans give "True" or "False", numbers use the decimal mark ".".
    [[nodiscard]] std::string AsText() const;
    /// Nothing gives a null reference; every other kind but Object is a TypeMismatch.
    [[nodiscard]] ObjectRef AsObject() const;

    /// Equal are values of the same kind only: the number 1 is not the text "1".
    friend bool operator==(const Variant& left, const Variant& right) noexcept { return left.value_ == right.value_; }

private:
    struct NothingTag {
        friend bool operator==(NothingTag, NothingTag) noexcept { return true; }
    };
    // The order of the alternatives is the order of Kind.
    std::variant<std::monostate, NothingTag, bool, std::int16_t, std::int32_t, double, std::string, ObjectRef> value_;
};

}  // namespace planview
