// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>

#include "find/BookFinder.h"

class QLabel;
class QLineEdit;

namespace planbook {

/// A slim bar that finds captions, periods and values of a book.
class FindBar : public QWidget {
    Q_OBJECT

public:
    /// `book` answers the book that is open, or null; `current` the keys of the current cell.
    FindBar(std::function<const Book*()> book, std::function<CellKeys()> current, QWidget* parent = nullptr);

    /// Shows the bar, ready for typing.
    void start();
    void findNext() { find(Direction::Forward); }
    void findPrevious() { find(Direction::Backward); }

Q_SIGNALS:
    void found(const QString& column, const QString& row);
    void closed();
    /// What has come of looking: "2 of 5", "nothing found"; after found().
    void looked(const QString& outcome, bool isFound);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Direction { Here, Forward, Backward };
    void find(Direction direction);
    void close();
    /// Follows the user who has gone elsewhere meanwhile.
    void startFromCurrentCell(const Book& book);

    std::function<const Book*()> book_;
    std::function<CellKeys()> current_;
    QLineEdit* text_;
    QLabel* outcome_;
    FoundPlace last_;  // where the search stands
};

}  // namespace planbook
