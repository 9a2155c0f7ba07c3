// SPDX-License-Identifier: MIT
#include "automation/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <span>
#include <utility>

#include <planview/AutomationObject.h>

#include "automation/Texts.h"

namespace planview {

namespace {

constexpr int SignificantDigits = 15;
/// Decimals beyond these make a number so small that only an exponent shows it.
constexpr int MaxPlainDecimals = 20;
/// Longer texts are no numbers that anybody entered; the bound keeps the reader's buffer on the stack.
constexpr std::size_t MaxNumberLength = 400;
constexpr std::string_view NumberBlanks = " \t";

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

struct Marks {
    char decimal = '\0';
    char group = '\0';
};

/// Which of "." and "," is the decimal mark and which groups; no value when the text uses them in no known way.
std::optional<Marks> FindMarks(std::string_view mantissa) noexcept {
    const auto points = std::count(mantissa.begin(), mantissa.end(), '.');
    const auto commas = std::count(mantissa.begin(), mantissa.end(), ',');
    if (mantissa.find(' ') != std::string_view::npos) {
        // A blank is never a decimal mark, so a single other mark is.
        return points + commas > 1 ? std::nullopt
                                   : std::optional(Marks{points > 0   ? '.'
                                                         : commas > 0 ? ','
                                                                      : '\0',
                                                         ' '});
    }
    if (points > 0 && commas > 0) {
        const bool pointIsLast = mantissa.rfind('.') > mantissa.rfind(',');
        if ((pointIsLast ? points : commas) != 1) {
            return std::nullopt;
        }
        return pointIsLast ? Marks{'.', ','} : Marks{',', '.'};
    }
    if (points + commas == 0) {
        return Marks{};
    }
    const char mark = points > 0 ? '.' : ',';
    return points + commas == 1 ? Marks{mark, '\0'} : Marks{'\0', mark};
}

/// Whether the digits before the decimal mark form groups of three, the first of one to three.
bool GroupsAreRegular(std::string_view whole, char group) noexcept {
    const std::size_t first = whole.find(group);
    if (first == std::string_view::npos) {
        return true;
    }
    if (first < 1 || first > 3) {
        return false;
    }
    constexpr std::size_t GroupLength = 4;  // the mark and three digits
    const std::string_view rest = whole.substr(first);
    if (rest.size() % GroupLength != 0) {
        return false;
    }
    for (std::size_t i = 0; i < rest.size(); ++i) {
        if ((rest[i] == group) != (i % GroupLength == 0)) {
            return false;
        }
    }
    return true;
}

/// The length of the mantissa: everything before "E" or "e".
std::size_t MantissaLength(std::string_view text) noexcept {
    const std::size_t exponent = text.find_first_of("eE");
    return exponent == std::string_view::npos ? text.size() : exponent;
}

/// The value of up to 15 digits with at most one mark among them ("15284,7"), as nearly all numbers are; no value for
/// any other text, number or not. The digits and the power of ten are whole numbers that a double holds exactly, so
/// that their quotient is the nearest one to what is written.
std::optional<double> ShortNumber(std::string_view text) noexcept {
    constexpr std::array<double, SignificantDigits + 1> Powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    if (text.size() > SignificantDigits + 1) {
        return std::nullopt;
    }
    std::int64_t digits = 0;
    std::size_t count = 0;
    std::size_t beforeMark = 0;
    bool hasMark = false;
    for (const char c : text) {
        if (IsDigit(c)) {
            digits = digits * 10 + (c - '0');
            ++count;
        } else if ((c == '.' || c == ',') && !hasMark) {
            hasMark = true;
            beforeMark = count;
        } else {
            return std::nullopt;
        }
    }
    if (count == 0 || count > SignificantDigits) {
        return std::nullopt;
    }
    const auto value = static_cast<double>(digits);
    return hasMark ? value / Powers[count - beforeMark] : value;
}

/// Writes the text with a keyboard's blank and minus for those of typesetters, and answers where it ends. `plain` has
/// room for the text itself.
char* WriteKeyboardText(std::string_view text, char* plain) noexcept {
    constexpr std::pair<std::string_view, char> Known[] = {
        {"\u00A0", ' '}, {"\u202F", ' '}, {"\u2009", ' '}, {"\u2212", '-'}};
    while (!text.empty()) {
        const auto* mark = std::find_if(std::begin(Known), std::end(Known),
                                        [&](const auto& known) { return text.starts_with(known.first); });
        const bool known = mark != std::end(Known);
        *plain++ = known ? mark->second : text.front();
        text.remove_prefix(known ? mark->first.size() : 1);
    }
    return plain;
}

bool IsAscii(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// The same in `plain`; a text without such characters is given back as it is.
std::string_view WithPlainMarks(std::string_view text, std::span<char, MaxNumberLength> plain) noexcept {
    if (IsAscii(text)) {
        return text;
    }
    const char* const end = WriteKeyboardText(text, plain.data());
    return {plain.data(), static_cast<std::size_t>(end - plain.data())};
}

/// As TryParseNumber(), of a text without blanks around it.
std::optional<double> ParsePlain(std::string_view text) noexcept {
    if (text.empty()) {
        return std::nullopt;
    }
    bool negative = false;
    if (text.front() == '+' || text.front() == '-') {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    if (const std::optional<double> number = ShortNumber(text)) {
        return negative ? -*number : *number;
    }
    const std::size_t mantissaLength = MantissaLength(text);
    const std::string_view mantissa = text.substr(0, mantissaLength);
    const std::optional<Marks> marks = FindMarks(mantissa);
    if (!marks) {
        return std::nullopt;
    }
    const std::size_t decimal = marks->decimal != '\0' ? mantissa.find(marks->decimal) : std::string_view::npos;
    if (marks->group != '\0' && !GroupsAreRegular(mantissa.substr(0, decimal), marks->group)) {
        return std::nullopt;
    }

    std::array<char, MaxNumberLength> plain;  // as far as it is written
    std::size_t length = 0;
    bool hasDigits = false;
    for (std::size_t i = 0; i < mantissa.size(); ++i) {
        const char c = mantissa[i];
        if (IsDigit(c)) {
            hasDigits = true;
            plain[length++] = c;
        } else if (i == decimal) {
            plain[length++] = '.';
        } else if (c != marks->group || marks->group == '\0' || i > decimal) {
            return std::nullopt;
        }
    }
    if (!hasDigits) {
        return std::nullopt;
    }
    std::string_view exponent = text.substr(mantissaLength);
    if (exponent.size() > 1 && exponent[1] == '+') {  // from_chars takes no plus sign
        if (exponent.size() == 2 || !IsDigit(exponent[2])) {
            return std::nullopt;
        }
        plain[length++] = 'E';
        exponent.remove_prefix(2);
    }
    length =
        static_cast<std::size_t>(std::copy(exponent.begin(), exponent.end(), plain.data() + length) - plain.data());

    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + length, value);
    if (error != std::errc() || end != plain.data() + length || !std::isfinite(value)) {
        return std::nullopt;
    }
    return negative ? -value : value;
}

}  // namespace

std::optional<double> TryParseNumber(std::string_view text) noexcept {
    text = Trimmed(text, NumberBlanks);
    if (text.size() > MaxNumberLength) {
        return std::nullopt;
    }
    if (const std::optional<double> number = ShortNumber(text)) {
        return number;
    }
    std::array<char, MaxNumberLength> plain;  // as far as it is written
    return ParsePlain(Trimmed(WithPlainMarks(text, plain), NumberBlanks));
}

std::string KeyboardText(std::string_view text) {
    std::string plain(text);
    if (!IsAscii(text)) {
        plain.resize(static_cast<std::size_t>(WriteKeyboardText(text, plain.data()) - plain.data()));
    }
    return plain;
}

double ParseNumber(std::string_view text) {
    if (const std::optional<double> number = TryParseNumber(text)) {
        return *number;
    }
    constexpr std::size_t ShownLength = 40;
    std::string shown(text.substr(0, ShownLength));
    if (text.size() > ShownLength) {
        shown += "...";
    }
    throw AutomationError(AutomationErrorCode::TypeMismatch, "Type mismatch: '" + shown + "' is no number");
}

double ParseNumber(const Variant& value) {
    return value.AsDouble();
}

namespace {

/// The text of a number that has at most two decimals, as nearly all planning values have; empty for any other.
std::string ShortNumberText(double value, char decimalMark) {
    constexpr std::int64_t Scale = 100;
    constexpr double Largest = 1e12;  // times the scale still no more than 15 digits
    const double magnitude = std::abs(value);
    if (!(magnitude < Largest)) {
        return {};
    }
    // A false alarm: only a number near a half could be rounded wrongly, and the comparison turns that one away.
    // NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto scaled = static_cast<std::int64_t>(magnitude * double{Scale} + 0.5);
    if (static_cast<double>(scaled) / double{Scale} != magnitude) {
        return {};
    }
    std::array<char, 24> buffer;
    buffer[0] = '-';
    char* end = buffer.data() + (value < 0 ? 1 : 0);
    end = std::to_chars(end, buffer.data() + buffer.size(), scaled / Scale).ptr;
    if (const auto decimals = static_cast<char>(scaled % Scale); decimals != 0) {
        *end++ = decimalMark;
        *end++ = static_cast<char>('0' + decimals / 10);
        if (decimals % 10 != 0) {
            *end++ = static_cast<char>('0' + decimals % 10);
        }
    }
    return {buffer.data(), end};
}

}  // namespace

std::string NumberText(double value, char decimalMark) {
    if (!std::isfinite(value)) {
        throw AutomationError(AutomationErrorCode::TypeMismatch, "Type mismatch: not a finite number");
    }
    if (value == 0) {
        return "0";
    }
    if (std::string text = ShortNumberText(value, decimalMark); !text.empty()) {
        return text;
    }
    std::array<char, 64> buffer{};
    const auto scientific = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                          std::chars_format::scientific, SignificantDigits - 1);
    std::string_view text(buffer.data(), static_cast<std::size_t>(scientific.ptr - buffer.data()));
    const std::size_t mark = text.find('e');
    std::string digits(1, text[0]);
    digits += text.substr(2, mark - 2);
    digits.erase(digits.find_last_not_of('0') + 1);
    int exponent = 0;
    const bool negativeExponent = text[mark + 1] == '-';
    std::from_chars(text.data() + mark + 2, text.data() + text.size(), exponent);
    exponent = negativeExponent ? -exponent : exponent;

    const int count = static_cast<int>(digits.size());
    std::string result = value < 0 ? "-" : "";
    if (exponent >= SignificantDigits || count - 1 - exponent > MaxPlainDecimals) {
        result += digits[0];
        if (count > 1) {
            result += decimalMark;
            result.append(digits, 1);
        }
        result += exponent < 0 ? "E-" : "E+";
        const std::string power = std::to_string(std::abs(exponent));
        return result + (power.size() < 2 ? "0" : "") + power;
    }
    if (exponent < 0) {
        result += '0';
        result += decimalMark;
        result.append(static_cast<std::size_t>(-exponent - 1), '0');
        return result + digits;
    }
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) {
        result += digits;
        result.append(whole - digits.size(), '0');
        return result;
    }
    result.append(digits, 0, whole);
    result += decimalMark;
    result.append(digits, whole);
    return result;
}

namespace {

/// Rounds halves to the even number, whatever the processor's rounding mode is.
double RoundHalfToEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest != 0.5) {
        return rest < 0.5 ? below : below + 1;
    }
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

template <class Integer>
Integer RoundTo(double value) {
    const double rounded = RoundHalfToEven(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throw AutomationError(AutomationErrorCode::Overflow, "Overflow: the number is too large");
    }
    return static_cast<Integer>(rounded);
}

}  // namespace

std::int16_t RoundToInt16(double value) {
    return RoundTo<std::int16_t>(value);
}

std::int32_t RoundToInt32(double value) {
    return RoundTo<std::int32_t>(value);
}

}  // namespace planview
