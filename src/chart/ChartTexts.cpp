// SPDX-License-Identifier: MIT
#include "chart/ChartTexts.h"

#include "chart/ChartMarks.h"

namespace planview {

namespace {

std::string English(ChartText text) {
    switch (text) {
        case ChartText::StackedView:
            return "stacked";
        case ChartText::StackedView100:
            return "shares in percent";
        case ChartText::Title:
            return "Chart";
        case ChartText::StandardView:
            return "values by period";
        case ChartText::NoForecastLine:
            return "No line is chosen as the forecast. Click the heading of the line to compare with.";
        case ChartText::NoSalesLine:
            return "No line is chosen as the sales. Click the heading of the line that holds them.";
    }
    return {};
}

}  // namespace

std::string TextOf(const HostTable& texts, ChartText text) {
    const std::string entry = std::to_string(static_cast<std::int16_t>(text));
    if (texts.IsSet()) {
        const int count = texts.RowCount();
        for (int row = 1; row <= count; ++row) {
            const auto at = static_cast<HostTable::Row>(row);
            if (!FieldIs(texts, at, "ENTRY", entry)) {
                continue;
            }
            if (!FieldIs(texts, at, "TEXT", "")) {
                return texts.Text(at, "TEXT");
            }
        }
    }
    return English(text);
}

}  // namespace planview
