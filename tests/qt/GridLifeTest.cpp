// SPDX-License-Identifier: MIT
#include <QHelpEvent>
#include <QPointer>
#include <QTextDocument>
#include <QToolTip>
#include <functional>

#include "qt/GridOnScreen.h"

namespace planview {

namespace {

/// Deletes the view when it hears of a user action.
class Deleter final : public ReportLog {
public:
    explicit Deleter(GridOnScreen& screen) : screen_(screen) {}
    void SelectionChanged(const CellKey&, bool) override { screen_.deleteView(); }
    void ColumnResized(const std::string&, int) override { screen_.deleteView(); }
    void DoubleClick(const CellKey&) override { screen_.deleteView(); }
    void MenuKey(const CellKey&) override { screen_.deleteView(); }

private:
    GridOnScreen& screen_;
};

/// Deletes the view when one certain event comes.
class ChoosyDeleter final : public ReportLog {
public:
    ChoosyDeleter(GridOnScreen& screen, QString event) : screen_(screen), event_(std::move(event)) {}
    void SelectionChanged(const CellKey&, bool) override {}
    void TextEntered(const CellKey&, const std::string&) override { heard("TextEntered"); }
    void StayCell() override { heard("StayCell"); }
    void SimpleClick(const CellKey&) override { heard("SimpleClick"); }
    void MouseDown(const CellKey&, MouseButton, ShiftState) override { heard("MouseDown"); }
    bool KeyDown(std::int16_t, std::int16_t) override {
        heard("KeyDown");
        return true;
    }
    void KeyPress(std::int16_t) override { heard("KeyPress"); }

private:
    void heard(const char* event) {
        if (event_ == QLatin1String(event)) {
            screen_.deleteView();
        }
    }
    GridOnScreen& screen_;
    QString event_;
};

QPoint headingBorder(GridOnScreen& screen) {
    const QRect heading = screen.view().cellRect(screen.cell("COL2", "FTR0"));
    return {heading.right(), heading.center().y()};
}

}  // namespace

/// The view may end at any time, above all inside an event that its own input has raised.
class GridLifeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void deletedByAnEvent_data() {
        using Input = std::function<void(GridOnScreen&)>;
        QTest::addColumn<Input>("input");
        const auto add = [](const char* name, Input input) { QTest::newRow(name) << std::move(input); };
        add("click", [](GridOnScreen& screen) {
            QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        });
        add("heading", [](GridOnScreen& screen) {
            QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier,
                              screen.middle(screen.cell("COL2", "FTR0")));
        });
        add("right click", [](GridOnScreen& screen) {
            QTest::mousePress(screen.port(), Qt::RightButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        });
        add("double click", [](GridOnScreen& screen) {
            QMouseEvent event(QEvent::MouseButtonDblClick, screen.middle(screen.cell(2, 3)),
                              screen.port()->mapToGlobal(screen.middle(screen.cell(2, 3))), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(screen.port(), &event);
        });
        add("arrow", [](GridOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_Right); });
        add("menu key", [](GridOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_Menu); });
        add("page", [](GridOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_PageDown); });
        add("tab", [](GridOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_Tab); });
        add("select all",
            [](GridOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_A, Qt::ControlModifier); });
    }
    void deletedByAnEvent() {
        QFETCH(std::function<void(GridOnScreen&)>, input);
        GridOnScreen screen;
        Deleter deleter(screen);
        const QPointer<GridView> view(&screen.view());
        screen.grid().SetEvents(&deleter);
        input(screen);
        QVERIFY2(!view, "the input raised no event");
        screen.grid().SetEvents(nullptr);
        screen.grid().Redraw();
    }

    void deletedByOneOfSeveralEvents_data() {
        using Input = std::function<void(GridOnScreen&)>;
        QTest::addColumn<Input>("input");
        const auto add = [](const char* event, Input input) { QTest::newRow(event) << std::move(input); };
        const auto click = [](GridOnScreen& screen) {
            QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        };
        const auto press = [](Qt::Key key) {
            return [key](GridOnScreen& screen) {
                QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5"));
                static_cast<void>(screen);
                QTest::keyClick(QApplication::focusWidget(), key);
            };
        };
        add("MouseDown", [](GridOnScreen& screen) {
            QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        });
        add("SimpleClick", click);
        add("KeyDown", [](GridOnScreen& screen) { QTest::keyPress(&screen.view(), Qt::Key_Delete); });
        add("KeyPress", press(Qt::Key_Return));
        add("TextEntered", press(Qt::Key_Tab));
        add("StayCell", press(Qt::Key_Escape));
    }
    void deletedByOneOfSeveralEvents() {
        QFETCH(std::function<void(GridOnScreen&)>, input);
        GridOnScreen screen;
        ChoosyDeleter deleter(screen, QString::fromLatin1(QTest::currentDataTag()));
        const QPointer<GridView> view(&screen.view());
        screen.grid().SetEvents(&deleter);
        input(screen);
        QVERIFY2(!view, "the input raised no event");
        screen.grid().SetEvents(nullptr);
    }

    void deletedWhileDragging() {
        GridOnScreen screen;
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 3)));
        Deleter deleter(screen);
        const QPointer<GridView> view(&screen.view());
        screen.grid().SetEvents(&deleter);
        moveMouse(screen.port(), screen.middle(screen.cell(4, 5)), Qt::LeftButton);
        QTRY_VERIFY(!view);
    }

    void deletedByTheReleaseOfABorder() {
        GridOnScreen screen;
        const QPoint border = headingBorder(screen);
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, border);
        moveMouse(screen.port(), border + QPoint(20, 0), Qt::LeftButton);
        Deleter deleter(screen);
        const QPointer<GridView> view(&screen.view());
        screen.grid().SetEvents(&deleter);
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, border + QPoint(20, 0));
        QVERIFY(!view);
    }

    void focusIsReported() {
        GridOnScreen screen;
        screen.view().clearFocus();
        screen.view().setFocus();
        QCOMPARE(screen.log().events, (std::vector<std::string>{"FocusOut", "FocusIn"}));
    }

    void aGridWithoutAViewStaysUsable() {
        GridOnScreen screen;
        screen.deleteView();
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, "5");
        QCOMPARE(QString::fromStdString(screen.grid().DisplayText(screen.cell(2, 3))), QStringLiteral("5"));
    }

    void toolTips() {
        GridOnScreen screen;
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, "123456789012345");
        screen.set({"COL3", "ROW3"}, GridAttribute::Tooltip, "<b>seen</b> as written");
        const auto tipAt = [&](Cell cell) {
            const QPoint place = screen.middle(cell);
            QHelpEvent event(QEvent::ToolTip, place, screen.port()->mapToGlobal(place));
            QApplication::sendEvent(screen.port(), &event);
            QTextDocument text;
            text.setHtml(QToolTip::text());
            return text.toPlainText();
        };
        QCOMPARE(tipAt(screen.cell(2, 3)), QStringLiteral("123456789012345"));
        QCOMPARE(tipAt(screen.cell(3, 3)), QStringLiteral("<b>seen</b> as written"));
        static_cast<void>(tipAt(screen.cell(4, 3)));
        QTRY_VERIFY2(!QToolTip::isVisible(), "a cell that is whole and has no tip");
    }
};

}  // namespace planview

Q_DECLARE_METATYPE(std::function<void(planview::GridOnScreen&)>)

QTEST_MAIN(planview::GridLifeTest)
#include "GridLifeTest.moc"
