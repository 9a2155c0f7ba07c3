// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "book/Book.h"
#include "book/BookChanges.h"

namespace planbook {

/// The caption of a line, as the view shows it. `row` is a row of LINE_INDEX, from 1.
[[nodiscard]] std::string LineCaption(const planview::MemoryTable& lineIndex, std::int32_t row);

/// "Construction, May 08".
[[nodiscard]] std::string CellName(const Book& book, CellPosition cell);

}  // namespace planbook
