// SPDX-License-Identifier: MIT
#include "components/chart/ChartState.h"

#include <algorithm>

namespace planview {

std::string ChartState::ValueFormat() const {
    const std::string* common = nullptr;
    for (const ChartSeries& each : series) {
        if (IsShareType(each.type)) {
            continue;
        }
        if (common && *common != each.format) {
            return {};
        }
        common = &each.format;
    }
    return common ? *common : std::string();
}

int ChartState::VisibleCount() const noexcept {
    const int asked = categoryAxis.visibleCategories;
    return asked <= 0 ? CategoryCount() : std::min(asked, CategoryCount());
}

int ChartState::FirstVisible() const noexcept {
    const int last = CategoryCount() - VisibleCount() + 1;
    return std::clamp(static_cast<int>(categoryAxis.startAtCategory), 1, std::max(1, last));
}

}  // namespace planview
