// SPDX-License-Identifier: MIT
#include "qt/dialogs/TraceDialog.h"

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
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
#include <QSignalBlocker>
#include <QSysInfo>
#include <QTreeView>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "qt/dialogs/RowList.h"
#include "qt/dialogs/TraceFilter.h"
#include "qt/dialogs/TraceModel.h"

namespace planview {

namespace {

constexpr QSize UsualSize(980, 520);
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
    setTabOrder(where_, follow_);
    resizeOnScreen(UsualSize);
    guard().connect(model_, &TraceModel::aboutToReport, this, "KeepPlace", [this] { keepPlace(); });
    guard().connect(model_, &TraceModel::reported, this, "Follow", [this] { follow(); });
    guard().connect(model_, &TraceModel::ended, this, "EndForm", [this] { endForm(); });
}

TraceDialog::~TraceDialog() = default;

void TraceDialog::setTheme(const GridTheme& theme) {
    ThemedDialog::setTheme(theme);
    model_->setTheme(theme);
    list_->setTheme(theme);
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
    guard().connect(edit_, &QMenu::aboutToShow, this, "EditMenu",
                    [this, copy] { copy->setEnabled(list_->selectionModel()->hasSelection()); });
    guard().connect(edit_, &QMenu::aboutToHide, this, "EditMenu", [copy] { copy->setEnabled(true); });
}

void TraceDialog::buildList() {
    list_ = new RowList(guard(), this);
    list_->setModel(filter_);
    list_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setAccessibleName(tr("Trace entries"));
    list_->header()->setResizeContentsPrecision(0);  // what is seen counts
    const std::vector<ListColumn>& columns = form_->TraceView.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        list_->setColumnWidth(static_cast<int>(i), toPixels(columns[i].width));
    }
    list_->setColumnWidth(model_->timeColumn(), 0);
    list_->header()->moveSection(model_->timeColumn(), 0);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    guard().connect(list_, &QWidget::customContextMenuRequested, this, "EditMenu",
                    [this](QPoint place) { edit_->popup(list_->viewport()->mapToGlobal(place)); });
    guard().connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, "Follow",
                    [this](const QModelIndex& current, const QModelIndex& /*before*/) {
                        if (!reporting_ && current.isValid()) {
                            setFollowing(current.row() == filter_->rowCount() - 1);
                        }
                    });
    guard().connect(list_->header(), &QHeaderView::sectionResized, this, "SizeColumn",
                    [this](int column, int /*before*/, int /*now*/) {
                        // Headers size columns by themselves, too.
                        if (!fitting_ && QGuiApplication::mouseButtons() != Qt::NoButton) {
                            sizedByUser_.insert(column);
                        }
                    });
    guard().connect(list_->verticalScrollBar(), &QScrollBar::valueChanged, this, "Follow", [this](int value) {
        if (!reporting_) {
            setFollowing(value == list_->verticalScrollBar()->maximum());
        }
    });
}

/// A column is as wide as the form says, and wider where the labels in it need that, until the user sizes it.
void TraceDialog::fitLabels() {
    constexpr int Widest = 280;
    const QScopedValueRollback fitting(fitting_, true);
    for (const int column : {model_->timeColumn(), 0, 1, 2}) {
        if (!sizedByUser_.contains(column)) {
            const int before = list_->columnWidth(column);
            list_->resizeColumnToContents(column);
            list_->setColumnWidth(column, std::max(before, std::min(list_->columnWidth(column), Widest)));
        }
    }
}

void TraceDialog::buildFilterLine() {
    filterLine_ = new QWidget(this);
    auto* lines = new QVBoxLayout(filterLine_);
    lines->setContentsMargins(6, 6, 8, 6);
    auto* layout = new QHBoxLayout;
    layout->setSpacing(8);
    lines->addLayout(layout);
    words_ = new QLineEdit(filterLine_);
    words_->setPlaceholderText(tr("Filter: words that an entry holds"));
    words_->setAccessibleName(tr("Filter"));
    words_->setClearButtonEnabled(true);
    where_ = new QComboBox(filterLine_);
    where_->addItem(tr("Anywhere"), TraceFilter::AnyColumn);
    for (int i = 0; i < model_->columnCount(); ++i) {
        const int column = list_->header()->logicalIndex(i);
        where_->addItem(model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(), column);
    }
    where_->setAccessibleName(tr("Where to look"));
    follow_ = new QCheckBox(tr("F&ollow"), filterLine_);
    follow_->setToolTip(tr("Show the newest entry as soon as it is written"));
    follow_->setChecked(following_);
    count_ = new QLabel(filterLine_);
    count_->setObjectName(QStringLiteral("note"));
    layout->addWidget(words_, 1);
    layout->addWidget(where_);
    layout->addWidget(follow_);
    layout->addWidget(count_);
    system_ = new QLabel(filterLine_);
    system_->setObjectName(QStringLiteral("note"));
    system_->setTextFormat(Qt::PlainText);
    system_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lines->addWidget(system_);
    guard().connect(words_, &QLineEdit::textChanged, this, "Filter", [this] { filter(); });
    guard().connect(where_, &QComboBox::currentIndexChanged, this, "Filter", [this] { filter(); });
    guard().connect(follow_, &QCheckBox::toggled, this, "Follow", [this](bool on) {
        setFollowing(on);
        follow();
    });
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
    showSystem();
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
        setFollowing(true);  // what the entry writes should be seen
        const QPointer<TraceDialog> self(this);
        form_->mnuTrac_Click(index);
        if (self && form_) {
            takeOnTop();
            showSystem();
        }
    });
}

/// The figures that the entries on memory and system give are cut to what their form holds.
void TraceDialog::showSystem() {
    QStringList parts;
    if (!form_) {
        return;
    }
    if (const std::optional<MemoryStatus> memory = form_->Memory()) {
        const auto size = [this](std::int64_t bytes) { return locale().formattedDataSize(bytes, 1); };
        parts << tr("Memory: %1; with swap %2, %3 of it free")
                     .arg(size(memory->totalPhysical), size(memory->totalPageFile), size(memory->availablePageFile));
    }
    parts << tr("System: %1, %2 %3, %4")
                 .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                      QSysInfo::currentCpuArchitecture());
    system_->setText(parts.join(QStringLiteral(". ")));
    system_->setToolTip(system_->text().toHtmlEscaped());
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
        filter_->setWords(words_->text(), where_->currentData().toInt());
        list_->doItemsLayout();
    }
    follow();
}

void TraceDialog::showCount() {
    const int all = model_->rowCount();
    count_->setText(filter_->isOn() ? tr("%1 of %2 entries").arg(filter_->rowCount()).arg(all)
                                    : tr("%1 entries").arg(all));
}

void TraceDialog::setFollowing(bool on) {
    following_ = on;
    const QSignalBlocker quiet(follow_);
    follow_->setChecked(on);
}

void TraceDialog::keepPlace() {
    reporting_ = true;
    topEntry_.reset();
    if (!following_) {
        topEntry_ = list_->indexAt(QPoint(0, 0));
    }
}

void TraceDialog::follow() {
    reporting_ = true;
    if (following_) {
        showNewest();
    } else if (topEntry_ && topEntry_->isValid()) {
        list_->scrollTo(*topEntry_, QAbstractItemView::PositionAtTop);
    } else if (topEntry_) {
        list_->scrollToTop();  // the list has dropped it
    }
    topEntry_.reset();
    reporting_ = false;
    showCount();
}

void TraceDialog::showNewest() {
    setFollowing(true);
    const int last = filter_->rowCount() - 1;
    if (last >= 0) {
        const QScopedValueRollback reporting(reporting_, true);
        // Not by the list itself, which would extend the selection while a key such as Shift is held.
        list_->selectionModel()->setCurrentIndex(filter_->index(last, 0),
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        const int left = list_->horizontalScrollBar()->value();
        list_->scrollToBottom();
        list_->horizontalScrollBar()->setValue(left);
        fitLabels();
    }
    showCount();
}

void TraceDialog::copySelected() const {
    QModelIndexList rows = list_->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const QModelIndex& row : rows) {
        for (int i = 0; i < filter_->columnCount(); ++i) {
            const int column = list_->header()->logicalIndex(i);
            text += (i > 0 ? QStringLiteral("\t") : QString()) + row.siblingAtColumn(column).data().toString();
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
