// SPDX-License-Identifier: MIT
#include <QAction>
#include <QActionGroup>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/FindBar.h"
#include "app/MacroMenu.h"
#include "app/MainWindow.h"
#include "app/OutputFile.h"
#include "app/Questions.h"
#include "app/RecentBooks.h"
#include "app/StatusLine.h"
#include "book/BookError.h"

namespace planbook {

using planview::Command;
using planview::CommandGroup;

namespace {

constexpr double TextStep = 1.1;

}  // namespace

void MainWindow::buildMenus() {
    bookActions_ = new QActionGroup(this);
    bookActions_->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    buildFileMenu();
    buildEditMenu();
    buildViewMenu();
    buildMacroMenu();
    menuBar()->addMenu("&Help")->addAction("&About planbook", this, &MainWindow::showAbout);
    bookActions_->setEnabled(false);
}

void MainWindow::buildFileMenu() {
    QMenu* file = menuBar()->addMenu("&File");
    file->addAction("&Open…", QKeySequence::Open, this, &MainWindow::chooseBook);
    recent_->attach(*file->addMenu("Recent &books"));
    bookActions_->addAction(file->addAction("&Reload", QKeySequence(Qt::Key_F5), this, &MainWindow::reload));
    file->addSeparator();
    addCommands(*file, CommandGroup::Exchange);
    view_->action(Command::Download)->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    view_->action(Command::Upload)->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    for (const Command command : {Command::Download, Command::Upload}) {
        view_->action(command)->setShortcutContext(Qt::WindowShortcut);
    }
    QAction* printSetup = file->addAction("Workbooks with &print set-up");
    printSetup->setCheckable(true);
    connect(printSetup, &QAction::toggled, view_, &planview::PlanViewWidget::setSpreadsheetPrintSetup);
    file->addSeparator();
    file->addAction("&Quit", QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
}

void MainWindow::addCommands(QMenu& menu, CommandGroup group) {
    for (const planview::CommandDescription& command : planview::DescribeCommands()) {
        if (command.group == group) {
            QAction* action = view_->action(command.command);
            action->setIconVisibleInMenu(false);
            menu.addAction(action);
            bookActions_->addAction(action);
        }
    }
}

void MainWindow::buildEditMenu() {
    QMenu* edit = menuBar()->addMenu("&Edit");
    for (const CommandGroup group : {CommandGroup::History, CommandGroup::Cells, CommandGroup::Selection}) {
        addCommands(*edit, group);
        edit->addSeparator();
    }
    bookActions_->addAction(edit->addAction("F&ind…", QKeySequence::Find, this, &MainWindow::startToFind));
    bookActions_->addAction(edit->addAction("Find &next", QKeySequence(Qt::Key_F3), findBar_, &FindBar::findNext));
    bookActions_->addAction(
        edit->addAction("Find pre&vious", QKeySequence(Qt::SHIFT | Qt::Key_F3), findBar_, &FindBar::findPrevious));
    edit->addSeparator();
    acceptAction_ = edit->addAction("&Accept changes", session_, &BookSession::acceptChanges);
    revertAction_ = edit->addAction("R&evert changes…", session_, &BookSession::revertChanges);
    acceptAction_->setEnabled(false);
    revertAction_->setEnabled(false);
}

void MainWindow::buildViewMenu() {
    QMenu* view = menuBar()->addMenu("&View");
    addCommands(*view, CommandGroup::Chart);
    QAction* save = view->addAction("Save cha&rt as…", this, &MainWindow::saveChart);
    connect(view, &QMenu::aboutToShow, this,
            [=, this] { save->setEnabled(session_->isOpen() && view_->chartShown()); });
    addCommands(*view, CommandGroup::Panes);
    view->addSeparator();
    buildSchemeMenu(*view);
    view->addSeparator();
    addCommands(*view, CommandGroup::Hiding);
    view->addSeparator();
    view->addAction("&Larger text", QKeySequence::ZoomIn, this,
                    [this] { view_->setTextScale(view_->textScale() * TextStep); });
    view->addAction("&Smaller text", QKeySequence::ZoomOut, this,
                    [this] { view_->setTextScale(view_->textScale() / TextStep); });
    view->addAction("&Usual text", QKeySequence(Qt::CTRL | Qt::Key_0), this, [this] { view_->setTextScale(1.0); });
}

void MainWindow::buildMacroMenu() {
    QMenu* menu = menuBar()->addMenu("&Macro");
    addCommands(*menu, CommandGroup::Macros);
    menu->addSeparator();
    addCommands(*menu, CommandGroup::Recording);
    macros_ = new MacroMenu(*menu, *view_, *session_, questions_, this);
    connect(macros_, &MacroMenu::ran, status_, &StatusLine::showNews);
}

void MainWindow::saveChart() {
    const QString path = QFileDialog::getSaveFileName(this, "Save the chart as",
                                                      QString::fromStdString(session_->file().stem().string()) + ".png",
                                                      "Pictures (*.png);;Drawings (*.svg);;Documents (*.pdf)");
    if (path.isEmpty()) {
        return;
    }
    QString error;
    try {
        CheckOutput(path.toStdString());
        error = view_->saveChart(path);
    } catch (const BookError& refusal) {
        error = QString::fromUtf8(refusal.what());
    }
    if (!error.isEmpty()) {
        QMessageBox::warning(this, windowTitle(), error);
    } else if (!session_->report().IsWhole()) {
        questions_.tell("The chart was saved, but of an incomplete book. " +
                        QString::fromStdString(session_->report().Headline()));
    }
}

void MainWindow::buildSchemeMenu(QMenu& menu) {
    using Scheme = ViewRequest::Scheme;
    schemes_ = new QActionGroup(this);
    const auto add = [&](const QString& text, Scheme scheme) {
        QAction* action = menu.addAction(text, this, [this, scheme] { setScheme(scheme); });
        action->setCheckable(true);
        action->setData(static_cast<int>(scheme));
        schemes_->addAction(action);
    };
    add("Colours of the &desktop", Scheme::System);
    add("L&ight", Scheme::Light);
    add("Dar&k", Scheme::Dark);
}

}  // namespace planbook
