// SPDX-License-Identifier: MIT
#include <QCursor>
#include <QDrag>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QWheelEvent>

#include "qt/GridOnScreen.h"

namespace planview {

namespace {

using Screen = GridOnScreen;

void drag(QWidget* port, QPoint from, QPoint to) {
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, from);
    moveMouse(port, (from + to) / 2, Qt::LeftButton);
    moveMouse(port, to, Qt::LeftButton);
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, to);
}

void wheel(QWidget* port, QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPointF place = port->rect().center();
    QWheelEvent event(place, port->mapToGlobal(place), pixels, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(port, &event);
}

std::string firstRow(Screen& screen) {
    return screen.grid().Row(*screen.grid().FirstRow()).key;
}

std::string firstColumn(Screen& screen) {
    return screen.grid().Column(*screen.grid().FirstColumn()).key;
}

}  // namespace

/// Selecting, resizing and scrolling with the mouse.
class GridMouseTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void clicksSelectCells() {
        Screen screen;
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        QCOMPARE(screen.current(), QStringLiteral("COL2/ROW3"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::ShiftModifier, screen.middle(screen.cell(4, 6)));
        QVERIFY(screen.isSelected("COL3", "ROW5") && screen.isSelected("COL4", "ROW6"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::ControlModifier, screen.middle(screen.cell(1, 9)));
        QVERIFY(screen.isSelected("COL1", "ROW9") && screen.isSelected("COL3", "ROW5"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::ControlModifier, screen.middle(screen.cell(3, 5)));
        QVERIFY(!screen.isSelected("COL3", "ROW5") && screen.isSelected("COL4", "ROW6"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell("FRC1", "ROW2")));
        QCOMPARE(screen.current(), QStringLiteral("FRC1/ROW2"));
        QVERIFY(!screen.isSelected("COL4", "ROW6"));
    }

    void dragsSelectBlocks() {
        Screen screen;
        drag(screen.port(), screen.middle(screen.cell(4, 6)), screen.middle(screen.cell(2, 3)));
        QCOMPARE(screen.grid().Selection().Ranges().size(), std::size_t{1});
        QVERIFY(screen.isSelected("COL2", "ROW3") && screen.isSelected("COL4", "ROW6"));
        QVERIFY(!screen.isSelected("COL5", "ROW6"));
    }

    void aBlockIsDraggedOutByItsEdge_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("from");
        QTest::addColumn<bool>("out");
        QTest::newRow("allowed, by the edge") << 1 << QStringLiteral("edge") << true;
        QTest::newRow("allowed, inside") << 1 << QStringLiteral("inside") << false;
        QTest::newRow("allowed, beside the block") << 1 << QStringLiteral("beside") << false;
        QTest::newRow("only inside the grid") << 2 << QStringLiteral("edge") << false;
        QTest::newRow("none") << 0 << QStringLiteral("edge") << false;
    }
    void aBlockIsDraggedOutByItsEdge() {
        QFETCH(int, mode);
        QFETCH(QString, from);
        QFETCH(bool, out);
        Screen screen;
        screen.set({}, GridAttribute::DragDrop, static_cast<std::int16_t>(mode));
        drag(screen.port(), screen.middle(screen.cell(2, 3)), screen.middle(screen.cell(3, 4)));
        const QRect first = screen.view().cellRect(screen.cell(2, 3));
        const QPoint start = from == QStringLiteral("edge")     ? QPoint(first.left() + 1, first.center().y())
                             : from == QStringLiteral("inside") ? first.center()
                                                                : QPoint(first.left() - 3, first.center().y());
        QString text;
        QString html;
        screen.view().setDragRunner([&](const QDrag& drag) {
            text = drag.mimeData()->text();
            html = drag.mimeData()->html();
        });
        drag(screen.port(), start, screen.middle(screen.cell(5, 9)));
        QCOMPARE(text, out ? QStringLiteral("2,3\t3,3\n2,4\t3,4\n") : QString());
        QCOMPARE(html.contains(QStringLiteral("<td")), out);
        QCOMPARE(screen.isSelected("COL5", "ROW9"), !out);
    }

    void aClickAtTheEdgeIsAClick() {
        Screen screen;
        screen.set({}, GridAttribute::DragDrop, DragAllowed);
        drag(screen.port(), screen.middle(screen.cell(2, 3)), screen.middle(screen.cell(3, 4)));
        const QPoint edge = screen.view().cellRect(screen.cell(3, 4)).topRight() - QPoint(2, -8);
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, edge);
        QCOMPARE(screen.current(), QStringLiteral("COL3/ROW4"));
        QVERIFY(!screen.isSelected("COL2", "ROW3"));
        QCOMPARE(screen.log().actions.back(), std::string("SimpleClick COL3/ROW4"));
    }

    void whatIsDroppedGoesToTheCellBelow_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("taken");
        QTest::newRow("text") << 1 << QStringLiteral("text/plain") << true;
        QTest::newRow("a picture") << 1 << QStringLiteral("image/png") << false;
        QTest::newRow("only inside the grid") << 2 << QStringLiteral("text/plain") << false;
        QTest::newRow("none") << 0 << QStringLiteral("text/plain") << false;
    }
    void whatIsDroppedGoesToTheCellBelow() {
        QFETCH(int, mode);
        QFETCH(QString, type);
        QFETCH(bool, taken);
        Screen screen;
        screen.set({}, GridAttribute::DragDrop, static_cast<std::int16_t>(mode));
        QMimeData data;
        data.setData(type, "7\t8");
        const QPoint place = screen.middle(screen.cell(4, 5));
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(screen.port(), &enter);
        QCOMPARE(enter.isAccepted(), taken);
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(screen.port(), &drop);
        const auto& actions = screen.log().actions;
        QCOMPARE(!actions.empty() && actions.back().starts_with("Dropped COL4/ROW5"), taken);
        QCOMPARE(screen.current() == QStringLiteral("COL4/ROW5"), taken);
    }

    void headingsSelectColumnsAndRows_data() {
        QTest::addColumn<bool>("switched");
        QTest::newRow("normal") << false;
        QTest::newRow("switched") << true;
    }
    void headingsSelectColumnsAndRows() {
        QFETCH(bool, switched);
        Screen screen(switched);
        const auto columnHeading = [&](int i) { return screen.middle(screen.cell("COL" + std::to_string(i), "FTR0")); };
        const auto rowHeading = [&](int i) { return screen.middle(screen.cell("FLC0", "ROW" + std::to_string(i))); };
        drag(screen.port(), columnHeading(2), columnHeading(4));
        QVERIFY(screen.isSelected("COL2", "") && screen.isSelected("COL3", "") && screen.isSelected("COL4", ""));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::ControlModifier, rowHeading(2));
        QVERIFY(screen.isSelected("COL3", "") && screen.isSelected("", "ROW2"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, rowHeading(1));
        QVERIFY(!screen.isSelected("COL3", "") && screen.isSelected("", "ROW1"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::ShiftModifier, rowHeading(3));
        QVERIFY(screen.isSelected("", "ROW2") && screen.isSelected("", "ROW3"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell("FLC0", "FTR0")));
        QVERIFY(screen.isSelected("COL20", "") && screen.isSelected("", "ROW40"));
    }

    /// The press brings the whole cell into sight and so another one under the pointer.
    void aCellThatIsCutOffIsTheOneThatIsMeant() {
        Screen screen;
        screen.view().resize(680, 393);
        const QPoint end(screen.view().cellRect(screen.cell("FRC1", "ROW1")).left(),
                         screen.view().cellRect(screen.cell("COL1", "FBR1")).top());
        const QPoint place = end - QPoint(6, 3);
        const auto isUnder = [&](int column, int row) {
            return screen.view().cellRect(screen.cell(column, row)).contains(place);
        };
        int number = 0;
        while (number < Screen::Columns * Screen::Rows - 1 &&
               !isUnder(number / Screen::Rows + 1, number % Screen::Rows + 1)) {
            ++number;
        }
        const int column = number / Screen::Rows + 1;
        const int row = number % Screen::Rows + 1;
        const std::string columnKey = "COL" + std::to_string(column);
        const std::string rowKey = "ROW" + std::to_string(row);
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, place);
        QVERIFY2(firstColumn(screen) == "COL2" && firstRow(screen) == "ROW2", "both were cut off");
        moveMouse(screen.port(), place + QPoint(1, 1), Qt::LeftButton);
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, place + QPoint(1, 1));
        QCOMPARE(screen.grid().Selection().Ranges().size(), std::size_t{1});
        QVERIFY2(screen.grid().SelectionEnd() == screen.grid().CurrentCell(),
                 "a pointer that trembles selects nothing");
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, place + QPoint(1, 0));
        QCOMPARE(screen.log().actions.back(), "DoubleClick " + columnKey + "/" + rowKey);
        QVERIFY(screen.view().editor().isOpen());
        QCOMPARE(screen.view().editor().line()->text(), QString("%1,%2").arg(column).arg(row));
        QCOMPARE(screen.current().toStdString(), columnKey + "/" + rowKey);
    }

    /// The menu that follows is about what was clicked.
    void rightClickKeepsASelectionAroundIt() {
        Screen screen;
        drag(screen.port(), screen.middle(screen.cell(2, 3)), screen.middle(screen.cell(4, 6)));
        QTest::mouseClick(screen.port(), Qt::RightButton, Qt::NoModifier, screen.middle(screen.cell(3, 4)));
        QVERIFY(screen.isSelected("COL2", "ROW3"));
        QTest::mouseClick(screen.port(), Qt::RightButton, Qt::NoModifier, screen.middle(screen.cell(1, 9)));
        QVERIFY(!screen.isSelected("COL2", "ROW3") && screen.isSelected("COL1", "ROW9"));
    }

    void draggingBeyondTheCellsScrolls() {
        Screen screen;
        const QPoint start = screen.middle(screen.cell(2, 3));
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, start);
        moveMouse(screen.port(), QPoint(start.x(), screen.port()->height() + 30), Qt::LeftButton);
        QTRY_VERIFY(screen.grid().FirstRow() != screen.grid().FindRow("ROW1"));
        QTRY_VERIFY(screen.isSelected("COL2", "ROW25"));
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, start);
        QVERIFY2(!hasTimers(screen.view()), "it goes on scrolling");
    }

    /// The fixed row stands above the headings; what is dragged along it must not reach down into the scrolled centre.
    void draggingAlongAFixedRowStaysThere() {
        Screen screen;
        screen.view().scrollBy(0, 5);
        drag(screen.port(), screen.middle(screen.cell("COL2", "FTR1")), screen.middle(screen.cell("COL4", "FTR1")));
        QVERIFY(screen.isSelected("COL3", "FTR1") && !screen.isSelected("COL3", "ROW6"));
        QCOMPARE(firstRow(screen), std::string("ROW6"));
        drag(screen.port(), screen.middle(screen.cell("COL2", "ROW7")), screen.middle(screen.cell("COL2", "FTR0")));
        QVERIFY(screen.isSelected("COL2", "ROW6") && !screen.isSelected("COL2", "FTR1"));
    }

    void bordersResize_data() {
        QTest::addColumn<bool>("switched");
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("row");
        QTest::addColumn<bool>("acrossScreen");
        QTest::addColumn<int>("by");
        QTest::addColumn<QString>("event");
        const auto add = [](const char* name, bool switched, const char* column, const char* row, bool across, int by,
                            const char* event) {
            QTest::newRow(name) << switched << column << row << across << by << event;
        };
        add("column wider", false, "COL2", "FTR0", true, 35, "ColumnResized COL2 115");
        add("column narrower", false, "COL2", "FTR0", true, -30, "ColumnResized COL2 50");
        add("row", false, "FLC0", "ROW3", false, 12, "RowResized ROW3 32");
        add("fixed column", false, "FLC1", "FTR0", true, 20, "ColumnResized FLC1 80");
        add("total column grows inwards", false, "FRC1", "FTR0", true, 25, "ColumnResized FRC1 85");
        add("label column", false, "FLC0", "FTR0", true, -40, "ColumnResized FLC0 80");
        add("heading row", false, "FLC0", "FTR0", false, 16, "HeadingHeightResized COL1 40");
        add("switched: a row's width", true, "FLC0", "ROW2", true, 15, "HeadingWidthResized ROW2 95");
        add("switched: a column's height", true, "COL2", "FTR0", false, 9, "HeadingHeightResized COL2 33");
    }
    void bordersResize() {
        QFETCH(bool, switched);
        QFETCH(QString, column);
        QFETCH(QString, row);
        QFETCH(bool, acrossScreen);
        QFETCH(int, by);
        QFETCH(QString, event);
        Screen screen(switched);
        const QRect heading = screen.view().cellRect(screen.cell(column.toStdString(), row.toStdString()));
        const bool inwards = column == QLatin1String("FRC1");
        const QPoint border = inwards        ? QPoint(heading.left() + 1, heading.center().y())
                              : acrossScreen ? QPoint(heading.right(), heading.center().y())
                                             : QPoint(heading.center().x(), heading.bottom());
        const QPoint target = border + (acrossScreen ? QPoint(inwards ? -by : by, 3) : QPoint(3, by));
        moveMouse(screen.port(), border);
        QCOMPARE(screen.port()->cursor().shape(), acrossScreen ? Qt::SplitHCursor : Qt::SplitVCursor);
        drag(screen.port(), border, target);
        QCOMPARE(screen.log().events, std::vector<std::string>{event.toStdString()});
    }

    void escapeGivesTheSizeBack() {
        Screen screen;
        const QRect heading = screen.view().cellRect(screen.cell("COL2", "FTR0"));
        const QPoint border(heading.right(), heading.center().y());
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, border);
        moveMouse(screen.port(), border + QPoint(40, 0), Qt::LeftButton);
        QCOMPARE(screen.view().cellRect(screen.cell(2, 1)).width(), Screen::ColumnWidth + 40);
        QTest::keyClick(&screen.view(), Qt::Key_Escape);
        moveMouse(screen.port(), border + QPoint(60, 0), Qt::LeftButton);
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, border + QPoint(60, 0));
        QCOMPARE(screen.view().cellRect(screen.cell(2, 1)).width(), int{Screen::ColumnWidth});
        QVERIFY(screen.log().events.empty());
    }

    void bordersAreFixedWhereResizingIsForbidden() {
        Screen screen;
        screen.set({}, GridAttribute::ResizePermission, std::int16_t{0});
        const QRect heading = screen.view().cellRect(screen.cell("COL2", "FTR0"));
        const QPoint border(heading.right(), heading.center().y());
        moveMouse(screen.port(), border);
        QCOMPARE(screen.port()->cursor().shape(), Qt::ArrowCursor);
        drag(screen.port(), border, border + QPoint(30, 0));
        QCOMPARE(screen.view().cellRect(screen.cell(2, 1)).width(), int{Screen::ColumnWidth});
    }

    void scaledBordersFollowTheMouse() {
        Screen screen;
        screen.view().setTextScale(2.0);
        const QRect heading = screen.view().cellRect(screen.cell("COL1", "FTR0"));
        const QPoint border(heading.right(), heading.center().y());
        drag(screen.port(), border, border + QPoint(40, 0));
        QCOMPARE(screen.grid().Column(*screen.grid().FindColumn("COL1")).width, std::int16_t{Screen::ColumnWidth + 20});
    }

    void theWheelScrollsWholeColumnsAndRows() {
        Screen screen;
        wheel(screen.port(), {}, {0, -120});
        const int lines = QApplication::wheelScrollLines();
        QCOMPARE(firstRow(screen), "ROW" + std::to_string(1 + lines));
        wheel(screen.port(), {}, {0, -120}, Qt::ShiftModifier);
        QCOMPARE(firstColumn(screen), std::string("COL2"));
        wheel(screen.port(), {}, {-120, 0});
        QCOMPARE(firstColumn(screen), std::string("COL3"));
        wheel(screen.port(), {}, {0, 12000});
        QCOMPARE(firstRow(screen), std::string("ROW1"));
    }

    /// A touchpad reports a few pixels at a time; none may be lost.
    void smallWheelStepsAddUp() {
        Screen screen;
        for (int i = 0; i < 22; ++i) {
            wheel(screen.port(), {0, -2}, {0, -4});
        }
        QCOMPARE(firstRow(screen), std::string("ROW3"));
    }

    void controlAndWheelScale() {
        Screen screen;
        const int width = screen.view().cellRect(screen.cell(1, 1)).width();
        wheel(screen.port(), {}, {0, 120}, Qt::ControlModifier);
        QCOMPARE(screen.view().textScale(), 1.1);
        QCOMPARE(screen.view().cellRect(screen.cell(1, 1)).width(), qRound(width * 1.1));
        QCOMPARE(screen.grid().Column(*screen.grid().FindColumn("COL1")).width, std::int16_t{Screen::ColumnWidth});
        wheel(screen.port(), {}, {0, 120 * 100}, Qt::ControlModifier);
        QCOMPARE(screen.view().textScale(), 3.0);
        wheel(screen.port(), {}, {0, -120 * 100}, Qt::ControlModifier);
        QCOMPARE(screen.view().textScale(), 0.5);
    }
};

}  // namespace planview

QTEST_MAIN(planview::GridMouseTest)
#include "GridMouseTest.moc"
