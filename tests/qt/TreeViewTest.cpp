// SPDX-License-Identifier: MIT
#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>

#include "control/ControlParts.h"
#include "macro/editor/MacroEditor.h"
#include "qt/TreeOnScreen.h"
#include "qt/WhenShown.h"

namespace planview {

/// The macro tree on the screen: keys, mouse, labels, dragging, and what it looks like.
class TreeViewTest : public QObject {
    Q_OBJECT

    static void drop(TreeOnScreen& screen, const char* dragged, const char* target, int quarter) {
        // The start of a drag enters a loop of the desktop; what the view makes of its events is what counts here.
        TreeView& view = screen.view();
        QMimeData content;
        content.setData(QStringLiteral("application/x-planview-macro-node"), dragged);
        const QRect row = view.nodeRect(screen.node(target));
        const QPointF at(row.left() + 20, row.top() + row.height() * quarter / 4.2);
        view.beginDrag(screen.node(dragged));
        QDragEnterEvent enter(at.toPoint(), Qt::MoveAction, &content, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &enter);
        QDragMoveEvent move(at.toPoint(), Qt::MoveAction, &content, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &move);
        savePicture(*screen.screen.widget, QStringLiteral("tree-drop"));
        QDropEvent let(at, Qt::MoveAction, &content, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &let);
        view.endDrag();
        QCoreApplication::processEvents();  // the host may end the view now
    }

private slots:
    void initTestCase() {
        useTestFont();
        QApplication::setDoubleClickInterval(3'600'000);  // nothing comes by itself, however busy the machine is
    }

    void theModelKeepsTheRulesOfItemModels() {
        TreeControl tree;
        TreeModel model(tree);
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        tree.SetRedraw(false);
        std::string above;
        for (int i = 0; i < 300; ++i) {
            const std::string key = std::to_string(i);
            tree.Nodes().Add(above, i % 7 == 6 ? TreeRelationship::Previous : TreeRelationship::Child, key, key);
            above = i % 11 == 10 ? above : key;
        }
        tree.SetRedraw(true);
        int shown = 0;
        for (int i = 1; i <= tree.Nodes().Count(); ++i) {
            const QModelIndex index = model.indexOf(tree.Nodes().Item(i));
            shown += model.index(index.row(), 0, index.parent()) == index ? 1 : 0;
        }
        QCOMPARE(shown, 300);
        tree.Nodes().Clear();
        QCOMPARE(model.rowCount(), 0);
    }

    void keys() {
        TreeOnScreen screen;
        const struct {
            const char* keys;
            const char* selected;
            const char* heard;
        } rows[] = {
            {"", "FC", ""},
            {"<Down>", "M1", ""},
            {"<Right>", "M1", "expand M1"},
            {"<Right>", "L3", ""},
            {"<Left>", "M1", ""},
            {"<Left>", "M1", "collapse M1"},
            {"<Left>", "FC", ""},
            {"<Left>", "FC", "collapse FC"},
            {"<Down>", "RC", ""},
            {"<Home>", "FC", ""},
            {"+", "FC", "expand FC"},
            {"aver", "M2", ""},
            {"<Enter>", "M2", "click M2"},
        };
        for (const auto& row : rows) {
            WidgetOnScreen::press(QString::fromLatin1(row.keys));
            QVERIFY2(screen.selected() == QLatin1String(row.selected), row.keys);
            QCOMPARE(screen.heard(), QLatin1String(row.heard));
        }
        screen.screen.platform.choices = {"mnuMacroAdd"};
        QTest::keyClick(&screen.view(), Qt::Key_Insert);
        QCOMPARE(screen.heard(), QStringLiteral("dropped M2 INSERT 2"));
    }

    void aChevronOpensWithoutSelecting() {
        TreeOnScreen screen;
        const QPoint chevron = screen.view().chevronRect(screen.node("M1")).center();
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, chevron);
        QCOMPARE(screen.heard(), QStringLiteral("down M1, expand M1"));
        QCOMPARE(screen.selected(), QStringLiteral("FC"));
        QVERIFY(!screen.view().nodeRect(screen.node("L3")).isEmpty());
        QCOMPARE(screen.field("EXPANDED", 2), QStringLiteral("X"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, chevron);
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, chevron);
        QCOMPARE(screen.heard(), QStringLiteral("down M1, collapse M1, down M1, expand M1"));
        QVERIFY(screen.view().chevronRect(screen.node("L3")).isEmpty());
    }

    void clicksSelectAndAClickOnTheSelectedNodeAsks() {
        TreeOnScreen screen;
        screen.click("M2");
        QCOMPARE(screen.selected(), QStringLiteral("M2"));
        QCOMPARE(screen.heard(), QStringLiteral("down M2"));
        letTimersCome(screen.view());
        QVERIFY(screen.screen.platform.popups.empty());
        screen.screen.platform.choices = {"mnuNextLevel"};
        screen.click("M2");
        letTimersCome(screen.view());
        QCOMPARE(screen.screen.platform.popups.size(), std::size_t{1});
        QCOMPARE(screen.heard(), QStringLiteral("down M2, dropped M2 CREATE 3"));
        screen.click("M2");
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle("M2"));
        letTimersCome(screen.view());
        QCOMPARE(screen.heard(), QStringLiteral("down M2, click M2"));
        QCOMPARE(screen.screen.platform.popups.size(), std::size_t{1});
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.port()->rect().bottomRight());
        QCOMPARE(screen.heard(), QStringLiteral("down "));
    }

    /// The press that brings the focus is no second click; a later one is, whatever that press was on.
    void aSecondClickCountsAfterThePressThatBroughtTheFocus() {
        TreeOnScreen screen;
        screen.screen.view().setFocus();
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier,
                          screen.view().chevronRect(screen.node("M1")).center());
        screen.click("M2");
        letTimersCome(screen.view());
        QVERIFY(screen.screen.platform.popups.empty());
        screen.screen.platform.choices = {"mnuMacroInsert"};
        screen.click("M2");
        letTimersCome(screen.view());
        QCOMPARE(screen.screen.platform.popups.size(), std::size_t{1});
        QCOMPARE(ControlParts(screen.screen.widget->control()).Editor().Spot(), MacroSpot::Before);
    }

    void aRightPressSelectsAndOpensThePopup() {
        TreeOnScreen screen;
        screen.screen.platform.choices = {"mnuTreeExpand"};
        screen.click("M2", Qt::RightButton);
        QCOMPARE(screen.heard(), QStringLiteral("tree, down M2"));
        QCOMPARE(screen.selected(), QStringLiteral("FC"));
        QVERIFY(!screen.view().nodeRect(screen.node("L3")).isEmpty());
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(screen.port(), &byKey);
        QCOMPARE(screen.screen.platform.popupPlaces.back(), PopupPlace::CurrentCell);
    }

    void labelsAreEdited() {
        TreeOnScreen screen;
        screen.screen.widget->plv_ActiveNode(QStringLiteral("M1"));
        WidgetOnScreen::press(QStringLiteral("<F2><Ctrl+A>Plan A"));
        savePicture(*screen.screen.widget, QStringLiteral("tree-edit"));
        WidgetOnScreen::press(QStringLiteral("<Enter>"));
        QTRY_COMPARE(screen.field("NODETEXT", 2), QStringLiteral("Plan A"));
        QCOMPARE(screen.heard(), QStringLiteral("tree"));
        QVERIFY(screen.view().hasFocus());
        WidgetOnScreen::press(QStringLiteral("<F2>nothing of it<Esc>"));
        QCoreApplication::processEvents();
        QCOMPARE(screen.field("NODETEXT", 2), QStringLiteral("Plan A"));
        WidgetOnScreen::press(QStringLiteral("<Right>"));
        QCOMPARE(screen.heard(), QStringLiteral("expand M1"));
        screen.screen.platform.choices = {"mnuNodeRename"};
        screen.click("M2", Qt::RightButton);
        QTRY_VERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
        WidgetOnScreen::press(QStringLiteral("Mean"));
        const QPoint chevron = screen.view().chevronRect(screen.node("M1")).center();
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, chevron);
        QCOMPARE(screen.field("NODETEXT", 4), QStringLiteral("Mean"));
        QCOMPARE(screen.heard(), QStringLiteral("down M2, tree, down M1, collapse M1"));
    }

    void aNodeIsDraggedToWhereItIsLetGo() {
        TreeOnScreen screen;
        const struct {
            const char* dragged;
            const char* target;
            int quarter;
            const char* heard;
        } rows[] = {{"RC", "M2", 0, "dropped M2 RC 4"},
                    {"RC", "M2", 2, "dropped M2 RC 6"},
                    {"RC", "M2", 4, "dropped M2 RC 5"},
                    {"FC", "M2", 2, ""},
                    {"RC", "RC", 2, ""}};
        for (const auto& row : rows) {
            drop(screen, row.dragged, row.target, row.quarter);
            QCOMPARE(screen.heard(), QLatin1String(row.heard));
        }
        QCOMPARE(screen.tree().Nodes().Item("RC").Level(), 0);
    }

    void theViewFollowsTheHost() {
        TreeOnScreen screen;
        screen.screen.widget->plv_ActiveNode(QStringLiteral("L3"));
        QVERIFY(screen.view().nodeRect(screen.node("L3")).isValid());
        QCOMPARE(screen.view().nodes().nodeAt(screen.view().currentIndex()).Key(), std::string("L3"));
        QCOMPARE(screen.heard(), QString());
        for (int i = 0; i < 200; ++i) {
            const std::string key = "N" + std::to_string(i);
            screen.addNode(key.c_str(), "RC", key.c_str(), "M_STEP");
        }
        screen.screen.widget->DP_Import_MacroTree();
        QCOMPARE(screen.selected(), QStringLiteral("L3"));
        screen.screen.widget->plv_ActiveNode(QStringLiteral("N199"));
        QVERIFY(!screen.view().nodeRect(screen.node("N199")).isEmpty());
        const int scrolled = screen.view().verticalScrollBar()->value();
        screen.node("N3").SetSelected(true);
        screen.node("RC").SetExpanded(true);
        screen.screen.tables.macroTree->SetValue(5, "EXPANDED", "X");
        screen.screen.widget->DP_Import_MacroTree();
        QCOMPARE(screen.view().verticalScrollBar()->value(), scrolled);
    }

    /// Item views recurse and count by levels.
    void theLongestChainIsShown() {
        constexpr int Longest = 32'767;
        TreeControl tree;
        tree.SetRedraw(false);
        std::string above;
        for (int i = 1; i <= Longest; ++i) {
            const std::string key = std::to_string(i);
            tree.Nodes().Add(above, TreeRelationship::Child, key, key).SetExpanded(true);
            above = key;
        }
        tree.SetRedraw(true);
        GridBitmaps bitmaps;
        TreeView view(tree, bitmaps);
        view.resize(300, 300);
        view.show();
        tree.Nodes().Item(Longest).EnsureVisible();
        QVERIFY(!view.nodeRect(tree.Nodes().Item(Longest)).isEmpty());
        QVERIFY(view.nodeRect(tree.Nodes().Item(1)).isEmpty());
        tree.Nodes().Item(Longest).SetSelected(true);
        QTest::keyClick(&view, Qt::Key_Up);
        QVERIFY(tree.Nodes().Item(Longest - 1).Selected());
        tree.UserExpand(tree.Nodes().Item(1), false);
        QVERIFY(!view.nodeRect(tree.Nodes().Item(1)).isEmpty());
    }

    void aHostMayDoAnythingDuringAnEvent_data() {
        QTest::addColumn<bool>("ends");
        QTest::newRow("rebuild") << false;
        QTest::newRow("delete the control") << true;
    }

    void aHostMayDoAnythingDuringAnEvent() {
        QFETCH(bool, ends);
        // Each only as far as the event: what a view that is gone would get next goes nowhere.
        const auto press = [](TreeOnScreen& screen, QPoint at, Qt::MouseButton button) {
            QTest::mousePress(screen.port(), button, Qt::NoModifier, at);
        };
        const std::function<void(TreeOnScreen&)> actions[] = {
            [](TreeOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_Right); },
            [](TreeOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_Return); },
            [&](TreeOnScreen& screen) { press(screen, screen.middle("M1"), Qt::LeftButton); },
            [&](TreeOnScreen& screen) { press(screen, screen.middle("M1"), Qt::RightButton); },
            [&](TreeOnScreen& screen) {
                press(screen, screen.view().chevronRect(screen.node("M1")).center(), Qt::LeftButton);
            },
            [](TreeOnScreen& screen) {
                const QPointF at = screen.middle("M1");
                QMouseEvent second(QEvent::MouseButtonDblClick, at, screen.port()->mapToGlobal(at), Qt::LeftButton,
                                   Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(screen.port(), &second);
            },
            [](TreeOnScreen& screen) {
                const QPointer<QWidget> control(screen.screen.widget.get());
                WidgetOnScreen::press(QStringLiteral("<F2>renamed<Enter>"));
                static_cast<void>(
                    QTest::qWaitFor([&] { return !control || screen.tree().Nodes().Count() == 1; }, 2000));
            },
            [](TreeOnScreen& screen) { drop(screen, "RC", "M1", 2); },
        };
        for (const auto& action : actions) {
            TreeOnScreen screen;
            screen.screen.widget->plv_ActiveNode(QStringLiteral("M1"));
            screen.whenHeard = [&] {
                if (ends) {
                    screen.screen.widget.reset();
                } else {
                    screen.screen.tables.macroTree->Clear();
                    screen.addNode("NEW", "", "new", "");
                    screen.screen.widget->DP_Import_MacroTree();
                }
            };
            if (ends) {
                const QPointer<TreeView> view(&screen.view());
                action(screen);
                QVERIFY2(!view, qPrintable(QString::number(&action - actions)));
            } else {
                action(screen);
                QVERIFY2(screen.tree().Nodes().Count() == 1, qPrintable(QString::number(&action - actions)));
                QCOMPARE(screen.view().nodes().rowCount(), 1);
            }
        }
    }

    void picturesAndThemes() {
        TreeOnScreen screen;
        screen.screen.widget->resize(1100, 700);
        screen.screen.widget->plv_ActiveNode(QStringLiteral("L3"));
        QCoreApplication::processEvents();
        for (const bool dark : {true, false}) {
            screen.screen.widget->setColorScheme(dark ? PlanViewWidget::ColorScheme::Dark
                                                      : PlanViewWidget::ColorScheme::Light);
            const GridTheme& theme = dark ? GridTheme::darkTheme() : GridTheme::light();
            savePicture(*screen.screen.widget, dark ? QStringLiteral("tree-dark") : QStringLiteral("tree-light"));
            const QImage shown = screen.port()->grab().toImage();
            QCOMPARE(shown.pixel(shown.width() - 2, shown.height() - 2), theme.panel);
            const qreal ratio = shown.devicePixelRatio();
            const QRect row = screen.view().nodeRect(screen.node("L3"));
            const QRect pixels(row.topLeft() * ratio, row.size() * ratio);
            QVERIFY(countColor(shown, pixels, theme.accentTint) > pixels.height() * pixels.width() / 2);
            QVERIFY2(countColor(shown, pixels, theme.text) > 40, "picture and text");
            const QImage offScreen = screen.screen.widget->renderToImage(QSize(1100, 700), 1.0);
            QVERIFY(countColor(offScreen, QRect(0, 40, 190, 130), theme.text) > 100);
        }
        screen.screen.widget->setTextScale(2.0);
        QCoreApplication::processEvents();
        savePicture(*screen.screen.widget, QStringLiteral("tree-large"));
    }

    void screenReadersHearNodesAndTheirState() {
        TreeOnScreen screen;
        QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&screen.view());
        QVERIFY(tree);
        QCOMPARE(tree->role(), QAccessible::Tree);
        QCOMPARE(tree->text(QAccessible::Name), QStringLiteral("Macros"));
        QStringList names;
        for (int i = 0; i < tree->childCount(); ++i) {
            const QAccessibleInterface* node = tree->child(i);
            names << node->text(QAccessible::Name) + (node->state().expanded ? QStringLiteral(" open") : QString());
        }
        names.removeAll(QString());  // the heading that is not shown
        QCOMPARE(names, (QStringList{QStringLiteral("Forecast open"), QStringLiteral("Raise line"),
                                     QStringLiteral("Average"), QStringLiteral("Recorded")}));
        for (const ToolbarButtonInfo& info : ToolbarButtons()) {
            QAccessibleInterface* button = QAccessible::queryAccessibleInterface(screen.toolbar().button(info.button));
            QVERIFY(!button->text(QAccessible::Name).isEmpty());
        }
    }

    void theToolbarPressesAndDrags() {
        TreeOnScreen screen;
        test::AddRow(*screen.screen.tables.texts, {{"CONDITION", "Bedingung <neu>"}});
        screen.screen.widget->DP_Import_Texts();
        ToolbarView& toolbar = screen.toolbar();
        QCOMPARE(toolbar.button(ToolbarButton::Condition)->accessibleName(), QStringLiteral("Bedingung <neu>"));
        struct Heard final : ToolbarEvents {
            void ButtonPressed(ToolbarButton button) override { pressed << static_cast<int>(button); }
            void SelectionDragged(const std::string& selection) override { dragged = selection; }
            QList<int> pressed;
            std::string dragged;
        } heard;
        MacroToolbar& model = ControlParts(screen.screen.widget->control()).Toolbar();
        model.SetEvents(&heard);
        model.SetChecked(ToolbarButton::Inactive, true);
        for (const ToolbarButtonInfo& info : ToolbarButtons()) {
            QVERIFY2(!toolbar.button(info.button)->icon().isNull(), info.field.data());
            QTest::mouseClick(toolbar.button(info.button), Qt::LeftButton);
        }
        QCOMPARE(heard.pressed, (QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
        QVERIFY2(toolbar.button(ToolbarButton::Inactive)->isChecked(), "a press does not change it by itself");
        screen.screen.goTo(QStringLiteral("COL2/ROW3"));
        QTest::mouseClick(toolbar.findChild<QToolButton*>(QStringLiteral("SELECTION")), Qt::LeftButton);
        QCOMPARE(heard.dragged, std::string("ROW3/COL2"));
    }

    void theToolbarFitsAnyWidth() {
        TreeOnScreen screen;
        ToolbarView& toolbar = screen.toolbar();
        QToolButton& more = *toolbar.findChild<QToolButton*>(QStringLiteral("MORE"));
        const QSize sizes[] = {{150, 44}, {150, 200}, {400, 44}, {2400, 44}};
        for (const QSize size : sizes) {
            toolbar.resize(size);
            QRegion covered;
            int shown = 0;
            for (QToolButton* button : toolbar.findChildren<QToolButton*>()) {
                if (button->isVisible()) {
                    QVERIFY(toolbar.rect().contains(button->geometry()));
                    QVERIFY(!covered.intersects(button->geometry()));
                    covered += button->geometry();
                    ++shown;
                }
            }
            Q_EMIT more.menu()->aboutToShow();
            const int inMenu = static_cast<int>(more.menu()->actions().size());
            QCOMPARE(shown + inMenu, inMenu > 0 ? 15 : 14);
            QCOMPARE(inMenu > 0, more.isVisible());
            QCOMPARE(inMenu > 0, size.width() <= 400 && size.height() == 44);
        }
    }
};

}  // namespace planview

QTEST_MAIN(planview::TreeViewTest)
#include "TreeViewTest.moc"
