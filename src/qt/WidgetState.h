// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "grid/KeptView.h"
#include "layout/PaneLayout.h"

namespace planview {

/// What PlanViewWidget::saveState() puts away.
struct WidgetState {
    KeptView grid;
    std::array<int, SplitterCount> splitters{};
    double scale = 1;
    std::vector<std::pair<std::string, bool>> nodes;  ///< of the macro tree that have others below: key, open
};

[[nodiscard]] QByteArray toBytes(const WidgetState& state);
/// No value for bytes that are not, to the last one, what toBytes() has made.
[[nodiscard]] std::optional<WidgetState> widgetStateFrom(const QByteArray& bytes);

}  // namespace planview
