// SPDX-License-Identifier: MIT
#include "book/CellValue.h"

#include <planview/AutomationObject.h>

namespace planbook {

using planview::Variant;

namespace {

bool IsBlank(const Variant& value) {
    const std::string* text = value.TextIf();
    return value.IsEmpty() || (text && text->find_first_not_of(" \t") == std::string::npos);
}

bool IsWholeNumber(const Variant& value) {
    return value.GetKind() == Variant::Kind::Int16 || value.GetKind() == Variant::Kind::Int32 ||
           value.GetKind() == Variant::Kind::Boolean;
}

}  // namespace

std::optional<double> NumberOf(const Variant& value) {
    if (IsBlank(value)) {
        return std::nullopt;
    }
    try {
        return value.AsDouble();
    } catch (const planview::AutomationError&) {
        return std::nullopt;
    }
}

bool SameValue(const Variant& left, const Variant& right) {
    if (left == right || (IsBlank(left) && IsBlank(right))) {
        return true;
    }
    const std::optional<double> number = NumberOf(left);
    return number && number == NumberOf(right);
}

bool StoredAlike(const Variant& left, const Variant& right) {
    return left == right || (IsWholeNumber(left) && IsWholeNumber(right) && left.AsInt32() == right.AsInt32());
}

}  // namespace planbook
