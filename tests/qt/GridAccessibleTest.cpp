// SPDX-License-Identifier: MIT
#include <QAccessible>

#include "qt/GridOnScreen.h"

namespace planview {

/// The grid as a screen reader finds it.
class GridAccessibleTest : public QObject {
    Q_OBJECT

private:
    static QAccessibleInterface* interfaceOf(GridOnScreen& screen) {
        return QAccessible::queryAccessibleInterface(&screen.view());
    }
    static QAccessibleTableInterface* tableOf(GridOnScreen& screen) { return interfaceOf(screen)->tableInterface(); }

private slots:
    void initTestCase() { useTestFont(); }

    void theGridIsATable() {
        GridOnScreen screen;
        QAccessibleInterface* grid = interfaceOf(screen);
        QVERIFY(grid && grid->isValid());
        QCOMPARE(grid->role(), QAccessible::Table);
        QVERIFY(!grid->text(QAccessible::Name).isEmpty());
        // Behind the labels FLC1, twenty planning columns and FRC1; below the headings FTR1, forty rows and FBR1.
        QCOMPARE(tableOf(screen)->columnCount(), 22);
        QCOMPARE(tableOf(screen)->rowCount(), 42);
        QCOMPARE(grid->childCount(), 23 * 43);
        screen.set({"COL4", {}}, GridAttribute::Hidden, true);
        QCOMPARE(tableOf(screen)->columnCount(), 21);
        QCOMPARE(tableOf(screen)->columnDescription(4), QStringLiteral("Period COL5"));
    }

    void cellsHaveTextsAndNamedHeaders_data() {
        QTest::addColumn<bool>("switched");
        QTest::newRow("normal") << false;
        QTest::newRow("switched") << true;
    }
    void cellsHaveTextsAndNamedHeaders() {
        QFETCH(bool, switched);
        GridOnScreen screen(switched);
        QAccessibleTableInterface* table = tableOf(screen);
        // COL3/ROW5, which is out of sight when switched or not: position counts, not visibility.
        QAccessibleInterface* cell = switched ? table->cellAt(3, 5) : table->cellAt(5, 3);
        QVERIFY(cell && cell->isValid());
        QCOMPARE(cell->role(), QAccessible::Cell);
        QCOMPARE(cell->text(QAccessible::Name), QStringLiteral("3,5"));
        QCOMPARE(cell->text(QAccessible::Value), QStringLiteral("3,5"));
        QAccessibleTableCellInterface* inTable = cell->tableCellInterface();
        QVERIFY(inTable);
        QAccessibleInterface* columnHeader = inTable->columnHeaderCells().value(0);
        QAccessibleInterface* rowHeader = inTable->rowHeaderCells().value(0);
        QVERIFY(columnHeader && rowHeader);
        QCOMPARE(columnHeader->role(), QAccessible::ColumnHeader);
        QCOMPARE(rowHeader->role(), QAccessible::RowHeader);
        const QString period = QStringLiteral("Period COL3");
        const QString line = QStringLiteral("Line ROW5");
        QCOMPARE(columnHeader->text(QAccessible::Name), switched ? line : period);
        QCOMPARE(rowHeader->text(QAccessible::Name), switched ? period : line);
        QCOMPARE(cell->text(QAccessible::Description),
                 rowHeader->text(QAccessible::Name) + QStringLiteral(", ") + columnHeader->text(QAccessible::Name));
    }

    void childrenAndTheirPlacesAgree() {
        GridOnScreen screen;
        QAccessibleInterface* grid = interfaceOf(screen);
        for (const int index : {0, 1, 22, 23, 24, 100, 23 * 43 - 1}) {
            QAccessibleInterface* child = grid->child(index);
            QVERIFY(child);
            QCOMPARE(grid->indexOfChild(child), index);
            QCOMPARE(child->parent(), grid);
        }
        QVERIFY(!grid->child(-1) && !grid->child(23 * 43));
        QVERIFY(!tableOf(screen)->cellAt(42, 0) && !tableOf(screen)->cellAt(0, 22) && !tableOf(screen)->cellAt(-1, 0));
        QVERIFY(tableOf(screen)->cellAt(3, 4) == tableOf(screen)->cellAt(3, 4));
    }

    void aCellIsFoundWhereItStands() {
        GridOnScreen screen;
        screen.view().scrollBy(1, 2);
        QAccessibleInterface* cell = tableOf(screen)->cellAt(5, 3);
        const QRect place = cell->rect();
        QCOMPARE(place.size(), QSize(GridOnScreen::ColumnWidth, GridOnScreen::RowHeight));
        QCOMPARE(interfaceOf(screen)->childAt(place.center().x(), place.center().y()), cell);
        QVERIFY(!cell->state().offscreen);
        QVERIFY(tableOf(screen)->cellAt(1, 1)->state().offscreen);
    }

    void focusAndSelectionAreTold() {
        GridOnScreen screen;
        screen.view().selectCurrent(screen.cell(3, 5), SelectionMode::Replace);
        screen.view().selectCurrent(screen.cell(4, 6), SelectionMode::Extend);
        QAccessibleTableInterface* table = tableOf(screen);
        // The far end, as in Qt's own tables: that is where the next key goes on from.
        QCOMPARE(interfaceOf(screen)->focusChild(), table->cellAt(6, 4));
        QVERIFY(table->cellAt(6, 4)->state().focused && !table->cellAt(5, 3)->state().focused);
        QCOMPARE(table->selectedCellCount(), 4);
        QVERIFY(table->cellAt(5, 3)->state().selected && !table->cellAt(5, 5)->state().selected);
        QVERIFY(table->selectColumn(2) && table->selectRow(3));
        QVERIFY(screen.isSelected("COL2", "") && screen.isSelected("", "ROW3"));
        QVERIFY(table->isColumnSelected(2) && table->isRowSelected(3));
        QCOMPARE(table->selectedColumns(), QList<int>{2});
        QVERIFY(table->unselectColumn(2));
        QVERIFY(!screen.isSelected("COL2", ""));
        QVERIFY(!table->selectColumn(99));
    }

    void readOnlyCellsSaySo() {
        GridOnScreen screen;
        screen.set({{}, "ROW5"}, GridAttribute::ReadOnly, true);
        QVERIFY(tableOf(screen)->cellAt(5, 3)->state().readOnly);
        QVERIFY(!tableOf(screen)->cellAt(6, 3)->state().readOnly);
    }

    /// A reader may keep a cell while the host builds the grid anew or ends the view.
    void aKeptCellOutlivesItsGrid() {
        GridOnScreen screen;
        QAccessibleInterface* cell = tableOf(screen)->cellAt(40, 20);
        QVERIFY(cell->isValid());
        GridOnScreen::require(screen.grid().Destroy(true));
        QVERIFY(!cell->isValid());
        QVERIFY(cell->text(QAccessible::Name).isEmpty() && cell->rect().isEmpty() && cell->state().invalid);
        QCOMPARE(interfaceOf(screen)->childCount(), 0);
    }
};

}  // namespace planview

QTEST_MAIN(planview::GridAccessibleTest)
#include "GridAccessibleTest.moc"
