// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace planbook {

/// How the periods of a table of numbers are shown above its columns.
struct PeriodAxis {
    /// One caption per period: "Jan 08" for months, "05 Jan 08" for days, else the text as it is.
    std::vector<std::string> captions;
    /// One text per period: the year above the first column of each year. Empty where the periods carry no months.
    std::vector<std::string> years;
    /// One number per period, the same within a month and one more in the next. Empty where the periods are no dates.
    std::vector<int> months;
};

/// Reads the periods as dates (2008-01-31) or months (2008-01) when all of them are of one kind; dates of different
/// months are shown as months. Anything else is shown as it is.
[[nodiscard]] PeriodAxis DescribePeriods(const std::vector<std::string>& periods);

}  // namespace planbook
