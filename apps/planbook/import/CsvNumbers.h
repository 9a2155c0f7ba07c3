// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace planbook {

enum class DecimalMark { Automatic, Point, Comma };

/// What a number's own text says about the mark that the whole file uses.
enum class MarkEvidence {
    None,           ///< no mark in it, or no number
    Point,          ///< can only be read with the decimal point
    Comma,          ///< can only be read with the decimal comma
    EitherByPoint,  ///< "1.234": a fraction by the decimal point, thousands by the decimal comma
    EitherByComma   ///< "1,234"
};

[[nodiscard]] MarkEvidence JudgeMark(std::string_view number) noexcept;

/// Reads a number by one decimal mark; the other mark groups three digits. No value for anything else.
/// `mark` is Point or Comma.
[[nodiscard]] std::optional<double> ReadNumber(std::string_view text, DecimalMark mark);

/// Digits behind the decimal mark that the number needs.
[[nodiscard]] int DecimalsOf(double number);

/// The number with "," as its decimal mark, as the grid holds it.
[[nodiscard]] std::string GridNumber(double number);

}  // namespace planbook
