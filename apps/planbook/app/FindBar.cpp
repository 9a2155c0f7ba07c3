// SPDX-License-Identifier: MIT
#include "app/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace planbook {

namespace {

constexpr int FieldWidth = 280;

QToolButton* barButton(const QString& text, const QString& toolTip, const QString& name) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setObjectName(name);
    button->setAutoRaise(true);
    return button;
}

}  // namespace

FindBar::FindBar(std::function<const Book*()> book, std::function<CellKeys()> current, QWidget* parent)
    : QWidget(parent),
      book_(std::move(book)),
      current_(std::move(current)),
      text_(new QLineEdit),
      outcome_(new QLabel) {
    setObjectName("findBar");
    setAttribute(Qt::WA_StyledBackground);
    text_->setPlaceholderText("Find a line, a period or a value");
    text_->setAccessibleName("Find");
    text_->setObjectName("findText");
    text_->setClearButtonEnabled(true);
    text_->setFixedWidth(FieldWidth);
    outcome_->setObjectName("findOutcome");
    QToolButton* previous = barButton("Previous", "Previous (Shift+F3)", "findPrevious");
    QToolButton* next = barButton("Next", "Next (F3)", "findNext");
    QToolButton* end = barButton("×", "Close (Esc)", "findClose");

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 3, 8, 3);
    layout->setSpacing(6);
    layout->addWidget(text_);
    layout->addWidget(previous);
    layout->addWidget(next);
    layout->addWidget(outcome_, 1);
    layout->addWidget(end);

    connect(text_, &QLineEdit::textChanged, this, [this] { find(Direction::Here); });
    connect(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
    connect(next, &QToolButton::clicked, this, &FindBar::findNext);
    connect(end, &QToolButton::clicked, this, &FindBar::close);
}

void FindBar::start() {
    show();
    text_->setFocus();
    text_->selectAll();
}

void FindBar::close() {
    hide();
    Q_EMIT closed();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        find(event->modifiers() & Qt::ShiftModifier ? Direction::Backward : Direction::Forward);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FindBar::startFromCurrentCell(const Book& book) {
    const CellKeys current = current_();
    if (KeysOf(book, last_) != current) {
        last_ = PlaceOf(book, current);
    }
}

void FindBar::find(Direction direction) {
    const Book* book = book_();
    // The book may have changed since the last time.
    const std::vector<FoundPlace> places = book ? FindInBook(*book, text_->text()) : std::vector<FoundPlace>();
    if (places.empty()) {
        outcome_->setText(text_->text().trimmed().isEmpty() ? QString() : QString("nothing found"));
        Q_EMIT looked(outcome_->text(), false);
        return;
    }
    startFromCurrentCell(*book);
    auto place = direction == Direction::Forward ? std::upper_bound(places.begin(), places.end(), last_)
                                                 : std::lower_bound(places.begin(), places.end(), last_);
    if (direction == Direction::Backward) {
        place = place == places.begin() ? places.end() - 1 : place - 1;
    } else if (place == places.end()) {
        place = places.begin();
    }
    last_ = *place;
    outcome_->setText(QString("%1 of %2").arg(place - places.begin() + 1).arg(places.size()));
    const CellKeys keys = KeysOf(*book, *place);
    Q_EMIT found(keys.column, keys.row);
    Q_EMIT looked(outcome_->text(), true);
}

}  // namespace planbook
