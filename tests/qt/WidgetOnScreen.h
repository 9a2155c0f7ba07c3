// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QtTest>
#include <memory>
#include <string>

#include <planview/qt/PlanViewWidget.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "qt/GridOnScreen.h"
#include "qt/grid/GridView.h"
#include "support/SampleTables.h"
#include "support/ScriptedPlatform.h"

namespace planview {

/// The whole control in a window: four periods, five lines (ROW4 read-only, ROW5 a text line), a fixed column on the
/// right. The planning cells hold ten times the line plus the period: COL2/ROW3 is 32.
class WidgetOnScreen {
public:
    /// Popups are scripted, or those of the desktop.
    explicit WidgetOnScreen(bool build = true, bool scriptedPopups = true) {
        for (int i = 1; i <= 4; ++i) {
            tables.AddColumn(i, ("Month " + std::to_string(i)).c_str());
        }
        for (int i = 1; i <= 5; ++i) {
            tables.AddLine(i, ("Line " + std::to_string(i)).c_str(),
                           {{"READONLY", i == 4 ? "X" : ""}, {"ROW_TEXT", i == 5 ? "X" : ""}});
        }
        test::AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}});
        for (int line = 1; line <= 4; ++line) {
            for (int column = 1; column <= 4; ++column) {
                tables.AddValue(line, column, line * 10 + column);
            }
        }
        Platform overrides;
        overrides.messageBoxes = &platform;
        overrides.forms = &platform;
        overrides.popups = scriptedPopups ? &platform : nullptr;
        widget = std::make_unique<PlanViewWidget>(overrides);
        widget->setColorScheme(PlanViewWidget::ColorScheme::Light);
        widget->resize(800, 400);
        tables.GiveTo(widget->control());
        QObject::connect(widget.get(), &PlanViewWidget::GridValueChanged, widget.get(),
                         [this](short, const QString& column, short, const QString& row, const QVariant& value) {
                             heard << column + QLatin1Char('/') + row + QLatin1Char('=') + value.toString();
                         });
        QObject::connect(widget.get(), &PlanViewWidget::GridReturnKeyPressed, widget.get(),
                         [this] { heard << QStringLiteral("return"); });
        QObject::connect(widget.get(), &PlanViewWidget::GridStartUpdate, widget.get(),
                         [this] { heard << QStringLiteral("update"); });
        if (build) {
            widget->DP_Import_Attribute();
            widget->DP_Import_Create();
        }
        widget->show();
        widget->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(widget.get()));
        view().setFocus();
    }

    [[nodiscard]] GridControl& grid() { return ControlParts(widget->control()).Grid(); }
    [[nodiscard]] GridView& view() { return *widget->findChild<GridView*>(); }
    [[nodiscard]] QWidget* port() { return view().viewport(); }
    [[nodiscard]] QLineEdit* editor() { return view().editor().isOpen() ? view().editor().line() : nullptr; }
    [[nodiscard]] Cell cell(const QString& place) {
        const QStringList keys = place.split('/');
        return grid().FindCell({keys[0].toStdString(), keys[1].toStdString()}).value();
    }
    void goTo(const QString& place) { view().selectCurrent(cell(place), SelectionMode::Replace); }
    [[nodiscard]] QPoint middle(const QString& place) { return view().cellRect(cell(place)).center(); }
    [[nodiscard]] QString contents(const QString& place) {
        return QString::fromStdString(grid().Contents(cell(place)));
    }
    [[nodiscard]] QString current() {
        const CellKey key = grid().KeyOf(*grid().CurrentCell());
        return QString::fromStdString(key.column + "/" + key.row);
    }
    /// "Z,C=V" of the rows of a table that are not as they were at the start.
    [[nodiscard]] QString rows(const test::TableRef& table) {
        QStringList texts;
        for (std::int32_t row = 1; row <= table->RowCount(); ++row) {
            const auto text = [&](const char* field) {
                return QString::fromStdString(table->Value(row, field).AsText());
            };
            const bool asAtStart = text("V") == QString::number(text("Z").toInt() * 10 + text("C").toInt());
            if (table != tables.tab || !asAtStart) {
                texts << text("Z") + QLatin1Char(',') + text("C") + QLatin1Char('=') + text("V");
            }
        }
        return texts.join(QLatin1Char(' '));
    }
    /// Sends keys to whatever has the focus, as a keyboard does. "12,5<Enter>" types and presses Enter.
    static void press(const QString& keys);

    test::ScriptedPlatform platform;
    test::Tables tables;
    QStringList heard;
    std::unique_ptr<PlanViewWidget> widget;
};

inline void WidgetOnScreen::press(const QString& keys) {
    static const QMap<QString, QPair<Qt::Key, Qt::KeyboardModifiers>> Named{
        {QStringLiteral("Enter"), {Qt::Key_Return, Qt::NoModifier}},
        {QStringLiteral("Shift+Enter"), {Qt::Key_Return, Qt::ShiftModifier}},
        {QStringLiteral("Tab"), {Qt::Key_Tab, Qt::NoModifier}},
        {QStringLiteral("Shift+Tab"), {Qt::Key_Backtab, Qt::ShiftModifier}},
        {QStringLiteral("Esc"), {Qt::Key_Escape, Qt::NoModifier}},
        {QStringLiteral("F2"), {Qt::Key_F2, Qt::NoModifier}},
        {QStringLiteral("Left"), {Qt::Key_Left, Qt::NoModifier}},
        {QStringLiteral("Right"), {Qt::Key_Right, Qt::NoModifier}},
        {QStringLiteral("Up"), {Qt::Key_Up, Qt::NoModifier}},
        {QStringLiteral("Down"), {Qt::Key_Down, Qt::NoModifier}},
        {QStringLiteral("Shift+Right"), {Qt::Key_Right, Qt::ShiftModifier}},
        {QStringLiteral("Shift+Down"), {Qt::Key_Down, Qt::ShiftModifier}},
        {QStringLiteral("Home"), {Qt::Key_Home, Qt::NoModifier}},
        {QStringLiteral("Backspace"), {Qt::Key_Backspace, Qt::NoModifier}},
        {QStringLiteral("Delete"), {Qt::Key_Delete, Qt::NoModifier}},
        {QStringLiteral("Shift+Space"), {Qt::Key_Space, Qt::ShiftModifier}},
        {QStringLiteral("Ctrl+Space"), {Qt::Key_Space, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+A"), {Qt::Key_A, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+C"), {Qt::Key_C, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+M"), {Qt::Key_M, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+V"), {Qt::Key_V, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+X"), {Qt::Key_X, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+Y"), {Qt::Key_Y, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+Z"), {Qt::Key_Z, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+Shift+Z"), {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier}},
        {QStringLiteral("Ctrl+D"), {Qt::Key_D, Qt::ControlModifier}},
        {QStringLiteral("Ctrl+Alt+D"), {Qt::Key_D, Qt::ControlModifier | Qt::AltModifier}},
    };
    for (qsizetype at = 0; at < keys.size(); ++at) {
        QWidget* focus = QApplication::focusWidget();
        QVERIFY2(focus, "nothing has the focus");
        if (keys[at] != QLatin1Char('<')) {
            QTest::keyClicks(focus, keys.mid(at, 1));
            continue;
        }
        const qsizetype end = keys.indexOf(QLatin1Char('>'), at);
        const QString name = keys.mid(at + 1, end - at - 1);
        QVERIFY2(Named.contains(name), qPrintable(name));
        QTest::keyClick(focus, Named[name].first, Named[name].second);
        at = end;
    }
}

}  // namespace planview
