// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

namespace planview {

/// A spreadsheet number code made ready for use.
///
/// Understood are up to four sections divided by ";": positive numbers (and zero, and all others that have no section
/// of their own), negative numbers, zero, texts. A section has the digits "0", "#" and "?" with one decimal mark "."
/// and the group mark "," between digits; or "General", a number as it is; or only a text; or, for texts, "@". Before
/// and behind stand "%" (shows a hundred times the value), texts in quotes, "\x", the signs "+", "-", "(", ")", "$",
/// blank and every character beyond ASCII, "[$€-407]", "_x" (a blank), "*x" (nothing) and a colour ("[Red]").
///
/// The result uses "," as the decimal mark and "." between groups: 1234.5 by "#,##0.0" is "1.234,5".
class PLANVIEW_EXPORT NumberFormat {
public:
    /// No value when the code is none of the above. An empty code is none.
    [[nodiscard]] static std::optional<NumberFormat> Parse(std::string_view code);

    /// Rounds the number's 15 significant decimal digits, halves away from zero, as people do it on paper: 1.005 by
    /// "0.00" is "1,01". A number that rounds to zero is shown as zero is. One of more than 15
    /// digits before the mark is shown with an exponent in the place of its digits ("1,5E+20"). The empty text for no
    /// finite number.
    [[nodiscard]] std::string Format(double value) const;
    /// A text by the section for texts; as it is without one.
    [[nodiscard]] std::string FormatText(std::string_view text) const;
    /// Whether Format() shows the number as one below zero, which it does not where it rounds to zero.
    [[nodiscard]] bool ShowsNegative(double value) const;
    /// The colour that the code itself asks for.
    enum class Color : std::uint8_t { None, Red, Other };
    [[nodiscard]] Color ColorOf(double value) const;

    [[nodiscard]] const std::string& Code() const noexcept { return code_; }
    /// The number of digits behind the decimal mark, counted in what is shown; no value where numbers are shown as they
    /// are or not at all.
    [[nodiscard]] std::optional<int> Decimals() const noexcept;
    [[nodiscard]] bool ShowsPercent() const noexcept { return positive_.percent; }
    /// Whether numbers of that sign are shown with "." between groups.
    [[nodiscard]] bool Groups(bool negative) const noexcept { return SectionOf(negative ? -1 : 1).grouped; }
    /// The least number of digits before the decimal mark.
    [[nodiscard]] int MinimumDigits(bool negative) const noexcept { return SectionOf(negative ? -1 : 1).minimumDigits; }

    /// The digits in a text that this code may have shown.
    struct ShownDigits {
        std::string_view digits;
        bool negative = false;
        bool percent = false;
    };
    /// The digits within the texts of each section that has texts round them and fits; they may have a sign of their
    /// own. `text` has no blanks round it and a keyboard's blanks and minus (KeyboardText()).
    [[nodiscard]] std::vector<ShownDigits> DigitsIn(std::string_view text) const;

private:
    struct Section {
        enum class Kind : std::uint8_t { Digits, General, Literal, Text };
        Kind kind = Kind::Digits;
        Color color = Color::None;
        std::string prefix;
        std::string suffix;
        int minimumDigits = 1;
        int decimals = 0;
        int minimumDecimals = 0;
        bool grouped = false;
        bool percent = false;
        bool decimalMark = false;
    };
    struct Digits;

    [[nodiscard]] static std::vector<std::string_view> SectionsOf(std::string_view code);
    [[nodiscard]] static std::optional<Section> ParseSection(std::string_view code);
    [[nodiscard]] static bool TakeLiterals(std::string_view& code, std::string& literals, Section& section);
    [[nodiscard]] static bool TakeBracket(std::string_view& code, std::string& literals, Section& section);
    [[nodiscard]] static bool ParseDigits(std::string_view code, Section& section);
    [[nodiscard]] static Digits RoundedDigits(const Section& section, double magnitude);
    [[nodiscard]] static std::string FormatLarge(const Section& section, double value);
    static void Append(std::string& text, const Section& section, const Digits& digits);
    [[nodiscard]] const Section& SectionOf(double value) const noexcept;

    std::string code_;
    Section positive_;
    std::optional<Section> negative_;
    std::optional<Section> zero_;
    std::optional<Section> text_;
};

}  // namespace planview
