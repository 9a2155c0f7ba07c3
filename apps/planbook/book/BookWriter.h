// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "book/BookChanges.h"
#include "book/BookConnection.h"

namespace planbook {

// All of these are parts of a transaction of the caller's. They throw BookError, also when the file takes less than it
// was given; the transaction is then to be given up.

/// Answers the conflicts; when there are any, the transaction is to be given up.
[[nodiscard]] std::vector<CellConflict> WriteChanges(const BookConnection& connection, const BookChanges& changes);

/// Gives a table exactly these rows; columns that the schema does not know keep their values in the rows that stay.
void WriteRows(const BookConnection& connection, const TableDescription& table, const BookRows& rows);

/// Empties TAB_OLD.
void ForgetOldValues(const BookConnection& connection);

/// Gives the cells of TAB_OLD their values back and empties it.
void PutOldValuesBack(const BookConnection& connection);

}  // namespace planbook
