// SPDX-License-Identifier: MIT
#include "components/GridAttributes.h"

#include <cmath>
#include <limits>

namespace planview {

namespace {

constexpr auto FirstCellOnly = GridAttribute::Contents;
constexpr auto FirstTrackOnly = GridAttribute::Hidden;
constexpr auto FirstGridOnly = GridAttribute::GridLineColor;
constexpr auto LastGridOnly = GridAttribute::Switched;

}  // namespace

bool HasAttribute(GridElement element, GridAttribute attribute) noexcept {
    if (attribute < FirstCellOnly) {
        return true;
    }
    if (attribute < FirstTrackOnly) {
        return element == GridElement::Cell;
    }
    if (attribute < FirstGridOnly) {
        return element == GridElement::Column || element == GridElement::Row;
    }
    return attribute <= LastGridOnly && element == GridElement::Grid;
}

GridStatus UndefinedAttribute(GridElement element) noexcept {
    switch (element) {
        case GridElement::Grid:
            return GridStatus::UndefinedGridAttribute;
        case GridElement::Column:
            return GridStatus::UndefinedColumnAttribute;
        case GridElement::Row:
            return GridStatus::UndefinedRowAttribute;
        case GridElement::Cell:
            break;
    }
    return GridStatus::UndefinedCellAttribute;
}

std::optional<bool> ReadFlag(const Variant& value) {
    switch (value.GetKind()) {
        case Variant::Kind::Boolean:
        case Variant::Kind::Int16:
        case Variant::Kind::Int32:
            return value.AsInt32() != 0;
        case Variant::Kind::Double:
            return value.AsDouble() != 0;
        case Variant::Kind::Text:
            if (*value.TextIf() == "X") {
                return true;
            }
            if (value.TextIf()->empty()) {
                return false;
            }
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

std::optional<std::int32_t> ReadNumber(const Variant& value, std::int32_t least, std::int32_t most) {
    switch (value.GetKind()) {
        case Variant::Kind::Int16:
        case Variant::Kind::Int32:
            break;
        case Variant::Kind::Double:
            // No attribute exceeds 16 bits; larger values, and what is no number at all, do not convert.
            if (!(std::abs(value.AsDouble()) <= std::numeric_limits<std::int16_t>::max())) {
                return std::nullopt;
            }
            break;
        default:
            return std::nullopt;
    }
    const std::int32_t number = value.AsInt32();
    return number >= least && number <= most ? std::optional(number) : std::nullopt;
}

std::optional<bool> ReadPermission(const Variant& value) {
    if (value.GetKind() == Variant::Kind::Boolean) {
        return value.AsBoolean();
    }
    const std::optional<std::int32_t> number = ReadNumber(value, 0, 1);
    return number ? std::optional(*number == 1) : std::nullopt;
}

}  // namespace planview
