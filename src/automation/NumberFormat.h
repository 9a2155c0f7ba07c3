// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <planview/Export.h>

namespace planview {

/// A spreadsheet number code made ready for use.
///
/// Understood are the digits "0" and "#", one decimal mark ".", the group mark "," between digits, "%" (shows a hundred
/// times the value), texts in quotes and the signs "+", "-", "(", ")" and blank before and behind the digits, and up to
/// two sections divided by ";" (positive and zero; negative). The result uses "," as the decimal mark and "." between
/// groups: 1234.5 by "#,##0.0" is "1.234,5".
class PLANVIEW_EXPORT NumberFormat {
public:
    /// No value when the code is none of the above. An empty code is none.
    [[nodiscard]] static std::optional<NumberFormat> Parse(std::string_view code);

    /// Rounds the number's 15 significant decimal digits, halves away from zero, as people do it on paper: 1.005 by
    /// "0.00" is "1,01". A number that rounds to zero is shown without a sign. One of more than 15
    /// digits before the mark is shown with an exponent in the place of its digits ("1,5E+20"). The empty text for no
    /// finite number.
    [[nodiscard]] std::string Format(double value) const;
    [[nodiscard]] const std::string& Code() const noexcept { return code_; }
    /// The number of digits behind the decimal mark, counted in what is shown.
    [[nodiscard]] int Decimals() const noexcept { return positive_.decimals; }

private:
    struct Section {
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

    [[nodiscard]] static std::optional<Section> ParseSection(std::string_view code);
    [[nodiscard]] static bool ParseDigits(std::string_view code, Section& section);
    [[nodiscard]] static Digits RoundedDigits(const Section& section, double magnitude);
    [[nodiscard]] static std::string FormatLarge(const Section& section, double value);
    static void Append(std::string& text, const Section& section, const Digits& digits);

    std::string code_;
    Section positive_;
    std::optional<Section> negative_;
};

}  // namespace planview
