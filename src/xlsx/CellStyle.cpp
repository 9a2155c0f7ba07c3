// SPDX-License-Identifier: MIT
#include "xlsx/CellStyle.h"

#include <algorithm>
#include <string>

#include <planview/AutomationObject.h>

namespace planview::xlsx {

namespace {

// What a file may hold at most is 64,000.
constexpr std::size_t MostStyles = 60'000;

}  // namespace

CellStyle Apply(CellStyle style, StyleChange change) {
    switch (change.property) {
        case StyleProperty::FontSize:
            style.fontSize = change.value;
            break;
        case StyleProperty::NumberFormat:
            style.numberFormat = static_cast<std::uint16_t>(change.value);
            break;
        case StyleProperty::Fill:
            style.fill = static_cast<std::uint8_t>(change.value);
            break;
        case StyleProperty::BorderColor:
            style.borderColor = static_cast<std::uint8_t>(change.value);
            // A colour alone would show nothing.
            style.border = style.border == LineStyle::None ? LineStyle::Thin : style.border;
            break;
        case StyleProperty::Border:
            style.border = static_cast<LineStyle>(static_cast<int>(change.value));
            break;
        case StyleProperty::Alignment:
            style.alignment = static_cast<Alignment>(static_cast<int>(change.value));
            break;
        case StyleProperty::Bold:
            style.bold = change.value != 0;
            break;
        case StyleProperty::Locked:
            style.locked = change.value != 0;
            break;
    }
    return style;
}

StyleId StyleTable::Remember(StyleId from, StyleChange change) {
    const CellStyle style = Apply(styles_[from], change);
    const auto known = std::find(styles_.begin(), styles_.end(), style);
    const auto to = static_cast<StyleId>(known - styles_.begin());
    if (known == styles_.end()) {
        if (styles_.size() == MostStyles) {
            throw AutomationError(AutomationErrorCode::Failed, "A workbook cannot hold more than " +
                                                                   std::to_string(MostStyles) + " different formats");
        }
        styles_.push_back(style);
    }
    steps_[SlotOf(from, change)] = {change.value, from, to, change.property};
    return to;
}

}  // namespace planview::xlsx
