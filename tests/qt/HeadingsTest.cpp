// SPDX-License-Identifier: MIT
#include "qt/WidgetOnScreen.h"

namespace planview {

using Screen = GridOnScreen;

/// What dragging and double-clicking of headings and their borders does.
class HeadingsTest : public QObject {
    Q_OBJECT

    static QString order(Screen& screen, bool columns) {
        QStringList keys;
        if (columns) {
            for (const ColumnId id : screen.grid().Columns(ColumnArea::Center)) {
                keys << QString::fromStdString(screen.grid().Column(id).key).mid(3);
            }
        } else {
            for (const RowId id : screen.grid().Rows(RowArea::Center)) {
                keys << QString::fromStdString(screen.grid().Row(id).key).mid(3);
            }
        }
        return keys.mid(0, 7).join(' ');
    }
    static QPoint heading(Screen& screen, const QString& key) {
        const bool column = key.startsWith(QLatin1String("COL")) || key.startsWith(QLatin1String("FLC"));
        return screen.middle(column ? screen.cell(key.toStdString(), "FTR0") : screen.cell("FLC0", key.toStdString()));
    }
    static void allowMoving(Screen& screen, bool on) {
        screen.set({}, GridAttribute::MovePermission, std::int16_t{on});
        screen.set({}, GridAttribute::DragDrop, std::int16_t{on});
    }
    static void buildAnew(Screen& screen, const std::vector<std::string>& columns) {
        Screen::require(screen.grid().Destroy(false));
        Screen::require(screen.grid().CreateLabelled(false));
        Screen::require(screen.grid().CreateRow("ROW1", 0, false));
        for (const std::string& column : columns) {
            Screen::require(screen.grid().CreateColumn(column, 0, false));
        }
        screen.grid().Redraw();
    }
    static void click(Screen& screen, const QString& key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(screen.port(), Qt::LeftButton, modifiers, heading(screen, key));
    }

private slots:
    void initTestCase() { useTestFont(); }

    void selectedHeadingsAreMoved_data() {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("dragged");
        QTest::addColumn<QString>("onto");
        QTest::addColumn<int>("beside");  // logical pixels beside the middle of the other heading
        QTest::addColumn<QString>("order");
        const auto row = [](const char* name, const char* selected, const char* dragged, const char* onto, int beside,
                            const char* order) {
            QTest::newRow(name) << selected << dragged << onto << beside << order;
        };
        row("to the right", "COL1", "COL1", "COL3", 10, "2 3 1 4 5 6 7");
        row("to the left", "COL4", "COL4", "COL2", -10, "1 4 2 3 5 6 7");
        row("where it stands", "COL3", "COL3", "COL2", 10, "1 2 3 4 5 6 7");
        row("all that are selected", "COL1 COL2", "COL2", "COL4", 10, "3 4 1 2 5 6 7");
        row("from both sides", "COL1 COL5", "COL5", "COL3", 10, "2 3 1 5 4 6 7");
        row("to the very start", "COL3", "COL3", "COL1", -10, "3 1 2 4 5 6 7");
        row("not into another area", "COL2", "COL2", "FLC1", 0, "2 1 3 4 5 6 7");
        row("a heading that is not selected only selects", "", "COL2", "COL4", 10, "1 2 3 4 5 6 7");
        row("rows", "ROW5", "ROW5", "ROW2", -4, "1 5 2 3 4 6 7");
        row("several rows", "ROW1 ROW2", "ROW1", "ROW6", 4, "3 4 5 6 1 2 7");
    }

    void selectedHeadingsAreMoved() {
        QFETCH(QString, selected);
        QFETCH(QString, dragged);
        QFETCH(QString, onto);
        QFETCH(int, beside);
        QFETCH(QString, order);
        Screen screen;
        allowMoving(screen, true);
        const bool columns = dragged.startsWith(QLatin1String("COL"));
        for (const QString& key : selected.split(' ', Qt::SkipEmptyParts)) {
            click(screen, key, Qt::ControlModifier);
        }
        const QPoint target = heading(screen, onto) + (columns ? QPoint(beside, 0) : QPoint(0, beside));
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, heading(screen, dragged));
        QTest::mouseMove(screen.port(), (heading(screen, dragged) + target) / 2);
        QTest::mouseMove(screen.port(), target);
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, target);
        QCOMPARE(HeadingsTest::order(screen, columns), order);
        for (const QString& key : selected.split(' ', Qt::SkipEmptyParts)) {
            QVERIFY2(columns ? screen.isSelected(key.toStdString(), "") : screen.isSelected("", key.toStdString()),
                     "what was moved stays selected");
        }
        const std::vector<std::string>& actions = screen.log().actions;
        const bool told = std::any_of(actions.begin(), actions.end(), [columns](const std::string& action) {
            return action.starts_with(columns ? "MovedColumns COL1 COL2 COL3 " : "MovedRows ROW1 ROW2 ROW3 ");
        });
        QCOMPARE(told, !selected.isEmpty());
    }

    void movingNeedsItsPermissionAndCanBeGivenUp() {
        Screen screen;
        allowMoving(screen, false);
        click(screen, QStringLiteral("COL1"));
        const auto dragToThird = [&screen](bool escape) {
            const QPoint target = heading(screen, QStringLiteral("COL3")) + QPoint(10, 0);
            QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, heading(screen, QStringLiteral("COL1")));
            QTest::mouseMove(screen.port(), target);
            const QImage picture = screen.picture();
            const int marked =
                countColor(picture, QRect(0, picture.height() / 2, picture.width(), 1), GridTheme::light().accent);
            if (escape) {
                QTest::keyClick(&screen.view(), Qt::Key_Escape);
            }
            QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, target);
            return marked;
        };
        dragToThird(false);
        QCOMPARE(order(screen, true), QStringLiteral("1 2 3 4 5 6 7"));
        allowMoving(screen, true);
        click(screen, QStringLiteral("COL1"));
        QVERIFY2(dragToThird(true) > 0, "no line shows where it would go");
        QCOMPARE(order(screen, true), QStringLiteral("1 2 3 4 5 6 7"));
        click(screen, QStringLiteral("COL2"), Qt::ControlModifier);
        click(screen, QStringLiteral("COL1"));
        QVERIFY2(!screen.isSelected("COL2", ""), "a click on a selected heading selects it alone");
    }

    void theHostMayBuildTheGridAnewDuringADrag_data() {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::newRow("the moved column is gone") << "COL5"
                                                  << "COL5"
                                                  << "COL2";
        QTest::newRow("the gap is gone") << "COL1"
                                         << "COL1"
                                         << "COL5";
        QTest::newRow("selecting headings") << ""
                                            << "COL5"
                                            << "COL4";
        QTest::newRow("selecting cells") << ""
                                         << "ROW9"
                                         << "ROW8";
    }
    void theHostMayBuildTheGridAnewDuringADrag() {
        QFETCH(QString, selected);
        QFETCH(QString, from);
        QFETCH(QString, to);
        Screen screen;
        allowMoving(screen, true);
        if (!selected.isEmpty()) {
            click(screen, selected);
        }
        const QPoint start = heading(screen, from);
        const QPoint end = heading(screen, to) + QPoint(-10, -4);
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, start);
        moveMouse(screen.port(), (start + end) / 2, Qt::LeftButton);
        moveMouse(screen.port(), end, Qt::LeftButton);
        buildAnew(screen, {"COL1", "COL2"});
        moveMouse(screen.port(), end + QPoint(1, 1), Qt::LeftButton);
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, end);
        QCOMPARE(order(screen, true), QStringLiteral("1 2"));
        click(screen, QStringLiteral("COL2"));
        QVERIFY(screen.isSelected("COL2", ""));
    }

    void aClickIsAboutTheCellWithItsKeys() {
        Screen screen;
        const QPoint place = screen.middle(screen.cell(2, 1));
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, place);
        buildAnew(screen, {"COL2", "COL1"});
        screen.log().actions.clear();
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, place);
        QCOMPARE(screen.log().actions, (std::vector<std::string>{"SimpleClick COL2/ROW1"}));
    }

    void aDoubleClickOnABorderFitsTheContents() {
        Screen screen;
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, "a rather long text in this cell");
        screen.set({"COL2", "ROW4"}, GridAttribute::Contents, "a text that is even longer, but hidden with its row");
        screen.set({{}, "ROW4"}, GridAttribute::Hidden, true);
        screen.set({{}, "ROW6"}, GridAttribute::Font, ";24;Normal");
        const auto borderOf = [&screen](const Cell& cell, bool right) {
            const QRect rect = screen.view().cellRect(cell);
            return right ? QPoint(rect.right(), rect.center().y()) : QPoint(rect.center().x(), rect.bottom());
        };
        const auto doubleClick = [&screen](QPoint place) {
            QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, place);
            QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, place);
        };
        const auto width = [&screen](const char* key) {
            return screen.grid().Column(screen.grid().FindColumn(key).value()).width;
        };
        screen.log().events.clear();
        doubleClick(borderOf(screen.cell("COL2", "FTR0"), true));
        const int text = QFontMetrics(screen.view().cellFont(screen.cell(2, 3)))
                             .horizontalAdvance(QStringLiteral("a rather long text in this cell"));
        QVERIFY2(std::abs(width("COL2") - (text + 16)) <= 3, std::to_string(width("COL2")).c_str());
        QCOMPARE(screen.log().events,
                 (std::vector<std::string>{"ColumnResized COL2 " + std::to_string(width("COL2"))}));
        screen.set({"COL3", "FTR0"}, GridAttribute::Contents, "P");
        doubleClick(borderOf(screen.cell("COL3", "FTR0"), true));
        QVERIFY2(width("COL3") < GridOnScreen::ColumnWidth - 10, std::to_string(width("COL3")).c_str());
        doubleClick(borderOf(screen.cell("FLC0", "ROW6"), false));
        QVERIFY(screen.grid().Row(screen.grid().FindRow("ROW6").value()).height >= 32);
        QVERIFY2(!screen.view().editor().isOpen(), "a border is no cell");
        screen.set({}, GridAttribute::ResizePermission, std::int16_t{0});
        const int before = width("COL5");
        doubleClick(borderOf(screen.cell("COL5", "FTR0"), true));
        QCOMPARE(int{width("COL5")}, before);
    }

    void aDoubleClickOnAMarkShowsWhatIsHidden_data() {
        QTest::addColumn<bool>("switched");
        QTest::addColumn<QString>("hidden");
        QTest::addColumn<QString>("beside");
        QTest::addColumn<bool>("atEnd");
        QTest::addColumn<QString>("stillHidden");
        const auto row = [](const char* name, bool switched, const char* hidden, const char* beside, bool atEnd,
                            const char* still) {
            QTest::newRow(name) << switched << hidden << beside << atEnd << still;
        };
        row("between two columns", false, "COL2", "COL1/FTR0", true, "");
        row("right of the mark", false, "COL2", "COL3/FTR0", false, "");
        row("several at once, others not", false, "COL1 COL2 COL4", "COL3/FTR0", false, "COL4");
        row("before the first column", false, "COL1", "FLC0/FTR0", true, "");
        row("behind the last one", false, "COL4", "COL3/FTR0", true, "");
        row("all of them", false, "COL1 COL2 COL3 COL4", "FLC0/FTR0", true, "");
        row("rows", false, "ROW2 ROW3", "FLC0/ROW1", true, "");
        row("the first row", false, "ROW1", "FLC0/ROW2", false, "");
        row("switched: columns stand in rows", true, "COL2", "COL1/FTR0", true, "");
    }

    void aDoubleClickOnAMarkShowsWhatIsHidden() {
        QFETCH(bool, switched);
        QFETCH(QString, hidden);
        QFETCH(QString, beside);
        QFETCH(bool, atEnd);
        QFETCH(QString, stillHidden);
        WidgetOnScreen screen;
        screen.tables.gridAttr->SetValue(1, "SWITCHED", switched ? "X" : "");
        const auto tableOf = [&](const QString& key) {
            const bool column = key.startsWith(QLatin1String("COL"));
            return std::pair(column ? screen.tables.colsIndex : screen.tables.lineIndex,
                             column ? "COL_HIDDEN" : "ROW_HIDDEN");
        };
        for (const QString& key : hidden.split(' ')) {
            const auto [table, field] = tableOf(key);
            table->SetValue(key.last(1).toInt(), field, "X");
        }
        screen.widget->DP_Import_Attribute();
        screen.widget->DP_Import_Update();
        const bool across = beside.endsWith(QLatin1String("FTR0")) != switched;
        const QRect rect = screen.view().cellRect(screen.cell(beside));
        const QPoint mark = across ? QPoint(atEnd ? rect.right() : rect.left() + 1, rect.center().y())
                                   : QPoint(rect.center().x(), atEnd ? rect.bottom() : rect.top() + 1);
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, mark);
        QVERIFY2(screen.heard.isEmpty(), "one click shows nothing yet");
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, mark);
        QStringList left;
        for (const QString& key : hidden.split(' ')) {
            const auto [table, field] = tableOf(key);
            if (table->Value(key.last(1).toInt(), field).AsText() == "X") {
                left << key;
            }
        }
        QCOMPARE(left.join(' '), stillHidden);
        QCOMPARE(screen.heard, QStringList{QStringLiteral("update")});
        QVERIFY(!screen.editor());
        const auto& grid = screen.grid();
        QCOMPARE(grid.Column(*grid.FindColumn("COL4")).hidden, stillHidden == QLatin1String("COL4"));
        QVERIFY(!grid.Column(*grid.FindColumn("COL2")).hidden && !grid.Row(*grid.FindRow("ROW1")).hidden);
    }

    void markedColumnsFollowInGridAndTables() {
        WidgetOnScreen screen;
        const auto heading = [&screen](const QString& key) { return screen.middle(key + QStringLiteral("/FTR0")); };
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, heading(QStringLiteral("COL1")));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::ShiftModifier, heading(QStringLiteral("COL3")));
        const auto field = [&screen](int row, const char* name) {
            return screen.tables.colsIndex->Value(row, name).AsText();
        };
        QCOMPARE(field(1, "COL_MARKED") + field(2, "COL_MARKED") + field(3, "COL_MARKED") + field(4, "COL_MARKED"),
                 std::string("XXX"));
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, heading(QStringLiteral("COL4")));
        QTest::mouseMove(screen.port(), heading(QStringLiteral("COL3")));
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, heading(QStringLiteral("COL3")));
        QCOMPARE(field(1, "COL_MARKED") + field(2, "COL_MARKED"), std::string());
        QCOMPARE(field(3, "COL_MARKED") + field(4, "COL_MARKED"), std::string("XX"));
        const QRect rect = screen.view().cellRect(screen.cell(QStringLiteral("COL3/FTR0")));
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, QPoint(rect.right(), rect.center().y()));
        QCOMPARE(field(3, "COL_WIDTH"), field(4, "COL_WIDTH"));
        QVERIFY(field(3, "COL_WIDTH") != std::string());
        QCOMPARE(screen.heard, QStringList{QStringLiteral("update")});
    }
};

}  // namespace planview

QTEST_MAIN(planview::HeadingsTest)
#include "HeadingsTest.moc"
