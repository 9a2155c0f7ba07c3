// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <deque>
#include <functional>

#include "qt/WidgetOnScreen.h"
#include "qt/chart/ChartView.h"
#include "qt/platform/QtPopups.h"

namespace planview {

namespace {

constexpr int SoonMilliseconds = 20;

/// Runs with the popup that is open, as soon as there is one.
void withPopup(std::function<void(QMenu&)> act) {
    QTimer::singleShot(SoonMilliseconds, qApp, [act = std::move(act)] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            act(*menu);
        } else {
            withPopup(act);
        }
    });
}

/// The text of an entry without the mark of its letter.
QString captionOf(const QAction& action) {
    QString text = action.text();
    const QChar kept(1);
    return text.replace(QLatin1String("&&"), kept).remove(QLatin1Char('&')).replace(kept, QLatin1String("&&"));
}

/// The letters of a menu's entries, "-" for one without.
QString letters(const QMenu& menu) {
    QString found;
    for (const QAction* action : menu.actions()) {
        const QString text = action->text().remove(QLatin1String("&&"));
        const qsizetype at = text.indexOf(QLatin1Char('&'));
        found += action->isSeparator() ? QString() : at < 0 ? QStringLiteral("-") : QString(text[at + 1].toLower());
    }
    return found;
}

QStringList captions(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions()) {
        texts << (action->isSeparator() ? QStringLiteral("-") : captionOf(*action));
    }
    return texts;
}

QAction* find(const QMenu& menu, const QString& caption) {
    for (QAction* action : menu.actions()) {
        if (captionOf(*action) == caption && !action->menu()) {
            return action;
        }
        if (QAction* below = action->menu() ? find(*action->menu(), caption) : nullptr) {
            return below;
        }
    }
    return nullptr;
}

/// Opens the submenus on the way and chooses with the keyboard.
void choose(QMenu& menu, const QString& caption) {
    QAction* action = find(menu, caption);
    if (!action) {
        menu.close();
        return;
    }
    auto* owner = qobject_cast<QMenu*>(action->parent());
    QList<QMenu*> way{owner};
    while (way.first() != &menu) {
        way.prepend(qobject_cast<QMenu*>(way.first()->parent()));
    }
    for (qsizetype i = 0; i + 1 < way.size(); ++i) {
        way[i]->setActiveAction(way[i + 1]->menuAction());
    }
    owner->setActiveAction(action);
    QTest::keyClick(owner, Qt::Key_Return);
}

void rightClick(WidgetOnScreen& screen, const QString& place) {
    QTest::mousePress(screen.port(), Qt::RightButton, Qt::NoModifier, screen.middle(place));
}

/// The control with the desktop's own popups.
struct Popping : WidgetOnScreen {
    Popping() : WidgetOnScreen(true, false) {}
};

}  // namespace

/// The control's popups as windows: opened by mouse and by key, chosen from, and ended from outside.
class PopupsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void eachPlaceOpensItsPopup_data() {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("first");
        QTest::newRow("corner") << QStringLiteral("FLC0/FTR0") << QStringLiteral("Macrotree");
        QTest::newRow("column") << QStringLiteral("COL2/FTR0") << QStringLiteral("Select all");
        QTest::newRow("row") << QStringLiteral("FLC0/ROW2") << QStringLiteral("Select all");
        QTest::newRow("cell, one letter shared") << QStringLiteral("COL2/ROW2") << QStringLiteral("Cut");
    }
    void eachPlaceOpensItsPopup() {
        QFETCH(QString, place);
        QFETCH(QString, first);
        Popping screen;
        QStringList seen;
        withPopup([&](QMenu& menu) {
            seen = captions(menu);
            menu.close();
        });
        rightClick(screen, place);
        QVERIFY(!seen.isEmpty());
        QCOMPARE(seen.first(), first);
        QCOMPARE(screen.heard, QStringList());
    }

    void keysOpenThePopupOfWhatIsSelected_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("menu key") << int(Qt::Key_Menu) << int(Qt::NoModifier);
        QTest::newRow("shift and F10") << int(Qt::Key_F10) << int(Qt::ShiftModifier);
    }
    void keysOpenThePopupOfWhatIsSelected() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        Popping screen;
        screen.goTo(QStringLiteral("COL1/ROW2"));
        QPoint opened;
        withPopup([&](QMenu& menu) {
            opened = menu.pos();
            choose(menu, QStringLiteral("Cut"));
        });
        QTest::keyClick(&screen.view(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QCOMPARE(opened, screen.port()->mapToGlobal(
                             screen.view().cellRect(screen.cell(QStringLiteral("COL1/ROW2"))).bottomLeft()));
        QCOMPARE(screen.contents(QStringLiteral("COL1/ROW2")), QString());
        QCOMPARE(screen.heard, (QStringList{QStringLiteral("COL1/ROW2=")}));
    }

    /// By key the popups of the chart, and those that its commands open, stand at what is selected in it; by mouse they
    /// stand at the mouse, wherever a key was pressed before.
    void theChartsPopupsOpenWhereTheyWereAskedFor() {
        Popping screen;
        screen.tables.gridAttr->SetValue(1, "CHART", "X");
        screen.tables.lineIndex->SetValue(2, "SHOW_CHART", "X");
        screen.widget->resize(760, 700);
        screen.widget->DP_Import_Attribute();
        screen.widget->DP_Import_Create();
        QApplication::processEvents();
        auto& chart = *screen.widget->findChild<ChartView*>();
        chart.setFocus();
        int lowest = 0;  // a popup does not leave the screen
        const auto openedBy = [&](const std::function<void()>& ask) {
            QPoint opened;
            withPopup([&](QMenu& menu) {
                opened = menu.pos();
                lowest = menu.screen()->availableGeometry().bottom() + 1 - menu.height();
                menu.close();
            });
            ask();
            return opened;
        };
        const auto byKey = [&] {
            QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
            QApplication::sendEvent(&chart, &event);
        };
        const auto selected = [&] { return chart.mapToGlobal(chart.pointRect(1, 2).toAlignedRect().bottomLeft()); };
        chart.chart().UserSelected({ChartHitCode::Point, 1, 2});
        QCursor::setPos(screen.port()->mapToGlobal(QPoint(30, 30)));
        const QPoint opened = openedBy(byKey);
        QCOMPARE(opened, QPoint(selected().x(), std::min(selected().y(), lowest)));
        const QPoint mouse = screen.middle(QStringLiteral("COL1/ROW1"));
        QCursor::setPos(screen.port()->mapToGlobal(mouse));
        QCOMPARE(openedBy([&] { rightClick(screen, QStringLiteral("COL1/ROW1")); }), screen.port()->mapToGlobal(mouse));
    }

    void aHeadingIsSelectedBeforeItsPopupOpens() {
        Popping screen;
        withPopup([](QMenu& menu) { choose(menu, QStringLiteral("Hide selected columns")); });
        rightClick(screen, QStringLiteral("COL2/FTR0"));
        QCOMPARE(screen.tables.colsIndex->Value(2, "COL_HIDDEN").AsText(), std::string("X"));
        QVERIFY(screen.view().cellRect(screen.cell(QStringLiteral("COL2/ROW1"))).isEmpty());
        QCOMPARE(screen.heard, (QStringList{QStringLiteral("update")}));
    }

    void aClickInsideTheSelectionKeepsIt() {
        Popping screen;
        screen.grid().SelectRow(screen.cell(QStringLiteral("COL1/ROW1")).row, SelectionMode::Replace);
        screen.grid().SelectRow(screen.cell(QStringLiteral("COL1/ROW2")).row, SelectionMode::Extend);
        withPopup([](QMenu& menu) {
            withPopup([](QMenu& colors) { choose(colors, QStringLiteral("<lightgreen>")); });
            choose(menu, QStringLiteral("Background color"));
        });
        rightClick(screen, QStringLiteral("FLC0/ROW2"));
        QCOMPARE(screen.tables.lineIndex->Value(1, "ROW_BG").AsText(), std::string("11"));
        QCOMPARE(screen.tables.lineIndex->Value(2, "ROW_BG").AsText(), std::string("11"));
    }

    void colorsCarrySwatches() {
        Popping screen;
        QImage swatch;
        withPopup([&](QMenu& menu) {
            withPopup([&](QMenu& colors) {
                swatch = find(colors, QStringLiteral("<lightred>"))->icon().pixmap(14, 14).toImage();
                colors.close();
            });
            choose(menu, QStringLiteral("Foreground color"));
        });
        rightClick(screen, QStringLiteral("FLC0/ROW2"));
        QVERIFY(!swatch.isNull());
        QCOMPARE(swatch.pixelColor(swatch.width() / 2, swatch.height() / 2), QColor(255, 0, 0));
    }

    void hostCaptionsAreShownToTheLetter() {
        Popping screen;
        const auto add = [&](const std::string& text) {
            test::AddRow(*screen.tables.cellMenu, {{"PFID", 9}, {"TEXT", text}, {"ENABLED", "X"}});
        };
        add("Profit && l&oss\tx");
        add(std::string(10000, 'm'));
        QStringList seen;
        QString tip;
        int width = 0;
        withPopup([&](QMenu& menu) {
            seen = captions(menu);
            tip = menu.actions().last()->toolTip();
            width = menu.width();
            menu.close();
        });
        rightClick(screen, QStringLiteral("COL1/ROW1"));
        QCOMPARE(seen[3], QStringLiteral("-"));
        QCOMPARE(seen[4], QStringLiteral("Profit &&&& l&&oss x"));
        QVERIFY2(width < 700, qPrintable(QString::number(width)));
        QVERIFY(tip.size() >= 2000);
    }

    void everyEntryHasALetter_data() {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("expected");
        QTest::newRow("corner") << QStringLiteral("FLC0/FTR0") << QStringLiteral("mcszaeo");
        QTest::newRow("column") << QStringLiteral("COL2/FTR0") << QStringLiteral("sbdhcp");
        QTest::newRow("cell, one letter shared") << QStringLiteral("COL2/ROW2") << QStringLiteral("cop1c");
    }
    void everyEntryHasALetter() {
        QFETCH(QString, place);
        QFETCH(QString, expected);
        Popping screen;
        for (const char* text : {"1 000", "& Co"}) {
            test::AddRow(*screen.tables.cellMenu, {{"PFID", 1}, {"TEXT", text}, {"ENABLED", "X"}});
        }
        QString seen;
        withPopup([&](QMenu& menu) {
            seen = letters(menu);
            menu.close();
        });
        rightClick(screen, place);
        QCOMPARE(seen, expected);
    }

    void aLetterChooses() {
        Popping screen;
        withPopup([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_C); });
        rightClick(screen, QStringLiteral("COL1/ROW2"));
        QCOMPARE(screen.contents(QStringLiteral("COL1/ROW2")), QString());
    }

    void thePresentColourIsMarkedAndTheViewsOwnIsAnEntry() {
        Popping screen;
        screen.tables.lineIndex->SetValue(2, "ROW_BG", 13);
        QStringList seen;
        QStringList marked;
        QImage own;
        withPopup([&](QMenu& menu) {
            withPopup([&](QMenu& colors) {
                seen = captions(colors);
                for (const QAction* action : colors.actions()) {
                    marked << (action->isChecked() ? captionOf(*action) : QString());
                }
                own = colors.actions().first()->icon().pixmap(14, 14).toImage();
                choose(colors, QStringLiteral("As the view"));
            });
            choose(menu, QStringLiteral("Background color"));
        });
        rightClick(screen, QStringLiteral("FLC0/ROW2"));
        QCOMPARE(seen.mid(0, 3).join(QLatin1Char(' ')), QStringLiteral("As the view - <black>"));
        QCOMPARE(seen.size(), 18);
        marked.removeAll(QString());
        QCOMPARE(marked, QStringList(QStringLiteral("<lightred>")));
        QCOMPARE(own.pixelColor(own.width() / 2, own.height() / 2), QColor(screen.view().theme().base));
        QCOMPARE(screen.tables.lineIndex->Value(2, "ROW_BG").AsText(), std::string("0"));
    }

    void aHundredHostEntriesStayReachable() {
        Popping screen;
        for (int i = 1; i <= 100; ++i) {
            test::AddRow(*screen.tables.gridMenu,
                         {{"PFID", i}, {"TEXT", "Entry " + std::to_string(i)}, {"ENABLED", "X"}});
        }
        QStringList heard;
        connect(screen.widget.get(), &PlanViewWidget::GridPopupMenuPressed, this,
                [&](short popup, const QString& command) { heard << QString::number(popup) + " " + command; });
        int width = 0;
        withPopup([&](QMenu& menu) {
            width = menu.width();
            choose(menu, QStringLiteral("Entry 100"));
        });
        rightClick(screen, QStringLiteral("FLC0/FTR0"));
        QCOMPARE(heard, (QStringList{QStringLiteral("10 100")}));
        QVERIFY2(width < 300, "one column that scrolls");
    }

    void theWidgetIsDeletedWhileItsPopupIsOpen_data() {
        QTest::addColumn<bool>("second");
        QTest::newRow("first popup") << false;
        QTest::newRow("popup of a command") << true;
    }
    void theWidgetIsDeletedWhileItsPopupIsOpen() {
        QFETCH(bool, second);
        Popping screen;
        QPointer<QMenu> popup;
        const auto end = [&](QMenu& menu) {
            popup = &menu;
            screen.widget.reset();
        };
        withPopup([&](QMenu& menu) {
            if (second) {
                withPopup(end);
                choose(menu, QStringLiteral("Background color"));
            } else {
                end(menu);
            }
        });
        rightClick(screen, QStringLiteral("FLC0/ROW1"));
        QVERIFY(!screen.widget);
        QVERIFY2(!popup, "the popup ends with its control");
        QCOMPARE(screen.tables.lineIndex->Value(1, "ROW_BG").GetKind(), Variant::Kind::Empty);
    }

    void theWidgetIsDeletedByAHostEntry() {
        Popping screen;
        test::AddRow(*screen.tables.rowMenu, {{"PFID", 1}, {"TEXT", "End"}, {"ENABLED", "X"}});
        connect(screen.widget.get(), &PlanViewWidget::GridPopupMenuPressed, this, [&] { screen.widget.reset(); });
        withPopup([](QMenu& menu) { choose(menu, QStringLiteral("End")); });
        rightClick(screen, QStringLiteral("FLC0/ROW1"));
        QVERIFY(!screen.widget);
    }

    void popupsFollowTheColorsOfTheView() {
        Popping screen;
        for (const auto scheme : {PlanViewWidget::ColorScheme::Light, PlanViewWidget::ColorScheme::Dark}) {
            screen.widget->setColorScheme(scheme);
            QColor ground;
            withPopup([&](QMenu& menu) {
                ground = menu.grab().toImage().pixelColor(menu.width() / 2, 3);
                menu.close();
            });
            rightClick(screen, QStringLiteral("COL1/ROW1"));
            const GridTheme& theme = screen.view().theme();
            QCOMPARE(ground, QColor(theme.dark ? theme.panel : theme.base));
        }
    }
};

}  // namespace planview

QTEST_MAIN(planview::PopupsTest)
#include "PopupsTest.moc"
