// SPDX-License-Identifier: MIT
#include "qt/chart/ChartNumbers.h"

#include <QCoreApplication>
#include <cmath>
#include <optional>
#include <string>

#include "automation/NumberFormat.h"
#include "automation/Numbers.h"
#include "components/chart/TrendFit.h"

namespace planview {

namespace {

constexpr double TooLargeForDigits = 1e12;
constexpr int MostDecimals = 10;
constexpr double Percent = 100.0;

QString grouped(double value, const char* code) {
    const std::optional<NumberFormat> format = NumberFormat::Parse(code);
    std::string text = format->Format(value);
    if (text.ends_with(GridDecimalMark)) {
        text.pop_back();  // a number code shows its decimal mark even without decimals
    }
    return QString::fromStdString(text);
}

QString shortNumber(double value) {
    return QString::number(value, 'g', 4).replace(QLatin1Char('.'), QLatin1Char(GridDecimalMark));
}

bool needsExponent(double value) {
    return std::abs(value) >= TooLargeForDigits;
}

std::string fixedCode(int decimals) {
    return decimals <= 0 ? "#,##0" : "#,##0." + std::string(static_cast<std::size_t>(decimals), '0');
}

const ChartSeries& seriesOf(const ChartState& state, int series) {
    return state.series[static_cast<std::size_t>(series - 1)];
}

}  // namespace

QString valueText(const ChartSeries& series, double value) {
    if (const std::optional<NumberFormat> format = NumberFormat::Parse(series.format)) {
        return QString::fromStdString(format->Format(value));
    }
    return limitText(value);
}

QString differenceText(const ChartSeries& series, double difference) {
    const QString size = valueText(series, std::abs(difference));
    const bool isZero = size == valueText(series, 0);
    const QChar sign = difference > 0 ? QLatin1Char('+') : QChar(0x2212);
    return isZero ? size : sign + size;
}

QString shareText(double share, int decimals) {
    return grouped(share, (fixedCode(decimals) + "%").c_str());
}

QString limitText(double value) {
    return needsExponent(value) ? shortNumber(value) : grouped(value, "#,##0.##########");
}

QString pointValueText(const ChartState& state, const ChartStack& stack, int series, int category) {
    const auto at = static_cast<std::size_t>(series - 1);
    const auto place = static_cast<std::size_t>(category - 1);
    const QString value = valueText(state.series[at], state.series[at].values[place]);
    if (!stack.onShares[at]) {
        return value;
    }
    const ChartSpan& span = stack.spans[at][place];
    return value + QStringLiteral(" (") + shareText(span.to - span.from, 1) + QLatin1Char(')');
}

QString shareMarkText(const ChartScale& scale, int index) {
    return shareText(scale.Mark(index), std::max(0, scale.decimals - 2));
}

QString markText(const ChartScale& scale, int index, const std::string& code) {
    const double value = scale.Mark(index);
    const std::optional<NumberFormat> format = NumberFormat::Parse(code);
    const std::optional<int> shown = format ? format->Decimals() : std::nullopt;
    if (shown && *shown + (format->ShowsPercent() ? 2 : 0) >= scale.decimals) {
        return QString::fromStdString(format->Format(value));
    }
    const bool plain = scale.decimals <= MostDecimals && !needsExponent(scale.maximum) && !needsExponent(scale.minimum);
    return plain ? grouped(value, fixedCode(scale.decimals).c_str()) : shortNumber(value);
}

double valueStep(const ChartSeries& series, double valueOfPixel) {
    const std::optional<NumberFormat> format = NumberFormat::Parse(series.format);
    if (const std::optional<int> decimals = format ? format->Decimals() : std::nullopt) {
        return std::pow(10.0, -*decimals) / (format->ShowsPercent() ? Percent : 1.0);
    }
    const double size = std::abs(valueOfPixel);
    return size > 0 && std::isfinite(size) ? std::pow(10.0, std::floor(std::log10(size))) : 1.0;
}

double dragStep(const ChartSeries& series, double valueOfPixel) {
    // A hand aims at two pixels.
    const double least = 2 * std::abs(valueOfPixel);
    const double finest = valueStep(series, valueOfPixel);
    if (!(least > finest) || !std::isfinite(least)) {
        return finest;
    }
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least) {
            return factor * power;
        }
    }
    return 10 * power;
}

double snapped(double value, double step) {
    // Divided by a whole number where that is possible, so that three steps of 0.1 are 0.3.
    const double steps = std::round(value / step);
    if (step >= 1) {
        return steps * step;
    }
    const double parts = std::round(1 / step);
    return steps / parts;
}

QString seriesName(const ChartState& state, int series) {
    const QString caption = QString::fromStdString(seriesOf(state, series).caption).trimmed();
    return caption.isEmpty() ? QCoreApplication::translate("planview::ChartView", "Series %1").arg(series) : caption;
}

QString pointName(const ChartState& state, int series, int category) {
    QString period = QString::fromStdString(state.categories[static_cast<std::size_t>(category - 1)]).trimmed();
    if (period.isEmpty()) {
        period = QString::number(category);
    }
    return seriesName(state, series) + QStringLiteral(", ") + period;
}

QString trendName(const ChartState& state, int series, int trend) {
    const TrendKind kind = seriesOf(state, series).look->trends[static_cast<std::size_t>(trend - 1)]->kind;
    return QCoreApplication::translate("planview::ChartView", TrendKindName(kind)) + QStringLiteral(" (") +
           seriesName(state, series) + QLatin1Char(')');
}

}  // namespace planview
