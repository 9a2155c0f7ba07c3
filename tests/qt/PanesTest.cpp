// SPDX-License-Identifier: MIT
#include <QLayout>
#include <QSplitter>
#include <QSplitterHandle>

#include "control/ControlParts.h"
#include "layout/PaneLayout.h"
#include "qt/WidgetOnScreen.h"

namespace planview {

using Screen = WidgetOnScreen;

/// Which panes are on screen, and where their splitters stand.
class PanesTest : public QObject {
    Q_OBJECT

    static QWidget& part(Screen& screen, const char* name) {
        auto* found = screen.widget->findChild<QWidget*>(QLatin1String(name));
        if (!found) {
            qFatal("no %s", name);
        }
        return *found;
    }
    /// "tree grid chart", those that are visible.
    static QString visible(Screen& screen) {
        QStringList names;
        if (part(screen, "TreePane").isVisible() && part(screen, "OperandPane").isVisible()) {
            names << QStringLiteral("tree");
        }
        if (screen.view().isVisible()) {
            names << QStringLiteral("grid");
        }
        if (part(screen, "ChartPane").isVisible()) {
            names << QStringLiteral("chart");
        }
        return names.join(' ');
    }

private slots:
    void initTestCase() { useTestFont(); }

    void panesFollowTheTableAndTheMembers_data() {
        QTest::addColumn<QString>("fields");  // of GRID_ATTR that are "X"
        QTest::addColumn<bool>("layoutMode");
        QTest::addColumn<QString>("members");
        QTest::addColumn<QString>("visible");
        const auto row = [](const char* name, const char* fields, bool layoutMode, const char* members,
                            const char* shown) { QTest::newRow(name) << fields << layoutMode << members << shown; };
        row("the grid alone", "", true, "", "grid");
        row("chart", "CHART", false, "", "grid chart");
        row("tree needs layout mode", "HIDDEN_LIST CHART", false, "", "grid chart");
        row("all", "HIDDEN_LIST CHART", true, "", "tree grid chart");
        row("zoomed", "HIDDEN_LIST CHART ZOOMED", true, "", "grid");
        row("shown by the host", "", true, "plv_LayoutShow", "tree grid");
        row("and hidden again", "CHART", true, "plv_LayoutShow plv_LayoutHide", "grid chart");
        row("not without layout mode", "", false, "plv_LayoutShow", "grid");
        row("not after it was switched off", "", true, "plv_LayoutModeDisable plv_LayoutShow", "grid");
    }

    void panesFollowTheTableAndTheMembers() {
        QFETCH(QString, fields);
        QFETCH(bool, layoutMode);
        QFETCH(QString, members);
        QFETCH(QString, visible);
        Screen screen(false);
        for (const QString& field : fields.split(' ', Qt::SkipEmptyParts)) {
            screen.tables.gridAttr->SetValue(1, field.toStdString(), "X");
        }
        if (layoutMode) {
            screen.widget->plv_LayoutMode();
        }
        screen.widget->DP_Import_Attribute();
        screen.widget->DP_Import_Create();
        for (const QString& member : members.split(' ', Qt::SkipEmptyParts)) {
            short status = -1;
            QVERIFY(QMetaObject::invokeMethod(screen.widget.get(), member.toLatin1().constData(),
                                              Q_RETURN_ARG(short, status)));
        }
        QCOMPARE(PanesTest::visible(screen), visible);
        QCOMPARE(screen.view().cellRect(screen.cell(QStringLiteral("COL1/ROW1"))).isEmpty(), false);
    }

    void splittersStandWhereTheLayoutSays() {
        Screen screen(false);
        showAll(screen);
        const PaneLayout& layout = ControlParts(screen.widget->control()).Panes();
        for (const QSize size : {QSize(800, 400), QSize(1200, 700)}) {
            screen.widget->resize(size);
            QCoreApplication::processEvents();
            const struct {
                const char* name;
                Splitter which;
            } splitters[] = {{"CtrlSplit", Splitter::CtrlSplit},
                             {"TreeSplit", Splitter::TreeSplit},
                             {"GridSplit", Splitter::GridSplit},
                             {"MacroSplit", Splitter::MacroSplit}};
            for (const auto& row : splitters) {
                const auto& splitter = dynamic_cast<QSplitter&>(part(screen, row.name));
                const QList<int> sizes = splitter.sizes();
                const int wanted = (sizes[0] + sizes[1]) * layout.Position(row.which) / PaneLayout::WholeExtent;
                QVERIFY2(std::abs(sizes[0] - wanted) <= 1, row.name);
                QCOMPARE(splitter.handle(1)->width() < splitter.handle(1)->height() ? splitter.handle(1)->width()
                                                                                    : splitter.handle(1)->height(),
                         7);
            }
        }
    }

    void keysGoFromPaneToPane() {
        Screen screen(false);
        showAll(screen);
        const auto where = [&screen] {
            const QWidget* const focus = QApplication::focusWidget();
            for (const char* name : {"TreePane", "MacroToolbar", "ChartPane", "OperandPane", "MacroPane"}) {
                const QWidget& pane = part(screen, name);
                if (&pane == focus || pane.isAncestorOf(focus)) {
                    return QString::fromLatin1(name);
                }
            }
            return focus == &screen.view() ? QStringLiteral("grid") : QStringLiteral("elsewhere");
        };
        screen.view().setFocus();
        QStringList way;
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
            way << where();
        }
        QCOMPARE(way, QStringList({"ChartPane", "TreePane", "MacroToolbar", "MacroPane", "grid"}));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(where(), QStringLiteral("MacroPane"));  // without a macro nothing takes the keyboard beside it
        // A host that has bars of its own is asked at the ends.
        const QSignalSpy left(screen.widget.get(), &PlanViewWidget::panesLeft);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
        QCOMPARE(left.count(), 1);
        QVERIFY(left.at(0).at(0).toBool());
        screen.widget->enterPanes(true);
        QCOMPARE(where(), QStringLiteral("grid"));
    }

    void keysMoveTheSplitters() {
        Screen screen(false);
        showAll(screen);
        screen.view().setFocus();
        const PaneLayout& layout = ControlParts(screen.widget->control()).Panes();
        const int before = layout.Position(Splitter::CtrlSplit);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F8);
        QVERIFY(!QApplication::focusWidget()->accessibleName().isEmpty());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(layout.Position(Splitter::CtrlSplit), before + 20);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F8);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
        QCOMPARE(layout.Position(Splitter::GridSplit), PaneLayout::LeastShare);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(screen.view().hasFocus());
    }

    void theUsersMoveReachesTheLayoutAndStays() {
        Screen screen(false);
        showAll(screen);
        PaneLayout& layout = ControlParts(screen.widget->control()).Panes();
        QSplitterHandle* handle = dynamic_cast<QSplitter&>(part(screen, "CtrlSplit")).handle(1);
        const int before = layout.Position(Splitter::CtrlSplit);
        const QPoint grip = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, grip);
        QTest::mouseMove(handle, grip + QPoint(80, 0));
        QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, grip);
        const int after = layout.Position(Splitter::CtrlSplit);
        QVERIFY2(std::abs(after - before - 100) <= 3, qPrintable(QString::number(after)));
        QTest::mouseClick(handle, Qt::LeftButton, Qt::NoModifier, grip);
        QCOMPARE(layout.Position(Splitter::CtrlSplit), after);
        for (const char* zoomed : {"X", ""}) {
            screen.tables.gridAttr->SetValue(1, "ZOOMED", zoomed);
            screen.widget->DP_Import_Attribute();
        }
        QCOMPARE(layout.Position(Splitter::CtrlSplit), after);
        QVERIFY(std::abs(part(screen, "TreePane").width() - 793 * after / 1000) <= 1);
    }

    void hiddenPanesLeaveNoHandleBehindInAWindowNeverShown() {
        const PlanViewWidget widget;
        for (const char* name : {"CtrlSplit", "GridSplit"}) {
            QVERIFY2(widget.findChild<QSplitter*>(QLatin1String(name))->handle(1)->isHidden(), name);
        }
    }

    void pictureShowsAllPanes() {
        Screen screen(false);
        showAll(screen);
        const QImage picture = screen.widget->renderToImage(QSize(1000, 600), 2.0);
        QCOMPARE(picture.size(), QSize(2000, 1200));
        QCOMPARE(picture.pixel(10, 1190), GridTheme::light().panel);
        QCOMPARE(picture.pixel(1990, 1190), GridTheme::light().base);
        const QImage plain = [] {
            const Screen alone;
            return alone.widget->renderToImage(QSize(600, 300), 1.0);
        }();
        QCOMPARE(plain.size(), QSize(600, 300));
    }

    void headingsFollowTheTextScale() {
        Screen screen(false);
        showAll(screen);
        const int small = inkOf(part(screen, "TreePane")).height();
        screen.widget->setTextScale(2.0);
        QVERIFY(std::abs(inkOf(part(screen, "TreePane")).height() - 2 * small) <= 2);
    }

    void aNarrowPaneKeepsItsHeadingWhole() {
        Screen screen(false);
        showAll(screen);
        ControlParts(screen.widget->control()).Panes().MoveSplitter(Splitter::CtrlSplit, 180);
        QCoreApplication::processEvents();
        for (const double scale : {1.0, 1.5}) {
            screen.widget->setTextScale(scale);
            QWidget& pane = *part(screen, "OperandPane").layout()->itemAt(0)->widget();
            QVERIFY(pane.width() < 80);
            const QRect ink = inkOf(pane);
            QVERIFY(ink.left() >= 3 && ink.right() < pane.width() - 3);
            // It ends with a letter and not with the dots of a shortened text.
            const QRect end = inkOf(pane, QRect(ink.right() - 2, 0, 3, pane.height()));
            QVERIFY2(end.height() > ink.height() / 2, qPrintable(QString::number(end.height())));
        }
    }

private:
    /// Where a pane's picture, or a part of it, differs from its ground.
    static QRect inkOf(QWidget& pane, const QRect& part = {}) {
        QImage picture(pane.size(), QImage::Format_RGB32);
        pane.render(&picture);
        const QRect all = part.isEmpty() ? picture.rect() : part & picture.rect();
        QRect ink;
        for (int y = all.top(); y <= all.bottom(); ++y) {
            for (int x = all.left(); x <= all.right(); ++x) {
                if (picture.pixel(x, y) != picture.pixel(picture.width() - 1, picture.height() - 1)) {
                    ink |= QRect(x, y, 1, 1);
                }
            }
        }
        return ink;
    }
    static void showAll(Screen& screen) {
        screen.tables.gridAttr->SetValue(1, "CHART", "X");
        screen.tables.gridAttr->SetValue(1, "HIDDEN_LIST", "X");
        screen.widget->plv_LayoutMode();
        screen.widget->DP_Import_Attribute();
        screen.widget->DP_Import_Create();
        QCOMPARE(visible(screen), QStringLiteral("tree grid chart"));
        QCoreApplication::processEvents();
    }
};

}  // namespace planview

QTEST_MAIN(planview::PanesTest)
#include "PanesTest.moc"
