// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QCompleter>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "control/ControlParts.h"
#include "qt/WhenShown.h"
#include "qt/WidgetOnScreen.h"
#include "qt/macro/MacroPane.h"
#include "qt/macro/OperandPane.h"
#include "qt/tree/TreeView.h"

namespace planview {

/// The macro editor's panes on the screen, used with mouse and keyboard.
class MacroPanesTest : public QObject {
    Q_OBJECT

    /// The whole control with the panes shown, large enough to reach everything.
    struct Screen : WidgetOnScreen {
        Screen() {
            widget->resize(1280, 800);
            widget->plv_LayoutMode();
            widget->plv_LayoutShow();
            QCoreApplication::processEvents();
        }
        [[nodiscard]] MacroEditor& macros() const { return ControlParts(widget->control()).Editor(); }
        [[nodiscard]] MacroListView& list() const { return *widget->findChild<MacroListView*>(); }
        [[nodiscard]] QLineEdit& field() const { return *widget->findChild<QLineEdit*>(QStringLiteral("txtOpa")); }
        [[nodiscard]] QString message() const {
            return widget->findChild<QLabel*>(QStringLiteral("EditorMessage"))->text();
        }
        void press(const char* name) const {
            auto* button = widget->findChild<QAbstractButton*>(QString::fromUtf8(name));
            QVERIFY2(button && button->isEnabled() && button->isVisible(), name);
            QTest::mouseClick(button, Qt::LeftButton);
        }
        void pressAll(const QStringList& names) const {
            for (const QString& name : names) {
                press(name.toUtf8().constData());
            }
        }
        void clickHeading(const char* row) {
            QTest::mouseClick(port(), Qt::LeftButton, Qt::NoModifier,
                              view().cellRect(cell(QStringLiteral("FLC0/") + QLatin1String(row))).center());
        }
        void clickLine(int line) const {
            const QModelIndex index = list().model()->index(line, 0);
            QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, list().visualRect(index).center());
            QCoreApplication::processEvents();
        }
        [[nodiscard]] QStringList lines() const {
            QStringList texts;
            for (int i = 0; i < list().model()->rowCount(); ++i) {
                texts << list().model()->index(i, 0).data().toString();
            }
            return texts;
        }
    };

private slots:
    void initTestCase() { useTestFont(); }

    void aMacroIsBuiltAndRunWithTheMouseAlone() {
        Screen screen;
        screen.press("NewMacro");
        screen.clickHeading("ROW1");
        screen.press("cmdOpa");
        screen.press("cmdOpa");
        screen.pressAll({"cmdOpe *", "cmdOpe 1", "cmdOpe ,", "cmdOpe 5", "cmdOpe ⌫", "cmdOpe 0", "cmdOpe 5"});
        QCOMPARE(screen.field().text(), QStringLiteral("1,05"));
        screen.press("cmdOpa");
        QCOMPARE(screen.lines().mid(0, 2), (QStringList{"Macro 1", "Line 1 = Line 1 * 1,05"}));
        QCoreApplication::processEvents();
        savePicture(*screen.widget, QStringLiteral("macro-editor-light"));
        screen.widget->setColorScheme(PlanViewWidget::ColorScheme::Dark);
        savePicture(*screen.widget, QStringLiteral("macro-editor-dark"));
        screen.press("RunMacro");
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW1")), QStringLiteral("12,6"));
        QCOMPARE(screen.message(), QStringLiteral("4 cells changed."));
        // As one step, where the table has the focus.
        screen.view().setFocus();
        QTest::keyClick(&screen.view(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW1")), QStringLiteral("12"));
        QVERIFY(!screen.widget->canUndo());
        QTest::keyClick(&screen.view(), Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW1")), QStringLiteral("12,6"));
    }

    void undoIsAboutTheMacrosWhereTheyHaveTheFocus() {
        Screen screen;
        screen.press("NewMacro");
        screen.clickHeading("ROW1");
        screen.pressAll({"cmdOpa", "cmdOpe 7", "cmdOpa", "RunMacro"});
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW1")), QStringLiteral("7"));
        QAction* const undo = screen.widget->action(Command::Undo);
        for (QWidget* focused :
             {static_cast<QWidget*>(&screen.list()), static_cast<QWidget*>(screen.widget->findChild<TreeView*>())}) {
            focused->setFocus();
            QTest::keyClick(focused, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(screen.lines(), (QStringList{"Macro 1", QStringLiteral("Line 1 = …")}));
            QTest::keyClick(focused, Qt::Key_Y, Qt::ControlModifier);
            QCOMPARE(screen.lines(), (QStringList{"Macro 1", "Line 1 = 7", "7"}));
            QVERIFY(!screen.widget->canRedo());
        }
        for (const int left : {2, 1, 0}) {
            QVERIFY2(undo->isEnabled(), qPrintable(QString::number(left)));
            undo->trigger();
            QCoreApplication::processEvents();
        }
        QVERIFY2(!undo->isEnabled(), "though there is a value to take back");
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW1")), QStringLiteral("7"));
        screen.view().setFocus();
        QCoreApplication::processEvents();
        QVERIFY(undo->isEnabled());
        undo->trigger();
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW1")), QStringLiteral("12"));
    }

    void aLongSentenceTakesSeveralRows() {
        Screen screen;
        screen.press("NewMacro");
        screen.clickHeading("ROW1");
        screen.press("cmdOpa");
        const auto height = [&](int line) {
            return screen.list().visualRect(screen.list().model()->index(line, 0)).height();
        };
        const int oneRow = height(0);
        for (int i = 0; i < 4; ++i) {
            screen.press("cmdOpa");
            screen.press("cmdOpe +");
        }
        screen.pressAll({"cmdOpe 1", "cmdOpa"});
        QCOMPARE(height(0), oneRow);
        QVERIFY(height(1) > oneRow);
        screen.widget->resize(3000, 800);
        QTRY_COMPARE(height(1), oneRow);
    }

    void linesAreChosenMovedRenamedAndDeleted() {
        Screen screen;
        screen.press("NewMacro");
        for (const char* row : {"ROW1", "ROW2"}) {
            screen.clickHeading(row);
            screen.press("cmdOpa");
            screen.pressAll({"cmdOpe 3", "cmdOpe ↵"});
        }
        QCOMPARE(screen.lines(), (QStringList{"Macro 1", "Line 1 = 3", "3", "Line 2 = 3", "3"}));
        screen.clickLine(3);
        QCOMPARE(screen.macros().Current(), 3);
        QTest::keyClick(&screen.list(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(screen.lines()[1], QStringLiteral("Line 2 = 3"));
        screen.clickLine(0);
        QTest::keyClick(&screen.list(), Qt::Key_F2);
        WidgetOnScreen::press(QStringLiteral("<Ctrl+A>Plan<Enter>"));
        QTRY_COMPARE(screen.lines()[0], QStringLiteral("Plan"));
        screen.clickLine(4);
        QTest::keyClick(&screen.list(), Qt::Key_Delete);
        QCOMPARE(screen.lines(), (QStringList{"Plan", "Line 2 = 3", "3", "Line 1 = …"}));
        screen.press("GENERATE");
        QVERIFY(screen.message().contains(QLatin1String("has no value yet")));
        savePicture(*screen.widget, QStringLiteral("macro-editor-problem"));
        screen.clickLine(3);
        screen.press("INACTIVE");
        screen.press("GENERATE");
        QCOMPARE(screen.message(), QStringLiteral("The macro can run."));
        screen.clickLine(0);
        screen.platform.answer = MessageAnswer::Yes;
        screen.press("Delete");
        QVERIFY(screen.lines().isEmpty());
        QVERIFY(!screen.widget->findChild<QAbstractButton*>(QStringLiteral("RunMacro"))->isEnabled());
    }

    void theFieldCompletesLinesAndTakesThemByEnter() {
        Screen screen;
        screen.press("NewMacro");
        screen.field().setFocus();
        QTest::keyClicks(&screen.field(), QStringLiteral("line 3"));
        QCOMPARE(screen.field().completer()->currentCompletion(), QStringLiteral("Line 3"));
        screen.field().completer()->popup()->hide();
        QTest::keyClick(&screen.field(), Qt::Key_Return);
        QCOMPARE(screen.lines().last(), QStringLiteral("Line 3 = …"));
        QTest::keyClicks(&screen.field(), QStringLiteral("nothing"));
        screen.field().completer()->popup()->hide();
        QTest::keyClick(&screen.field(), Qt::Key_Return);
        QVERIFY(screen.message().startsWith(QLatin1String("There is no line")));
        QCOMPARE(screen.field().text(), QStringLiteral("nothing"));
    }

    void everyButtonHasANameAndTheListSpeaks() {
        Screen screen;
        screen.press("NewMacro");
        screen.clickHeading("ROW1");
        screen.press("cmdOpa");
        for (const QWidget* pane : {static_cast<QWidget*>(screen.widget->findChild<MacroPane*>()),
                                    static_cast<QWidget*>(screen.widget->findChild<OperandPane*>())}) {
            for (const QAbstractButton* button : pane->findChildren<QAbstractButton*>()) {
                QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
            }
        }
        screen.press("GENERATE");
        const QString spoken = screen.list().model()->index(1, 0).data(Qt::AccessibleTextRole).toString();
        QVERIFY2(spoken.startsWith(QStringLiteral("Level 1: Line 1 = …, problem: ")), qPrintable(spoken));
    }

    void theHostMayEndTheControlFromInsideAnEvent() {
        for (const char* name : {"NewMacro", "cmdOpa"}) {
            Screen screen;
            if (qstrcmp(name, "NewMacro") != 0) {
                screen.press("NewMacro");
                screen.clickHeading("ROW1");
            }
            connect(screen.widget.get(), &PlanViewWidget::MacroTreeExpand, screen.widget.get(),
                    [&screen] { screen.widget.reset(); });
            screen.press(name);
            QVERIFY(!screen.widget);
        }
    }

    void panesArePaintedWithoutBeingShown() {
        PlanViewWidget widget;
        test::Tables tables;
        tables.AddColumn(1, "Jan");
        tables.AddLine(1, "Retail");
        tables.GiveTo(widget.control());
        widget.setColorScheme(PlanViewWidget::ColorScheme::Light);
        widget.plv_LayoutMode();
        widget.plv_LayoutShow();
        widget.DP_Import_Create();
        ControlParts(widget.control()).Editor().NewMacro();
        const QImage picture = widget.renderToImage(QSize(1280, 800));
        const QRect editor(0, 600, 220, 190);
        QVERIFY(countColor(picture, editor, GridTheme::light().accentTint) > 100);
    }
};

}  // namespace planview

QTEST_MAIN(planview::MacroPanesTest)
#include "MacroPanesTest.moc"
