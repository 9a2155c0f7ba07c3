// SPDX-License-Identifier: MIT
#include "formula/PlanningTable.h"

namespace planview {

namespace {

std::string FromTo(const std::string& first, const std::string& last) {
    return first == last ? first : first + " to " + last;
}

}  // namespace

std::string PlanningTable::TextOf(const PlanningRange& range) const {
    std::string text = FromTo(LineCaption(range.firstLine), LineCaption(range.lastLine));
    if (range.HasPeriods()) {
        text += ", " + FromTo(PeriodCaption(range.firstPeriod), PeriodCaption(range.lastPeriod));
    }
    return text;
}

}  // namespace planview
