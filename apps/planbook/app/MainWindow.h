#pragma once

#include <QMainWindow>
#include <filesystem>
#include <optional>

#include <planview/Platform.h>

#include "app/CommandLine.h"
#include "book/Book.h"

class QAction;
class QActionGroup;
class QMenu;
class QStackedWidget;

namespace planview {
class PlanViewWidget;
}

namespace planbook {

/// planbook's window: a menu bar and the view with one book.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// With `trace` the view's trace is on before anything else happens to it.
    MainWindow(planview::MessageBoxes& messageBoxes, bool trace);

    /// Throws BookError; the book shown so far stays then.
    void openBook(const std::filesystem::path& file);

    void setScheme(ViewRequest::Scheme scheme);

private:
    QWidget* buildWelcome();
    void buildMenus();
    void buildSchemeMenu(QMenu& menu);
    void chooseBook();
    /// Opens and tells the user when that fails.
    void tryToOpen(const std::filesystem::path& file);
    void showBook();
    void hostCommand(const QString& command);
    void showAbout();

    planview::PlanViewWidget* view_;
    QStackedWidget* pages_;
    QAction* reloadAction_ = nullptr;
    QActionGroup* schemes_ = nullptr;
    bool desktopIsDark_;
    std::filesystem::path file_;
    std::optional<Book> book_;
};

}  // namespace planbook
