// SPDX-License-Identifier: MIT
#include "grid/CellText.h"

#include <optional>

#include "automation/Numbers.h"
#include "trace/modPlan.h"

namespace planview {

std::string CellText(const Variant& value) {
    const std::string* text = value.TextIf();
    if (value.IsEmpty() || (text && text->empty())) {
        return {};
    }
    return modPlan::ReplacePoint(NumberText(ParseNumber(value)));
}

std::string QuietCellText(const Variant& value) {
    const std::string* text = value.TextIf();
    if (value.IsEmpty()) {
        return {};
    }
    const std::optional<double> number = text ? TryParseNumber(*text) : ParseNumber(value);
    return number ? NumberText(*number, GridDecimalMark) : *text;
}

}  // namespace planview
