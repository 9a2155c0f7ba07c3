#pragma once

#include <filesystem>
#include <memory>
#include <span>

#include "book/Book.h"

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

    [[nodiscard]] Book Load();

    /// Writes the rows of these tables in one transaction. Columns that the schema does not know keep their values in
    /// the rows that stay.
    void Save(const Book& book, std::span<const BookTable> tables);

private:
    explicit BookStore(std::unique_ptr<BookConnection> connection) noexcept;

    std::unique_ptr<BookConnection> connection_;
};

/// Opens, loads and closes.
[[nodiscard]] Book LoadBook(const std::filesystem::path& file);

/// Throws BookError unless the file is a book of a version known here, going by its first bytes only.
void CheckBookHeader(const std::filesystem::path& file);

}  // namespace planbook
