// SPDX-License-Identifier: MIT
#include <QAction>
#include <QActionGroup>
#include <QClipboard>
#include <QMainWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QVBoxLayout>

#include "qt/WidgetOnScreen.h"

namespace planview {

using Screen = WidgetOnScreen;

/// The commands as actions of a host's menus and tool bars.
class CommandActionsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void everyCommandIsOffered() {
        Screen screen;
        for (const CommandDescription& command : DescribeCommands()) {
            QAction* action = screen.widget->action(command.command);
            QVERIFY(action);
            QCOMPARE(screen.widget->action(command.command), action);
            QVERIFY(!action->text().isEmpty());
            QCOMPARE(action->isCheckable(), command.checkable);
            QCOMPARE(action->shortcut().toString(), QString::fromUtf8(command.key.data(), command.key.size()));
            QCOMPARE(action->icon().isNull(), command.icon.empty());
        }
        QCOMPARE(screen.widget->action(Command::Copy)->text(), QStringLiteral("&Copy"));
        QVERIFY(!screen.widget->action(static_cast<Command>(1000)));
    }

    void stateFollows_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("after");
        const auto row = [](const char* name, Command command, const char* before, const char* keys,
                            const char* after) {
            QTest::newRow(name) << static_cast<int>(command) << before << keys << after;
        };
        row("a change to take back", Command::Undo, "There is no change to take back.", "5<Enter>", "");
        row("taken back", Command::Redo, "There is no change to make again.", "5<Enter><Ctrl+Z>", "");
        row("a line that takes no values", Command::Paste, "", "<Down><Down>", "This cell is read-only.");
        row("several cells", Command::Fill, "Select several cells first; the first one gives the value.",
            "<Shift+Right>", "");
        row("all of them", Command::HideColumns, "Select a column by its heading first.", "<Ctrl+A>",
            "One column has to stay visible.");
        row("text of the entry is selected", Command::Cut, "", "<F2>", "-");
        row("the entry has its own steps", Command::Undo, "There is no change to take back.", "<F2>5", "");
    }
    /// "-": disabled without a reason.
    void stateFollows() {
        QFETCH(int, command);
        QFETCH(QString, before);
        QFETCH(QString, keys);
        QFETCH(QString, after);
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW2"));
        const QAction* action = screen.widget->action(static_cast<Command>(command));
        const auto state = [action] {
            return action->isEnabled()             ? QString()
                   : action->statusTip().isEmpty() ? QStringLiteral("-")
                                                   : action->statusTip();
        };
        QCOMPARE(state(), before);
        QCOMPARE(action->toolTip(), before.isEmpty() ? action->text().remove(QLatin1Char('&')) : before);
        Screen::press(keys);
        QTRY_COMPARE(state(), after);
    }

    void checkMarksAndCaptionsFollow() {
        Screen screen;
        QAction* chart = screen.widget->action(Command::SwitchChart);
        QAction* record = screen.widget->action(Command::StartRecording);
        QVERIFY(!chart->isChecked());
        chart->trigger();
        QVERIFY(chart->isChecked() && screen.widget->chartShown());
        screen.widget->control().View().SwitchChart();
        QTRY_VERIFY(!chart->isChecked());
        QCOMPARE(record->text(), QStringLiteral("&Start recording"));
        record->trigger();
        QVERIFY(!record->isEnabled());
        screen.widget->action(Command::PauseRecording)->trigger();
        QCOMPARE(record->text(), QStringLiteral("Go &on recording"));
        QVERIFY(record->isEnabled());
    }

    void aCommandWithAnArgumentIsTheHostsToRun() {
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW2"));
        QAction* raise = screen.widget->action(Command::Raise);
        connect(raise, &QAction::triggered, screen.widget.get(), [&] { screen.widget->raiseSelected(50); });
        QVERIFY(raise->isEnabled());
        raise->trigger();
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW2")), QStringLiteral("33"));
    }

    void aHostForbidsACommandByAGroup() {
        Screen screen;
        QAction* record = screen.widget->action(Command::StartRecording);
        QActionGroup group(nullptr);
        group.addAction(record);
        group.setEnabled(false);
        screen.widget->startRecording();
        screen.widget->stopRecording();
        QVERIFY(!record->isEnabled());
        group.setEnabled(true);
        QVERIFY(record->isEnabled());
    }

    void selectTheRowAndTheColumnOfTheCurrentCell() {
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW3"));
        const auto selected = [&] {
            return QStringList{screen.grid().IsSelected({"COL2", {}}) ? "column" : "",
                               screen.grid().IsSelected({{}, "ROW3"}) ? "row" : ""}
                .join(QString());
        };
        screen.widget->startRecording();
        Screen::press(QStringLiteral("<Shift+Space>"));
        QCOMPARE(selected(), QStringLiteral("row"));
        QVERIFY(!screen.editor());
        Screen::press(QStringLiteral("<Ctrl+Space>"));
        QCOMPARE(selected(), QStringLiteral("column"));
        screen.widget->action(Command::SelectRow)->trigger();
        QCOMPARE(selected(), QStringLiteral("row"));
        QCOMPARE(screen.tables.lineIndex->Value(3, "ROW_MARKED").AsText(), std::string("X"));
        const test::TableRef& steps = screen.tables.macroRec;
        QCOMPARE(steps->Value(1, "COMMAND").AsText(), std::string("MARK"));
        QCOMPARE(steps->Value(1, "LINE").AsText(), std::string("ROW3"));
        QCOMPARE(screen.widget->recordedSteps(), 1);  // the last selection alone
        Screen::press(QStringLiteral("<F2><Shift+Space>"));
        QCOMPARE(screen.editor()->text(), QStringLiteral("32 "));
    }

    /// Menus show the keys; each key still belongs to the widget that has the keyboard, and works there once.
    void keysStayWithTheFocus() {
        Screen screen;
        QMainWindow window;
        auto* line = new QLineEdit(QStringLiteral("host"), &window);
        auto* central = new QWidget;
        auto* layout = new QVBoxLayout(central);
        layout->addWidget(line);
        layout->addWidget(screen.widget.get());
        window.setCentralWidget(central);
        QMenu* menu = window.menuBar()->addMenu(QStringLiteral("Edit"));
        for (const CommandDescription& command : DescribeCommands()) {
            menu->addAction(screen.widget->action(command.command));
        }
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        line->setFocus();
        line->selectAll();
        Screen::press(QStringLiteral("<Ctrl+X>"));
        QCOMPARE(line->text(), QString());
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("host"));
        Screen::press(QStringLiteral("<Ctrl+Z>"));
        QCOMPARE(line->text(), QStringLiteral("host"));

        screen.goTo(QStringLiteral("COL2/ROW2"));
        window.menuBar()->setFocus();  // as after Esc in a menu
        const QSignalSpy byBar(screen.widget.get(), &PlanViewWidget::GridValueChanged);
        Screen::press(QStringLiteral("<Delete>"));
        QCOMPARE(byBar.size(), 0);

        screen.view().setFocus();
        screen.goTo(QStringLiteral("COL2/ROW2"));
        const QSignalSpy changes(screen.widget.get(), &PlanViewWidget::GridValueChanged);
        Screen::press(QStringLiteral("<Delete>"));
        QCOMPARE(changes.size(), 1);
        Screen::press(QStringLiteral("<Ctrl+Z>"));
        QCOMPARE(changes.size(), 2);
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW2")), QStringLiteral("22"));
        Screen::press(QStringLiteral("<F2><Backspace><Ctrl+Z>"));
        QCOMPARE(screen.editor()->text(), QStringLiteral("22"));
        QCOMPARE(changes.size(), 2);
        Screen::press(QStringLiteral("<Esc>"));
        screen.widget->setParent(nullptr);
    }

    void theyEndWithTheWidget() {
        auto screen = std::make_unique<Screen>();
        QMenu menu;
        QAction* hide = screen->widget->action(Command::SwitchChart);
        menu.addAction(hide);
        connect(hide, &QAction::toggled, this, [&] { screen->widget.reset(); });
        hide->trigger();
        QVERIFY(!screen->widget);
        QVERIFY(menu.isEmpty());
    }

    void aHostThatDeletesOneGetsAnother() {
        Screen screen;
        delete screen.widget->action(Command::Undo);
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("5<Enter>"));
        QApplication::processEvents();
        QVERIFY(screen.widget->action(Command::Undo)->isEnabled());
    }
};

}  // namespace planview

QTEST_MAIN(planview::CommandActionsTest)
#include "CommandActionsTest.moc"
