// SPDX-License-Identifier: MIT
#include "dialogs/FormControls.h"

#include <algorithm>

#include "automation/Texts.h"
#include "grid/modGrid.h"

namespace planview {

void ListBox::Choose(std::string_view text) {
    auto found = std::find_if(Items.begin(), Items.end(),
                              [&](const std::string& item) { return EqualIgnoringCase(item, text); });
    if (found == Items.end()) {
        found = Items.emplace(Items.end(), text);
    }
    ListIndex = static_cast<int>(found - Items.begin());
}

void ColorBox::Set(int index) noexcept {
    if (index >= 0 && index < modGrid::PaletteSize) {
        index_ = static_cast<std::int16_t>(index);
        hasColor_ = true;
    }
}

void ColorBox::Click(const ColorChooser& choose) {
    const std::optional<int> position = choose ? choose({index_, own_}) : std::nullopt;
    if (position && *position >= 0 && *position < modGrid::PaletteSize) {
        index_ = modGrid::PaletteIndexOf(*position);
        hasColor_ = true;
    }
}

}  // namespace planview
