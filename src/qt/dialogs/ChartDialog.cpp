// SPDX-License-Identifier: MIT
#include "qt/dialogs/ChartDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace planview {

namespace {

constexpr int ColumnGap = 32;
constexpr int NumberWidth = 96;
constexpr int ListWidth = 132;
constexpr int TextWidth = 196;

}  // namespace

void ChartDialog::build() {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(ColumnGap);
    for (const auto fill :
         {&ChartDialog::buildLookColumn, &ChartDialog::buildAxisColumn, &ChartDialog::buildPeriodColumn}) {
        auto* column = new QVBoxLayout;
        columns->addLayout(column);
        (this->*fill)(*column);
        column->addStretch(1);
    }
    content()->addLayout(columns);
}

void ChartDialog::buildLookColumn(QVBoxLayout& column) {
    QGridLayout* type = addSection(column, QString::fromStdString(form_.fraType));
    addOptions(*type, form_.optType, "osklni", Qt::Vertical);

    QGridLayout* title = addSection(column, QString::fromStdString(form_.fraTitle));
    addText(*title, form_.txtTitle, withMnemonic(form_.lblTitle, 't'), TextWidth)
        ->setPlaceholderText(tr("From the book's texts"));
    for (const QString& family : QFontDatabase::families(QFontDatabase::Latin)) {
        const std::string name = family.toStdString();
        const bool known =
            std::find(form_.ListFont.Items.begin(), form_.ListFont.Items.end(), name) != form_.ListFont.Items.end();
        if (!known && !QFontDatabase::isPrivateFamily(family)) {
            form_.ListFont.Items.push_back(name);
        }
    }
    addList(*title, form_.ListFont, withMnemonic(form_.lblFont, 'f'), TextWidth);
}

void ChartDialog::buildAxisColumn(QVBoxLayout& column) {
    QGridLayout* axis = addSection(column, QString::fromStdString(form_.fraAxis));
    addCheckBox(*axis, form_.chkLabelY, 'v');
    addCheckBox(*axis, form_.chkMinAuto, 'u');
    minimum_ = addNumber(*axis, form_.txtMin, 'm');
    addCheckBox(*axis, form_.chkMaxAuto, 'a');
    maximum_ = addNumber(*axis, form_.txtMax, 'x');

    QGridLayout* range = addSection(column, QString::fromStdString(form_.fraRange));
    for (const auto& [state, mnemonic] :
         {std::pair{&form_.txtMinRange, 'r'}, std::pair{&form_.txtMaxRange, '\0'}, std::pair{&form_.txtOptimum, 'p'}}) {
        addNumber(*range, *state, mnemonic)->setPlaceholderText(tr("none"));
    }

    QGridLayout* colors = addSection(column, QString::fromStdString(form_.fraColors));
    addColor(*colors, form_.picArea, 'c', [this] { form_.picArea_Click(); });
    addColor(*colors, form_.picPlot, 'b', [this] { form_.picPlot_Click(); });
    addColor(*colors, form_.picLegend, 'g', [this] { form_.picLegend_Click(); });
}

void ChartDialog::buildPeriodColumn(QVBoxLayout& column) {
    QGridLayout* periods = addSection(column, QString::fromStdString(form_.fraCategories));
    addCheckBox(*periods, form_.chkLabelX, 'w');
    orientation_ = addList(*periods, form_.ListOrientation, withMnemonic(form_.lblOrientation, 'd'), ListWidth);
    addCheckBox(*periods, form_.chkScrollBar, 0);
    categories_ = addNumber(*periods, form_.txtCategories, 'e');

    QGridLayout* legend = addSection(column, QString::fromStdString(form_.fraLegend));
    addCheckBox(*legend, form_.chkLegend, 'h');
    position_ = addList(*legend, form_.ListPosition, withMnemonic(form_.lblPosition, 0), ListWidth);

    QGridLayout* permissions = addSection(column, QString::fromStdString(form_.fraPermissions));
    addCheckBox(*permissions, form_.chkSelection, 0);
    addCheckBox(*permissions, form_.chkChange, 'y');
}

QLineEdit* ChartDialog::addNumber(QGridLayout& section, NumberBox& state, char mnemonic) {
    QLineEdit* field = addText(section, state.Text, withMnemonic(state.Caption, mnemonic), NumberWidth);
    field->setAlignment(Qt::AlignRight);
    guard().connect(field, &QLineEdit::editingFinished, this, "EnterText", [field, &state] {
        state.Settle();
        field->setText(QString::fromStdString(state.Text));
    });
    return field;
}

void ChartDialog::showState() {
    FormDialog::showState();
    stateChanged();
}

void ChartDialog::stateChanged() {
    minimum_->setEnabled(form_.chkMinAuto.Value != 1);
    maximum_->setEnabled(form_.chkMaxAuto.Value != 1);
    orientation_->setEnabled(form_.chkLabelX.Value == 1);
    categories_->setEnabled(form_.chkScrollBar.Value == 1);
    position_->setEnabled(form_.chkLegend.Value == 1);
}

}  // namespace planview
