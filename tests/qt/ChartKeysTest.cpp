// SPDX-License-Identifier: MIT
#include <QContextMenuEvent>

#include "qt/ChartOnScreen.h"

namespace planview {

class ChartKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestFont(); }
    void arrowsWalk();
    void walkingScrolls();
    void altChangesTheValue();
    void readOnlyPointSaysSo();
    void walksWhereNothingMayBeSelected();
    void menuKeyOpens();
    void describesThePoint();
    void focusIsSeen();
};

void ChartKeysTest::arrowsWalk() {
    ChartOnScreen screen;
    const std::vector<std::pair<Qt::Key, const char*>> steps{
        {Qt::Key_Right, "1/1"}, {Qt::Key_Right, "1/2"}, {Qt::Key_Down, "2/2"},   {Qt::Key_Down, "3/2"},
        {Qt::Key_Down, "3/2"},  {Qt::Key_End, "3/11"},  {Qt::Key_Right, "3/11"}, {Qt::Key_Up, "2/11"},
        {Qt::Key_Home, "2/1"},  {Qt::Key_Left, "2/1"}};
    for (const auto& [key, place] : steps) {
        QTest::keyClick(&screen.view(), key);
        QCOMPARE(screen.heard(), QStringLiteral("select 8 ") + QLatin1String(place));
    }
    QCOMPARE(screen.view().bubbleText(), QStringLiteral("Manufacturing, Jan 08\n13.725,0"));
}

void ChartKeysTest::walkingScrolls() {
    ChartOnScreen screen;
    const Late axis = Late(screen.chart.Object()).Get("Chart").Get("Axes", 1, 0);
    axis.Put("VisibleCategories", 4);
    axis.Put("VisibleCategoriesIsAuto", true);
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    QTest::keyClick(&screen.view(), Qt::Key_End);
    QCOMPARE(screen.chart.State().FirstVisible(), 8);
    QVERIFY(!screen.view().pointRect(1, 11).isEmpty());
    QTest::keyClick(&screen.view(), Qt::Key_PageUp);
    QCOMPARE(screen.chart.State().FirstVisible(), 7);
}

void ChartKeysTest::altChangesTheValue() {
    ChartOnScreen screen;
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    screen.heard();
    QTest::keyClick(&screen.view(), Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(&screen.view(), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(&screen.view(), Qt::Key_Down, Qt::AltModifier | Qt::ControlModifier);
    QCOMPARE(screen.heard(), QStringLiteral("value 1/1=7476.1, value 1/1=7475.9, value 1/1=7475"));
}

void ChartKeysTest::readOnlyPointSaysSo() {
    ChartOnScreen screen;
    screen.log.readOnlySeries = 1;
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    screen.heard();
    QTest::keyClick(&screen.view(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(screen.heard(), QString());
    QVERIFY(screen.view().bubbleText().contains("cannot be changed"));
}

void ChartKeysTest::walksWhereNothingMayBeSelected() {
    ChartOnScreen screen;
    Late(screen.chart.Object()).Put("AllowSelect", false);
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    QCOMPARE(screen.heard(), QString());
    QVERIFY(screen.view().bubbleText().contains("Feb 08"));
}

void ChartKeysTest::menuKeyOpens() {
    ChartOnScreen screen;
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    screen.heard();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), screen.port()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&screen.view(), &event);
    QCOMPARE(screen.heard(), QStringLiteral("down 2 0 8"));
}

void ChartKeysTest::describesThePoint() {
    ChartOnScreen screen;
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    QCOMPARE(screen.view().accessibleDescription(), QStringLiteral("Construction, Jan 08: 7.476,0"));
    // The point is gone with its series; nothing must go on talking about it.
    screen.fill(ChartState());
    QCOMPARE(screen.view().accessibleDescription(), QString());
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    QTest::keyClick(&screen.view(), Qt::Key_Up, Qt::AltModifier);
    QVERIFY(!screen.picture().isNull());
}

void ChartKeysTest::focusIsSeen() {
    ChartOnScreen screen;
    const QImage with = screen.picture();
    QVERIFY(countColor(with, QRect(0, 0, 1, with.height()), GridTheme::light().accent) >= with.height() - 2);
    QTest::keyClick(&screen.view(), Qt::Key_Right);
    const QRectF rect = screen.view().pointRect(1, 1).adjusted(-6, -6, 6, 6);
    const qreal ratio = with.devicePixelRatio();
    const QRect place = QRectF(rect.topLeft() * ratio, rect.size() * ratio).toAlignedRect();
    const QImage walked = screen.picture();
    QCOMPARE(countColor(walked, QRect(0, 0, 1, with.height()), GridTheme::light().accent), 0);
    QVERIFY(countColor(walked, place, GridTheme::light().accent) > countColor(with, place, GridTheme::light().accent));
}

}  // namespace planview

QTEST_MAIN(planview::ChartKeysTest)
#include "ChartKeysTest.moc"
