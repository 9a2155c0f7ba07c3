// SPDX-License-Identifier: MIT
#include "grid/TestData.h"

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "automation/Texts.h"

namespace planview {

namespace {

std::vector<NewValue> MakeValues(const GridControl& grid) {
    std::mt19937 random(std::random_device{}());
    std::uniform_real_distribution<double> level(100, 1000);
    std::uniform_real_distribution<double> share(0.8, 1.2);
    std::vector<NewValue> values;
    for (const RowId row : grid.Rows(RowArea::Center)) {
        const double lineLevel = level(random);
        for (const ColumnId column : grid.Columns(ColumnArea::Center)) {
            const Cell cell{column, row};
            if (RefusalOf(grid, cell) == Refusal::None) {
                NewValue& next = values.emplace_back();
                next.cell = cell;
                next.value = std::round(lineLevel * share(random));
            }
        }
    }
    return values;
}

}  // namespace

void FillWithTestData(const GridControl& grid, ValueEntry& valueEntry, MessageBoxes& messageBoxes) {
    const std::vector<NewValue> values = MakeValues(grid);
    if (values.empty()) {
        messageBoxes.Show({"No cell can be filled: all of them are read-only.", "Grid", MessageButtons::Ok,
                           MessageIcon::Information, MessageAnswer::Ok});
        return;
    }
    const MessageAnswer answer = messageBoxes.Show(
        {"Fill " + Counted(values.size(), "cell") + " with test data? What they hold now is replaced.", "Grid",
         MessageButtons::YesNo, MessageIcon::Question, MessageAnswer::No});
    if (answer == MessageAnswer::Yes) {
        valueEntry.ChangeCells(values);
    }
}

}  // namespace planview
