// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>

#include <planview/MemoryTable.h>

#include "book/BookSchema.h"

namespace planbook {

/// A planning book in memory: one table object per table of the schema. The control shares the objects.
class Book {
public:
    /// All tables, each without rows.
    Book();

    [[nodiscard]] planview::MemoryTable& operator[](BookTable table) const noexcept;
    [[nodiscard]] std::shared_ptr<planview::MemoryTable> Share(BookTable table) const noexcept;

private:
    std::array<std::shared_ptr<planview::MemoryTable>, BookTableCount> tables_;
};

}  // namespace planbook
