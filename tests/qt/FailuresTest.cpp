// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <functional>
#include <stdexcept>

#include "dialogs/frmGrid.h"
#include "macro/tree/MacroToolbar.h"
#include "qt/ChartOnScreen.h"
#include "qt/TreeOnScreen.h"
#include "qt/dialogs/ColorButton.h"
#include "qt/dialogs/FormDialog.h"
#include "qt/platform/QtForms.h"
#include "trace/frmTrace.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

/// A host that fails at the first thing it hears and hears the others without fail.
class Host {
public:
    void hear() {
        if (++heard_ == 1) {
            throw std::runtime_error("the host fails");
        }
    }
    [[nodiscard]] int heard() const { return heard_; }

private:
    int heard_ = 0;
};

class GridListener final : public ReportLog {
public:
    void SelectionChanged(const CellKey&, bool) override { host.hear(); }
    void TextEntered(const CellKey&, const std::string&) override { host.hear(); }
    void DoubleClick(const CellKey&) override { host.hear(); }
    void MouseDown(const CellKey&, MouseButton, ShiftState) override { host.hear(); }
    void MenuKey(const CellKey&) override { host.hear(); }
    Host host;
};

class TreeListener final : public TreeEvents {
public:
    bool BeforeLabelEdit(const std::string&) override { return true; }
    void AfterLabelEdit(const std::string&, const std::string&, const std::string&) override { host.hear(); }
    void Collapse(const std::string&) override {}
    void Expand(const std::string&) override {}
    void DblClick(const std::string&) override {}
    void MouseDown(const std::string&, MouseButton, ShiftState) override { host.hear(); }
    void MenuKey(const std::string&) override { host.hear(); }
    void NodeClick(const std::string&, bool) override {}
    void NodeDropped(const std::string&, const std::string&, TreeDrop) override {}
    void GotFocus() override {}
    void LostFocus() override {}
    Host host;
};

/// "GRIDCTL KeyPress" for each failure in the trace, which is empty afterwards.
QString failures() {
    QStringList found;
    ListView& trace = frmTrace::Share()->TraceView;
    for (std::size_t i = 0; i < trace.Count(); ++i) {
        const ListItem& entry = trace.Item(i);
        if (entry.subItems[0] == "ERROR" && entry.subItems[2] == "{error: the host fails}") {
            found << QString::fromStdString(entry.text + " " + entry.subItems[1]);
        }
    }
    trace.Clear();
    return found.join(QStringLiteral(", "));
}

/// Runs the input until the host has heard of it and failed, then once more: the widget goes on.
template <class Input>
void failAndGoOn(const Host& host, const Input& input, const QString& named) {
    input();
    QTRY_VERIFY(host.heard() >= 1);
    QCOMPARE(failures(), named);
    const int before = host.heard();
    input();
    QTRY_VERIFY2(host.heard() > before, "the widget no longer works");
    QCOMPARE(failures(), QString());
}

}  // namespace

/// Whatever fails below a call from Qt ends there: the program lives, the trace names the handler, the widget goes on.
class FailuresTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }
    void init() {
        platform_.answer = MessageAnswer::No;
        modPlan::Trace_Enable(platform_.Interfaces());
        frmTrace::Share()->TraceView.Clear();
    }
    void cleanup() {
        if (modPlan::TraceEnabled) {
            modPlan::Trace_Disable(platform_.Interfaces());
        }
    }

    void inTheGrid_data() {
        using Input = std::function<void(GridOnScreen&)>;
        QTest::addColumn<QString>("named");
        QTest::addColumn<Input>("input");
        const auto add = [](const char* what, const char* named, Input input) {
            QTest::newRow(what) << QString::fromLatin1(named) << std::move(input);
        };
        add("click", "GRIDCTL MouseButtonPress", [](GridOnScreen& screen) {
            QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        });
        add("double click", "GRIDCTL MouseButtonDblClick", [](GridOnScreen& screen) {
            QMouseEvent event(QEvent::MouseButtonDblClick, screen.middle(screen.cell(2, 3)),
                              screen.port()->mapToGlobal(screen.middle(screen.cell(2, 3))), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(screen.port(), &event);
            QTest::mouseRelease(screen.port(), Qt::LeftButton);
        });
        add("key", "GRIDCTL KeyPress", [](GridOnScreen& screen) { QTest::keyClick(&screen.view(), Qt::Key_Right); });
        add("menu key", "GRIDCTL KeyPress",
            [](GridOnScreen& screen) { QTest::keyClick(&screen.view(), Qt::Key_Menu); });
        add("end of an entry", "GRIDCTL KeyPress", [](GridOnScreen& screen) {
            const std::string before = screen.grid().Contents(*screen.grid().CurrentCell());
            QTest::keyClicks(&screen.view(), QString::fromStdString(before + "1"));
            QTest::keyClick(screen.view().editor().line(), Qt::Key_Return);
        });
    }
    void inTheGrid() {
        QFETCH(QString, named);
        QFETCH(std::function<void(GridOnScreen&)>, input);
        GridListener listener;
        GridOnScreen screen;
        screen.grid().SetEvents(&listener);
        failAndGoOn(
            listener.host, [&] { input(screen); }, named);
    }

    void whileTheGridScrollsByItself() {
        GridListener listener;
        GridOnScreen screen;
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        moveMouse(screen.port(), QPoint(screen.port()->width() + 20, 100), Qt::LeftButton);
        screen.grid().SetEvents(&listener);
        QTRY_VERIFY(listener.host.heard() >= 2);
        QCOMPARE(failures(), QStringLiteral("GRIDCTL Timer"));
    }

    void whenAnEntryEndsOutOfSight() {
        GridListener listener;
        GridOnScreen screen;
        QTest::keyClicks(&screen.view(), QStringLiteral("77"));
        screen.grid().SetEvents(&listener);
        screen.view().horizontalScrollBar()->setValue(5);
        QTRY_VERIFY(listener.host.heard() >= 1);
        QCOMPARE(failures(), QStringLiteral("GRIDCTL FinishOutOfSight"));
        QVERIFY(!screen.view().editor().isOpen());
    }

    void underAnAssistiveTool() {
        Host host;
        GridOnScreen screen;
        connect(&screen.view(), &GridView::gridChanged, this, [&] { host.hear(); });
        QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&screen.view())->tableInterface();
        QVERIFY(!table->selectRow(2));
        QCOMPARE(failures(), QStringLiteral("GRIDCTL Accessible"));
        QVERIFY(table->selectRow(3));
        QCOMPARE(table->selectedRows(), (QList<int>{2, 3}));
    }

    void inTheChart_data() {
        using Input = std::function<void(ChartOnScreen&)>;
        QTest::addColumn<QString>("named");
        QTest::addColumn<Input>("input");
        QTest::newRow("click") << "CHART MouseButtonPress" << Input([](ChartOnScreen& screen) {
            QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.grip(1, 2));
        });
        QTest::newRow("key") << "CHART KeyPress"
                             << Input([](ChartOnScreen& screen) { QTest::keyClick(&screen.view(), Qt::Key_Right); });
    }
    void inTheChart() {
        QFETCH(QString, named);
        QFETCH(std::function<void(ChartOnScreen&)>, input);
        Host host;
        ChartOnScreen screen;
        screen.log.onSelect = [&] { host.hear(); };
        failAndGoOn(
            host, [&] { input(screen); }, named);
    }

    void inTheTree_data() {
        using Input = std::function<void(TreeOnScreen&)>;
        QTest::addColumn<QString>("named");
        QTest::addColumn<Input>("input");
        QTest::newRow("click") << "MACROTREE MouseButtonPress"
                               << Input([](TreeOnScreen& screen) { screen.click("M2"); });
        QTest::newRow("menu key") << "MACROTREE ContextMenu" << Input([](TreeOnScreen& screen) {
            QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
            QApplication::sendEvent(&screen.view(), &event);
        });
        QTest::newRow("label") << "MACROTREE EndLabelEdit" << Input([](TreeOnScreen& screen) {
            const std::string text = screen.node("M2").Text();
            screen.tree().Nodes().Item("M2").SetSelected(true);
            QTest::keyClick(&screen.view(), Qt::Key_F2);
            QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(text) + QLatin1Char('x'));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
    }
    void inTheTree() {
        QFETCH(QString, named);
        QFETCH(std::function<void(TreeOnScreen&)>, input);
        TreeListener listener;
        TreeOnScreen screen;
        screen.tree().SetEvents(&listener);
        failAndGoOn(
            listener.host, [&] { input(screen); }, named);
    }

    void inTheToolbar() {
        MacroToolbar toolbar;
        GridBitmaps bitmaps;
        Host host;
        ToolbarView view(toolbar, bitmaps, [&] {
            host.hear();
            return std::string("COL1/ROW1");
        });
        view.show();
        failAndGoOn(
            host, [&] { view.findChild<QToolButton*>(QStringLiteral("SELECTION"))->click(); },
            QStringLiteral("TREETOOL HandOverSelection"));
    }

    void inADialog() {
        QWidget window;
        QtForms forms(window);
        Host host;
        frmGrid form(forms, [&](const ColorQuestion&) -> std::optional<int> {
            host.hear();
            return 4;
        });
        forms.Load(form);
        auto* dialog = window.findChild<FormDialog*>();
        QVERIFY(dialog);
        dialog->show();
        auto* color = dialog->findChild<ColorButton*>();
        QVERIFY(color);
        failAndGoOn(
            host, [&] { color->click(); }, QStringLiteral("FRMGRID ChooseColor"));
        forms.Unload(form);
    }

    /// By then only the event loop stands below it.
    void inASlotOfTheHost() {
        Host host;
        WidgetOnScreen screen;
        QCoreApplication::processEvents();
        connect(screen.widget.get(), &PlanViewWidget::selectionSummaryChanged, this, [&] { host.hear(); });
        const QStringList places{QStringLiteral("COL2/ROW2"), QStringLiteral("COL3/ROW3")};
        qsizetype next = 0;
        failAndGoOn(
            host,
            [&] {
                screen.goTo(places[next++]);
                QCoreApplication::processEvents();
            },
            QStringLiteral("USERCONTROL UpdateStatus"));
        QCOMPARE(screen.widget->currentCellName(), QStringLiteral("Line 3 · Month 3"));
    }

private:
    test::ScriptedPlatform platform_;
};

}  // namespace planview

Q_DECLARE_METATYPE(std::function<void(planview::GridOnScreen&)>)
Q_DECLARE_METATYPE(std::function<void(planview::ChartOnScreen&)>)
Q_DECLARE_METATYPE(std::function<void(planview::TreeOnScreen&)>)

QTEST_MAIN(planview::FailuresTest)
#include "FailuresTest.moc"
