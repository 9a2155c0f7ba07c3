// SPDX-License-Identifier: MIT
#include "qt/dialogs/RowDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include "qt/dialogs/RowPreview.h"

namespace planview {

namespace {

constexpr int ColumnGap = 32;
constexpr int HeightFieldWidth = 64;
constexpr int FontListWidth = 200;

/// The fonts of this desktop that are for texts.
std::vector<std::string> desktopFonts() {
    std::vector<std::string> names{std::string()};  // the view's own
    for (const QString& family : QFontDatabase::families(QFontDatabase::Latin)) {
        if (!QFontDatabase::isPrivateFamily(family)) {
            names.push_back(family.toStdString());
        }
    }
    return names;
}

}  // namespace

void RowDialog::setTheme(const GridTheme& theme) {
    FormDialog::setTheme(theme);
    if (preview_) {
        preview_->setTheme(theme);
    }
}

void RowDialog::build() {
    form_.OfferFonts(desktopFonts());
    auto* headline = new QLabel(QString::fromStdString(form_.lblRowLabel), this);
    headline->setObjectName(QStringLiteral("headline"));
    headline->setTextFormat(Qt::PlainText);
    headline->setMaximumWidth(2 * FontListWidth + ColumnGap);
    headline->setVisible(!form_.lblRowLabel.empty());
    content()->addWidget(headline);
    content()->addSpacing(10);
    preview_ = new RowPreview(form_, guard(), this);
    content()->addWidget(preview_);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(ColumnGap);
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    left->setSpacing(0);
    right->setSpacing(0);
    columns->addLayout(left);
    columns->addLayout(right);
    content()->addSpacing(14);
    content()->addLayout(columns);
    buildLayoutColumn(*left);
    buildTextColumn(*right);
}

void RowDialog::buildLayoutColumn(QVBoxLayout& column) {
    QGridLayout* row = addSection(column, tr("Row"));
    addCheckBox(*row, form_.chkChart, 's');
    addCheckBox(*row, form_.chkRelief, 'l');
    addHeight(*row);

    QGridLayout* alignment = addSection(column, QString::fromStdString(form_.fraAlign));
    addOptions(*alignment, form_.optAlign, "rec", Qt::Horizontal);

    column.addStretch(1);
}

void RowDialog::addHeight(QGridLayout& section) {
    height_ = new QLineEdit(this);
    height_->setAccessibleName(QString::fromStdString(form_.lblHeight));  // its label is no sibling of it
    height_->setFixedWidth(HeightFieldWidth);
    height_->setAlignment(Qt::AlignRight);
    auto* reset = new QPushButton(withMnemonic(form_.cmdResetCaption, 't'), this);
    reset->setAutoDefault(false);
    auto* line = new QWidget(this);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(height_);
    layout->addWidget(reset);
    layout->addStretch(1);
    addRow(section, withMnemonic(form_.lblHeight, 'h'), line);
    // The label leads to the field itself.
    qobject_cast<QLabel*>(section.itemAtPosition(section.rowCount() - 1, 0)->widget())->setBuddy(height_);
    heightMessage_ =
        new QLabel(tr("%1 to %2, or 0 for the usual height").arg(frmRow::LeastHeight).arg(frmRow::MostHeight), this);
    heightMessage_->setObjectName(QStringLiteral("message"));
    heightMessage_->hide();
    section.addWidget(heightMessage_, section.rowCount(), 0, 1, 2);
    guard().connect(height_, &QLineEdit::textChanged, this, "EnterHeight", [this](const QString& text) {
        form_.txtHeight = text.trimmed().toStdString();
        stateChanged();
    });
    guard().connect(reset, &QPushButton::clicked, this, "cmdReset_Click", [this] {
        form_.cmdReset_Click();
        height_->setText(QString::fromStdString(form_.txtHeight));
    });
}

void RowDialog::buildTextColumn(QVBoxLayout& column) {
    QGridLayout* text = addSection(column, tr("Text"));
    addList(*text, form_.ListFont, withMnemonic(form_.lblFont, 'f'), FontListWidth);
    fontNote_ = new QLabel(this);
    fontNote_->setObjectName(QStringLiteral("note"));
    fontNote_->setTextFormat(Qt::PlainText);
    fontNote_->hide();
    text->addWidget(fontNote_, text->rowCount(), 1);
    addList(*text, form_.ListSize, withMnemonic(form_.lblSize, 'z'), FontListWidth);
    addOptions(*text, form_.optType, "udn", Qt::Horizontal);

    QGridLayout* colors = addSection(column, tr("Colors"));
    addColor(*colors, form_.picBgColor, 'b', [this] {
        form_.picBgColor_Click();
    })->setViewBackground(form_.Sample.background);
    addColor(*colors, form_.picFgColor, 'g', [this] { form_.picFgColor_Click(); });
    column.addStretch(1);
}

void RowDialog::showState() {
    FormDialog::showState();
    const QSignalBlocker quietHeight(height_);
    height_->setText(QString::fromStdString(form_.txtHeight));
    stateChanged();
}

void RowDialog::stateChanged() {
    const bool wrong = !form_.Height();
    heightMessage_->setVisible(wrong);
    if (height_->property("wrong").toBool() != wrong) {
        height_->setProperty("wrong", wrong);  // for the style sheet
        height_->style()->unpolish(height_);
        height_->style()->polish(height_);
    }
    const QString font = QString::fromStdString(form_.ListFont.Text());
    const QString shownAs = QFontInfo(QFont(font.isEmpty() ? this->font().family() : font)).family();
    const bool substituted = !font.isEmpty() && shownAs.compare(font, Qt::CaseInsensitive) != 0;
    fontNote_->setText(substituted ? tr("Not installed; shown as %1").arg(shownAs) : QString());
    fontNote_->setVisible(substituted);
    preview_->follow();
}

}  // namespace planview
