// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QtTest>

#include <gtest/gtest.h>

#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/HostMessageBoxes.h"
#include "app/MainWindow.h"
#include "app/PercentDialog.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"
#include "book/HostCommands.h"
#include "book/PlanEdits.h"
#include "components/GridControl.h"
#include "planbook/ScriptedQuestions.h"
#include "planbook/TestBook.h"

namespace planbook {
namespace {

using planview::MemoryTable;
using planview::PlanViewWidget;
using planview::Variant;

/// The values of a line, period by period.
std::string LineOf(const Book& book, int line) {
    const BookSnapshot snapshot(book);
    std::string text;
    for (int period = 1; period <= 4; ++period) {
        text += (period == 1 ? "" : " ") + snapshot.ValueOf({line, period}).AsText();
    }
    return text;
}

std::string OldValues(const Book& book) {
    const MemoryTable& table = book[BookTable::TabOld];
    std::string text;
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        const auto field = [&](const char* name) { return table.Value(row, name).AsText(); };
        text += (row == 1 ? "" : " ") + field("Z") + "," + field("C") + "=" + field("V");
    }
    return text;
}

/// What the view makes of the edits in TAB.
void Apply(const Book& book, const PlanEdits& edits) {
    MemoryTable& tab = book[BookTable::Tab];
    for (const PlanEdit& edit : edits) {
        for (std::int32_t row = 1; row <= tab.RowCount(); ++row) {
            if (tab.Value(row, "Z").AsInt32() == edit.cell.row && tab.Value(row, "C").AsInt32() == edit.cell.column) {
                tab.SetValue(row, "V", edit.value);
            }
        }
    }
}

/// planbook's window with the small book and someone who chooses host entries.
struct Host {
    explicit Host(const std::filesystem::path& book) : file(book), window(boxes, false, &questions) {
        window.openBook(file);
    }
    void Choose(HostCommand command, int line, int period) {
        const QString number = QString::number(static_cast<int>(command));
        Q_EMIT window.view().GridPopupMenuPressed(0, number, static_cast<short>(period), QString(),
                                                  static_cast<short>(line), QString());
        QApplication::processEvents();
    }
    /// "1 11 (12)": the numbers of the entries that the view offers, those that are disabled in brackets.
    std::string Offered(const planview::ObjectRef& object) {
        const auto& table = dynamic_cast<const MemoryTable&>(*object);
        std::string text;
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            const std::string number = table.Value(row, "PFID").AsText();
            text += (row == 1 ? "" : " ") + (table.Value(row, "ENABLED").AsText() == "X" ? number : "(" + number + ")");
        }
        return text;
    }
    std::string Line(int line) { return LineOf(LoadBook(file), line); }

    std::filesystem::path file;
    ScriptedQuestions questions;
    HostMessageBoxes boxes;
    MainWindow window;
};

}  // namespace

TEST(PlanEdits, SpreadingKeepsTheTotalAndTheProportions) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    const struct {
        const char* name;
        std::vector<double> present;
        double total;
        const char* line;
    } cases[] = {
        {"proportions stay", {1, 2, 3, 4}, 100, "10 20 30 40"},
        {"nothing is lost by rounding", {1, 1, 1, 0}, 100, "33.33 33.34 33.33 0"},
        {"evenly where there was nothing", {0, 0, 0, 0}, 10, "2.5 2.5 2.5 2.5"},
        {"evenly where something was negative", {-1, 5, 0, 0}, 8, "2 2 2 2"},
        {"a total below zero", {1, 1, 2, 0}, -8, "-2 -2 -4 0"},
    };
    for (const auto& row : cases) {
        const Book book = LoadBook(file);
        MemoryTable& tab = book[BookTable::Tab];
        tab.Clear();
        for (std::size_t i = 0; i < row.present.size(); ++i) {
            tab.AddRowWith({{"Z", 1}, {"C", static_cast<std::int32_t>(i) + 1}, {"V", row.present[i]}});
        }
        Apply(book, SpreadTotal(book, 1, row.total));
        EXPECT_EQ(LineOf(book, 1), row.line) << row.name;
    }
}

TEST(PlanEdits, LeaveAloneWhatCannotBeEdited) {
    const TestFolder folder;
    const Book book = LoadBook(MakeSmallBook(folder));
    book[BookTable::LineIndex].SetValue(2, "READONLY", "X");
    book[BookTable::LineIndex].SetValue(3, "ROW_TEXT", "X");
    EXPECT_EQ(EditableLines(book), (std::vector<std::int32_t>{1}));
    EXPECT_TRUE(CopyLine(book, 1, 2).empty());
    EXPECT_TRUE(CopyLine(book, 1, 3).empty());
    EXPECT_TRUE(SpreadTotal(book, 2, 5).empty());
    EXPECT_TRUE(CopyValueOn(book, {2, 1}).empty());
    EXPECT_EQ(CopyPeriod(book, 1, 2).size(), 1U);
    book[BookTable::Formulas].AddRowWith({{"TARGET", "COL3"}});
    EXPECT_EQ(PeriodBehind(book, 2), 4) << "a total over time is no period of its own";
    EXPECT_EQ(TotalOf(book, 1), 1 + 2 + 4);
    EXPECT_EQ(SpreadTotal(book, 1, 14).size(), 3U);
}

/// Typed key by key: the field refuses what no number begins with.
TEST(PercentDialog, ReadsAsTheTableDoes) {
    const struct {
        const char* typed;
        double percent;
    } rows[] = {{"1.5", 1.5},    {"1,5", 1.5}, {"-2.25", -2.25},  {"1.500", 1.5}, {"12", 12},
                {"3.50 %", 3.5}, {"x4", 4},    {"1.000,0", 1000}, {"2000", 200}};
    for (const auto& row : rows) {
        PercentDialog dialog("Raise", 7, nullptr);
        auto* field = dialog.findChild<QDoubleSpinBox*>("percent");
        field->clear();
        QTest::keyClicks(field, row.typed);
        field->interpretText();
        EXPECT_EQ(dialog.percent(), row.percent) << row.typed;
    }
}

TEST(HostMenus, EveryEntryDoesItsWorkInTheFile) {
    const TestFolder folder;
    Host host(MakeSmallBook(folder));
    const std::string beta = host.Line(2);
    host.questions.chosenLine = 0;  // Beta: the line itself is not offered
    host.Choose(HostCommand::CopyLine, 1, 0);
    EXPECT_EQ(host.questions.asked, "Copy \"Alpha\" to: Beta, Gamma");
    EXPECT_EQ(host.Line(2), host.Line(1));
    EXPECT_EQ(host.window.view().pendingChanges(), 4);
    host.Choose(HostCommand::ClearCell, 2, 1);
    EXPECT_EQ(host.window.view().pendingChanges(), 3);
    host.Choose(HostCommand::ClearLine, 2, 0);
    EXPECT_EQ(host.Line(2), beta);
    EXPECT_EQ(host.window.view().pendingChanges(), 0);

    host.questions.number = 100;
    host.Choose(HostCommand::SpreadTotal, 1, 0);
    EXPECT_EQ(host.questions.askedCode, LoadBook(host.file)[BookTable::LineIndex].Value(1, "ROW_FORMAT").AsText());
    EXPECT_EQ(host.questions.asked.substr(0, 60), "Total of \"Alpha\" over all periods that are shown: 10.000000");
    EXPECT_EQ(host.Line(1), "10 20 30 40");
    host.Choose(HostCommand::CopyValue, 1, 2);
    EXPECT_EQ(host.Line(1), "10 20 20 20");
    EXPECT_EQ(OldValues(LoadBook(host.file)), "2,1=10.5 2,2=20.5 2,3=30.5 2,4=40.5 1,1=1 1,2=2 1,3=3 1,4=4")
        << "the first value before all changes";
    host.Choose(HostCommand::CopyPeriod, 0, 1);
    EXPECT_EQ(host.Line(1), "10 10 20 20");
    host.Choose(HostCommand::ClearPeriod, 0, 2);
    EXPECT_EQ(host.Line(1), "10 2 20 20");
    EXPECT_EQ(host.Line(2), beta);
    host.Choose(HostCommand::RevertChanges, 0, 0);
    EXPECT_EQ(host.Line(1), "1 2 3 4");
    host.questions.number = 40;
    host.Choose(HostCommand::SpreadTotal, 1, 0);
    host.Choose(HostCommand::AcceptChanges, 0, 0);
    EXPECT_EQ(OldValues(LoadBook(host.file)), "");
    EXPECT_EQ(host.Line(1), "4 8 12 16");
    EXPECT_TRUE(host.questions.failures.empty());
    EXPECT_TRUE(host.questions.news.empty()) << host.questions.news.front();
}

TEST(HostMenus, WhatTheyChangeIsUndoneInOneStepAndRecorded) {
    const TestFolder folder;
    Host host(MakeSmallBook(folder));
    PlanViewWidget& view = host.window.view();
    const std::string before = host.Line(2);
    host.questions.chosenLine = 0;
    host.questions.number = 100;
    view.startRecording();
    host.Choose(HostCommand::CopyLine, 1, 0);
    host.Choose(HostCommand::SpreadTotal, 1, 0);
    EXPECT_EQ(view.recordedSteps(), 2);
    view.undo();
    EXPECT_EQ(host.Line(1), "1 2 3 4");
    EXPECT_EQ(host.Line(2), "1 2 3 4");
    view.undo();
    EXPECT_EQ(host.Line(2), before);
    EXPECT_EQ(view.recordedSteps(), 0);
    view.redo();
    EXPECT_EQ(host.Line(2), "1 2 3 4");
    view.stopRecording();
}

TEST(HostMenus, NothingChosenOrNothingToDoChangesNothing) {
    const TestFolder folder;
    Host host(MakeSmallBook(folder));
    const std::string before = DumpFile(host.file);
    host.questions.chosenLine = -1;
    host.Choose(HostCommand::CopyLine, 1, 0);
    host.Choose(HostCommand::SpreadTotal, 1, 0);
    EXPECT_TRUE(host.questions.news.empty());
    host.Choose(HostCommand::CopyPeriod, 0, 4);
    EXPECT_EQ(host.questions.news.back(), "There is no period behind this one.");
    host.Choose(HostCommand::ClearCell, 1, 1);  // disabled: there is no pending change at all
    host.Choose(static_cast<HostCommand>(999), 1, 1);
    EXPECT_EQ(DumpFile(host.file), before);
}

TEST(HostMenus, EntriesAreEnabledWhenTheyCanBeDone) {
    const TestFolder folder;
    Host host(MakeSmallBook(folder));
    PlanViewWidget& view = host.window.view();
    EXPECT_EQ(host.Offered(view.PROP_Get_GRIDMENU()), "1 (2) (3)");
    EXPECT_EQ(host.Offered(view.PROP_Get_COLMENU()), "11 (12)");
    EXPECT_EQ(host.Offered(view.PROP_Get_ROWMENU()), "21 22 (23) 24");
    EXPECT_EQ(host.Offered(view.PROP_Get_CELLMENU()), "31 (32) 33");
    const std::string menus = DumpTable(LoadBook(host.file), BookTable::GridMenu);
    host.Choose(HostCommand::CopyValue, 1, 1);
    QApplication::processEvents();
    EXPECT_EQ(host.Offered(view.PROP_Get_GRIDMENU()), "1 2 3");
    EXPECT_EQ(host.Offered(view.PROP_Get_CELLMENU()), "31 32 33");
    EXPECT_EQ(DumpTable(LoadBook(host.file), BookTable::GridMenu), menus) << "the book keeps its own";
}

}  // namespace planbook
