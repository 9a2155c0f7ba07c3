// SPDX-License-Identifier: MIT
#include "app/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace planbook {

NoticeBar::NoticeBar(const QString& text, const QString& action, QWidget* parent)
    : QWidget(parent), text_(new QLabel(text)) {
    setObjectName("noticeBar");
    setAttribute(Qt::WA_StyledBackground);
    auto* button = new QToolButton;
    button->setText(action);
    button->setObjectName("noticeAction");
    button->setAutoRaise(true);
    auto* end = new QToolButton;
    end->setText("×");
    end->setObjectName("noticeEnd");
    end->setToolTip("Not now");
    end->setAccessibleName("Not now");
    end->setAutoRaise(true);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 3, 8, 3);
    layout->setSpacing(6);
    layout->addWidget(text_);
    layout->addWidget(button);
    layout->addStretch();
    layout->addWidget(end);
    connect(button, &QToolButton::clicked, this, &NoticeBar::actionPressed);
    connect(end, &QToolButton::clicked, this, &NoticeBar::dismissed);
}

void NoticeBar::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Q_EMIT appeared(text_->text());
}

void NoticeBar::setText(const QString& text) {
    text_->setText(text);
}

}  // namespace planbook
