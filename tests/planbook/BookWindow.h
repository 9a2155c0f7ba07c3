// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QLabel>
#include <QToolButton>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/HostMessageBoxes.h"
#include "app/MainWindow.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"
#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "planbook/ScriptedQuestions.h"
#include "planbook/TestBook.h"

namespace planbook {

/// planbook's window with a book, as a user would have it.
struct BookWindow {
    explicit BookWindow(const std::filesystem::path& book) : file(book), window(boxes, false, &questions) {
        window.openBook(file);
    }

    planview::GridControl& Grid() { return planview::ControlParts(window.view().control()).Grid(); }
    planview::Cell At(int line, int period) {
        const std::string column = "COL" + std::to_string(period);
        const std::string row = "ROW" + std::to_string(line);
        return Grid().FindCell({column, row}).value();
    }
    void Type(int line, int period, const char* text) {
        Grid().EnterText(At(line, period), text);
        QApplication::processEvents();
    }
    void EmptyBlock(int line, int period, int lastLine, int lastPeriod) {
        Grid().SelectCell(At(line, period), planview::SelectionMode::Replace);
        Grid().SelectCell(At(lastLine, lastPeriod), planview::SelectionMode::Extend);
        window.view().deleteContents();
        QApplication::processEvents();
    }
    std::string Shown(int line, int period) { return Grid().Contents(At(line, period)); }
    std::string InFile(int line, int period) const {
        return BookSnapshot(LoadBook(file)).ValueOf({line, period}).AsText();
    }
    /// The cells that the view has and those in the file are the same, row by row.
    void ExpectSaved() {
        const Book saved = LoadBook(file);
        for (const BookTable table : {BookTable::Tab, BookTable::TabOld}) {
            EXPECT_EQ(DumpTable(saved, table), DumpTable(window.session().book(), table));
        }
        EXPECT_TRUE(questions.failures.empty()) << questions.failures[0];
    }
    template <class Widget>
    Widget* Find(const char* name) {
        return window.findChild<Widget*>(name);
    }
    std::string Text(const char* label) {
        QApplication::processEvents();
        return Find<QLabel>(label)->text().toStdString();
    }
    void Press(const char* button) {
        Find<QToolButton>(button)->click();
        QApplication::processEvents();
    }

    std::filesystem::path file;
    ScriptedQuestions questions;
    HostMessageBoxes boxes;
    MainWindow window;
};

}  // namespace planbook
