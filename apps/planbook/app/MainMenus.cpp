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
#include "app/RecentBooks.h"
#include "app/StatusLine.h"

namespace planbook {

using planview::PlanViewWidget;

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
    bookActions_->addAction(file->addAction("&Download as workbook…", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                                            view_, &PlanViewWidget::download));
    bookActions_->addAction(file->addAction("&Upload from workbook…", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
                                            view_, &PlanViewWidget::upload));
    QAction* printSetup = file->addAction("Workbooks with &print set-up");
    printSetup->setCheckable(true);
    connect(printSetup, &QAction::toggled, view_, &PlanViewWidget::setSpreadsheetPrintSetup);
    file->addSeparator();
    file->addAction("&Quit", QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
}

void MainWindow::buildEditMenu() {
    QMenu* edit = menuBar()->addMenu("&Edit");
    // The view has these keys itself while it has the focus, and an entry field has its own: the menu only names them.
    const auto add = [&](const QString& text, void (PlanViewWidget::*command)()) {
        QAction* action = edit->addAction(text, view_, command);
        bookActions_->addAction(action);
        return action;
    };
    QAction* undo = add("&Undo\tCtrl+Z", &PlanViewWidget::undo);
    QAction* redo = add("&Redo\tCtrl+Y", &PlanViewWidget::redo);
    connect(edit, &QMenu::aboutToShow, this, [this, undo, redo] {
        undo->setEnabled(session_->isOpen() && view_->canUndo());
        redo->setEnabled(session_->isOpen() && view_->canRedo());
    });
    edit->addSeparator();
    add("Cu&t\tCtrl+X", &PlanViewWidget::cut);
    add("&Copy\tCtrl+C", &PlanViewWidget::copy);
    add("&Paste\tCtrl+V", &PlanViewWidget::paste);
    add("&Fill with the first value", &PlanViewWidget::fill);
    add("&Delete\tDel", &PlanViewWidget::deleteContents);
    edit->addSeparator();
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
    buildChartMenu(*view);
    QAction* tree = view->addAction("&Macros", view_, &PlanViewWidget::switchMacroTree);
    tree->setCheckable(true);
    connect(view, &QMenu::aboutToShow, this, [=, this] {
        tree->setEnabled(session_->isOpen());
        tree->setChecked(session_->isOpen() && view_->macroTreeShown());
    });
    view->addSeparator();
    buildSchemeMenu(*view);
    view->addSeparator();
    const auto add = [&](const QString& text, void (PlanViewWidget::*command)()) {
        bookActions_->addAction(view->addAction(text, view_, command));
    };
    add("&Hide selected rows", &PlanViewWidget::hideRows);
    add("Hide selected &columns", &PlanViewWidget::hideColumns);
    add("Sho&w selected rows", &PlanViewWidget::showRows);
    add("Show selected c&olumns", &PlanViewWidget::showColumns);
    view->addSeparator();
    view->addAction("&Larger text", QKeySequence::ZoomIn, this,
                    [this] { view_->setTextScale(view_->textScale() * TextStep); });
    view->addAction("&Smaller text", QKeySequence::ZoomOut, this,
                    [this] { view_->setTextScale(view_->textScale() / TextStep); });
    view->addAction("&Usual text", QKeySequence(Qt::CTRL | Qt::Key_0), this, [this] { view_->setTextScale(1.0); });
}

void MainWindow::buildMacroMenu() {
    QMenu* menu = menuBar()->addMenu("&Macro");
    macros_ = new MacroMenu(*menu, *view_, *session_, questions_, this);
    connect(macros_, &MacroMenu::ran, status_, &StatusLine::showNews);
}

void MainWindow::buildChartMenu(QMenu& menu) {
    QAction* shown = menu.addAction("&Chart", view_, &PlanViewWidget::switchChart);
    shown->setCheckable(true);
    QAction* rows = menu.addAction("Selected ro&ws into the chart", view_, &PlanViewWidget::showSelectedRowsInChart);
    QAction* columns =
        menu.addAction("Selected &periods into the chart", view_, &PlanViewWidget::showSelectedColumnsInChart);
    QAction* save = menu.addAction("Save cha&rt as…", this, &MainWindow::saveChart);
    connect(&menu, &QMenu::aboutToShow, this, [=, this] {
        const bool open = session_->isOpen();
        const bool chart = open && view_->chartShown();
        shown->setEnabled(open);
        shown->setChecked(chart);
        for (QAction* action : {rows, columns, save}) {
            action->setEnabled(chart);
        }
    });
}

void MainWindow::saveChart() {
    const QString path = QFileDialog::getSaveFileName(this, "Save the chart as",
                                                      QString::fromStdString(session_->file().stem().string()) + ".png",
                                                      "Pictures (*.png);;Drawings (*.svg);;Documents (*.pdf)");
    if (path.isEmpty()) {
        return;
    }
    if (const QString error = view_->saveChart(path); !error.isEmpty()) {
        QMessageBox::warning(this, windowTitle(), error);
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
