// SPDX-License-Identifier: MIT
#include "qt/dialogs/UploadDialog.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/dialogs/RowList.h"

namespace planview {

namespace {

constexpr QSize UsualSize(980, 600);
constexpr int EdgeSpace = 18;
constexpr int PartSpace = 10;
constexpr int ButtonEdges = 36;
constexpr int NoteLines = 5;  // that are seen at once
constexpr int LineWidth = 230;
constexpr int PeriodWidth = 100;
constexpr int ValueWidth = 110;

}  // namespace

UploadDialog::UploadDialog(frmUpload& form, QWidget* parent)
    : ThemedDialog(static_cast<PropertyForm&>(form).TraceLabel(), parent),
      form_(&form),
      model_(new UploadModel(form, this)),
      filter_(new UploadFilter(*model_, this)) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resizeOnScreen(UsualSize);
}

void UploadDialog::setTheme(const GridTheme& theme) {
    ThemedDialog::setTheme(theme);
    model_->setTheme(theme);
    theme_ = theme;
    if (list_) {
        list_->setTheme(theme);
    }
}

void UploadDialog::setVisible(bool visible) {
    if (visible && !list_ && form_) {
        build();
    }
    ThemedDialog::setVisible(visible);
}

void UploadDialog::accept() {
    if (form_) {
        guard().run("cmdOk_Click", [this] { form_->cmdOk_Click(); });  // hides the window
    }
}

void UploadDialog::reject() {
    if (form_) {
        guard().run("cmdCancel_Click", [this] { form_->cmdCancel_Click(); });
    }
}

void UploadDialog::endForm() {
    form_ = nullptr;
    model_->end();
    ThemedDialog::endForm();
}

void UploadDialog::build() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(EdgeSpace, EdgeSpace, EdgeSpace, EdgeSpace);
    layout->setSpacing(PartSpace);
    buildHead(*layout);
    buildFilterLine(*layout);
    buildList(*layout);
    buildButtons(*layout);
    guard().connect(model_, &UploadModel::ticked, this, "ShowTicks", [this] { showState(); });
    filter();
    showState();
    list_->setFocus();
}

void UploadDialog::buildHead(QVBoxLayout& layout) {
    auto* headline = new QLabel(QString::fromStdString(form_->lblSummary), this);
    headline->setObjectName(QStringLiteral("headline"));
    headline->setTextFormat(Qt::PlainText);
    const int room = width() - 2 * EdgeSpace;
    auto* file = new QLabel(this);
    file->setText(file->fontMetrics().elidedText(QString::fromStdString(form_->lblFile), Qt::ElideMiddle, room));
    file->setObjectName(QStringLiteral("note"));
    file->setTextFormat(Qt::PlainText);
    file->setToolTip(QString::fromStdString(form_->Preview().file).toHtmlEscaped());
    auto* head = new QVBoxLayout;
    head->setSpacing(2);
    head->addWidget(headline);
    head->addWidget(file);
    layout.addLayout(head);

    QStringList lines;
    for (const auto& sentences : {form_->Preview().notes, form_->Preview().remarks}) {
        for (const std::string& sentence : sentences) {
            lines << QString::fromStdString(sentence);
        }
    }
    if (lines.isEmpty()) {
        return;
    }
    auto* text = new QPlainTextEdit(lines.join(QLatin1Char('\n')), this);
    text->setObjectName(QStringLiteral("notes"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setAccessibleName(tr("What does not match"));
    // A long note takes several lines.
    const QFontMetrics metrics = text->fontMetrics();
    const QRect inside(0, 0, room - 4 * PartSpace, QWIDGETSIZE_MAX);
    int height = 0;
    for (const QString& line : std::as_const(lines)) {
        height = std::min(height + metrics.boundingRect(inside, Qt::TextWordWrap, line).height(),
                          NoteLines * metrics.lineSpacing());
    }
    text->setFixedHeight(height + 2 * PartSpace);
    layout.addWidget(text);
}

void UploadDialog::buildFilterLine(QVBoxLayout& layout) {
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    words_ = new QLineEdit(this);
    words_->setPlaceholderText(tr("Filter: words of line, period or value"));
    words_->setAccessibleName(tr("Filter"));
    words_->setClearButtonEnabled(true);
    show_ = new QComboBox(this);
    show_->addItems({tr("All"), tr("Changes"), tr("Refused")});
    if (!form_->IsOfMacro()) {
        show_->addItems({tr("Changed in both"), tr("Changed in the table")});
    }
    show_->setAccessibleName(tr("What is shown"));
    count_ = new QLabel(this);
    count_->setObjectName(QStringLiteral("note"));
    auto* all = new QPushButton(tr("&Tick shown"), this);
    auto* none = new QPushButton(tr("&Untick shown"), this);
    all->setAutoDefault(false);
    none->setAutoDefault(false);
    line->addWidget(words_, 1);
    line->addWidget(show_);
    line->addWidget(count_);
    line->addWidget(all);
    line->addWidget(none);
    layout.addLayout(line);
    guard().connect(words_, &QLineEdit::textChanged, this, "Filter", [this] { filter(); });
    guard().connect(show_, &QComboBox::currentIndexChanged, this, "Filter", [this] { filter(); });
    guard().connect(all, &QPushButton::clicked, this, "TickShown", [this] { tickShown(true); });
    guard().connect(none, &QPushButton::clicked, this, "UntickShown", [this] { tickShown(false); });
}

void UploadDialog::buildList(QVBoxLayout& layout) {
    list_ = new RowList(guard(), this);
    list_->setObjectName(QStringLiteral("ticked"));
    list_->setModel(filter_);
    list_->setAccessibleName(tr("Changes"));
    list_->setTheme(theme_);
    list_->header()->setSectionsMovable(false);
    list_->setColumnWidth(UploadModel::Line, LineWidth);
    list_->setColumnWidth(UploadModel::Period, PeriodWidth);
    list_->setColumnWidth(UploadModel::Before, ValueWidth);
    list_->setColumnWidth(UploadModel::After, ValueWidth);
    list_->installEventFilter(this);
    layout.addWidget(list_, 1);
}

void UploadDialog::buildButtons(QVBoxLayout& layout) {
    apply_ = addButtons(layout, form_->cmdOkCaption, form_->cmdCancelCaption);
    // Its text never grows wider than this; a default button's text is bold.
    QFont bold = font();
    bold.setBold(true);
    apply_->setMinimumWidth(QFontMetrics(bold).horizontalAdvance(QString::fromStdString(form_->cmdOkCaption)) +
                            ButtonEdges);
}

void UploadDialog::filter() {
    filter_->setWords(words_->text(), static_cast<UploadFilter::Show>(show_->currentIndex()));
    const int shown = filter_->rowCount();
    count_->setText(shown == model_->rowCount() ? QString() : tr("%1 of %2").arg(shown).arg(model_->rowCount()));
}

void UploadDialog::tick(const QModelIndexList& rows, bool on) {
    {
        const QSignalBlocker quiet(model_);  // there may be thousands
        for (const QModelIndex& row : rows) {
            filter_->setData(row, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        }
    }
    list_->viewport()->update();
    showState();
}

void UploadDialog::tickShown(bool on) {
    QModelIndexList rows;
    for (int row = 0; row < filter_->rowCount(); ++row) {
        rows << filter_->index(row, UploadModel::Line);
    }
    tick(rows, on);
}

/// Ticks all selected changes, or unticks them if all are ticked. Refused ones do not count.
void UploadDialog::tickSelected() {
    const QModelIndexList rows = list_->selectionModel()->selectedRows(UploadModel::Line);
    const bool lacksOne = std::any_of(rows.begin(), rows.end(), [](const QModelIndex& row) {
        const QVariant state = row.data(Qt::CheckStateRole);
        return state.isValid() && state.value<Qt::CheckState>() != Qt::Checked;
    });
    tick(rows, lacksOne);
}

/// The list itself would tick by the space bar only in its first column.
bool UploadDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == list_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        guard().run("TickSelected", [this] { tickSelected(); });
        return true;
    }
    return ThemedDialog::eventFilter(watched, event);
}

void UploadDialog::keyPressEvent(QKeyEvent* event) {
    // Escape clears the filter first.
    if (event->key() == Qt::Key_Escape && words_ && !words_->text().isEmpty()) {
        words_->clear();
        list_->setFocus();
        return;
    }
    ThemedDialog::keyPressEvent(event);
}

void UploadDialog::showState() {
    if (form_ && apply_) {
        apply_->setText(QString::fromStdString(form_->cmdOkCaption));
        apply_->setEnabled(form_->Ticked() > 0);
    }
}

}  // namespace planview
