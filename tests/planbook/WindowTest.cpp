// SPDX-License-Identifier: MIT
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <fstream>
#include <ostream>

#include <gtest/gtest.h>

#include "app/FindBar.h"
#include "app/PercentDialog.h"
#include "app/RecentBooks.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "planbook/BookWindow.h"

namespace planbook {
namespace {

using planview::GridControl;
using planview::SelectionMode;
using planview::Variant;

using Window = BookWindow;

/// Chooses in the popup that opens next.
void ChooseInSubmenu(const char* submenu, const char* entry) {
    QTimer::singleShot(0, [=] {
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(popup, nullptr);
        const auto find = [](const QMenu& menu, const char* text) -> QAction* {
            const QList<QAction*> actions = menu.actions();
            const auto found = std::find_if(actions.begin(), actions.end(),
                                            [&](const QAction* action) { return action->text().remove('&') == text; });
            return found == actions.end() ? nullptr : *found;
        };
        QAction* way = find(*popup, submenu);
        QAction* action = way && way->menu() ? find(*way->menu(), entry) : nullptr;
        if (!action) {
            popup->close();
            FAIL() << "no such entry";
        }
        popup->setActiveAction(way);
        way->menu()->setActiveAction(action);
        QTest::keyClick(way->menu(), Qt::Key_Return);
    });
}

/// The entries of a menu as they are read: "&Undo Ctrl+Z", "-" for a separator, in brackets while disabled.
std::vector<std::string> EntriesOf(const QMainWindow& window, const QString& menu) {
    std::vector<std::string> entries;
    for (const QAction* top : window.menuBar()->actions()) {
        for (const QAction* entry : top->text() == menu ? top->menu()->actions() : QList<QAction*>()) {
            const QString key = entry->shortcut().toString(QKeySequence::NativeText);
            const QString text = entry->text() + (key.isEmpty() ? "" : " " + key);
            const QString shown = entry->isSeparator() ? "-" : entry->isEnabled() ? text : "(" + text + ")";
            if (shown != "-" || (!entries.empty() && entries.back() != "-")) {
                entries.push_back(shown.toStdString());
            }
        }
    }
    return entries;
}

TEST(Window, ReturnPressesThePresetThatHasTheFocus) {
    PercentDialog dialog("Sales", 0, nullptr);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    auto* preset = dialog.findChild<QPushButton*>("preset10");
    preset->setFocus();
    QTest::keyClick(preset, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.percent(), 10);
    dialog.findChild<QWidget*>("percent")->setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(Window, MenusOfferWhatCanBeDone) {
    using Entries = std::vector<std::string>;
    const TestFolder folder;
    Window w(MakeSmallBook(folder));
    w.Grid().SelectCell(w.At(1, 1), SelectionMode::Replace);
    QApplication::processEvents();
    EXPECT_EQ(EntriesOf(w.window, "&Edit"), (Entries{"(&Undo Ctrl+Z)",
                                                     "(&Redo Ctrl+Y)",
                                                     "-",
                                                     "Cu&t Ctrl+X",
                                                     "&Copy Ctrl+C",
                                                     "&Paste Ctrl+V",
                                                     "(&Fill with the first value)",
                                                     "&Delete Del",
                                                     "(Take the number the &other way Ctrl+M)",
                                                     "-",
                                                     "Select ro&w Shift+Space",
                                                     "Select co&lumn Ctrl+Space",
                                                     "Add to the selection Shift+F8",
                                                     "Tell about the cell Ctrl+F1",
                                                     "-",
                                                     "F&ind… Ctrl+F",
                                                     "Find &next F3",
                                                     "Find pre&vious Shift+F3",
                                                     "-",
                                                     "(&Accept changes)",
                                                     "(R&evert changes…)"}));
    w.Grid().SelectRow(*w.Grid().FindRow("ROW1"), SelectionMode::Replace);
    QApplication::processEvents();
    Entries view = EntriesOf(w.window, "&View");
    view.erase(view.begin() + 3);  // asked as the menu opens: saving the chart
    EXPECT_EQ(view, (Entries{"&Chart",
                             "(Selected ro&ws into the chart)",
                             "(Selected &periods into the chart)",
                             "&Macros",
                             "Next part of the view F6",
                             "Previous part of the view Shift+F6",
                             "Border between the parts F8",
                             "-",
                             "Colours of the &desktop",
                             "L&ight",
                             "Dar&k",
                             "-",
                             "&Hide selected rows",
                             "(Hide selected colum&ns)",
                             "(Show s&elected rows)",
                             "(Show selected c&olumns)",
                             "-",
                             "&Larger text Ctrl++",
                             "&Smaller text Ctrl+-",
                             "&Usual text Ctrl+0"}));
    EXPECT_EQ(EntriesOf(w.window, "&Macro"),
              (Entries{"&New macro", "&Edit macro", "(&Preview changes of macro…)", "-", "&Start recording",
                       "(&Interrupt recording)", "(S&top recording)", "(&Undo last step)", "-", "&Run",
                       "Run on selected &line", "&Check"}));
    EXPECT_EQ(EntriesOf(w.window, "&File")[4], "&Download as workbook… Ctrl+Shift+S");
}

TEST(Window, EachLetterOpensOneEntryOfAMenu) {
    const TestFolder folder;
    Window w(MakeSmallBook(folder));
    for (const QAction* menu : w.window.menuBar()->actions()) {
        QString letters;
        for (const QAction* entry : menu->menu()->actions()) {
            const qsizetype mark = entry->text().indexOf('&');
            if (mark >= 0 && entry->isVisible()) {
                const QChar letter = entry->text().at(mark + 1).toLower();
                EXPECT_FALSE(letters.contains(letter)) << entry->text().toStdString();
                letters += letter;
            }
        }
    }
}

// --- Saving

TEST(Window, EveryKindOfChangeIsInTheFileAtOnce) {
    const TestFolder folder;
    Window w(MakeSmallBook(folder));
    w.Type(1, 1, "12,5");
    w.Type(3, 4, "7");  // a cell without a row
    w.Type(1, 1, "13");
    EXPECT_EQ(w.InFile(1, 1), "13");
    w.ExpectSaved();
    w.EmptyBlock(1, 1, 2, 3);
    EXPECT_EQ(w.InFile(2, 3), "");
    w.ExpectSaved();
    w.window.view().undo();
    EXPECT_EQ(w.InFile(2, 3), "30.5");
    EXPECT_EQ(w.InFile(1, 1), "13");
    w.ExpectSaved();
    w.window.view().redo();
    w.ExpectSaved();

    GridControl& grid = w.Grid();
    grid.PressColumnBorder(*grid.FindColumn("COL2"), false);
    grid.DragBorder(133);
    grid.ReleaseBorder();
    EXPECT_EQ(LoadBook(w.file)[BookTable::ColsIndex].Value(2, "COL_WIDTH"), Variant(133));
    w.ExpectSaved();
    const std::vector<std::string> before{"COL1", "COL2", "COL3", "COL4"};
    grid.MoveColumn("COL3", 1, true);
    grid.ReportMoved(planview::MovedTracks::Columns, before);
    EXPECT_EQ(LoadBook(w.file)[BookTable::ColsIndex].Value(3, "COL_ORDER"), Variant(1));
    w.window.session().reload();
    EXPECT_EQ(w.Grid().Column(w.Grid().Columns(planview::ColumnArea::Center)[0]).key, "COL3");
}

TEST(Window, ReadingAgainKeepsThePlaceAndAnotherBookHasItsOwn) {
    const TestFolder folder;
    const std::filesystem::path book = MakeSmallBook(folder);
    const std::filesystem::path other = folder.Path("other.planbook");
    std::filesystem::copy_file(book, other);
    Window w(book);
    w.Grid().SelectCell(w.At(2, 2), planview::SelectionMode::Replace);
    w.Grid().SelectCell(w.At(3, 3), planview::SelectionMode::Extend);
    const auto selected = [&] {
        return w.Grid().Selection().HasCell(w.At(3, 3), w.Grid().OrderOf(w.At(3, 3).column),
                                            w.Grid().OrderOf(w.At(3, 3).row));
    };
    w.window.session().reload();
    EXPECT_TRUE(selected());
    EXPECT_EQ(w.Grid().CurrentCell(), w.At(2, 2));
    w.window.openBook(other);
    EXPECT_FALSE(selected());
    EXPECT_EQ(w.Grid().CurrentCell(), w.At(1, 1));
}

/// SQLite counts the transactions that have written to a file in its header.
unsigned TransactionsOf(const std::filesystem::path& book) {
    constexpr int Place = 24;
    std::ifstream file(book, std::ios::binary);
    file.seekg(Place);
    unsigned count = 0;
    for (int i = 0; i < 4; ++i) {
        count = count << 8U | static_cast<unsigned>(file.get());
    }
    return count;
}

TEST(Window, CellsThatOneActionAnnouncesAreOneTransaction) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, "UPDATE GRID_ATTR SET SINGLEVALUE = 1");
    Window w(file);
    w.Type(1, 1, "2");  // makes the indexes
    const unsigned before = TransactionsOf(file);
    w.EmptyBlock(1, 1, 3, 3);
    EXPECT_EQ(TransactionsOf(file), before + 1);
    w.ExpectSaved();
    w.window.view().undo();
    EXPECT_EQ(TransactionsOf(file), before + 2);
    w.ExpectSaved();
    w.Type(1, 1, "3");
    EXPECT_EQ(TransactionsOf(file), before + 3);
}

TEST(Window, PendingChangesAreCountedAcceptedAndReverted) {
    const TestFolder folder;
    Window w(MakeSmallBook(folder));
    EXPECT_FALSE(w.window.isWindowModified());
    w.Type(1, 1, "50");
    w.Type(2, 2, "60");
    w.Type(2, 2, "20,5");  // as it was
    EXPECT_EQ(w.Text("pending"), "1 pending change");
    EXPECT_TRUE(w.window.isWindowModified());
    EXPECT_EQ(w.window.windowTitle(), "small[*] – planbook");

    w.Press("accept");
    EXPECT_EQ(w.Text("pending"), "No pending changes");
    EXPECT_EQ(DumpTable(LoadBook(w.file), BookTable::TabOld), "");
    w.ExpectSaved();

    w.Type(1, 1, "51");
    w.EmptyBlock(2, 1, 3, 2);
    EXPECT_EQ(w.Text("pending"), "5 pending changes");
    w.questions.revert = false;
    w.Press("revert");
    EXPECT_EQ(w.InFile(1, 1), "51");
    w.questions.revert = true;
    w.Press("revert");
    EXPECT_EQ(w.questions.revertAsked, 5);
    EXPECT_EQ(w.InFile(1, 1), "50");
    EXPECT_EQ(w.Shown(1, 1), "50");
    EXPECT_EQ(w.Shown(2, 1), "10,5");
    EXPECT_EQ(w.Text("pending"), "No pending changes");
    EXPECT_FALSE(w.window.isWindowModified());
    w.ExpectSaved();
}

struct FailureCase {
    const char* name;
    Obstacle::Kind kind;
};

void PrintTo(const FailureCase& failure, std::ostream* stream) {
    *stream << failure.name;
}

class WindowFailure : public testing::TestWithParam<FailureCase> {};

TEST_P(WindowFailure, IsToldOnceAndTheGridShowsWhatTheBookHolds) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, "UPDATE GRID_ATTR SET SINGLEVALUE = 1");  // each cell of a block is announced
    Window w(file);
    w.Type(1, 2, "22");
    const std::string before = DumpTable(LoadBook(file), BookTable::Tab);
    {
        const Obstacle obstacle(GetParam().kind, file);
        w.Grid().SelectCell(w.At(2, 1), SelectionMode::Replace);
        w.Type(1, 1, "50");
        ASSERT_EQ(w.questions.failures.size(), 1U);
        EXPECT_TRUE(Contains(w.questions.failures[0], "Cannot write the book")) << w.questions.failures[0];
        EXPECT_EQ(w.Shown(1, 1), "1");
        EXPECT_EQ(w.window.view().currentRow(), "ROW2") << "where the user was";
        w.EmptyBlock(1, 1, 3, 3);
        EXPECT_EQ(w.questions.failures.size(), 2U) << "once for the whole block";
        EXPECT_EQ(w.Shown(3, 3), "300");
        EXPECT_EQ(w.Shown(1, 2), "22");
        w.window.session().acceptChanges();
        EXPECT_EQ(w.questions.failures.size(), 3U);
        EXPECT_EQ(w.Text("pending"), "1 pending change");
    }
    EXPECT_EQ(DumpTable(LoadBook(file), BookTable::Tab), before);
    w.window.session().reload();
    w.Type(1, 1, "50");
    EXPECT_EQ(w.InFile(1, 1), "50") << "when the obstacle is gone";
}

const FailureCase Failures[] = {
    {"FullDisk", Obstacle::Kind::FullDisk},
    {"Locked", Obstacle::Kind::Locked},
};

INSTANTIATE_TEST_SUITE_P(Obstacles, WindowFailure, testing::ValuesIn(Failures),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(Window, ATraceIsNotThrownAwayUnasked) {
    using What = Questions::OfRecording;
    const TestFolder folder;
    Window w(MakeSmallBook(folder));
    EXPECT_TRUE(w.window.close());
    EXPECT_EQ(w.questions.traceAsked, 0) << "there is none";
    w.window.view().plv_EnableTrace();
    w.Type(1, 1, "7");

    EXPECT_FALSE(w.window.close()) << "go on";
    w.questions.ofTrace = What::Keep;
    EXPECT_FALSE(w.window.close()) << "no file was chosen";
    w.questions.traceFile = w.file.string();
    EXPECT_FALSE(w.window.close()) << "that is the book";
    ASSERT_EQ(w.questions.failures.size(), 1U);
    EXPECT_TRUE(Contains(w.questions.failures[0], "there is a planning book of that name"));
    w.questions.traceFile = folder.Path("trace.log");
    EXPECT_TRUE(w.window.close());
    EXPECT_TRUE(Contains(ReadFile(folder.Path("trace.log")), "Trace_Enable"));
    w.questions.ofTrace = What::Discard;
    EXPECT_TRUE(w.window.close());
    EXPECT_EQ(w.questions.traceAsked, 5);
    w.window.view().plv_DisableTrace();
}

TEST(Window, DoesNotCloseOverAnEntryThatCouldNotBeSaved) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    Window w(file);
    w.window.show();
    {
        const Obstacle obstacle(Obstacle::Kind::FullDisk, file);
        w.Grid().EnterText(w.At(1, 1), "50");
        EXPECT_FALSE(w.window.close());
        EXPECT_EQ(w.questions.failures.size(), 1U);
    }
    EXPECT_TRUE(w.window.close());
}

TEST(Window, PutsABookAwayWithTheMarksOfItsUsualView) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    Window w(file);
    w.window.show();
    planview::PlanViewWidget& view = w.window.view();
    if (!view.chartShown()) {
        view.switchChart();
    }
    const std::string before = DumpTable(LoadBook(file), BookTable::LineIndex);
    ChooseInSubmenu("Chart view", "Forecast (Compare)");
    planview::ControlParts(view.control())
        .Chart()
        .UserPressed(planview::MouseButton::Right, planview::ShiftState::None,
                     {planview::ChartHitCode::PlotArea, 0, 0});
    EXPECT_NE(DumpTable(LoadBook(file), BookTable::LineIndex), before) << "the forecast view has marks of its own";
    EXPECT_TRUE(w.window.close());
    EXPECT_EQ(DumpTable(LoadBook(file), BookTable::LineIndex), before);
}

// --- Two windows on one book

TEST(TwoPlanbooks, TheSecondNoticesAndReloads) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    Window mine(file);
    Window theirs(file);
    theirs.Type(1, 1, "70");
    mine.window.session().watch();
    EXPECT_FALSE(mine.Find<QWidget>("noticeBar")->isHidden());
    theirs.window.session().watch();
    EXPECT_TRUE(theirs.Find<QWidget>("noticeBar")->isHidden()) << "one's own change is no news";
    mine.Press("noticeAction");
    EXPECT_TRUE(mine.Find<QWidget>("noticeBar")->isHidden());
    EXPECT_EQ(mine.Shown(1, 1), "70");
    EXPECT_EQ(mine.Text("pending"), "1 pending change");
    mine.ExpectSaved();
}

TEST(TwoPlanbooks, NobodysValueIsOverwrittenUnasked) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    Window mine(file);
    Window theirs(file);
    theirs.Type(1, 1, "70");
    theirs.Type(1, 2, "71");
    mine.Type(2, 2, "80");  // nobody else's cell
    EXPECT_TRUE(mine.questions.disputes.empty());
    EXPECT_EQ(mine.InFile(1, 1), "70");
    EXPECT_EQ(mine.InFile(2, 2), "80");

    mine.Type(1, 1, "90");
    ASSERT_EQ(mine.questions.disputes.size(), 1U);
    EXPECT_EQ(mine.questions.disputes[0][0].name, "Alpha, Jan 08");
    EXPECT_EQ(mine.questions.disputes[0][0].mine, "90");
    EXPECT_EQ(mine.questions.disputes[0][0].theirs, "70");
    EXPECT_EQ(mine.InFile(1, 1), "90") << "mine was kept";

    mine.questions.keep = Questions::Keep::Theirs;
    mine.EmptyBlock(1, 1, 1, 3);
    ASSERT_EQ(mine.questions.disputes.size(), 2U);
    EXPECT_EQ(mine.questions.disputes[1].size(), 1U) << "only the cell that both have changed";
    EXPECT_EQ(mine.InFile(1, 1), "");
    EXPECT_EQ(mine.InFile(1, 2), "71") << "theirs was taken";
    EXPECT_EQ(mine.Shown(1, 2), "71");
    EXPECT_EQ(mine.InFile(1, 3), "");
    mine.ExpectSaved();
}

TEST(TwoPlanbooks, ChangesThatNobodyHasSeenAreNeitherAcceptedNorReverted) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    Window mine(file);
    Window theirs(file);
    mine.Type(2, 2, "80");
    theirs.Type(1, 1, "70");
    mine.window.session().revertChanges();
    EXPECT_EQ(mine.questions.news.size(), 1U);
    EXPECT_EQ(mine.InFile(1, 1), "70");
    EXPECT_EQ(mine.Text("pending"), "2 pending changes");
    mine.window.session().revertChanges();
    EXPECT_EQ(mine.InFile(1, 1), "1");
    EXPECT_EQ(mine.InFile(2, 2), "20.5");
}

// --- Find, recent books, status

TEST(Window, FindsAndWrapsAndSelectsTheCell) {
    const TestFolder folder;
    Window w(MakeSmallBook(folder));
    w.window.findChild<FindBar*>("findBar")->start();
    auto* text = w.Find<QLineEdit>("findText");
    text->setText("30");
    EXPECT_EQ(w.Text("findOutcome"), "1 of 2");
    EXPECT_EQ(w.Grid().KeyOf(*w.Grid().CurrentCell()), (planview::CellKey{"COL3", "ROW2"}));
    w.Press("findNext");
    EXPECT_EQ(w.Text("findOutcome"), "2 of 2");
    EXPECT_EQ(w.Grid().KeyOf(*w.Grid().CurrentCell()), (planview::CellKey{"COL3", "ROW3"}));
    w.Press("findNext");
    EXPECT_EQ(w.Text("findOutcome"), "1 of 2") << "it goes round";
    w.Press("findPrevious");
    EXPECT_EQ(w.Text("findOutcome"), "2 of 2");
    w.Grid().SelectCell(w.At(3, 1), SelectionMode::Replace);
    w.Press("findPrevious");
    EXPECT_EQ(w.Text("findOutcome"), "1 of 2") << "from where the user has gone";
    text->setText("gam");
    EXPECT_EQ(w.Grid().KeyOf(*w.Grid().CurrentCell()).row, "ROW3");
    text->setText("Feb 0");
    EXPECT_EQ(w.Grid().KeyOf(*w.Grid().CurrentCell()).column, "COL2");
    text->setText("xyz");
    EXPECT_EQ(w.Text("findOutcome"), "nothing found");
}

TEST(Window, TellsOfTheSelection) {
    const TestFolder folder;
    Window w(MakeSmallBook(folder));
    w.Grid().SelectCell(w.At(2, 1), SelectionMode::Replace);
    w.Grid().SelectCell(w.At(2, 3), SelectionMode::Extend);
    QApplication::processEvents();
    const std::string text = w.Text("selection");
    for (const char* part : {"Beta", "Sum 61,5", "Mean 20,5", "Count 3"}) {
        EXPECT_TRUE(Contains(text, part)) << text;
    }
}

TEST(RecentBooks, TheLatestEightThatAreStillThere) {
    const TestFolder folder;
    QSettings().clear();
    RecentBooks recent;
    QStringList expected;
    for (int i = 0; i < 10; ++i) {
        const QString file = QString::fromStdString(folder.Write("book" + std::to_string(i), "").string());
        recent.add(file);
        expected.prepend(file);
    }
    recent.add(expected[3]);
    expected.move(3, 0);
    EXPECT_EQ(recent.files(), expected.mid(0, 8));
    std::filesystem::remove(expected[1].toStdString());
    expected.removeAt(1);
    EXPECT_EQ(recent.files(), expected.mid(0, 7));
}

}  // namespace
}  // namespace planbook

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    testing::InitGoogleTest(&argc, argv);
    QApplication::setOrganizationName("planbook-test");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
