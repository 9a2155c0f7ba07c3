// SPDX-License-Identifier: MIT
#include <QClipboard>

#include <malloc.h>

#include "qt/WidgetOnScreen.h"

namespace planview {

/// The widget ends inside an event that its own input has raised, on its way through view, control and host.
class WidgetLifeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void endedByItsOwnEvent_data() {
        QTest::addColumn<QString>("keys");
        QTest::newRow("value and Enter") << QStringLiteral("7<Enter>");
        QTest::newRow("value and Tab") << QStringLiteral("7<Tab>");
        QTest::newRow("Enter alone") << QStringLiteral("<Enter>");
        QTest::newRow("Delete") << QStringLiteral("<Delete>");
        QTest::newRow("paste") << QStringLiteral("<Ctrl+V>");
        QTest::newRow("cut") << QStringLiteral("<Ctrl+X>");
    }
    void endedByItsOwnEvent() {
        QFETCH(QString, keys);
        WidgetOnScreen screen;
        const auto end = [&] { screen.widget.reset(); };
        connect(screen.widget.get(), &PlanViewWidget::GridValueChanged, this, end);
        connect(screen.widget.get(), &PlanViewWidget::GridStartUpdate, this, end);
        connect(screen.widget.get(), &PlanViewWidget::GridReturnKeyPressed, this, end);
        screen.goTo(QStringLiteral("COL2/ROW2"));
        QApplication::clipboard()->setText(QStringLiteral("1\t2\n3\t4"));
        WidgetOnScreen::press(keys);
        QVERIFY2(!screen.widget, "the input raised no event");
        QCOMPARE(screen.tables.tab.use_count(), 1L);
    }

    void endedByACommandOfTheHost_data() {
        QTest::addColumn<void (PlanViewWidget::*)()>("command");
        QTest::newRow("hide") << &PlanViewWidget::hideRows;
        QTest::newRow("chart") << &PlanViewWidget::switchChart;
        QTest::newRow("delete") << &PlanViewWidget::deleteContents;
        QTest::newRow("paste") << &PlanViewWidget::paste;
    }
    void endedByACommandOfTheHost() {
        using Slot = void (PlanViewWidget::*)();
        QFETCH(Slot, command);
        WidgetOnScreen screen;
        const auto end = [&] { screen.widget.reset(); };
        connect(screen.widget.get(), &PlanViewWidget::GridValueChanged, this, end);
        connect(screen.widget.get(), &PlanViewWidget::GridStartUpdate, this, end);
        screen.goTo(QStringLiteral("COL2/ROW2"));
        QApplication::clipboard()->setText(QStringLiteral("1"));
        (screen.widget.get()->*command)();
        QVERIFY2(!screen.widget, "the command raised no event");
    }

    void askedWhileEnding_data() {
        QTest::addColumn<bool>("entryOpen");
        QTest::newRow("plain") << false;
        QTest::newRow("with an open entry") << true;
    }
    /// The control asks about the trace. While it waits the desktop changes its palette, windows are painted and
    /// resized, and a timer of the host calls members.
    void askedWhileEnding() {
        QFETCH(bool, entryOpen);
        WidgetOnScreen screen;
        screen.widget->setColorScheme(PlanViewWidget::ColorScheme::System);
        screen.widget->plv_EnableTrace();
        screen.goTo(QStringLiteral("COL2/ROW2"));
        QAction* undo = screen.widget->action(Command::Undo);
        QVERIFY(undo);
        if (entryOpen) {
            WidgetOnScreen::press(QStringLiteral("7"));
            QVERIFY(screen.editor());
        }
        screen.heard.clear();
        PlanViewWidget* const widget = screen.widget.get();
        int asked = 0;
        screen.platform.whileAsking = [&] {
            ++asked;
            QVERIFY2(widget->findChild<GridView*>(), "the view is gone before the control");
            QPalette dark = widget->palette();
            dark.setColor(QPalette::Base, Qt::black);
            dark.setColor(QPalette::Text, Qt::white);
            widget->setPalette(dark);
            widget->resize(500, 300);
            QTimer::singleShot(0, widget, [widget] {
                widget->DP_Import_Create();
                widget->setTextScale(1.5);
                widget->hideRows();
                widget->selectCell(QStringLiteral("COL1"), QStringLiteral("ROW1"));
                widget->refreshPendingChanges();
                static_cast<void>(widget->currentCellName() + widget->selectionSum());
                static_cast<void>(widget->canUndo());
                static_cast<void>(widget->grab());
            });
            QApplication::processEvents();
            QApplication::processEvents();
        };
        screen.widget.reset();
        QCOMPARE(asked, 1);
        QCOMPARE(screen.heard.join(QLatin1Char(' ')), QString());
        QCOMPARE(screen.tables.tab.use_count(), 1L);
    }

    void manyLeaveNothingBehind() {
        const auto createAndEnd = [](int count) {
            for (int i = 0; i < count; ++i) {
                WidgetOnScreen screen(false);
                screen.tables.gridAttr->SetValue(1, "CHART", "X");
                screen.widget->DP_Import_Attribute();
                screen.widget->DP_Import_Create();
                static_cast<void>(screen.widget->grab());
            }
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        };
        createAndEnd(10);  // what is made once is made
        const auto widgets = QApplication::allWidgets().size();
        const auto bytes = mallinfo2().uordblks;
        createAndEnd(100);
        QCOMPARE(QApplication::allWidgets().size(), widgets);
        constexpr std::size_t Noise = std::size_t{256} * 1024;  // the toolkit's own caches
        QVERIFY2(mallinfo2().uordblks < bytes + Noise,
                 qPrintable(QStringLiteral("%1 bytes more").arg(mallinfo2().uordblks - bytes)));
    }
};

}  // namespace planview

Q_DECLARE_METATYPE(void (planview::PlanViewWidget::*)())

QTEST_MAIN(planview::WidgetLifeTest)
#include "WidgetLifeTest.moc"
