// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "book/Book.h"

namespace planbook {

/// A field of a book that a view cannot read, or a formula that cannot be computed.
struct BookFault {
    BookTable table;
    std::int32_t row;  ///< from 1, in the order of the file's rows; 0 where several are concerned
    std::string_view field;
    std::string what;  ///< what stands there and what becomes of it: "n/a" is no number; the cell is shown empty
    bool losesValues;  ///< figures or captions are missing, and not only a look
};

/// What had to be left out of a book, or emptied in it, to show the rest.
class BookReport {
public:
    [[nodiscard]] bool IsWhole() const noexcept { return faults_.empty(); }
    [[nodiscard]] bool LosesValues() const noexcept;
    /// A row of FORMULAS, from 1, that computes nothing or not what it should; 0 where several are concerned.
    void AddFormulaFault(std::int32_t row, std::string what);
    /// Whether the file's rows of this table are other ones than those shown.
    [[nodiscard]] bool Concerns(BookTable table) const noexcept;
    [[nodiscard]] const std::vector<BookFault>& Faults() const noexcept { return faults_; }

    /// "3 places of the book cannot be read, so that figures are missing."
    [[nodiscard]] std::string Headline() const;
    /// A line for each of the first `most` faults, then how many more there are.
    [[nodiscard]] std::string List(std::size_t most) const;

    /// The rows of the file, from 0, that are not shown, in their order.
    [[nodiscard]] const std::vector<std::size_t>& LeftOut(BookTable table) const noexcept {
        return leftOut_[static_cast<std::size_t>(table)];
    }

private:
    friend class BookCheck;
    std::vector<BookFault> faults_;
    std::size_t formulaFaults_ = 0;
    std::array<std::vector<std::size_t>, BookTableCount> leftOut_;
};

/// Makes the book one that a view reads from end to end: a view ends a table at the first field that it cannot read.
/// Fields that cannot be read become empty, rows without a place are left out, and so are later rows for a place that
/// has one.
[[nodiscard]] BookReport MakeReadable(const Book& book);

/// Whether a view can show this in a planning cell; no value is nothing to show.
[[nodiscard]] bool IsCellValue(const planview::Variant& value);

/// The report for a terminal; ends with a line break.
[[nodiscard]] std::string ReportText(const std::filesystem::path& book, const BookReport& report);

}  // namespace planbook
