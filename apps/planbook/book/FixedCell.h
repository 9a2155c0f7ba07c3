// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <planview/Variant.h>

#include "book/Book.h"

namespace planbook {

/// Whether these keys are those of a cell in a fixed column or row.
[[nodiscard]] bool IsFixedCell(std::string_view columnKey, std::string_view rowKey) noexcept;

/// Keeps the contents of a fixed cell in FIXED_TAB, in the row that it has there or in a new one.
void PutFixedCell(const Book& book, std::string_view columnKey, std::string_view rowKey,
                  const planview::Variant& value);

}  // namespace planbook
