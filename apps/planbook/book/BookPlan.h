// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <planview/PlanView.h>

#include "book/Book.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"

namespace planbook {

/// A number that is to go into a cell, named by captions.
struct PlanEntry {
    std::string line;
    std::string period;
    double number = 0;
};

/// A book and a view without a screen, which computes and spreads as the window does. Every method throws BookError.
class BookPlan {
public:
    explicit BookPlan(const std::filesystem::path& book);

    /// What of the book could not be read, and the formulas that cannot be computed.
    [[nodiscard]] const BookReport& Report() const noexcept { return report_; }

    /// A line for each row of FORMULAS, as a names file has it: "Manufacturing = SUM(MEMBERS) | entry".
    [[nodiscard]] std::vector<std::string> Formulas() const;
    /// The computed cells whose value in the book is not what its leaves give, with both.
    [[nodiscard]] std::vector<std::string> Differences() const;

    /// Enters a number, which a total spreads.
    void Set(const PlanEntry& entry);
    /// Writes what was entered and what follows from it into the book, in one transaction, as pending changes. False,
    /// and nothing is written, when somebody else has changed the book since it was read.
    [[nodiscard]] bool Save();
    /// The cells that have changed, with their old and new values.
    [[nodiscard]] std::vector<std::string> Changes() const;

private:
    [[nodiscard]] BookChanges CellChanges() const;
    [[nodiscard]] CellPosition PlaceOf(const PlanEntry& entry) const;
    [[noreturn]] void Refuse(const PlanEntry& entry, const std::string& why) const;

    std::filesystem::path file_;
    BookStore store_;
    Book book_;
    BookReport report_;
    BookSnapshot asRead_;
    std::unique_ptr<planview::PlanView> view_;
};

}  // namespace planbook
