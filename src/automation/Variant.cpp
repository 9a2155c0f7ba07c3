// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/AutomationObject.h>
#include <planview/Variant.h>

#include "automation/Numbers.h"

namespace planview {

namespace {

[[noreturn]] void ThrowMismatch(const char* wanted) {
    throw AutomationError(AutomationErrorCode::TypeMismatch, std::string("Type mismatch: a ") + wanted + " is needed");
}

}  // namespace

Variant::Variant(ObjectRef object) noexcept {
    if (object) {
        value_ = std::move(object);
    } else {
        value_ = NothingTag{};
    }
}

bool Variant::AsBoolean() const {
    if (const std::string* text = TextIf()) {
        if (*text == "True") {
            return true;
        }
        if (*text == "False") {
            return false;
        }
    }
    return AsDouble() != 0;
}

std::int16_t Variant::AsInt16() const {
    if (const auto* number = std::get_if<std::int16_t>(&value_)) {
        return *number;
    }
    const auto* number = std::get_if<std::int32_t>(&value_);
    if (number && std::in_range<std::int16_t>(*number)) {
        return static_cast<std::int16_t>(*number);
    }
    return RoundToInt16(AsDouble());
}

std::int32_t Variant::AsInt32() const {
    if (const auto* number = std::get_if<std::int32_t>(&value_)) {
        return *number;
    }
    if (const auto* number = std::get_if<std::int16_t>(&value_)) {
        return *number;
    }
    return RoundToInt32(AsDouble());
}

double Variant::AsDouble() const {
    switch (GetKind()) {
        case Kind::Empty:
            return 0;
        case Kind::Boolean:
            return std::get<bool>(value_) ? -1 : 0;
        case Kind::Int16:
            return std::get<std::int16_t>(value_);
        case Kind::Int32:
            return std::get<std::int32_t>(value_);
        case Kind::Double:
            return std::get<double>(value_);
        case Kind::Text:
            return ParseNumber(std::string_view(std::get<std::string>(value_)));
        case Kind::Nothing:
        case Kind::Object:
            break;
    }
    ThrowMismatch("number");
}

std::string Variant::AsText() const {
    switch (GetKind()) {
        case Kind::Empty:
            return {};
        case Kind::Boolean:
            return std::get<bool>(value_) ? "True" : "False";
        case Kind::Int16:
            return std::to_string(std::get<std::int16_t>(value_));
        case Kind::Int32:
            return std::to_string(std::get<std::int32_t>(value_));
        case Kind::Double:
            return NumberText(std::get<double>(value_));
        case Kind::Text:
            return std::get<std::string>(value_);
        case Kind::Nothing:
        case Kind::Object:
            break;
    }
    ThrowMismatch("text");
}

ObjectRef Variant::AsObject() const {
    switch (GetKind()) {
        case Kind::Object:
            return std::get<ObjectRef>(value_);
        case Kind::Nothing:
            return nullptr;
        default:
            ThrowMismatch("object");
    }
}

}  // namespace planview
