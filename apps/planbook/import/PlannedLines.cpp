// SPDX-License-Identifier: MIT
#include "import/PlannedLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "import/CsvNumbers.h"

namespace planbook {

namespace {

/// A rounding that would leave the range of numbers leaves the number as it is.
double Rounded(double number, int decimals) {
    const double unit = std::pow(10.0, decimals);
    const double rounded = std::round(number * unit) / unit;
    return std::isfinite(rounded) ? rounded : number;
}

void ChartFirstLines(std::vector<PlannedLine>& lines) {
    int free = 3;
    for (PlannedLine& line : lines) {
        if (line.IsEditable() && free-- > 0) {
            line.name.chart = ChartUse::Line;
        }
    }
}

}  // namespace

PlannedLine::PlannedLine(LineName lineName, const SourceLine& source)
    : name(std::move(lineName)), values(&source.values) {
    double sum = 0;
    int count = 0;
    for (const std::optional<double>& value : source.values) {
        if (value) {
            sum += *value;
            ++count;
            decimals = std::max(decimals, std::min(DecimalsOf(*value), MaxDecimals));
        }
    }
    if (count > 0 && std::isfinite(sum)) {
        mean = Rounded(sum / count, MeanDecimals());
    }
}

int PlannedLine::MeanDecimals() const noexcept {
    return std::max(decimals, 1);
}

std::vector<PlannedLine> PlanLines(const SourceTable& source, const NamesFile& names) {
    std::vector<PlannedLine> lines;
    lines.reserve(source.lines.size());
    std::vector<bool> named(source.lines.size());
    for (const LineName& name : names.lines) {
        for (std::size_t i = 0; i < source.lines.size(); ++i) {
            if (source.lines[i].name == name.column) {
                lines.emplace_back(name, source.lines[i]);
                named[i] = true;
            }
        }
    }
    for (std::size_t i = 0; i < source.lines.size(); ++i) {
        if (!named[i]) {
            const std::string& column = source.lines[i].name;
            lines.emplace_back(LineName{column, ReadableName(column), LineKind::Plain, names.unit}, source.lines[i]);
        }
    }
    if (!names.chart.shown) {
        ChartFirstLines(lines);
    }
    return lines;
}

}  // namespace planbook
