// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include <planview/Trace.h>
#include <planview/Version.h>
#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/FindBar.h"
#include "app/FrameTheme.h"
#include "app/HostMenus.h"
#include "app/MacroMenu.h"
#include "app/NoticeBar.h"
#include "app/OutputFile.h"
#include "app/Questions.h"
#include "app/RecentBooks.h"
#include "app/StatusLine.h"
#include "book/BookError.h"
#include "exchange/SpreadsheetObject.h"
#include "exchange/WorkbookExchange.h"

namespace planbook {

using planview::PlanViewWidget;

namespace {

QString toQt(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

}  // namespace

MainWindow::MainWindow(planview::MessageBoxes& messageBoxes, bool trace, Questions* questions)
    : ownQuestions_(questions ? nullptr : std::make_unique<QuestionWindows>(this)),
      questions_(questions ? *questions : *ownQuestions_),
      view_(new PlanViewWidget(planview::Platform{.messageBoxes = &messageBoxes}, this)),
      session_(new BookSession(*view_, questions_, this)),
      hostMenus_(new HostMenus(*view_, *session_, questions_, this)),
      recent_(new RecentBooks(this)),
      pages_(new QStackedWidget(this)),
      desktopPalette_(QApplication::palette()),
      traceIsSaved_(trace) {
    RegisterSpreadsheet(view_->objects());
    if (trace) {
        view_->plv_EnableTrace();
    }
    pages_->addWidget(buildWelcome());
    bookPage_ = buildBookPage();
    pages_->addWidget(bookPage_);
    setCentralWidget(pages_);
    status_ = new StatusLine(*view_, this);
    setStatusBar(status_);
    status_->hide();
    setWindowTitle("planbook");
    buildMenus();

    connect(hostMenus_, &HostMenus::reloadWanted, this, &MainWindow::reload);
    connect(view_, &PlanViewWidget::pendingChangesChanged, this, &MainWindow::pendingChanged);
    connect(session_, &BookSession::opened, this, &MainWindow::bookOpened);
    connect(session_, &BookSession::changedElsewhereChanged, changedNotice_, &QWidget::setVisible);
    connect(status_, &StatusLine::acceptPressed, session_, &BookSession::acceptChanges);
    connect(status_, &StatusLine::revertPressed, session_, &BookSession::revertChanges);
    connect(recent_, &RecentBooks::chosen, this, [this](const QString& file) { tryToOpen(file.toStdString()); });
}

MainWindow::~MainWindow() = default;

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

QWidget* MainWindow::buildBookPage() {
    auto* page = new QWidget;
    changedNotice_ = new NoticeBar("This book was changed by another window.", "Reload");
    findBar_ = new FindBar([this] { return session_->isOpen() ? &session_->book() : nullptr; },
                           [this] {
                               return CellKeys{view_->currentColumn(), view_->currentRow()};
                           });
    faultNotice_ = new NoticeBar(QString(), "Which…");
    faultNotice_->setObjectName("faultNotice");
    faultNotice_->findChild<QWidget*>("noticeAction")->setObjectName("noticeActionOfFaults");
    faultNotice_->hide();
    changedNotice_->hide();
    findBar_->hide();
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(findBar_);
    layout->addWidget(view_, 1);
    // Below: it comes unasked, and must not move the cells from under the pointer.
    layout->addWidget(changedNotice_);
    layout->addWidget(faultNotice_);
    for (NoticeBar* notice : {changedNotice_, faultNotice_}) {
        connect(notice, &NoticeBar::appeared, view_, &PlanViewWidget::announce);
    }
    connect(faultNotice_, &NoticeBar::actionPressed, this, &MainWindow::tellFaults);
    connect(faultNotice_, &NoticeBar::dismissed, faultNotice_, &QWidget::hide);
    connect(changedNotice_, &NoticeBar::actionPressed, this, &MainWindow::reload);
    connect(changedNotice_, &NoticeBar::dismissed, session_, &BookSession::dismissChange);
    connect(view_, &PlanViewWidget::panesLeft, this, &MainWindow::goToBar);
    connect(findBar_, &FindBar::found, view_, &PlanViewWidget::selectCell);
    connect(findBar_, &FindBar::looked, this, &MainWindow::tellFound);
    connect(findBar_, &FindBar::closed, view_, qOverload<>(&QWidget::setFocus));
    return page;
}

void MainWindow::setScheme(ViewRequest::Scheme scheme) {
    const bool asDesktop = scheme == ViewRequest::Scheme::System;
    if (asDesktop && isHighContrast(desktopPalette_)) {
        QApplication::setPalette(desktopPalette_);
        setStyleSheet(QString());
        view_->setColorScheme(PlanViewWidget::ColorScheme::System);
    } else {
        const bool dark = scheme == ViewRequest::Scheme::Dark || (asDesktop && isDark(desktopPalette_));
        const FrameTheme theme = FrameTheme::make(dark);
        QApplication::setPalette(theme.palette);
        setStyleSheet(theme.styleSheet);
        view_->setColorScheme(dark ? PlanViewWidget::ColorScheme::Dark : PlanViewWidget::ColorScheme::Light);
    }
    for (QAction* action : schemes_->actions()) {
        action->setChecked(action->data().toInt() == static_cast<int>(scheme));
    }
}

// --- Opening and closing

void MainWindow::chooseBook() {
    const QString name = QFileDialog::getOpenFileName(this, "Open a book", toQt(session_->file().parent_path()),
                                                      "Planning books (*.planbook);;All files (*)");
    if (!name.isEmpty()) {
        tryToOpen(name.toStdString());
    }
}

void MainWindow::tryToOpen(const std::filesystem::path& file) {
    if (!mayLeaveBook()) {
        return;
    }
    try {
        openBook(file);
    } catch (const BookError& error) {
        questions_.tellFailure(QString::fromUtf8(error.what()));
    }
}

void MainWindow::openBook(const std::filesystem::path& file) {
    session_->open(file);
}

void MainWindow::reload() {
    if (finishWork()) {
        session_->reload();
    }
}

bool MainWindow::finishWork() {
    if (!view_->finishEditing()) {
        return false;
    }
    view_->leaveForecastView();  // a book is kept with the marks of its usual view
    return session_->settle();
}

bool MainWindow::mayLeaveBook() {
    return finishWork() && macros_->leaveRecording();
}

bool MainWindow::mayLeaveTrace() {
    if (traceIsSaved_ || !planview::TraceIsOn()) {
        return true;
    }
    const Questions::OfRecording what = questions_.whatOfTrace();
    if (what != Questions::OfRecording::Keep) {
        return what == Questions::OfRecording::Discard;
    }
    const std::optional<QString> file = questions_.chooseTraceFile("planbook-trace.log");
    if (!file) {
        return false;
    }
    try {
        WriteTrace(file->toStdString());
    } catch (const BookError& error) {
        questions_.tellFailure(QString::fromUtf8(error.what()));
        return false;
    }
    return true;
}

void MainWindow::bookOpened() {
    const QString name = toQt(session_->file().stem());
    setWindowTitle(name + (session_->isReadOnly() ? " (read-only)" : "") +
                   (session_->report().IsWhole() ? "" : " (incomplete)") + "[*] – planbook");
    setWindowFilePath(toQt(session_->file()));
    bookActions_->setEnabled(true);
    proposeWorkbook();
    faultNotice_->setText(QString::fromStdString(session_->report().Headline()));
    faultNotice_->setVisible(!session_->report().IsWhole());
    pages_->setCurrentWidget(bookPage_);
    status_->show();
    status_->setReadOnly(session_->isReadOnly());
    pendingChanged(view_->pendingChanges());
    status_->showSelection();
    view_->setFocus();
    remember();
}

/// The workbook of a book lies beside it.
void MainWindow::proposeWorkbook() {
    planview::SpreadsheetOptions options = view_->spreadsheetOptions();
    options.folder = session_->file().parent_path().string();
    options.fileName = session_->file().stem().string() + ".xlsx";
    options.mark = WorkbookMark(session_->report());
    options.refusal = [](const std::string& file) { return OutputRefusal(file); };
    view_->setSpreadsheetOptions(options);
}

void MainWindow::remember() {
    // A picture or a trace leaves nothing behind.
    if (isVisible() && session_->isOpen()) {
        recent_->add(toQt(session_->file()));
    }
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    remember();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(mayLeaveBook() && mayLeaveTrace());
}

// --- Going about by keys

void MainWindow::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    if (event->key() == Qt::Key_F6 && session_->isOpen() && (held & ~Qt::ShiftModifier) == Qt::NoModifier) {
        goToBar(held == Qt::NoModifier);
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void MainWindow::goToBar(bool forward) {
    std::vector<QWidget*> bars{changedNotice_, faultNotice_, status_, findBar_};
    if (!forward) {
        std::reverse(bars.begin(), bars.end());
    }
    const QWidget* const focus = QApplication::focusWidget();
    const auto at = std::find_if(bars.begin(), bars.end(), [&](QWidget* bar) { return bar->isAncestorOf(focus); });
    for (auto bar = at == bars.end() ? bars.begin() : at + 1; bar != bars.end(); ++bar) {
        const QList<QWidget*> parts = (*bar)->findChildren<QWidget*>();
        const auto takes = [](const QWidget* part) {
            return part->isVisible() && part->isEnabled() && (part->focusPolicy() & Qt::TabFocus) != 0;
        };
        const auto part = std::find_if(parts.begin(), parts.end(), takes);
        if (part != parts.end()) {
            (*part)->setFocus(Qt::TabFocusReason);
            return;
        }
    }
    view_->enterPanes(forward);
}

// --- While a book is open

void MainWindow::pendingChanged(int count) {
    setWindowModified(count > 0);
    status_->showPendingChanges(count);
    const bool may = count > 0 && !session_->isReadOnly();
    acceptAction_->setEnabled(may);
    revertAction_->setEnabled(may);
}

void MainWindow::tellFaults() {
    constexpr std::size_t MostInMessage = 20;
    const BookReport& report = session_->report();
    questions_.tell(QString::fromStdString(report.Headline() + "\n\n" + report.List(MostInMessage) +
                                           "\n\nEverything else is shown. A workbook made of this book says that it "
                                           "is incomplete. Mend these places, or take the book from a backup."));
}

/// The keyboard stays in the field, so where the place is must be told beside what it is called.
void MainWindow::tellFound(const QString& outcome, bool isFound) {
    view_->announce(isFound ? outcome + ": " + view_->currentCellName() : outcome);
}

void MainWindow::startToFind() {
    if (view_->finishEditing()) {
        findBar_->start();
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
