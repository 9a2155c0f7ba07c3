// SPDX-License-Identifier: MIT
#include "qt/dialogs/TraceDialog.h"

#include <QAction>
#include <QActionGroup>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTreeView>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "qt/dialogs/TraceFilter.h"
#include "qt/dialogs/TraceModel.h"

namespace planview {

namespace {

constexpr QSize UsualSize(880, 520);
constexpr double TwipsPerInch = 1440;
// The space that frmTrace::Form_Resize() assumes around the list.
constexpr int TwipsBeside = 180;
constexpr int TwipsAbove = 720;

/// The mnemonic letter of each entry of the form's menu.
char mnemonicOf(int index) {
    switch (index) {
        case frmTrace::AlwaysOnTop:
            return 't';
        case frmTrace::DeleteAllItems:
            return 'd';
        case frmTrace::CheckMemory:
            return 'm';
        case frmTrace::InsertBookmark:
            return 'b';
        default:
            return 'x';
    }
}

}  // namespace

TraceDialog::TraceDialog(frmTrace& form, QWidget* parent)
    : ThemedDialog("TRACE WINDOW", parent),
      form_(form.shared_from_this()),
      model_(new TraceModel(std::shared_ptr<ListView>(form_, &form_->TraceView), this)),
      filter_(new TraceFilter(this)) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    filter_->setSourceModel(model_);
    buildList();
    buildFilterLine();
    buildMenus();
    setTabOrder(list_, words_);
    setTabOrder(words_, where_);
    resizeOnScreen(UsualSize);
    connect(model_, &TraceModel::reported, this, &TraceDialog::follow);
    connect(model_, &TraceModel::ended, this, &TraceDialog::endForm);
}

TraceDialog::~TraceDialog() = default;

void TraceDialog::setTheme(const GridTheme& theme) {
    ThemedDialog::setTheme(theme);
    model_->setTheme(theme);
}

void TraceDialog::buildMenus() {
    menus_ = new QMenuBar(this);
    QMenu* trace = menus_->addMenu(withMnemonic(std::string(frmTrace::mnuMain), 't'));
    for (const TraceMenuEntry& entry : form_->mnuTrac) {
        if (entry.Caption == "-") {
            trace->addSeparator();
            continue;
        }
        const int index = entry.Index;
        QAction* action = trace->addAction(withMnemonic(std::string(entry.Caption), mnemonicOf(index)), this,
                                           [this, index] { runMenu(index); });
        if (entry.RadioCheck) {
            auto* alone = new QActionGroup(this);  // a group's check marks are bullets
            alone->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
            alone->addAction(action);
            action->setCheckable(true);
            action->setChecked(entry.Checked);
            onTop_ = action;
        } else if (index == frmTrace::InsertBookmark) {
            action->setShortcut(Qt::CTRL | Qt::Key_B);
        }
    }
    edit_ = menus_->addMenu(tr("&Edit"));
    QAction* copy = edit_->addAction(tr("&Copy entries"), QKeySequence::Copy, this, &TraceDialog::copySelected);
    edit_->addAction(tr("Select &all"), QKeySequence::SelectAll, list_, &QTreeView::selectAll);
    edit_->addSeparator();
    edit_->addAction(tr("&Filter"), QKeySequence::Find, this, [this] {
        words_->setFocus();
        words_->selectAll();
    });
    connect(edit_, &QMenu::aboutToShow, this,
            [this, copy] { copy->setEnabled(list_->selectionModel()->hasSelection()); });
    connect(edit_, &QMenu::aboutToHide, this, [copy] { copy->setEnabled(true); });
}

void TraceDialog::buildList() {
    list_ = new GuardedView<QTreeView>(guard(), this);
    list_->setModel(filter_);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setTextElideMode(Qt::ElideRight);
    list_->setAccessibleName(tr("Trace entries"));
    list_->header()->setStretchLastSection(true);
    const std::vector<ListColumn>& columns = form_->TraceView.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        list_->setColumnWidth(static_cast<int>(i), toPixels(columns[i].width));
    }
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list_, &QWidget::customContextMenuRequested, this,
            [this](QPoint place) { edit_->popup(list_->viewport()->mapToGlobal(place)); });
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (!reporting_ && current.isValid()) {
            following_ = current.row() == filter_->rowCount() - 1;
        }
    });
}

void TraceDialog::buildFilterLine() {
    filterLine_ = new QWidget(this);
    auto* layout = new QHBoxLayout(filterLine_);
    layout->setContentsMargins(6, 6, 8, 6);
    layout->setSpacing(8);
    words_ = new QLineEdit(filterLine_);
    words_->setPlaceholderText(tr("Filter: words that an entry holds"));
    words_->setAccessibleName(tr("Filter"));
    words_->setClearButtonEnabled(true);
    where_ = new QComboBox(filterLine_);
    where_->addItems({tr("Anywhere"), tr("Control"), tr("Method/Event"), tr("Text")});
    where_->setAccessibleName(tr("Where to look"));
    count_ = new QLabel(filterLine_);
    count_->setObjectName(QStringLiteral("note"));
    layout->addWidget(words_, 1);
    layout->addWidget(where_);
    layout->addWidget(count_);
    connect(words_, &QLineEdit::textChanged, this, &TraceDialog::filter);
    connect(where_, &QComboBox::currentIndexChanged, this, &TraceDialog::filter);
}

int TraceDialog::toPixels(int twips) const {
    return static_cast<int>(std::lround(twips * logicalDpiX() / TwipsPerInch));
}

int TraceDialog::toTwips(int pixels) const {
    return static_cast<int>(std::lround(pixels * TwipsPerInch / logicalDpiX()));
}

/// The menu bar above, the filter line below, and the list where its form puts it between them.
void TraceDialog::layOut() {
    if (!form_) {
        return;
    }
    const int menuHeight = menus_->heightForWidth(width());
    const int lineHeight = filterLine_->sizeHint().height();
    menus_->setGeometry(0, 0, width(), menuHeight);
    filterLine_->setGeometry(0, height() - lineHeight, width(), lineHeight);
    const frmTrace::Place& place = form_->TraceViewPlace;
    const int room = toTwips(height() - menuHeight - lineHeight) - place.Top;
    form_->Form_Resize(toTwips(width()) - 2 * place.Left + TwipsBeside, std::max(room, 0) + TwipsAbove);
    list_->setGeometry(toPixels(place.Left), menuHeight + toPixels(place.Top), toPixels(place.Width),
                       toPixels(place.Height));
}

void TraceDialog::resizeEvent(QResizeEvent* event) {
    ThemedDialog::resizeEvent(event);
    layOut();
}

void TraceDialog::showEvent(QShowEvent* event) {
    ThemedDialog::showEvent(event);
    layOut();
    takeOnTop();
    model_->report();
    showNewest();
    list_->setFocus();
}

void TraceDialog::keyPressEvent(QKeyEvent* event) {
    // Return presses no button here, and Escape clears the filter first.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        return;
    }
    if (event->key() == Qt::Key_Escape && !words_->text().isEmpty()) {
        words_->clear();
        list_->setFocus();
        return;
    }
    ThemedDialog::keyPressEvent(event);
}

void TraceDialog::runMenu(int index) {
    guard().run("mnuTrac_Click", [&] {
        if (!form_) {
            return;
        }
        following_ = true;  // what the entry writes should be seen
        const QPointer<TraceDialog> self(this);
        form_->mnuTrac_Click(index);
        if (self && form_) {
            takeOnTop();
        }
    });
}

/// As it was last chosen, maybe in another control's window of the same form.
void TraceDialog::takeOnTop() {
    const bool onTop = form_ && form_->mnuTrac[0].Checked;
    onTop_->setChecked(onTop);
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) != onTop) {
        placeOnTop(onTop);
    }
}

/// Through the window itself: changing the flags of a widget would hide it, and that would end its modal loop.
void TraceDialog::placeOnTop(bool onTop) {
    overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, onTop));
    if (QWindow* window = windowHandle()) {
        window->setFlag(Qt::WindowStaysOnTopHint, onTop);
        if (onTop) {
            window->raise();
        }
    }
}

void TraceDialog::filter() {
    {
        const QScopedValueRollback reporting(reporting_, true);
        filter_->setWords(words_->text(), static_cast<TraceFilter::In>(where_->currentIndex()));
    }
    follow();
}

void TraceDialog::showCount() {
    const int all = model_->rowCount();
    count_->setText(filter_->isOn() ? tr("%1 of %2 entries").arg(filter_->rowCount()).arg(all)
                                    : tr("%1 entries").arg(all));
}

void TraceDialog::follow() {
    if (following_) {
        showNewest();
    }
    showCount();
}

void TraceDialog::showNewest() {
    following_ = true;
    const int last = filter_->rowCount() - 1;
    if (last >= 0) {
        // Not by the list itself, which would extend the selection while a key such as Shift is held.
        list_->selectionModel()->setCurrentIndex(filter_->index(last, 0),
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        const int left = list_->horizontalScrollBar()->value();
        list_->scrollToBottom();
        list_->horizontalScrollBar()->setValue(left);
    }
    showCount();
}

void TraceDialog::copySelected() const {
    QModelIndexList rows = list_->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const QModelIndex& row : rows) {
        for (int column = 0; column < filter_->columnCount(); ++column) {
            text += (column > 0 ? QStringLiteral("\t") : QString()) + row.siblingAtColumn(column).data().toString();
        }
        text += QLatin1Char('\n');
    }
    if (!text.isEmpty()) {
        QGuiApplication::clipboard()->setText(text);
    }
}

void TraceDialog::endForm() {
    form_ = nullptr;
    ThemedDialog::endForm();
}

}  // namespace planview
