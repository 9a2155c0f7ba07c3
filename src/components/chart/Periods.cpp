// SPDX-License-Identifier: MIT
#include "components/chart/Periods.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace planview {

namespace {

constexpr int MonthsOfYear = 12;
/// The steps in which labels of months may stand: months, quarters, halves, years and multiples of years.
constexpr std::array<int, 9> MonthSteps{1, 3, 6, 12, 24, 60, 120, 240, 600};

/// By month, in lower case; the first one that begins with a text gives the month.
constexpr std::array<std::array<std::string_view, 3>, MonthsOfYear> MonthNames{{{"january", "januar", "jänner"},
                                                                                {"february", "februar", ""},
                                                                                {"march", "märz", "mrz"},
                                                                                {"april", "", ""},
                                                                                {"may", "mai", ""},
                                                                                {"june", "juni", ""},
                                                                                {"july", "juli", ""},
                                                                                {"august", "", ""},
                                                                                {"september", "", ""},
                                                                                {"october", "oktober", ""},
                                                                                {"november", "", ""},
                                                                                {"december", "dezember", ""}}};

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// Letters beyond ASCII are the bytes of their UTF-8.
bool IsLetter(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

struct Number {
    int value = 0;
    std::size_t digits = 0;
    [[nodiscard]] bool IsMonth() const noexcept { return digits <= 2 && value >= 1 && value <= MonthsOfYear; }
    [[nodiscard]] bool IsYear() const noexcept { return digits == 2 || digits == 4; }
};

/// The words and numbers of a caption, in their order; signs between them divide.
struct Parts {
    std::vector<std::string> words;
    std::vector<Number> numbers;
};

Parts PartsOf(std::string_view caption) {
    constexpr std::size_t MostDigits = 4;
    Parts parts;
    for (std::size_t i = 0; i < caption.size();) {
        const std::size_t start = i;
        if (IsDigit(caption[i])) {
            Number number;
            for (; i < caption.size() && IsDigit(caption[i]) && i - start <= MostDigits; ++i) {
                number.value = 10 * number.value + (caption[i] - '0');
            }
            number.digits = i - start;
            parts.numbers.push_back(number);
        } else if (IsLetter(caption[i])) {
            std::string word;
            for (; i < caption.size() && IsLetter(caption[i]); ++i) {
                word += caption[i] >= 'A' && caption[i] <= 'Z' ? static_cast<char>(caption[i] - 'A' + 'a') : caption[i];
            }
            parts.words.push_back(std::move(word));
        } else {
            ++i;
        }
    }
    return parts;
}

/// From 1; 0 for no month.
int MonthNamed(const std::string& word) {
    constexpr std::size_t FewestLetters = 3;
    for (std::size_t month = 0; word.size() >= FewestLetters && month < MonthNames.size(); ++month) {
        for (const std::string_view name : MonthNames[month]) {
            if (name.starts_with(word)) {
                return static_cast<int>(month) + 1;
            }
        }
    }
    return 0;
}

/// Whether each category is the month after the one before, by the month of the year: years may be missing, or begin
/// anew with a century of which they tell two digits.
bool AreMonthsInARow(const std::vector<std::string>& categories, int firstMonth) {
    for (std::size_t i = 1; i < categories.size(); ++i) {
        const std::optional<int> month = MonthOf(categories[i]);
        if (!month || (*month - firstMonth - static_cast<int>(i)) % MonthsOfYear != 0) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<int> MonthOf(std::string_view caption) {
    const Parts parts = PartsOf(caption);
    const std::vector<Number>& numbers = parts.numbers;
    if (parts.words.size() == 1 && numbers.size() <= 1) {
        const int month = MonthNamed(parts.words[0]);
        if (month == 0 || (!numbers.empty() && !numbers[0].IsYear())) {
            return std::nullopt;
        }
        return (numbers.empty() ? 0 : numbers[0].value) * MonthsOfYear + month - 1;
    }
    const bool divided = parts.words.empty() || (parts.words.size() == 1 && parts.words[0] == "m");
    if (!divided || numbers.size() != 2) {
        return std::nullopt;
    }
    const bool yearFirst = numbers[0].digits == 4;
    const Number& year = numbers[yearFirst ? 0 : 1];
    const Number& month = numbers[yearFirst ? 1 : 0];
    if (!month.IsMonth() || !year.IsYear()) {
        return std::nullopt;
    }
    return year.value * MonthsOfYear + month.value - 1;
}

LabelSteps StepsOf(const std::vector<std::string>& categories, int first, int last, int least) {
    const LabelSteps plain{first, std::max(1, least)};
    const std::optional<int> firstMonth =
        plain.every > 1 && !categories.empty() ? MonthOf(categories.front()) : std::nullopt;
    if (!firstMonth || !AreMonthsInARow(categories, *firstMonth)) {
        return plain;
    }
    const auto* step = std::find_if(MonthSteps.begin(), MonthSteps.end(), [&](int each) { return each >= least; });
    if (step == MonthSteps.end()) {
        return plain;
    }
    const int monthOfFirst = *firstMonth + first - 1;
    const int ahead = (*step - monthOfFirst % *step) % *step;
    return first + ahead <= last ? LabelSteps{first + ahead, *step} : plain;
}

}  // namespace planview
