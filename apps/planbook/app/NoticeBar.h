// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

namespace planbook {

/// A quiet line at the edge of the view with something to know and one thing to do about it.
class NoticeBar : public QWidget {
    Q_OBJECT

public:
    NoticeBar(const QString& text, const QString& action, QWidget* parent = nullptr);

    void setText(const QString& text);

Q_SIGNALS:
    void actionPressed();
    void dismissed();
    /// The bar has come on screen.
    void appeared(const QString& text);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLabel* text_;
};

}  // namespace planbook
