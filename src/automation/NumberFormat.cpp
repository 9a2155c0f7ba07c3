// SPDX-License-Identifier: MIT
#include "automation/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "automation/Numbers.h"

namespace planview {

namespace {

constexpr int SignificantDigits = 15;
/// From here on a number has more digits before the mark than are known of it.
constexpr double TooLarge = 1e15;
/// More digits than this on either side of the mark are a slip, not a wish; the bound keeps every result short.
constexpr std::size_t MaxPlaceholders = 30;
constexpr std::size_t MaxCodeLength = 255;
constexpr int GroupLength = 3;
constexpr char ShownDecimalMark = ',';
constexpr char ShownGroupMark = '.';

bool IsPlaceholder(char c) noexcept {
    return c == '0' || c == '#';
}

bool IsDigitsPart(char c) noexcept {
    return IsPlaceholder(c) || c == '.' || c == ',';
}

/// Reads signs, quoted texts and "%" from the front of `code` until something else comes. False when a quote is not
/// closed or "%" comes a second time.
bool TakeLiterals(std::string_view& code, std::string& literals, bool& percent) {
    constexpr std::string_view Signs = "+-() ";
    while (!code.empty()) {
        const char c = code.front();
        if (c == '"') {
            const std::size_t end = code.find('"', 1);
            if (end == std::string_view::npos) {
                return false;
            }
            literals += code.substr(1, end - 1);
            code.remove_prefix(end + 1);
            continue;
        }
        if (c == '%') {
            if (percent) {
                return false;
            }
            percent = true;
        } else if (Signs.find(c) == std::string_view::npos) {
            return true;
        }
        literals += c;
        code.remove_prefix(1);
    }
    return true;
}

/// The place of the ";" between two sections, npos without one.
std::size_t FindDivider(std::string_view code) noexcept {
    bool quoted = false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        if (code[i] == '"') {
            quoted = !quoted;
        } else if (code[i] == ';' && !quoted) {
            return i;
        }
    }
    return std::string_view::npos;
}

}  // namespace

/// The decimal digits of a rounded number: `whole` of them stand before the mark, the rest behind it.
struct NumberFormat::Digits {
    // As many as a percentage of a number below TooLarge has before the mark, and the decimals.
    std::array<char, 24 + MaxPlaceholders> text{};
    int count = 0;
    int whole = 0;
    bool isZero = true;
};

std::optional<NumberFormat> NumberFormat::Parse(std::string_view code) {
    if (code.empty() || code.size() > MaxCodeLength) {
        return std::nullopt;
    }
    NumberFormat format;
    const std::size_t divider = FindDivider(code);
    std::optional<Section> positive = ParseSection(code.substr(0, divider));
    if (!positive) {
        return std::nullopt;
    }
    format.positive_ = std::move(*positive);
    if (divider != std::string_view::npos) {
        format.negative_ = ParseSection(code.substr(divider + 1));
        if (!format.negative_) {
            return std::nullopt;
        }
    }
    format.code_ = code;
    return format;
}

std::optional<NumberFormat::Section> NumberFormat::ParseSection(std::string_view code) {
    Section section;
    if (!TakeLiterals(code, section.prefix, section.percent)) {
        return std::nullopt;
    }
    const auto digitsEnd = std::find_if_not(code.begin(), code.end(), IsDigitsPart);
    const auto length = static_cast<std::size_t>(digitsEnd - code.begin());
    if (!ParseDigits(code.substr(0, length), section)) {
        return std::nullopt;
    }
    code.remove_prefix(length);
    if (!TakeLiterals(code, section.suffix, section.percent) || !code.empty()) {
        return std::nullopt;
    }
    return section;
}

bool NumberFormat::ParseDigits(std::string_view code, Section& section) {
    const std::size_t mark = code.find('.');
    const std::string_view whole = code.substr(0, mark);
    std::size_t firstZero = std::string_view::npos;
    std::size_t count = 0;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (whole[i] == ',') {
            const bool betweenDigits =
                i > 0 && i + 1 < whole.size() && IsPlaceholder(whole[i - 1]) && IsPlaceholder(whole[i + 1]);
            if (!betweenDigits) {
                return false;
            }
            section.grouped = true;
            continue;
        }
        if (whole[i] == '0' && firstZero == std::string_view::npos) {
            firstZero = count;
        }
        ++count;
    }
    section.minimumDigits = firstZero == std::string_view::npos ? 0 : static_cast<int>(count - firstZero);

    std::string_view decimals;
    if (mark != std::string_view::npos) {
        decimals = code.substr(mark + 1);
        section.decimalMark = true;
    }
    if (!std::all_of(decimals.begin(), decimals.end(), IsPlaceholder)) {
        return false;
    }
    section.decimals = static_cast<int>(decimals.size());
    const std::size_t lastZero = decimals.rfind('0');
    section.minimumDecimals = lastZero == std::string_view::npos ? 0 : static_cast<int>(lastZero) + 1;
    return count + decimals.size() > 0 && count <= MaxPlaceholders && decimals.size() <= MaxPlaceholders;
}

NumberFormat::Digits NumberFormat::RoundedDigits(const Section& section, double magnitude) {
    constexpr int PercentPower = 2;
    // "d.dddde+xx"
    std::array<char, SignificantDigits + 16> buffer{};
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                          std::chars_format::scientific, SignificantDigits - 1)
                                .ptr;
    constexpr int ExponentAt = SignificantDigits + 1;
    int exponent = 0;
    const char* const exponentStart = buffer.data() + ExponentAt + 1;
    std::from_chars(*exponentStart == '+' ? exponentStart + 1 : exponentStart, end, exponent);

    std::array<char, SignificantDigits + 1> significant{};
    significant[0] = '0';  // takes the carry of a rounding up
    significant[1] = buffer[0];
    std::copy_n(buffer.data() + 2, SignificantDigits - 1, significant.data() + 2);
    // The digit at index i counts 10 to the power of (top - i).
    const int top = (magnitude != 0 ? exponent : 0) + (section.percent ? PercentPower : 0) + 1;

    const int firstDropped = top + section.decimals + 1;
    if (firstDropped <= SignificantDigits) {
        const bool up = firstDropped > 0 && significant[static_cast<std::size_t>(firstDropped)] >= '5';
        std::fill(significant.begin() + std::max(firstDropped, 0), significant.end(), '0');
        for (int i = firstDropped - 1; up && i >= 0; --i) {
            char& digit = significant[static_cast<std::size_t>(i)];
            digit = digit == '9' ? '0' : static_cast<char>(digit + 1);
            if (digit != '0') {
                break;
            }
        }
    }

    Digits digits;
    const int highest = std::max(top, 0);
    digits.whole = highest + 1;
    digits.count = digits.whole + section.decimals;
    for (int i = 0; i < digits.count; ++i) {
        const int from = i - highest + top;
        const bool known = from >= 0 && from <= SignificantDigits;
        const char digit = known ? significant[static_cast<std::size_t>(from)] : '0';
        digits.text[static_cast<std::size_t>(i)] = digit;
        digits.isZero = digits.isZero && digit == '0';
    }
    return digits;
}

void NumberFormat::Append(std::string& text, const Section& section, const Digits& digits) {
    const char* first = digits.text.data();
    const char* const wholeEnd = first + digits.whole;
    const char* const end = first + digits.count;
    first = std::find_if(first, wholeEnd, [](char c) { return c != '0'; });

    text += section.prefix;
    const int shown = std::max(static_cast<int>(wholeEnd - first), section.minimumDigits);
    for (int left = shown; left > 0; --left) {
        text += left > wholeEnd - first ? '0' : *(wholeEnd - left);
        if (section.grouped && left > 1 && (left - 1) % GroupLength == 0) {
            text += ShownGroupMark;
        }
    }
    const char* decimalsEnd = end;
    while (decimalsEnd - wholeEnd > section.minimumDecimals && decimalsEnd[-1] == '0') {
        --decimalsEnd;
    }
    if (section.decimalMark) {
        text += ShownDecimalMark;
        text.append(wholeEnd, decimalsEnd);
    }
    text += section.suffix;
}

std::string NumberFormat::FormatLarge(const Section& section, double value) {
    constexpr double Percent = 100;
    const double shown = section.percent ? value * Percent : value;
    return std::isfinite(shown) ? section.prefix + NumberText(shown, ShownDecimalMark) + section.suffix
                                : NumberText(value, ShownDecimalMark);
}

std::string NumberFormat::Format(double value) const {
    std::string text;
    if (!std::isfinite(value)) {
        return text;
    }
    if (std::abs(value) >= TooLarge) {
        return value < 0 && negative_ ? FormatLarge(*negative_, -value) : FormatLarge(positive_, value);
    }
    if (value < 0) {
        const Section& section = negative_ ? *negative_ : positive_;
        const Digits digits = RoundedDigits(section, -value);
        if (!digits.isZero) {
            if (!negative_) {
                text += '-';
            }
            Append(text, section, digits);
            return text;
        }
    }
    Append(text, positive_, RoundedDigits(positive_, std::abs(value)));
    return text;
}

}  // namespace planview
