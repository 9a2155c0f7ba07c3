// SPDX-License-Identifier: MIT
#include "app/PercentDialog.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

namespace planbook {

namespace {

constexpr std::array<int, 4> Usual = {1, 2, 5, 10};
constexpr double Most = 1000;
constexpr int Decimals = 2;

}  // namespace

PercentDialog::PercentDialog(const QString& text, double present, QWidget* parent)
    : QDialog(parent), value_(new QDoubleSpinBox) {
    setWindowTitle("Raise by percent");
    value_->setObjectName("percent");
    value_->setRange(-Most, Most);
    value_->setDecimals(Decimals);
    value_->setLocale(QLocale(QLocale::German));  // as the table writes numbers
    value_->setSuffix(" %");
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
    layout->addWidget(new QLabel(text));
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
