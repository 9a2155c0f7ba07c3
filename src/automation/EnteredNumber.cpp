// SPDX-License-Identifier: MIT
#include "automation/EnteredNumber.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <planview/TypedNumber.h>

#include "automation/NumberFormat.h"
#include "automation/Numbers.h"
#include "automation/Texts.h"

namespace planview {

namespace {

constexpr std::size_t GroupLength = 3;
constexpr double Percent = 100;

constexpr char OtherMark(char mark) {
    return mark == '.' ? ',' : '.';
}

/// Blanks of a keyboard alone, and the apostrophe as the one of a keyboard too.
std::string PlainText(std::string_view text) {
    constexpr std::string_view Apostrophe = "\u2019";
    std::string plain = KeyboardText(Trimmed(text, " \t\r\n"));
    for (std::size_t at = plain.find(Apostrophe); at != std::string::npos; at = plain.find(Apostrophe, at + 1)) {
        plain.replace(at, Apostrophe.size(), "'");
    }
    return std::string(Trimmed(plain));
}

/// The place of a mark that may group as well as stand before decimals; npos where there is none.
std::size_t OpenMark(std::string_view digits) noexcept {
    const std::size_t mark = digits.find_first_of(".,");
    if (mark == std::string_view::npos || mark < 1 || mark > GroupLength || digits.size() != mark + 1 + GroupLength) {
        return std::string_view::npos;
    }
    digits.remove_prefix(mark + 1);
    const bool onlyDigits = std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    return onlyDigits ? mark : std::string_view::npos;
}

/// The decimal mark that a number without an open mark has; '\0' without any mark.
char DecimalMarkOf(std::string_view digits) noexcept {
    const std::size_t last = digits.find_last_of(".,");
    if (last == std::string_view::npos) {
        return '\0';
    }
    const char mark = digits[last];
    const bool groups = std::count(digits.begin(), digits.end(), mark) > 1;
    return groups ? OtherMark(mark) : mark;
}

/// Digits with the sign and the per cent that stood round them.
struct Peeled {
    std::string digits;
    bool negative = false;
    bool percent = false;
};

/// Takes "%", brackets and a minus behind the digits away. No value where there are two signs.
std::optional<Peeled> Peel(std::string_view text) {
    Peeled peeled;
    bool marked = false;
    for (bool more = true; more && !text.empty();) {
        const std::size_t before = text.size();
        if (!peeled.percent && (text.back() == '%' || text.front() == '%')) {
            peeled.percent = true;
            text = text.back() == '%' ? text.substr(0, before - 1) : text.substr(1);
        } else if (!marked && text.front() == '(' && text.back() == ')') {
            marked = true;
            text = text.substr(1, text.size() - 2);
        } else if (!marked && text.back() == '-') {
            marked = true;
            text.remove_suffix(1);
        }
        text = Trimmed(text);
        more = text.size() < before;
    }
    const bool sign = !text.empty() && (text.front() == '-' || text.front() == '+');
    if (marked && sign) {
        return std::nullopt;
    }
    peeled.negative = marked || text.starts_with('-');
    peeled.digits = sign ? Trimmed(text.substr(1)) : text;
    return peeled;
}

/// One apostrophe after the other stands where a blank would.
bool TakeApostrophes(std::string& digits) {
    const bool apostrophes = digits.find('\'') != std::string::npos;
    if (digits.front() == '\'' || digits.back() == '\'' || (apostrophes && digits.find(' ') != std::string::npos)) {
        return false;
    }
    std::replace(digits.begin(), digits.end(), '\'', ' ');
    return true;
}

/// As it is written: 25.7 % is 0.257 and not a hair beside it.
std::optional<double> Scaled(std::optional<double> number, bool negative, bool percent) {
    if (number && percent) {
        number = TryParseNumber(NumberText(*number / Percent));
    }
    return number && negative ? -*number : number;
}

std::optional<EnteredNumber> Read(Peeled text, const NumberFormat* format) {
    if (text.digits.empty() || text.digits.front() == '-' || text.digits.front() == '+' ||
        !TakeApostrophes(text.digits)) {
        return std::nullopt;
    }
    const auto numberOf = [&](std::string_view digits) {
        return Scaled(TryParseNumber(digits), text.negative, text.percent);
    };
    const std::optional<double> decimal = numberOf(text.digits);
    if (!decimal) {
        return std::nullopt;
    }
    EnteredNumber read{*decimal, std::nullopt, DecimalMarkOf(text.digits), false};
    const std::size_t mark = OpenMark(text.digits);
    if (mark == std::string::npos) {
        return read;
    }
    const char sign = text.digits[mark];
    const bool groups = sign == '.' && format && format->Groups(text.negative);
    // Nobody groups behind a zero, but for a code that fills up with zeros.
    const bool leadingZero = text.digits.front() == '0';
    if (leadingZero && !(groups && format->MinimumDigits(text.negative) > static_cast<int>(GroupLength))) {
        return read;
    }
    std::string whole = text.digits;
    whole.erase(mark, 1);
    read.other = numberOf(whole);
    if (groups) {
        std::swap(read.number, *read.other);
        read.decimalMark = OtherMark(sign);
        read.asShown = leadingZero;
    } else {
        read.asShown =
            sign == GridDecimalMark && format && format->Decimals().value_or(0) >= static_cast<int>(GroupLength);
    }
    return read;
}

}  // namespace

std::optional<EnteredNumber> ReadEntered(std::string_view text, const NumberFormat* format) {
    constexpr std::size_t LongestEntry = 1000;
    if (text.size() > LongestEntry) {
        return std::nullopt;
    }
    const std::string plain = PlainText(text);
    if (plain.empty()) {
        return std::nullopt;
    }
    if (format) {
        for (const NumberFormat::ShownDigits& shown : format->DigitsIn(plain)) {
            Peeled inner{std::string(shown.digits), shown.negative, shown.percent};
            if (!shown.negative && shown.digits.starts_with('-')) {  // "€ -5"
                inner.digits = Trimmed(shown.digits.substr(1));
                inner.negative = true;
            }
            if (std::optional<EnteredNumber> read = Read(std::move(inner), format)) {
                return read;
            }
        }
    }
    if (std::optional<Peeled> peeled = Peel(plain)) {
        if (std::optional<EnteredNumber> read = Read(std::move(*peeled), format)) {
            return read;
        }
    }
    const std::string zero = format ? KeyboardText(format->Format(0)) : std::string();
    return !zero.empty() && Trimmed(zero) == plain ? std::optional(EnteredNumber{}) : std::nullopt;
}

void MarkEvidence::Add(const EnteredNumber& read) noexcept {
    if (!read.other) {
        point_ = point_ || read.decimalMark == '.';
        comma_ = comma_ || read.decimalMark == ',';
    }
}

void MarkEvidence::Decide(EnteredNumber& read) const noexcept {
    if (!read.other || point_ == comma_) {
        return;
    }
    const char mark = point_ ? '.' : ',';
    if (read.decimalMark != mark) {
        std::swap(read.number, *read.other);
        read.decimalMark = mark;
    }
    read.other.reset();
}

std::string TableText(std::string_view entered, double number) {
    return TryParseNumber(entered) == number ? std::string(entered) : NumberText(number, GridDecimalMark);
}

std::string SpokenNumber(double number) {
    static const std::optional<NumberFormat> Grouped = NumberFormat::Parse("#,##0.###############");
    std::string text = Grouped->Format(number);
    if (text.ends_with(GridDecimalMark)) {
        text.pop_back();  // a number code shows its decimal mark even without decimals
    }
    return text;
}

std::optional<double> ReadTypedNumber(std::string_view text, std::string_view numberCode) {
    const std::optional<NumberFormat> format = NumberFormat::Parse(numberCode);
    const std::optional<EnteredNumber> read = ReadEntered(text, format ? &*format : nullptr);
    return read ? std::optional(read->number) : std::nullopt;
}

}  // namespace planview
