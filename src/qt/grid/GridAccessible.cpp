// SPDX-License-Identifier: MIT
#include "qt/grid/GridAccessible.h"

#include <QAccessible>

#include "qt/grid/GridAccessibleTable.h"
#include "qt/grid/GridView.h"

namespace planview {

namespace {

QAccessibleInterface* makeGridTable(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<GridView*>(object);
    return view ? new GridAccessibleTable(view) : nullptr;
}

}  // namespace

void installGridAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(makeGridTable);
        return true;
    }();
    static_cast<void>(installed);
}

void notifyGridAccessibility(GridView& view, GridAccessibleChange change) {
    if (!QAccessible::isActive()) {
        return;
    }
    if (change == GridAccessibleChange::Layout) {
        QAccessibleTableModelChangeEvent event(&view, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
        return;
    }
    auto* table = static_cast<GridAccessibleTable*>(QAccessible::queryAccessibleInterface(&view));
    QAccessibleInterface* current = table ? table->focusChild() : nullptr;
    if (current) {
        QAccessibleEvent event(current, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

}  // namespace planview
