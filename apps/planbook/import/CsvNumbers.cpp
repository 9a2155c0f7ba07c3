// SPDX-License-Identifier: MIT
#include "import/CsvNumbers.h"

#include <algorithm>

#include <planview/AutomationObject.h>
#include <planview/Variant.h>

namespace planbook {

namespace {

constexpr std::size_t GroupLength = 3;

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

std::string_view WithoutSign(std::string_view text) noexcept {
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        text.remove_prefix(1);
    }
    return text;
}

/// Whether the marks in "12.345.678" stand before groups of three digits, the first group having one to three.
bool GroupsAreRegular(std::string_view digits, char group) noexcept {
    const std::size_t first = digits.find(group);
    if (first == std::string_view::npos) {
        return true;
    }
    if (first == 0 || first > GroupLength || (digits.size() - first) % (GroupLength + 1) != 0) {
        return false;
    }
    for (std::size_t i = first; i < digits.size(); ++i) {
        if ((digits[i] == group) != ((i - first) % (GroupLength + 1) == 0)) {
            return false;
        }
    }
    return true;
}

}  // namespace

MarkEvidence JudgeMark(std::string_view number) noexcept {
    number = WithoutSign(number);
    const std::size_t point = number.rfind('.');
    const std::size_t comma = number.rfind(',');
    constexpr std::size_t Missing = std::string_view::npos;
    if (point == Missing && comma == Missing) {
        return MarkEvidence::None;
    }
    if (point != Missing && comma != Missing) {
        return point > comma ? MarkEvidence::Point : MarkEvidence::Comma;
    }
    const bool isPoint = point != Missing;
    const char mark = isPoint ? '.' : ',';
    if (std::count(number.begin(), number.end(), mark) > 1) {  // only groups may repeat
        return isPoint ? MarkEvidence::Comma : MarkEvidence::Point;
    }
    const bool mayGroup = GroupsAreRegular(number, mark) && number.front() != '0' &&
                          std::all_of(number.begin(), number.end(), [&](char c) { return c == mark || IsDigit(c); });
    if (mayGroup) {
        return isPoint ? MarkEvidence::EitherByPoint : MarkEvidence::EitherByComma;
    }
    return isPoint ? MarkEvidence::Point : MarkEvidence::Comma;
}

std::optional<double> ReadNumber(std::string_view text, DecimalMark mark) {
    const char decimal = mark == DecimalMark::Comma ? ',' : '.';
    const char group = mark == DecimalMark::Comma ? '.' : ',';
    const std::string_view digits = WithoutSign(text);
    if (digits.empty() || std::count(digits.begin(), digits.end(), decimal) > 1 ||
        !GroupsAreRegular(digits.substr(0, digits.find_first_of(std::string{decimal, 'e', 'E'})), group)) {
        return std::nullopt;
    }
    std::string plain(text);
    const std::size_t fraction = std::min(plain.find(decimal), plain.size());
    if (plain.find(group, fraction) != std::string::npos) {
        return std::nullopt;
    }
    plain.erase(std::remove(plain.begin(), plain.end(), group), plain.end());
    std::replace(plain.begin(), plain.end(), decimal, '.');
    try {
        return planview::Variant(std::move(plain)).AsDouble();
    } catch (const planview::AutomationError&) {
        return std::nullopt;
    }
}

int DecimalsOf(double number) {
    const std::string text = planview::Variant(number).AsText();
    const std::size_t point = text.find('.');
    const std::size_t end = std::min(text.find_first_of("eE"), text.size());
    return point == std::string::npos ? 0 : static_cast<int>(end - point - 1);
}

std::string GridNumber(double number) {
    std::string text = planview::Variant(number).AsText();
    std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

}  // namespace planbook
