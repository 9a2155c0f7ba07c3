// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include <planview/ObjectRegistry.h>
#include <planview/PlanView.h>

#include "book/Book.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"

namespace planbook {

/// What a workbook says of a book that could not be read whole; empty for one that could.
[[nodiscard]] std::string WorkbookMark(const BookReport& report);

/// A book and a view without a screen, to write the book's grid as a workbook and to take changed values from one.
///
/// Every method throws BookError; a failure leaves both files as they were.
class WorkbookExchange {
public:
    explicit WorkbookExchange(const std::filesystem::path& book);

    /// Replaces an older workbook; a planning book is never replaced.
    void Download(const std::filesystem::path& workbook, bool printSetup);
    [[nodiscard]] planview::UploadPreview Preview(const std::filesystem::path& workbook);
    /// Applies what is not refused and writes it into the book, in one transaction.
    planview::UploadResult Apply(const planview::UploadPreview& preview);

    /// What of the book could not be read and is missing in the view, and the formulas that cannot be computed. A
    /// download carries a mark then.
    [[nodiscard]] const BookReport& Report() const noexcept { return report_; }

    [[nodiscard]] int Periods() const;
    [[nodiscard]] int Lines() const;

private:
    std::filesystem::path file_;
    BookStore store_;
    Book book_;
    BookReport report_;
    BookSnapshot asRead_;
    planview::ObjectRegistry objects_;
    std::unique_ptr<planview::PlanView> view_;
};

}  // namespace planbook
