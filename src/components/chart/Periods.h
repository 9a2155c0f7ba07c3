// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

namespace planview {

/// The month that a period's caption names, counted from January of the year 0; that of the year 0 for a caption
/// without a year. Understood are names of months in English and German, whole or from three letters on, with and
/// without a year ("Jan 08", "Januar 2008"), and numbers ("2008-01", "01/2008", "2008M01"). None for anything else.
[[nodiscard]] PLANVIEW_EXPORT std::optional<int> MonthOf(std::string_view caption);

/// Which categories carry a label where there is no room for all.
struct LabelSteps {
    int first = 1;  ///< from 1
    int every = 1;
};

/// The labels from category `first` to `last` where only every `least`-th has room. Months that follow each other are
/// labelled by the month, by whole quarters, halves of years or years; all other categories from the first seen one on.
[[nodiscard]] PLANVIEW_EXPORT LabelSteps StepsOf(const std::vector<std::string>& categories, int first, int last,
                                                 int least);

}  // namespace planview
