// SPDX-License-Identifier: MIT
#include "app/PercentDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>

#include <planview/TypedNumber.h>

namespace planbook {

namespace {

constexpr std::array<int, 4> Usual = {1, 2, 5, 10};
constexpr double Most = 1000;
constexpr int Decimals = 2;

}  // namespace

PercentField::PercentField(QWidget* parent) : QDoubleSpinBox(parent) {
    setRange(-Most, Most);
    setDecimals(Decimals);
    setLocale(QLocale(QLocale::German));  // as the table writes numbers
    setSuffix(" %");
}

/// In a percentage nobody groups digits: one "." is a decimal mark, as in a cell with two decimals.
std::optional<double> PercentField::numberIn(QString text) {
    return planview::ReadTypedNumber(text.remove('%').trimmed().toStdString(), "0.00");
}

double PercentField::valueFromText(const QString& text) const {
    return numberIn(text).value_or(0);
}

QValidator::State PercentField::validate(QString& text, int& position) const {
    const std::optional<double> number = numberIn(text);
    if (number) {
        return std::abs(*number) <= Most ? QValidator::Acceptable : QValidator::Invalid;
    }
    // Letters are no beginning of a number.
    const bool beginning = std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    static_cast<void>(position);
    return beginning ? QValidator::Intermediate : QValidator::Invalid;
}

PercentDialog::PercentDialog(const QString& text, double present, QWidget* parent)
    : QDialog(parent), value_(new PercentField(this)) {
    setWindowTitle("Raise by percent");
    value_->setObjectName("percent");
    value_->setValue(present);
    value_->selectAll();

    auto* presets = new QGridLayout;
    presets->setSpacing(6);
    int column = 0;
    for (const int percent : Usual) {
        for (const int signedPercent : {percent, -percent}) {
            auto* button = new QPushButton((signedPercent > 0 ? "+" : "−") + QString::number(percent) + " %");
            button->setObjectName(QString("preset%1").arg(signedPercent));
            connect(button, &QPushButton::clicked, this, [this, signedPercent] { value_->setValue(signedPercent); });
            presets->addWidget(button, signedPercent > 0 ? 0 : 1, column);
        }
        ++column;
    }

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText("Raise");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    auto* label = new QLabel(text);
    label->setBuddy(value_);
    value_->setAccessibleName(text);
    layout->addWidget(label);
    layout->addLayout(presets);
    layout->addWidget(value_);
    layout->addWidget(buttons);
    // Return on another button presses that one. The dialog must know the button before.
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

double PercentDialog::percent() const {
    return value_->value();
}

}  // namespace planbook
