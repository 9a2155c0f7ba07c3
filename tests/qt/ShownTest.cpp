// SPDX-License-Identifier: MIT
#include <limits>

#include "components/TreeControl.h"
#include "layout/PaneLayout.h"
#include "qt/WidgetOnScreen.h"
#include "qt/WidgetState.h"

namespace planview {

using Screen = WidgetOnScreen;

/// The view put away and brought back, parts of it read again, and what the widget says of failures.
class ShownTest : public QObject {
    Q_OBJECT

    /// The view as the host's user has left it.
    static void arrange(Screen& screen) {
        GridControl& grid = screen.grid();
        grid.MoveColumn("COL4", 1, true);
        grid.MoveRow("ROW1", 3, true);
        grid.SetAttribute(GridElement::Column, {"COL2", {}}, GridAttribute::Width, 133, true);
        grid.SetAttribute(GridElement::Row, {{}, "ROW3"}, GridAttribute::Height, 44, true);
        grid.SetAttribute(GridElement::Column, {"FRC1", {}}, GridAttribute::Width, 71, true);
        grid.SetAttribute(GridElement::Grid, {}, GridAttribute::LabelColumnWidth, 222, true);
        grid.SetFirstColumn("COL1", true);
        ControlParts(screen.widget->control()).Panes().MoveSplitter(Splitter::GridSplit, 333);
        screen.widget->setTextScale(1.25);
    }
    static QString shown(Screen& screen) {
        const KeptView view = ViewOf(screen.grid());
        QString text = QStringLiteral("%1 %2").arg(view.labelWidth).arg(QString::fromStdString(view.firstColumn));
        for (const auto* tracks : {&view.columns, &view.rows}) {
            for (const KeptView::Track& track : *tracks) {
                text += QStringLiteral(" %1:%2x%3")
                            .arg(QString::fromStdString(track.key))
                            .arg(track.width)
                            .arg(track.height);
            }
        }
        const int position = ControlParts(screen.widget->control()).Panes().Position(Splitter::GridSplit);
        return text + QStringLiteral(" %1 %2").arg(position).arg(screen.widget->textScale());
    }

private slots:
    void initTestCase() { useTestFont(); }

    void theViewComesBackInAnotherWidget() {
        Screen first;
        const QString usual = shown(first);
        arrange(first);
        const QString arranged = shown(first);
        QVERIFY(arranged != usual);
        const QByteArray state = first.widget->saveState();
        Screen second;
        QVERIFY(second.widget->restoreState(state));
        QCOMPARE(shown(second), arranged);
        QCOMPARE(second.widget->saveState(), state);
        QCOMPARE(second.tables.colsIndex->Value(2, "COL_WIDTH"), first.tables.colsIndex->Value(2, "COL_WIDTH"));
        QVERIFY(second.heard.isEmpty());
    }

    void openNodesOfTheMacroTreeComeBack() {
        Screen screen;
        for (const auto& [key, parent] : {std::pair("a", ""), std::pair("b", "a"), std::pair("c", "")}) {
            test::AddRow(*screen.tables.macroTree,
                         {{"NODEKEY", key}, {"NODEREF", parent}, {"RELATION", *parent ? 4 : 1}, {"NODETEXT", key}});
        }
        screen.widget->DP_Import_MacroTree();
        const auto node = [&] { return ControlParts(screen.widget->control()).Tree().Nodes().Item("a"); };
        node().SetExpanded(true);
        const QByteArray open = screen.widget->saveState();
        node().SetExpanded(false);
        QVERIFY(screen.widget->restoreState(open));
        QVERIFY(node().Expanded());
    }

    void whatIsNoLongerThereIsPassedOver() {
        Screen first;
        arrange(first);
        const QByteArray state = first.widget->saveState();
        Screen second;
        second.tables.colsIndex->RemoveRow(4);
        second.tables.AddColumn(9, "New");
        second.widget->DP_Import_Create();
        QVERIFY(second.widget->restoreState(state));
        QCOMPARE(second.grid().Column(second.grid().FindColumn("COL2").value()).width, 133);
        QCOMPARE(second.grid().Columns(ColumnArea::Center).size(), std::size_t{4});
        QVERIFY(second.widget->restoreState(PlanViewWidget().saveState()));
        QCOMPARE(second.grid().Columns(ColumnArea::Center).size(), std::size_t{4});
    }

    void garbageIsRefusedAndChangesNothing() {
        Screen screen;
        arrange(screen);
        const QByteArray state = screen.widget->saveState();
        screen.widget->DP_Import_Create();
        const QString before = shown(screen);
        QVector<QByteArray> garbage{{},          "garbage",    QByteArray(1000, '\0'), QByteArray(1000, '\xff'),
                                    state + 'x', state + state};
        for (qsizetype length = 0; length < state.size(); ++length) {
            garbage << state.left(length);
        }
        for (qsizetype at = 0; at < state.size(); ++at) {
            for (const char mask : {'\x01', '\x80', '\xff'}) {
                QByteArray damaged = state;
                damaged[at] = static_cast<char>(damaged[at] ^ mask);
                garbage << damaged;
            }
        }
        // Whole states that nothing could have put away.
        const auto with = [](const auto& spoil) {
            WidgetState spoilt;
            spoilt.grid.labelWidth = 100;
            spoilt.splitters.fill(500);
            spoil(spoilt);
            return toBytes(spoilt);
        };
        QVERIFY(widgetStateFrom(with([](WidgetState&) {})));
        garbage << with([](WidgetState& one) { one.scale = 0; })
                << with([](WidgetState& one) { one.scale = std::numeric_limits<double>::quiet_NaN(); })
                << with([](WidgetState& one) { one.splitters[1] = 1001; })
                << with([](WidgetState& one) { one.grid.labelWidth = -1; }) << with([](WidgetState& one) {
                       one.grid.columns = {{"COL1", 0, 20}};
                   })
                << with([](WidgetState& one) {
                       one.grid.rows = {{"", 20, 20}};
                   })
                << with([](WidgetState& one) { one.grid.firstRow = "\xff"; });
        for (const QByteArray& bytes : garbage) {
            QVERIFY2(!screen.widget->restoreState(bytes), bytes.toHex());
        }
        QCOMPARE(shown(screen), before);
        QVERIFY(screen.widget->restoreState(state));
    }

    void anEntryThatIsOpenOutlivesAnUpdate() {
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("77"));
        for (std::int32_t row = 1; row <= screen.tables.tab->RowCount(); ++row) {
            screen.tables.tab->SetValue(row, "V", 5);
        }
        screen.tables.colsIndex->SetValue(2, "COL_WIDTH", 60);
        screen.widget->updateCells({{"COL1", "ROW1"}, {"COL2", "ROW2"}});
        screen.widget->updateColumns({QStringLiteral("COL2")});
        screen.widget->updateRows({QStringLiteral("ROW2")});
        QVERIFY(screen.editor());
        QCOMPARE(screen.editor()->text(), QStringLiteral("77"));
        QCOMPARE(screen.contents(QStringLiteral("COL1/ROW1")), QStringLiteral("5"));
        QCOMPARE(screen.widget->cellText(QStringLiteral("COL2"), QStringLiteral("ROW3")), QStringLiteral("5"));
        QCOMPARE(screen.widget->cellValue(QStringLiteral("COL3"), QStringLiteral("ROW3")), QVariant(33.0));
        Screen::press(QStringLiteral("<Enter>"));
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW2")), QStringLiteral("77"));
    }

    void pendingMarksFollowAnUpdate() {
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("77<Enter>"));
        QCOMPARE(screen.widget->pendingChanges(), 1);
        for (std::int32_t row = 1; row <= screen.tables.tab->RowCount(); ++row) {
            screen.tables.tab->SetValue(row, "V", 22);
        }
        screen.widget->updateCells({{"COL2", "ROW2"}});
        QCOMPARE(screen.widget->pendingChanges(), 0);
    }

    void failuresAreASignal() {
        Screen screen;
        QSignalSpy spy(screen.widget.get(), &PlanViewWidget::failed);
        screen.tables.tab->SetValue(3, "V", "n/a");
        screen.widget->DP_Import_Create();
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy[0].mid(0, 3), (QVariantList{QStringLiteral("TAB"), QStringLiteral("V"), 3}));
        connect(screen.widget.get(), &PlanViewWidget::failed, this, [&screen] { screen.widget.reset(); });
        screen.widget->DP_Import_Create();
        QVERIFY(!screen.widget);
    }
};

}  // namespace planview

QTEST_MAIN(planview::ShownTest)
#include "ShownTest.moc"
