// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "book/Book.h"
#include "book/BookChanges.h"
#include "book/BookCheck.h"

namespace planbook {

class BookConnection;

/// A book file: SQLite, one SQL table per table of the schema, the fields as columns and ROW_NO as primary key.
///
/// Every method throws BookError; a failure leaves the file as it was.
class BookStore {
public:
    /// Opens a book after checking that the file is one, of a version known here, undamaged and complete.
    /// A file that is not is left alone.
    [[nodiscard]] static BookStore Open(const std::filesystem::path& file);

    /// Makes a new book without rows. There must be no such file yet.
    [[nodiscard]] static BookStore Create(const std::filesystem::path& file);

    BookStore(BookStore&&) noexcept;
    BookStore& operator=(BookStore&&) noexcept;
    ~BookStore();

    /// The file or the folder does not let the user write.
    [[nodiscard]] bool IsReadOnly() const noexcept { return readOnly_; }

    /// The book as it is in the file.
    [[nodiscard]] Book Load();
    /// The book as a view can read it; Report() says what that leaves out. What is written afterwards finds its rows in
    /// the file all the same.
    [[nodiscard]] Book LoadReadable();
    [[nodiscard]] const BookReport& Report() const noexcept { return report_; }

    /// Writes the rows of these tables in one transaction. Columns that the schema does not know keep their values in
    /// the rows that stay.
    void Save(const Book& book, std::span<const BookTable> tables);

    /// Writes the changes in one transaction, or nothing when there are conflicts. Where others have changed the book
    /// since it was loaded, what its formulas compute is computed again from what the file holds then.
    [[nodiscard]] std::vector<CellConflict> Write(const BookChanges& changes);
    /// The same, but writes nothing and answers false when somebody else has changed the book since it was loaded.
    [[nodiscard]] bool WriteUnlessChanged(const BookChanges& changes);

    /// A state of the file as others have left it.
    struct Stamp {
        std::optional<qlonglong> counter;  ///< of others' changes; none while the file does not answer
        qint64 bornAt = 0;  ///< tells the file from another one in its place; 0 where the file system does not say
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    [[nodiscard]] Stamp CurrentStamp() const;
    /// Whether somebody else has changed or replaced the book since it was loaded.
    [[nodiscard]] bool IsChangedElsewhere() const;

    enum class OldValues { Forget, PutBack };
    /// Ends the record of pending changes in TAB_OLD; the changes stay, or their old values come back. Does nothing and
    /// answers false when the book was changed elsewhere: nobody has looked at those changes.
    [[nodiscard]] bool EndPendingChanges(OldValues what);

private:
    BookStore(std::unique_ptr<BookConnection> connection, std::filesystem::path file, bool readOnly);

    [[nodiscard]] Book ReadTables() const;
    /// Part of a transaction: makes what formulas compute fit the leaves in the file.
    void ComputeAgain() const;
    /// The changes by the rows of the file.
    [[nodiscard]] BookChanges ForFile(const BookChanges& changes) const;

    std::unique_ptr<BookConnection> connection_;
    std::filesystem::path file_;
    bool readOnly_ = false;
    Stamp loaded_;
    BookReport report_;
};

/// Opens, loads and closes.
[[nodiscard]] Book LoadBook(const std::filesystem::path& file);

/// Throws BookError unless the file is a book of a version known here, going by its first bytes only.
void CheckBookHeader(const std::filesystem::path& file);

/// Whether that throws nothing. No output may take the place of a book.
[[nodiscard]] bool IsBookFile(const std::filesystem::path& file);

}  // namespace planbook
