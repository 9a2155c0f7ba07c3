// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QDialog>
#include <QTimer>
#include <QtTest>

#include "book/FixedCell.h"
#include "grid/CellRules.h"
#include "planbook/BookWindow.h"

namespace planbook {
namespace {

using planview::SelectionMode;
using planview::Variant;

/// The fixed line above the periods, with the years.
constexpr const char* Years = "FTR1";

std::filesystem::path BookWithEditableYears(const TestFolder& folder) {
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, "UPDATE FIXED_LINES SET READONLY = ''");
    return file;
}

std::string YearOf(BookWindow& w, const char* column) {
    return w.Grid().Contents(w.Grid().FindCell({column, Years}).value());
}

}  // namespace

TEST(Session, FixedCellsAreKeptLikeAllOthers) {
    const TestFolder folder;
    BookWindow w(BookWithEditableYears(folder));
    const std::string before = DumpTable(LoadBook(w.file), BookTable::FixedTab);
    const std::string year = YearOf(w, "COL1");
    ASSERT_NE(year, "");
    w.Grid().EnterText(w.Grid().FindCell({"COL1", Years}).value(), "2009");
    w.window.session().reload();
    EXPECT_EQ(YearOf(w, "COL1"), "2009");
    EXPECT_EQ(LoadBook(w.file)[BookTable::FixedTab].RowCount(),
              static_cast<int>(std::count(before.begin(), before.end(), '\n')));
    EXPECT_EQ(w.Text("pending"), "No pending changes");

    // Several at once, two of which have no row yet.
    w.Grid().SelectCell(w.Grid().FindCell({"COL1", Years}).value(), SelectionMode::Replace);
    QApplication::clipboard()->setText("a\tb\tc");
    w.Grid().SelectCell(w.Grid().FindCell({"COL3", Years}).value(), SelectionMode::Extend);
    w.window.view().paste();
    w.window.session().reload();
    EXPECT_EQ(YearOf(w, "COL1") + YearOf(w, "COL2") + YearOf(w, "COL3"), "abc");
    w.ExpectSaved();

    w.Grid().EnterText(w.Grid().FindCell({"COL2", Years}).value(), "x");
    w.window.view().undo();
    w.window.session().reload();
    EXPECT_EQ(YearOf(w, "COL2"), "b");
    EXPECT_EQ(w.Shown(1, 1), "1");
}

TEST(Session, AFixedCellThatCannotBeSavedShowsTheBooksText) {
    const TestFolder folder;
    BookWindow w(BookWithEditableYears(folder));
    const std::string year = YearOf(w, "COL1");
    {
        const Obstacle obstacle(Obstacle::Kind::Locked, w.file);
        w.Grid().EnterText(w.Grid().FindCell({"COL1", Years}).value(), "2009");
        QApplication::processEvents();
    }
    EXPECT_EQ(w.questions.failures.size(), 1U);
    EXPECT_EQ(YearOf(w, "COL1"), year);
}

/// Another window goes on writing while this one asks, and the questions let events in.
TEST(Session, WhatWasTakenFromOthersStaysTakenToTheEndOfTheAction) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, "UPDATE GRID_ATTR SET SINGLEVALUE = 1");
    BookWindow w(file);
    ChangeBook(file, "UPDATE TAB SET V = 71 WHERE Z = 1 AND C = 1");
    w.questions.keep = Questions::Keep::Theirs;
    w.questions.whileAsking = [&] {
        QApplication::processEvents();
        if (w.questions.disputes.size() == 1) {
            ChangeBook(file, "UPDATE TAB SET V = 70 + C WHERE Z = 1");
        }
    };
    w.EmptyBlock(1, 1, 1, 4);
    EXPECT_EQ(w.questions.disputes.size(), 2U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return w.Shown(1, 4) == "74"; }));
    for (int period = 1; period <= 4; ++period) {
        EXPECT_EQ(w.InFile(1, period), std::to_string(70 + period));
        EXPECT_EQ(w.Shown(1, period), std::to_string(70 + period));
    }
    w.ExpectSaved();
}

/// Counts how often a timer of this thread has come.
struct TimerCount : QObject {
    TimerCount() { QApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        count += event->type() == QEvent::Timer && qobject_cast<QTimer*>(receiver) ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST(Session, NothingIsBuiltAnewBehindAMessageThatIsBeingRead) {
    const TestFolder folder;
    BookWindow w(MakeSmallBook(folder));
    const Obstacle obstacle(Obstacle::Kind::FullDisk, w.file);
    const auto built = w.Grid().BuildVersion();
    QDialog message;
    message.setModal(true);
    w.Grid().EnterText(w.At(1, 1), "50");
    message.show();
    const TimerCount looks;
    EXPECT_TRUE(QTest::qWaitFor([&] { return looks.count > 2; })) << "nobody looks whether the message is gone";
    EXPECT_EQ(w.Grid().BuildVersion(), built);
    EXPECT_TRUE(w.questions.failures.empty());
    message.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !w.questions.failures.empty(); }));
    EXPECT_EQ(w.Shown(1, 1), "1");
}

TEST(Session, ADismissedNoticeComesBackWithTheNextChange) {
    const TestFolder folder;
    BookWindow w(MakeSmallBook(folder));
    const auto changed = [&](const char* how) {
        ChangeBook(w.file, how);
        w.window.session().watch();
        return !w.Find<QWidget>("noticeBar")->isHidden();
    };
    EXPECT_TRUE(changed("UPDATE TAB SET V = 70 WHERE Z = 1 AND C = 1"));
    w.Press("noticeEnd");
    w.window.session().watch();
    EXPECT_TRUE(w.Find<QWidget>("noticeBar")->isHidden());
    w.Type(2, 2, "5");
    EXPECT_TRUE(w.Find<QWidget>("noticeBar")->isHidden()) << "one's own change is no news";
    EXPECT_TRUE(changed("UPDATE TAB SET V = 71 WHERE Z = 1 AND C = 1"));
}

TEST(Session, NoticeAndStatusDoNotMoveTheGrid) {
    const TestFolder folder;
    BookWindow w(MakeSmallBook(folder));
    w.window.resize(900, 500);
    w.window.show();
    QApplication::processEvents();
    const QPoint place = w.window.view().mapTo(&w.window, QPoint());
    const int height = w.window.view().height();
    w.Type(1, 1, "5");
    EXPECT_EQ(w.window.view().height(), height) << "the first pending change";
    ChangeBook(w.file, "UPDATE TAB SET V = 70 WHERE Z = 2 AND C = 1");
    w.window.session().watch();
    QApplication::processEvents();
    ASSERT_TRUE(w.Find<QWidget>("noticeBar")->isVisible());
    EXPECT_EQ(w.window.view().mapTo(&w.window, QPoint()), place);
}

TEST(Session, ABookThatCannotBeWrittenSaysSoAndTakesNothing) {
    const TestFolder folder;
    BookWindow w(MakeSmallBook(folder));
    w.Type(1, 2, "22");
    const std::string before = DumpTable(LoadBook(w.file), BookTable::Tab);
    {
        const Obstacle obstacle(Obstacle::Kind::NoPermission, w.file);
        w.window.session().reload();  // SQLite looks at the permissions when it opens a file
        EXPECT_EQ(w.window.windowTitle().toStdString(), "small (read-only)[*] – planbook");
        EXPECT_EQ(w.Text("pending"), "Read-only book, 1 pending change");
        EXPECT_TRUE(w.Find<QToolButton>("accept")->isHidden());
        EXPECT_EQ(planview::RefusalOf(w.Grid(), w.At(1, 1)), planview::Refusal::TableReadOnly);
        w.EmptyBlock(1, 1, 3, 3);
        EXPECT_EQ(w.Shown(3, 3), "300");
        w.Grid().PressColumnBorder(*w.Grid().FindColumn("COL2"), false);
        w.Grid().DragBorder(133);
        w.Grid().ReleaseBorder();
        QApplication::processEvents();
        EXPECT_EQ(w.Grid().Column(*w.Grid().FindColumn("COL2")).width, 133) << "as long as it is shown";
        EXPECT_TRUE(w.questions.failures.empty());
    }
    EXPECT_EQ(DumpTable(LoadBook(w.file), BookTable::Tab), before);
    w.window.session().reload();
    w.Type(1, 1, "50");
    EXPECT_EQ(w.InFile(1, 1), "50") << "when it can be written again";
    EXPECT_EQ(w.Text("pending"), "2 pending changes");
}

}  // namespace planbook
