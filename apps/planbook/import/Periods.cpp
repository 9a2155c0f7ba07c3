// SPDX-License-Identifier: MIT
#include "import/Periods.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace planbook {

namespace {

enum class PeriodKind { Month, Day };

struct Period {
    PeriodKind kind;
    std::chrono::year_month_day date;
};

/// The number that these characters spell, all of them digits.
std::optional<int> Digits(std::string_view text) {
    int number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        number = number * 10 + (c - '0');
    }
    return number;
}

/// Reads "2008-01-31" and "2008-01".
std::optional<Period> ReadPeriod(std::string_view text) {
    constexpr std::size_t MonthLength = 7;
    constexpr std::size_t DayLength = 10;
    if ((text.size() != MonthLength && text.size() != DayLength) || text[4] != '-' ||
        (text.size() == DayLength && text[7] != '-')) {
        return std::nullopt;
    }
    const PeriodKind kind = text.size() == DayLength ? PeriodKind::Day : PeriodKind::Month;
    const std::optional<int> year = Digits(text.substr(0, 4));
    const std::optional<int> month = Digits(text.substr(5, 2));
    const std::optional<int> day = kind == PeriodKind::Day ? Digits(text.substr(8, 2)) : 1;
    if (!year || !month || !day) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day))};
    if (!date.ok()) {
        return std::nullopt;
    }
    return Period{kind, date};
}

/// No value unless all of them are dates, or all of them are months.
std::optional<std::vector<Period>> ReadPeriods(const std::vector<std::string>& texts) {
    std::vector<Period> periods;
    periods.reserve(texts.size());
    for (const std::string& text : texts) {
        const std::optional<Period> period = ReadPeriod(text);
        if (!period || (!periods.empty() && periods.front().kind != period->kind)) {
            return std::nullopt;
        }
        periods.push_back(*period);
    }
    return periods;
}

bool MonthsDiffer(const std::vector<Period>& periods) {
    std::set<std::pair<int, unsigned>> months;
    for (const Period& period : periods) {
        if (!months.emplace(static_cast<int>(period.date.year()), static_cast<unsigned>(period.date.month())).second) {
            return false;
        }
    }
    return true;
}

std::string TwoDigits(unsigned number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02u", number);
    return text.data();
}

std::string Caption(const Period& period, bool asMonth) {
    constexpr std::array<const char*, 12> Months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    constexpr int Century = 100;
    const std::string month = Months[static_cast<unsigned>(period.date.month()) - 1];
    const std::string year = TwoDigits(static_cast<unsigned>(static_cast<int>(period.date.year()) % Century));
    const std::string day = asMonth ? "" : TwoDigits(static_cast<unsigned>(period.date.day())) + " ";
    return day + month + " " + year;
}

}  // namespace

PeriodAxis DescribePeriods(const std::vector<std::string>& periods) {
    PeriodAxis axis;
    axis.years.resize(periods.size());
    const std::optional<std::vector<Period>> dates = ReadPeriods(periods);
    if (!dates) {
        axis.captions = periods;
        return axis;
    }
    const bool asMonths = MonthsDiffer(*dates);
    for (std::size_t i = 0; i < dates->size(); ++i) {
        const std::chrono::year year = (*dates)[i].date.year();
        axis.captions.push_back(Caption((*dates)[i], asMonths));
        constexpr int MonthsOfYear = 12;
        axis.months.push_back(static_cast<int>(year) * MonthsOfYear +
                              static_cast<int>(static_cast<unsigned>((*dates)[i].date.month())) - 1);
        if (i == 0 || year != (*dates)[i - 1].date.year()) {
            axis.years[i] = std::to_string(static_cast<int>(year));
        }
    }
    return axis;
}

}  // namespace planbook
