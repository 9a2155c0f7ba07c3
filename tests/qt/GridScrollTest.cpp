// SPDX-License-Identifier: MIT
#include <QScrollBar>

#include "qt/GridOnScreen.h"

namespace planview {

namespace {

using Screen = GridOnScreen;

QImage part(Screen& screen, const QRect& rect) {
    return screen.port()->grab(rect).toImage();
}

using Bars = std::pair<bool, bool>;

Bars barsShown(Screen& screen) {
    return {screen.view().horizontalScrollBar()->isVisible(), screen.view().verticalScrollBar()->isVisible()};
}

}  // namespace

/// Scrolling by whole columns and rows, with what is fixed standing still.
class GridScrollTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void fixedRegionsStandStill() {
        Screen screen;
        screen.set({"FRC1", "ROW9"}, GridAttribute::Contents, "77");
        const QRect corner(0, 0, Screen::LabelWidth + Screen::FixedSize, Screen::HeadingHeight + Screen::RowHeight);
        const QRect total = screen.view().cellRect(screen.cell("FRC1", "FTR0"));
        const QRect bottom = screen.view().cellRect(screen.cell("FLC0", "FBR1"));
        const QImage before = part(screen, corner);
        const QPoint first = screen.view().cellRect(screen.cell(1, 1)).topLeft();
        for (int step = 0; step < 3; ++step) {
            screen.view().scrollBy(2, 3);
            QCOMPARE(part(screen, corner), before);
            QCOMPARE(screen.view().cellRect(screen.cell("FRC1", "FTR0")), total);
            QCOMPARE(screen.view().cellRect(screen.cell("FLC0", "FBR1")), bottom);
            const Cell top = {*screen.grid().FirstColumn(), *screen.grid().FirstRow()};
            QCOMPARE(screen.view().cellRect(top).topLeft(), first);
        }
        QCOMPARE(QString::fromStdString(screen.grid().Column(*screen.grid().FirstColumn()).key),
                 QStringLiteral("COL7"));
        QVERIFY(screen.view().cellRect(screen.cell(1, 1)).isEmpty());
    }

    /// What scrolling moves on the screen must be what painting it anew gives.
    void scrolledPictureIsThePaintedOne() {
        if (qApp->devicePixelRatio() != 1.0 && QGuiApplication::platformName() == QLatin1String("offscreen")) {
            QSKIP("the offscreen platform takes pictures of unscaled windows only");
        }
        Screen screen;
        screen.set({"COL3", "ROW5"}, GridAttribute::Contents, "a text that runs on over its neighbours");
        screen.set({"COL4", "ROW5"}, GridAttribute::Contents, "");
        screen.set({"COL5", "ROW5"}, GridAttribute::Contents, "");
        for (const char* row : {"FTR1", "FBR1"}) {
            screen.set({"COL5", row}, GridAttribute::Contents, "a note that ends where the sight of the columns ends");
        }
        screen.view().selectCurrent(screen.cell(4, 7), SelectionMode::Replace);
        const std::pair<int, int> steps[] = {{0, 1},  {0, 4},  {1, 0},  {3, 0}, {0, -2},
                                             {-1, 0}, {0, 99}, {99, 0}, {0, -1}};
        for (const auto& [columns, rows] : steps) {
            screen.view().scrollBy(columns, rows);
            QApplication::processEvents();
            // The window's own picture, in which moved parts have not been painted again.
            const QImage moved = screen.view().screen()->grabWindow(screen.view().winId()).toImage();
            QCOMPARE(moved.convertToFormat(QImage::Format_RGB32),
                     screen.view().grab().toImage().convertToFormat(QImage::Format_RGB32));
        }
    }

    void fixedPartsLeaveRoomForACell() {
        Screen screen;
        screen.set({"FLC1", {}}, GridAttribute::Width, std::int16_t{500});
        screen.set({"FRC1", {}}, GridAttribute::Width, std::int16_t{300});
        screen.set({{}, "FTR1"}, GridAttribute::Height, std::int16_t{390});
        screen.set({"FLC1", {}}, GridAttribute::BackgroundColor, "tovBlue");
        for (const int place : {1, 12}) {
            screen.view().ensureVisible(screen.cell(place, place));
            const QRect cell = screen.view().cellRect(screen.cell(place, place));
            QVERIFY(cell.width() >= Screen::ColumnWidth - 1);
            QVERIFY(cell.height() >= Screen::RowHeight - 1);
            QVERIFY(screen.port()->rect().contains(cell));
            const QRect fixed =
                screen.view().cellRect({screen.cell("FLC1", "FTR0").column, screen.cell(place, place).row});
            QVERIFY(!fixed.isEmpty() && fixed.intersected(cell).isEmpty());
            const QImage picture = screen.picture();
            const auto at = [&](QPoint point) {
                return picture.pixel((QPointF(point) * picture.devicePixelRatio()).toPoint());
            };
            QVERIFY(at(cell.topLeft() + QPoint(3, 3)) != at(fixed.bottomRight() - QPoint(6, 3)));
        }
    }

    void theLastPageLeavesNoGap() {
        Screen screen;
        screen.view().scrollBy(99, 99);
        const QRect last = screen.view().cellRect(screen.cell(20, 40));
        const QRect total = screen.view().cellRect(screen.cell("FRC1", "FBR1"));
        QCOMPARE(last.right() + 1, total.left());
        QCOMPARE(last.bottom() + 1, total.top());
        QCOMPARE(last.size(), QSize(Screen::ColumnWidth, Screen::RowHeight));
        QCOMPARE(screen.view().horizontalScrollBar()->value(), screen.view().horizontalScrollBar()->maximum());
        screen.view().resize(900, 500);
        QCOMPARE(screen.view().cellRect(screen.cell(20, 40)).right() + 1,
                 screen.view().cellRect(screen.cell("FRC1", "FBR1")).left());
    }

    void whatFitsNeedsNoBars() {
        Screen screen;
        QTRY_VERIFY(barsShown(screen) == Bars(true, true));
        screen.view().scrollBy(99, 99);
        const int width = Screen::LabelWidth + 2 * Screen::FixedSize + Screen::Columns * Screen::ColumnWidth;
        const int height = Screen::HeadingHeight + (Screen::Rows + 2) * Screen::RowHeight;
        screen.view().resize(width, height);
        QTRY_VERIFY(barsShown(screen) == Bars(false, false));
        QVERIFY(!screen.view().cellRect(screen.cell(1, 1)).isEmpty());
        screen.view().resize(width - 1, height);
        QTRY_VERIFY(barsShown(screen) == Bars(true, true));
        screen.view().resize(width + 200, height + 200);
        const QRect total = screen.view().cellRect(screen.cell("FRC1", "FBR1"));
        QCOMPARE(total.right() + 1, width);
        QCOMPARE(total.bottom() + 1, height);
    }

    void barsAndGridFollowEachOther() {
        Screen screen;
        screen.view().verticalScrollBar()->setValue(5);
        QCOMPARE(QString::fromStdString(screen.grid().Row(*screen.grid().FirstRow()).key), QStringLiteral("ROW6"));
        Screen::require(screen.grid().SetFirstColumn("COL4", true));
        QCOMPARE(screen.view().horizontalScrollBar()->value(), 3);
        screen.set({"COL2", {}}, GridAttribute::Hidden, true);
        QCOMPARE(screen.view().horizontalScrollBar()->value(), 2);
    }

    /// The host asks for a column that cannot be the first one; it is kept until the user scrolls.
    void aFirstColumnBeyondTheLastPage() {
        Screen screen;
        Screen::require(screen.grid().SetFirstColumn("COL20", true));
        QCOMPARE(QString::fromStdString(screen.grid().Column(*screen.grid().FirstColumn()).key),
                 QStringLiteral("COL20"));
        QVERIFY(!screen.view().cellRect(screen.cell(20, 1)).isEmpty());
        QVERIFY(!screen.view().cellRect(screen.cell(19, 1)).isEmpty());
    }

    void aColumnWiderThanTheViewShowsItsStart() {
        Screen screen;
        screen.set({"COL20", {}}, GridAttribute::Width, std::int16_t{2000});
        screen.view().ensureVisible(screen.cell(20, 1));
        QCOMPARE(screen.view().cellRect(screen.cell(20, 1)).left(), Screen::LabelWidth + Screen::FixedSize);
    }

    void theSwitchedViewExchangesTheAxes() {
        Screen screen(true);
        // Left of the cell the labels, FTR1 and ROW1; above it the heading, FLC1, COL1 and COL2.
        const QRect cell = screen.view().cellRect(screen.cell(3, 2));
        QCOMPARE(cell,
                 QRect(Screen::LabelWidth + 2 * Screen::ColumnWidth, Screen::RowHeight + 3 * Screen::HeadingHeight,
                       Screen::ColumnWidth, Screen::HeadingHeight));
        screen.view().scrollBy(1, 2);
        QCOMPARE(QString::fromStdString(screen.grid().Row(*screen.grid().FirstRow()).key), QStringLiteral("ROW2"));
        QCOMPARE(QString::fromStdString(screen.grid().Column(*screen.grid().FirstColumn()).key),
                 QStringLiteral("COL3"));
    }

    void aViewTooSmallForTheFixedOnes() {
        Screen screen;
        for (const QSize size : {QSize(100, 30), QSize(1, 1), QSize(240, 60)}) {
            screen.view().resize(size);
            QApplication::processEvents();
            static_cast<void>(screen.picture());
            screen.view().ensureVisible(screen.cell(9, 9));
            QTest::keyClick(&screen.view(), Qt::Key_PageDown);
        }
        QVERIFY(screen.grid().CurrentCell().has_value());
    }

    /// The grid may be ended and built anew while the view is told nothing, and be painted meanwhile.
    void aGridBuiltAnewInSilence() {
        Screen screen;
        screen.grid().SetRedraw(false);
        Screen::require(screen.grid().Destroy(false));
        static_cast<void>(screen.picture());
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 200));
        QTest::keyClick(&screen.view(), Qt::Key_Down);
        Screen::require(screen.grid().CreateLabelled(false));
        Screen::require(screen.grid().CreateColumn("COL1", 0, false));
        Screen::require(screen.grid().CreateRow("ROW1", 0, false));
        screen.grid().SetRedraw(true);
        screen.grid().Redraw();
        QVERIFY(!screen.view().cellRect(screen.cell(1, 1)).isEmpty());
        QTRY_VERIFY(barsShown(screen) == Bars(false, false));
    }

    void theLabelColumnCanFitItsTexts() {
        Screen screen;
        screen.set({}, GridAttribute::LabelAutoFit, true);
        const int narrow = screen.view().cellRect(screen.cell("FLC0", "ROW1")).width();
        screen.set({"FLC0", "ROW30"}, GridAttribute::Contents, "a label that is a good deal longer than all others");
        QVERIFY(screen.view().cellRect(screen.cell("FLC0", "ROW1")).width() > narrow + 100);
    }
};

}  // namespace planview

QTEST_MAIN(planview::GridScrollTest)
#include "GridScrollTest.moc"
