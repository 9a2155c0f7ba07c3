// SPDX-License-Identifier: MIT
#include "qt/grid/GridAccessible.h"

#include <QAccessible>
#include <algorithm>
#include <iterator>
#include <vector>

#include "qt/AssistiveTools.h"
#include "qt/grid/GridAccessibleTable.h"
#include "qt/grid/GridView.h"

namespace planview {

namespace {

QAccessibleInterface* makeGridTable(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<GridView*>(object);
    return view ? new GridAccessibleTable(view) : nullptr;
}

void tell(QAccessibleInterface* about, QAccessible::Event what) {
    if (about) {
        QAccessibleEvent event(about, what);
        tellTools(event);
    }
}

GridTeller::Places without(const GridTeller::Places& all, const GridTeller::Places& those) {
    GridTeller::Places rest;
    std::set_difference(all.begin(), all.end(), those.begin(), those.end(), std::inserter(rest, rest.end()));
    return rest;
}

}  // namespace

void installGridAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(makeGridTable);
        return true;
    }();
    static_cast<void>(installed);
}

GridAccessibleTable* GridTeller::table() const {
    return toolsListen() ? static_cast<GridAccessibleTable*>(QAccessible::queryAccessibleInterface(&view_)) : nullptr;
}

void GridTeller::layoutChanged() {
    if (const GridAccessibleTable* now = table()) {
        QAccessibleTableModelChangeEvent event(&view_, QAccessibleTableModelChangeEvent::ModelReset);
        tellTools(event);
        selected_ = now->selectedPlaces(MostCells);
        tellFocus(*now, true);
    }
}

void GridTeller::cellsChanged() {
    if (const GridAccessibleTable* now = table()) {
        for (const auto& [cell, what] : now->takeChangedCells()) {
            tell(cell, what);
        }
        tellSelection(*now);
        tellFocus(*now, false);
    }
}

void GridTeller::focusReturned() {
    focusDue_ = true;
    view_.guard().later(&view_, "TellFocus", [this] {
        const GridAccessibleTable* now = focusDue_ ? table() : nullptr;
        if (now) {
            tellFocus(*now, true);
        }
    });
}

void GridTeller::tellSelection(const GridAccessibleTable& table) {
    const Places before = std::exchange(selected_, table.selectedPlaces(MostCells));
    for (const auto& [row, column] : without(before, selected_)) {
        tell(table.cell(row, column), QAccessible::SelectionRemove);
    }
    for (const auto& [row, column] : without(selected_, before)) {
        tell(table.cell(row, column), QAccessible::SelectionAdd);
    }
}

void GridTeller::tellFocus(const GridAccessibleTable& table, bool again) {
    const std::optional<Cell> before = std::exchange(focus_, view_.grid().SelectionEnd());
    if (again || focus_ != before) {
        focusDue_ = false;
        tell(table.focusChild(), QAccessible::Focus);
    }
}

}  // namespace planview
