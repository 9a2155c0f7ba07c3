// SPDX-License-Identifier: MIT
#include "xlsx/Workbook.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <planview/AutomationObject.h>

namespace planview::xlsx {

std::uint32_t TextPool::Intern(std::string_view text) {
    const auto found = ids_.find(text);
    if (found != ids_.end()) {
        return found->second;
    }
    const std::uint32_t id = Append(std::string(text));
    ids_.emplace(texts_.back(), id);
    return id;
}

std::uint32_t TextPool::Append(std::string text) {
    texts_.push_back(std::move(text));
    return Size() - 1;
}

bool MergedAreas::Contain(std::int32_t row, std::int32_t column) const noexcept {
    const auto end = std::upper_bound(areas.begin(), areas.end(), row,
                                      [](std::int32_t wanted, const Area& area) { return wanted < area.firstRow; });
    return std::any_of(areas.begin(), end, [&](const Area& area) {
        return row <= area.lastRow && column >= area.firstColumn && column <= area.lastColumn;
    });
}

std::uint16_t Workbook::FindNumberFormat(std::string_view format) const noexcept {
    const auto found = std::find(numberFormats.begin(), numberFormats.end(), format);
    return found == numberFormats.end() ? NoNumberFormat : static_cast<std::uint16_t>(found - numberFormats.begin());
}

std::uint16_t Workbook::AddNumberFormat(std::string format) {
    constexpr std::size_t MostFormats = 10'000;
    if (numberFormats.size() == MostFormats) {
        throw AutomationError(AutomationErrorCode::Failed,
                              "A workbook cannot hold more than " + std::to_string(MostFormats) + " number formats");
    }
    numberFormats.push_back(std::move(format));
    return static_cast<std::uint16_t>(numberFormats.size() - 1);
}

std::size_t Workbook::PlaceOf(const Worksheet& worksheet) const noexcept {
    const auto found =
        std::find_if(worksheets.begin(), worksheets.end(), [&](const auto& each) { return each.get() == &worksheet; });
    return static_cast<std::size_t>(found - worksheets.begin());
}

bool Workbook::ShowAnotherThan(const Worksheet& worksheet) noexcept {
    const auto found = std::find_if(worksheets.begin(), worksheets.end(), [&](const auto& each) {
        return each.get() != &worksheet && each->visibility == SheetVisibility::Visible;
    });
    if (found != worksheets.end() && worksheets[activeSheet].get() == &worksheet) {
        activeSheet = static_cast<std::size_t>(found - worksheets.begin());
    }
    return found != worksheets.end();
}

void Workbook::Close() noexcept {
    closed = true;
    for (const auto& worksheet : worksheets) {
        worksheet->sheet = Sheet(styles);
    }
    texts = TextPool();
    source.reset();
}

}  // namespace planview::xlsx
