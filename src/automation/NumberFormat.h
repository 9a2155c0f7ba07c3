#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace planview {

/// A spreadsheet number code made ready for use.
///
/// Understood are the digits "0" and "#", one decimal mark ".", the group mark "," between digits, "%" (shows a hundred
/// times the value), texts in quotes and the signs "+", "-", "(", ")" and blank before and behind the digits, and up to
/// two sections divided by ";" (positive and zero; negative). The result uses "," as the decimal mark and "." between
/// groups: 1234.5 by "#,##0.0" is "1.234,5".
class NumberFormat {
public:
    /// No value when the code is none of the above. An empty code is none.
    [[nodiscard]] static std::optional<NumberFormat> Parse(std::string_view code);

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
    };
    [[nodiscard]] static std::optional<Section> ParseSection(std::string_view code);
    [[nodiscard]] static std::string FormatSection(const Section& section, double magnitude);

    std::string code_;
    Section positive_;
    std::optional<Section> negative_;
};

}  // namespace planview
