// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace planview::xlsx {

enum class Alignment : std::uint8_t { General, Left, Center, Right };

enum class LineStyle : std::uint8_t { None, Thin, Double, Dash, Dot, DashDot, DashDotDot, SlantDashDot };

/// How one cell looks and whether it is locked.
struct CellStyle {
    double fontSize = 11;            ///< in points
    std::uint16_t numberFormat = 0;  ///< into Workbook::NumberFormats(); 0 is "General"
    std::uint8_t fill = 0;           ///< palette index, 0 for none
    std::uint8_t borderColor = 0;    ///< palette index, 0 for automatic
    LineStyle border = LineStyle::None;
    Alignment alignment = Alignment::General;
    bool bold = false;
    bool locked = true;

    friend bool operator==(const CellStyle&, const CellStyle&) = default;
};

enum class StyleProperty : std::uint8_t { FontSize, NumberFormat, Fill, BorderColor, Border, Alignment, Bold, Locked };

/// One property with its new value, the number by which CellStyle keeps it.
struct StyleChange {
    StyleProperty property;
    double value;
};

[[nodiscard]] CellStyle Apply(CellStyle style, StyleChange change);

using StyleId = std::uint16_t;

/// The styles of one workbook. Equal ones share a number; 0 is the style of an untouched cell.
class StyleTable {
public:
    StyleTable() : styles_(1) {}

    [[nodiscard]] const CellStyle& operator[](StyleId id) const { return styles_[id]; }
    [[nodiscard]] std::size_t Size() const noexcept { return styles_.size(); }

    /// The number of the style `from` with this change. Throws AutomationError where a workbook would hold too many.
    [[nodiscard]] StyleId Changed(StyleId from, StyleChange change) {
        const Step& step = steps_[SlotOf(from, change)];
        return step.from == from && step.property == change.property && step.value == change.value
                   ? step.to
                   : Remember(from, change);
    }

private:
    /// A change that was made before: a sheet makes the same few for each of its cells.
    struct Step {
        double value = 0;
        StyleId from = 0;
        StyleId to = 0;
        StyleProperty property{};
    };
    static constexpr std::size_t StepCount = 64;

    [[nodiscard]] static std::size_t SlotOf(StyleId from, StyleChange change) noexcept {
        return (from * std::size_t{13} + static_cast<std::size_t>(change.property) * 5 +
                static_cast<std::size_t>(static_cast<std::int64_t>(change.value))) %
               StepCount;
    }
    StyleId Remember(StyleId from, StyleChange change);

    std::vector<CellStyle> styles_;
    std::array<Step, StepCount> steps_ = FirstSteps();

    /// Style 0 changed by its own font size stays style 0: the one thing that is known from the start.
    [[nodiscard]] static std::array<Step, StepCount> FirstSteps() {
        std::array<Step, StepCount> steps{};
        steps.fill({CellStyle{}.fontSize, 0, 0, StyleProperty::FontSize});
        return steps;
    }
};

}  // namespace planview::xlsx
