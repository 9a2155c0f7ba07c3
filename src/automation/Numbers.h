// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <planview/Export.h>
#include <planview/Variant.h>

namespace planview {

/// The decimal mark that the grid shows and that its contents are kept with.
inline constexpr char GridDecimalMark = ',';

/// Reads a number the way every part of the control does.
///
/// Blanks around it are allowed, also a sign and an exponent ("1E+20"). A blank between digits groups them; it may be
/// one that does not break a line, and the minus may be the mathematical one. When both "." and "," occur, the last one
/// is the decimal mark and the other one groups digits; when only one of them occurs once, it is the decimal mark; when
/// it occurs more often, it groups. Groups must be of three digits, the first of one to three.
[[nodiscard]] PLANVIEW_EXPORT std::optional<double> TryParseNumber(std::string_view text) noexcept;

/// As TryParseNumber(); throws TypeMismatch where that gives no value.
[[nodiscard]] PLANVIEW_EXPORT double ParseNumber(std::string_view text);

/// A number variant as it is, Empty as 0, a boolean as -1 or 0, a text by the rules above.
[[nodiscard]] PLANVIEW_EXPORT double ParseNumber(const Variant& value);

/// The text with a keyboard's blank and minus for those of typesetters, as TryParseNumber() takes them.
[[nodiscard]] std::string KeyboardText(std::string_view text);

/// The number with at most 15 significant digits and without an exponent where a plain number of at most 15 digits
/// before the mark shows it whole. Throws TypeMismatch for what is no finite number.
[[nodiscard]] PLANVIEW_EXPORT std::string NumberText(double value, char decimalMark = '.');

/// The nearest whole number, halves to the even one; Overflow outside the 16-bit range.
[[nodiscard]] PLANVIEW_EXPORT std::int16_t RoundToInt16(double value);
[[nodiscard]] PLANVIEW_EXPORT std::int32_t RoundToInt32(double value);

}  // namespace planview
