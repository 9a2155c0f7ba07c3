// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QPalette>
#include <filesystem>
#include <memory>

#include <planview/Commands.h>
#include <planview/Platform.h>

#include "app/CommandLine.h"

class QAction;
class QActionGroup;
class QMenu;
class QStackedWidget;

namespace planview {
class PlanViewWidget;
}

namespace planbook {

class BookSession;
class FindBar;
class HostMenus;
class MacroMenu;
class NoticeBar;
class Questions;
class RecentBooks;
class StatusLine;

/// planbook's window: a menu bar, the view with one book, and the line below it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// With `trace` the view's trace is on before anything else happens to it. `questions` take the place of the
    /// window's own ones and must outlive it.
    MainWindow(planview::MessageBoxes& messageBoxes, bool trace, Questions* questions = nullptr);
    ~MainWindow() override;

    /// Throws BookError; the book shown so far stays then.
    void openBook(const std::filesystem::path& file);

    void setScheme(ViewRequest::Scheme scheme);

    [[nodiscard]] planview::PlanViewWidget& view() { return *view_; }
    [[nodiscard]] BookSession& session() { return *session_; }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* buildWelcome();
    QWidget* buildBookPage();
    void buildMenus();
    void buildFileMenu();
    void buildEditMenu();
    void buildViewMenu();
    void buildMacroMenu();
    void buildSchemeMenu(QMenu& menu);
    /// Appends the view's commands of this group to the menu.
    void addCommands(QMenu& menu, planview::CommandGroup group);
    void saveChart();
    void chooseBook();
    /// Opens and tells the user when that fails.
    void tryToOpen(const std::filesystem::path& file);
    void reload();
    /// Ends an open entry and whatever waits for the view; false when the user has to mend something first.
    bool finishWork();
    /// That, and no recording runs any more.
    bool mayLeaveBook();
    void bookOpened();
    void proposeWorkbook();
    void remember();
    void pendingChanged(int count);
    void tellFaults();
    /// Goes to the next of the bars around the view, from the one with the keyboard or from the view; behind the last
    /// one to the view.
    void goToBar(bool forward);
    /// Asks what becomes of a trace that nobody has saved.
    bool mayLeaveTrace();
    void startToFind();
    void tellFound(const QString& outcome, bool isFound);
    void showAbout();

    std::unique_ptr<Questions> ownQuestions_;
    Questions& questions_;
    planview::PlanViewWidget* view_;
    BookSession* session_;
    HostMenus* hostMenus_;
    MacroMenu* macros_ = nullptr;
    RecentBooks* recent_;
    QStackedWidget* pages_;
    QWidget* bookPage_ = nullptr;
    NoticeBar* changedNotice_ = nullptr;
    NoticeBar* faultNotice_ = nullptr;
    FindBar* findBar_ = nullptr;
    StatusLine* status_ = nullptr;
    QActionGroup* bookActions_ = nullptr;  // for those that need a book
    QAction* acceptAction_ = nullptr;
    QAction* revertAction_ = nullptr;
    QActionGroup* schemes_ = nullptr;
    QPalette desktopPalette_;
    bool traceIsSaved_;  // by whoever made the window
};

}  // namespace planbook
