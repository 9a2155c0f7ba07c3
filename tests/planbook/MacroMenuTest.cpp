// SPDX-License-Identifier: MIT
#include <QAction>
#include <QListView>
#include <QMenuBar>

#include "book/HostCommands.h"
#include "book/Macros.h"
#include "planbook/BookWindow.h"

namespace planbook {
namespace {

using planview::SelectionMode;

/// planbook's window with someone who uses the Macro menu.
struct MacroWindow : BookWindow {
    using BookWindow::BookWindow;

    QAction* Entry(const QString& menu, const QString& text) {
        for (QAction* top : window.menuBar()->actions()) {
            if (top->text() == "&Macro") {
                return EntryIn(*top->menu(), menu, text);
            }
        }
        return nullptr;
    }
    void Choose(const QString& menu, const QString& text) {
        QAction* entry = Entry(menu, text);
        ASSERT_TRUE(entry) << (menu + "/" + text).toStdString();
        ASSERT_TRUE(entry->isEnabled()) << text.toStdString();
        entry->trigger();
        QApplication::processEvents();
    }
    void RaiseLine(int line, double percent) {
        Grid().SelectCell(At(line, 1), SelectionMode::Replace);
        Grid().SelectCell(At(line, 4), SelectionMode::Extend);
        questions.number = percent;
        Q_EMIT window.view().GridPopupMenuPressed(40, QString::number(static_cast<int>(HostCommand::RaiseCells)), 1,
                                                  "COL1", static_cast<short>(line), "ROW1");
        QApplication::processEvents();
    }
    [[nodiscard]] std::string Tree() const { return DumpTable(LoadBook(file), BookTable::MacroTree); }

private:
    static QAction* EntryIn(QMenu& in, const QString& menu, const QString& text) {
        for (QAction* action : in.actions()) {
            if (action->menu() && action->text().remove('&') == menu) {
                Q_EMIT action->menu()->aboutToShow();
                return EntryIn(*action->menu(), {}, text);
            }
            if (menu.isEmpty() && action->text().remove('&') == text) {
                return action;
            }
        }
        return nullptr;
    }
};

TEST(MacroMenu, ARecordingIsKeptInTheBookAndReplayedOnAnotherLine) {
    const TestFolder folder;
    MacroWindow window(MakeSmallBook(folder));
    EXPECT_FALSE(window.Find<QLabel>("recording")->isVisibleTo(&window.window));
    window.Choose({}, "Start recording");
    window.RaiseLine(1, 10);
    EXPECT_TRUE(Contains(window.Text("recording"), "Recording, 1 step")) << window.Text("recording");
    window.questions.names = {""};
    window.Press("stopRecording");
    EXPECT_EQ(window.questions.asked, "Keep the recording in the book under this name:: Recording 1");
    EXPECT_TRUE(Contains(window.Tree(), "\"RECORDED\" 4 \"Recording 1\"")) << window.Tree();
    EXPECT_TRUE(Contains(window.Tree(), "\"1. Raise Alpha by 10 % from Jan 08 to Apr 08\"")) << window.Tree();
    EXPECT_EQ(window.InFile(1, 4), "4.4");

    window.Grid().SelectCell(window.At(2, 1), SelectionMode::Replace);
    window.Choose("Run on selected line", "Recording 1");
    EXPECT_EQ(window.InFile(2, 1), "11.55");
    EXPECT_EQ(window.InFile(1, 4), "4.4") << "the line of the recording was not meant";
    window.ExpectSaved();
    window.window.view().undo();
    EXPECT_EQ(window.InFile(2, 1), "10.5");

    window.Choose("Run", "Recording 1");
    EXPECT_EQ(window.InFile(1, 4), "4.84");
}

TEST(MacroMenu, MacrosAreMadeAndOpenedInTheEditor) {
    const TestFolder folder;
    MacroWindow window(MakeSmallBook(folder));
    window.window.show();
    QApplication::setActiveWindow(&window.window);
    QApplication::processEvents();
    const auto* list = window.window.findChild<QListView*>();
    ASSERT_TRUE(list);
    const auto macro = [&] { return list->model()->index(0, 0).data().toString().toStdString(); };
    EXPECT_FALSE(window.Entry({}, "Preview changes of macro…")->isEnabled());
    window.Choose({}, "New macro");
    EXPECT_TRUE(window.window.view().macroTreeShown());
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(macro(), "Macro 1");
    EXPECT_TRUE(Contains(window.Tree(), "\"Macro 1\"")) << "kept in the book";
    EXPECT_TRUE(window.Entry({}, "Preview changes of macro…")->isEnabled());
    const std::string key = MacrosOf(LoadBook(window.file)).at(0).key;
    const std::string before = DumpTable(LoadBook(window.file), BookTable::Tab);
    window.Choose({}, "New macro");
    EXPECT_EQ(macro(), "Macro 2");

    window.window.view().switchMacroTree();
    Q_EMIT window.window.view().GridTreeMacroClick("NOBODY", QString());
    QApplication::processEvents();
    EXPECT_FALSE(window.window.view().macroTreeShown()) << "what is no macro is not opened";
    Q_EMIT window.window.view().GridTreeMacroClick(QString::fromStdString(key), QString());
    QApplication::processEvents();
    EXPECT_TRUE(window.window.view().macroTreeShown());
    EXPECT_EQ(macro(), "Macro 1");
    EXPECT_TRUE(list->hasFocus());
    window.Choose({}, "Edit macro");
    EXPECT_EQ(macro(), "Macro 1") << "the selected one";
    EXPECT_EQ(DumpTable(LoadBook(window.file), BookTable::Tab), before) << "opening runs nothing";
}

TEST(MacroMenu, ANameThatIsTakenIsAskedForAgainAndNoneKeepsNothing) {
    const TestFolder folder;
    MacroWindow window(MakeSmallBook(folder));
    const auto record = [&](std::vector<std::string> names) {
        window.Choose({}, "Start recording");
        window.RaiseLine(1, 1);
        window.questions.names = std::move(names);
        window.Choose({}, "Stop recording");
    };
    record({"Plan"});
    record({"Plan", "Other"});
    EXPECT_EQ(window.questions.failures,
              (std::vector<std::string>{"There is a macro called \"Plan\" already. Take another name."}));
    window.questions.failures.clear();
    record({});
    std::vector<std::string> names;
    for (const MacroEntry& macro : MacrosOf(LoadBook(window.file))) {
        names.push_back(macro.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Plan", "Other"}));
    window.Choose({}, "Start recording");
    window.Choose({}, "Stop recording");
    EXPECT_EQ(window.questions.discardAsked, 1);
    EXPECT_EQ(window.questions.news.size(), 1U) << "an empty recording is not kept";
}

TEST(MacroMenu, ABookIsLeftOnlyWhenItsRecordingHasEnded) {
    using What = Questions::OfRecording;
    const TestFolder folder;
    MacroWindow window(MakeSmallBook(folder));
    window.window.show();
    window.Choose({}, "Start recording");
    window.RaiseLine(1, 1);
    EXPECT_FALSE(window.window.close()) << "the user stays";
    EXPECT_EQ(window.questions.leaveAsked, 1);
    EXPECT_TRUE(window.window.view().isRecording());

    window.questions.ofRecording = What::Keep;
    window.questions.names = {"Kept"};
    EXPECT_TRUE(window.window.close());
    QApplication::processEvents();
    EXPECT_FALSE(window.window.view().isRecording());
    EXPECT_TRUE(Contains(window.Tree(), "\"Kept\"")) << window.Tree();
    EXPECT_TRUE(window.questions.names.empty());

    window.window.show();
    window.Choose({}, "Start recording");
    window.RaiseLine(1, 1);
    window.questions.ofRecording = What::Discard;
    window.questions.asked.clear();
    EXPECT_TRUE(window.window.close());
    QApplication::processEvents();
    EXPECT_EQ(window.questions.asked, "") << "no name is asked for";
    EXPECT_EQ(MacrosOf(LoadBook(window.file)).size(), 1U);

    window.window.show();
    window.questions.leaveAsked = 0;
    window.Choose({}, "Start recording");
    EXPECT_TRUE(window.window.close());
    EXPECT_EQ(window.questions.leaveAsked, 0) << "there is no step to lose";
}

TEST(MacroMenu, AReplayThatDoesNotFitSaysWhyAndChangesNothing) {
    const TestFolder folder;
    MacroWindow window(MakeSmallBook(folder));
    window.Choose({}, "Start recording");
    window.RaiseLine(1, 10);
    window.questions.names = {""};
    window.Choose({}, "Stop recording");
    window.window.session().book()[BookTable::LineIndex].SetValue(1, "READONLY", "X");
    window.window.session().saveTables();
    window.window.view().DP_Import_Update();
    const std::string before = DumpTable(LoadBook(window.file), BookTable::Tab);
    window.Choose("Check", "Recording 1");
    window.Choose("Run", "Recording 1");
    ASSERT_EQ(window.questions.failures.size(), 2U);
    for (const std::string& failure : window.questions.failures) {
        EXPECT_TRUE(Contains(failure, "Step 1 (Raise Alpha by 10 % from Jan 08 to Apr 08)")) << failure;
        EXPECT_TRUE(Contains(failure, "Alpha, Jan 08: This cell is read-only")) << failure;
    }
    EXPECT_EQ(DumpTable(LoadBook(window.file), BookTable::Tab), before);
}

TEST(MacroMenu, WhatWasNotSavedIsNotToldAsDone) {
    const TestFolder folder;
    MacroWindow window(MakeSmallBook(folder));
    window.Choose({}, "Start recording");
    window.RaiseLine(1, 10);
    window.questions.names = {""};
    window.Choose({}, "Stop recording");
    window.Choose("Run", "Recording 1");
    EXPECT_TRUE(Contains(window.Text("news"), "4 cells changed")) << window.Text("news");
    const std::string before = DumpTable(LoadBook(window.file), BookTable::Tab);
    window.Find<QLabel>("news")->clear();
    {
        const Obstacle full(Obstacle::Kind::FullDisk, window.file);
        window.Choose("Run", "Recording 1");
        EXPECT_EQ(window.questions.failures.size(), 1U);
        EXPECT_EQ(window.Text("news"), "");
    }
    EXPECT_EQ(DumpTable(LoadBook(window.file), BookTable::Tab), before);

    ChangeBook(window.file, "UPDATE TAB SET V = 70 WHERE Z = 1 AND C = 1");
    window.questions.keep = Questions::Keep::Theirs;
    window.Choose("Run", "Recording 1");
    EXPECT_EQ(window.InFile(1, 1), "70");
    EXPECT_TRUE(Contains(window.Text("news"), "its values stay")) << window.Text("news");
}

TEST(MacroMenu, EntriesFollowTheRecording) {
    const TestFolder folder;
    MacroWindow window(MakeSmallBook(folder));
    const auto enabled = [&] {
        std::string text;
        for (const char* entry :
             {"Start recording", "Go on recording", "Interrupt recording", "Stop recording", "Undo last step"}) {
            const QAction* action = window.Entry({}, entry);
            text += action && action->isEnabled() ? std::string(entry).substr(0, 2) + " " : "";
        }
        return text;
    };
    EXPECT_EQ(enabled(), "St ");
    window.Choose({}, "Start recording");
    EXPECT_EQ(enabled(), "In St ");
    window.RaiseLine(1, 1);
    EXPECT_EQ(enabled(), "In St Un ");
    window.Choose({}, "Interrupt recording");
    EXPECT_EQ(enabled(), "Go St Un ");
    EXPECT_TRUE(Contains(window.Text("recording"), "interrupted"));
    window.Choose({}, "Go on recording");
    window.Choose({}, "Undo last step");
    EXPECT_EQ(enabled(), "In St ");
}

}  // namespace
}  // namespace planbook
