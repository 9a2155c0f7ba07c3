#include "app/MainWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <planview/Version.h>
#include <planview/qt/PlanViewWidget.h>

#include "app/FrameTheme.h"
#include "book/BookError.h"
#include "book/BookStore.h"

namespace planbook {

using planview::ObjectRef;
using planview::PlanViewWidget;

namespace {

constexpr double TextStep = 1.1;

using Setter = short (PlanViewWidget::*)(const ObjectRef&);

/// Which member takes which table.
struct Slot {
    BookTable table;
    Setter set;
};

constexpr Slot Slots[] = {
    {BookTable::GridAttr, &PlanViewWidget::PROP_Set_GRID_ATTR},
    {BookTable::ColsIndex, &PlanViewWidget::PROP_Set_COLS_INDEX},
    {BookTable::LineIndex, &PlanViewWidget::PROP_Set_LINE_INDEX},
    {BookTable::Tab, &PlanViewWidget::PROP_Set_TAB},
    {BookTable::TabOld, &PlanViewWidget::PROP_Set_TAB_OLD},
    {BookTable::FixedCols, &PlanViewWidget::PROP_Set_FIXED_COLS},
    {BookTable::FixedLines, &PlanViewWidget::PROP_Set_FIXED_LINES},
    {BookTable::FixedTab, &PlanViewWidget::PROP_Set_FIXED_TAB},
    {BookTable::CellAttr, &PlanViewWidget::PROP_Set_CELL_ATTR},
    {BookTable::GridTree, &PlanViewWidget::PROP_Set_GRID_TREE},
    {BookTable::MacroTree, &PlanViewWidget::PROP_Set_MACRO_TREE},
    {BookTable::Texts, &PlanViewWidget::PROP_Set_TEXTS},
    {BookTable::ColMenu, &PlanViewWidget::PROP_Set_COLMENU},
    {BookTable::RowMenu, &PlanViewWidget::PROP_Set_ROWMENU},
    {BookTable::GridMenu, &PlanViewWidget::PROP_Set_GRIDMENU},
    {BookTable::CellMenu, &PlanViewWidget::PROP_Set_CELLMENU},
    {BookTable::MacroRec, &PlanViewWidget::PROP_Set_MACROREC},
};
static_assert(std::size(Slots) == BookTableCount);

QString toQt(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

}  // namespace

MainWindow::MainWindow(planview::MessageBoxes& messageBoxes, bool trace)
    : view_(new PlanViewWidget(planview::PlatformOverrides{&messageBoxes, nullptr, nullptr}, this)),
      pages_(new QStackedWidget(this)),
      desktopIsDark_(isDark(QApplication::palette())) {
    if (trace) {
        view_->plv_EnableTrace();
    }
    pages_->addWidget(buildWelcome());
    pages_->addWidget(view_);
    setCentralWidget(pages_);
    setWindowTitle("planbook");
    buildMenus();
    connect(view_, &PlanViewWidget::GridPopupMenuPressed, this,
            [this](short /*popup*/, const QString& command) { hostCommand(command); });
}

QWidget* MainWindow::buildWelcome() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* text = new QLabel("No book is open.");
    auto* open = new QPushButton("Open a book…");
    connect(open, &QPushButton::clicked, this, &MainWindow::chooseBook);
    layout->addStretch();
    layout->addWidget(text, 0, Qt::AlignHCenter);
    layout->addWidget(open, 0, Qt::AlignHCenter);
    layout->addStretch();
    return page;
}

void MainWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu("&File");
    file->addAction("&Open…", QKeySequence::Open, this, &MainWindow::chooseBook);
    reloadAction_ = file->addAction("&Reload", QKeySequence(Qt::Key_F5), this, [this] { tryToOpen(file_); });
    reloadAction_->setEnabled(false);
    file->addSeparator();
    file->addAction("&Quit", QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);

    QMenu* view = menuBar()->addMenu("&View");
    buildSchemeMenu(*view);
    view->addSeparator();
    view->addAction("&Larger text", QKeySequence::ZoomIn, this,
                    [this] { view_->setTextScale(view_->textScale() * TextStep); });
    view->addAction("&Smaller text", QKeySequence::ZoomOut, this,
                    [this] { view_->setTextScale(view_->textScale() / TextStep); });
    view->addAction("&Usual text", QKeySequence(Qt::CTRL | Qt::Key_0), this, [this] { view_->setTextScale(1.0); });

    menuBar()->addMenu("&Help")->addAction("&About planbook", this, &MainWindow::showAbout);
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

void MainWindow::setScheme(ViewRequest::Scheme scheme) {
    const bool dark = scheme == ViewRequest::Scheme::Dark || (scheme == ViewRequest::Scheme::System && desktopIsDark_);
    const FrameTheme theme = FrameTheme::make(dark);
    QApplication::setPalette(theme.palette);
    setStyleSheet(theme.styleSheet);
    view_->setColorScheme(dark ? PlanViewWidget::ColorScheme::Dark : PlanViewWidget::ColorScheme::Light);
    for (QAction* action : schemes_->actions()) {
        action->setChecked(action->data().toInt() == static_cast<int>(scheme));
    }
}

void MainWindow::chooseBook() {
    const QString name = QFileDialog::getOpenFileName(this, "Open a book", toQt(file_.parent_path()),
                                                      "Planning books (*.planbook);;All files (*)");
    if (!name.isEmpty()) {
        tryToOpen(name.toStdString());
    }
}

void MainWindow::tryToOpen(const std::filesystem::path& file) {
    try {
        openBook(file);
    } catch (const BookError& error) {
        QMessageBox::warning(this, "planbook", QString::fromUtf8(error.what()));
    }
}

void MainWindow::openBook(const std::filesystem::path& file) {
    book_ = LoadBook(file);
    file_ = std::filesystem::absolute(file);
    setWindowTitle(toQt(file_.stem()));
    setWindowFilePath(toQt(file_));
    reloadAction_->setEnabled(true);
    pages_->setCurrentWidget(view_);
    showBook();
    view_->setFocus();
}

void MainWindow::showBook() {
    for (const Slot& slot : Slots) {
        (view_->*slot.set)(book_->Share(slot.table));
    }
    view_->DP_Import_Attribute();
    view_->DP_Import_Texts();
    view_->DP_Import_MacroTree();
    view_->DP_Import_PopupMenu();
    view_->DP_Import_Create();
}

void MainWindow::hostCommand(const QString& command) {
    if (command.toInt() == HostCommandReload) {
        // After the event: the view must not be rebuilt while it is raising one.
        QTimer::singleShot(0, this, [this] { tryToOpen(file_); });
    }
}

void MainWindow::showAbout() {
    QMessageBox::about(this, "About planbook",
                       QString("<b>planbook %1.%2.%3</b><p>Shows planning books with the planning table PlanView.")
                           .arg(planview::VersionMajor)
                           .arg(planview::VersionMinor)
                           .arg(planview::VersionRevision));
}

}  // namespace planbook
