// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "book/BookChanges.h"
#include "book/BookConnection.h"

namespace planbook {

/// Writes the changes in one transaction, or nothing when there are conflicts. Throws BookError; then nothing was
/// written either.
[[nodiscard]] std::vector<CellConflict> WriteChanges(const BookConnection& connection, const BookChanges& changes);

// Those below are parts of a transaction of the caller's.

/// Gives a table exactly these rows; columns that the schema does not know keep their values in the rows that stay.
void WriteRows(const BookConnection& connection, const TableDescription& table, const BookRows& rows);

/// Empties TAB_OLD.
void ForgetOldValues(const BookConnection& connection);

/// Gives the cells of TAB_OLD their values back and empties it.
void PutOldValuesBack(const BookConnection& connection);

}  // namespace planbook
