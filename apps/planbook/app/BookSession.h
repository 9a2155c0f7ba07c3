// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <QVariant>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "book/Book.h"
#include "book/BookChanges.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"

namespace planview {
class PlanViewWidget;
}

namespace planbook {

class Questions;

/// One open book and the view that shows it.
///
/// What the view announces is in the file before the announcement's handler returns, in one transaction; when one
/// action of the user changes several cells, before that action ends, in one transaction for all of them. When that
/// fails the tables go back to what the file holds and the view is built anew, after the view has ended what it is
/// doing: the view itself writes the tables only after the announcement.
class BookSession : public QObject {
    Q_OBJECT

public:
    BookSession(planview::PlanViewWidget& view, Questions& questions, QObject* parent = nullptr);
    ~BookSession() override;

    /// Throws BookError; the book that was open stays open then.
    void open(const std::filesystem::path& file);
    /// Reads the book again and goes back to the current cell; tells the user when that fails.
    void reload();

    [[nodiscard]] bool isOpen() const { return store_ != nullptr; }
    [[nodiscard]] bool isReadOnly() const { return store_ && store_->IsReadOnly(); }
    [[nodiscard]] const std::filesystem::path& file() const { return file_; }
    /// Its tables are those that the view shows.
    [[nodiscard]] const Book& book() const { return book_; }
    /// What of the book could not be read and is missing in the view, and the formulas that cannot be computed.
    [[nodiscard]] const BookReport& report() const { return report_; }

    /// From now on nothing is saved as it is done; to be called before a book is opened.
    void holdChanges() { held_ = true; }
    /// Saves what was held, in one transaction. False, and nothing is saved, when somebody else has changed the book
    /// since it was opened. Throws BookError.
    [[nodiscard]] bool saveHeld();

    void acceptChanges();
    /// Asks first.
    void revertChanges();

    /// Saves what the view has changed in the tables without announcing it.
    void saveTables() { tablesChanged(); }

    /// Does at once what waits for the view to end what it is doing; false when something had failed.
    bool settle();
    /// Whether values of this window gave way to another's since this was asked last.
    [[nodiscard]] bool takeGaveWay() { return std::exchange(gaveWay_, false); }

    /// Looks whether another window has changed the book; also done once a second.
    void watch();
    /// The user does not want to know of what has changed so far; a later change is news again.
    void dismissChange();

Q_SIGNALS:
    void opened();
    /// Another window has changed the book, or the book has been read again since.
    void changedElsewhereChanged(bool changed);

private:
    void valueChanged(CellPosition cell, const QString& columnKey, const QString& rowKey, const QVariant& value);
    /// Writes what was announced cell by cell.
    void severalAnnounced();
    void tablesChanged();
    /// False when the changes could not be written; the failure is then dealt with.
    bool commit(BookChanges& changes);
    /// Asks whose values count; mine that give way are taken out of `changes`.
    /// Asks the user; meanwhile the book is not looked at.
    template <class Question>
    bool asked(const Question& question);
    void decide(BookChanges& changes, const std::vector<CellConflict>& conflicts);
    void endPendingChanges(BookStore::OldValues what);

    enum class Afterwards { Nothing, ShowSnapshot, Reload };
    /// Has it done when the view has ended what it is doing.
    void afterwards(Afterwards what, const QString& failure);
    void tryAfterwards();
    bool doAfterwards();

    void show();
    void findOutdated();
    [[nodiscard]] BookChanges changesInTables();
    void leave();
    /// Builds the view anew from the tables as they are now.
    void rebuild();
    void setChangedElsewhere(bool changed);
    [[nodiscard]] QString nameOf(CellPosition cell) const;

    planview::PlanViewWidget& view_;
    Questions& questions_;
    std::filesystem::path file_;
    std::unique_ptr<BookStore> store_;
    Book book_;
    BookReport report_;
    BookSnapshot snapshot_;           // what the file held when this window last read or wrote it
    std::vector<CellEdit> outdated_;  // computed cells whose value in the file is not that of the leaves
    BookChanges announced_;           // of the action that is under way, cell by cell
    QTimer watch_;
    QTimer later_;
    bool changedElsewhere_ = false;
    std::optional<BookStore::Stamp> dismissed_;
    bool held_ = false;
    bool gaveWay_ = false;
    bool busy_ = false;  // while the user is being asked
    Afterwards afterwards_ = Afterwards::Nothing;
    QString failure_;
};

}  // namespace planbook
