// SPDX-License-Identifier: MIT
#pragma once

#include "qt/chart/ChartView.h"

namespace planview {

struct ChartView::Drawn {
    Drawn(const ChartScene& given, std::uint64_t givenVersion)
        : scene(given), version(givenVersion), layout(scene), painter(scene, layout) {}
    Drawn(const Drawn&) = delete;
    Drawn& operator=(const Drawn&) = delete;

    ChartScene scene;
    std::uint64_t version;
    ChartLayout layout;
    ChartPainter painter;
};

}  // namespace planview
