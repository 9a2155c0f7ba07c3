// SPDX-License-Identifier: MIT
#pragma once

#include "control/ControlParts.h"
#include "qt/WidgetOnScreen.h"
#include "qt/tree/ToolbarView.h"
#include "qt/tree/TreePane.h"

namespace planview {

/// The whole control with its macro tree shown:
///     Forecast (open): Raise line (closed): Line 3; Average
///     Recorded
class TreeOnScreen {
public:
    explicit TreeOnScreen(bool scriptedPopups = true) : screen(true, scriptedPopups) {
        addNode("FC", "", "Forecast", "macro-folder", "macro-folder-open");
        addNode("M1", "FC", "Raise line", "M_MAKRO");
        addNode("L3", "M1", "Line 3", "M_TABLINE");
        addNode("M2", "FC", "Average", "M_MAKRO");
        addNode("RC", "", "Recorded", "M_RECORD");
        screen.tables.macroTree->SetValue(1, "EXPANDED", "X");
        PlanViewWidget& widget = *screen.widget;
        widget.plv_LayoutMode();
        widget.plv_LayoutShow();
        widget.DP_Import_MacroTree();
        QObject::connect(&widget, &PlanViewWidget::GridTreeMacroClick, &widget, note(QStringLiteral("click")));
        QObject::connect(&widget, &PlanViewWidget::GridTreeMacroExpand, &widget, note(QStringLiteral("expand")));
        QObject::connect(&widget, &PlanViewWidget::GridTreeMacroCollapse, &widget, note(QStringLiteral("collapse")));
        QObject::connect(&widget, &PlanViewWidget::MacroTreeMouseDown, &widget, note(QStringLiteral("down")));
        QObject::connect(&widget, &PlanViewWidget::MacroTreeExpand, &widget, [this] { tell(QStringLiteral("tree")); });
        QObject::connect(&widget, &PlanViewWidget::MacroDragSelection, &widget,
                         [this](const QString& selection) { tell(QLatin1String("drag ") + selection); });
        QObject::connect(&widget, &PlanViewWidget::MacroTreeNodeDropped, &widget,
                         [this](const QString& key, const QString& type, short action) {
                             tell(QStringLiteral("dropped %1 %2 %3").arg(key, type).arg(action));
                         });
        view().setFocus();
        QCoreApplication::processEvents();
        screen.heard.clear();
    }

    void addNode(const char* key, const char* reference, const char* text, const char* image,
                 const char* selected = "") {
        test::AddRow(*screen.tables.macroTree, {{"NODEKEY", key},
                                                {"NODEREF", reference},
                                                {"RELATION", 4},
                                                {"NODETEXT", text},
                                                {"IMAGE", image},
                                                {"IMAGE_SEL", selected},
                                                {"EXPANDED", ""}});
    }

    [[nodiscard]] TreeControl& tree() { return ControlParts(screen.widget->control()).Tree(); }
    [[nodiscard]] TreeView& view() { return *screen.widget->findChild<TreeView*>(); }
    [[nodiscard]] ToolbarView& toolbar() { return *screen.widget->findChild<ToolbarView*>(); }
    [[nodiscard]] QWidget* port() { return view().viewport(); }
    [[nodiscard]] TreeNode node(const char* key) { return tree().Nodes().Item(key); }
    [[nodiscard]] QString selected() {
        return tree().SelectedItem() ? QString::fromStdString(tree().SelectedItem().Key()) : QString();
    }
    [[nodiscard]] QPoint middle(const char* key) {
        const QRect row = view().nodeRect(node(key));
        return {row.left() + 30, row.center().y()};
    }
    void click(const char* key, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(port(), button, Qt::NoModifier, middle(key));
    }
    /// What the host has heard since the last call.
    [[nodiscard]] QString heard() { return std::exchange(screen.heard, {}).join(QStringLiteral(", ")); }
    [[nodiscard]] QString field(const char* name, int row) const {
        return QString::fromStdString(screen.tables.macroTree->Value(row, name).AsText());
    }

    WidgetOnScreen screen;
    std::function<void()> whenHeard;

private:
    void tell(const QString& what) {
        screen.heard << what;
        if (whenHeard) {
            whenHeard();
        }
    }
    std::function<void(const QString&, const QString&)> note(const QString& event) {
        return [this, event](const QString& key, const QString&) { tell(event + QLatin1Char(' ') + key); };
    }
};

}  // namespace planview
