// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "book/BookConnection.h"

namespace planbook {

/// The version of the schema that the file was made or last brought up with.
[[nodiscard]] std::int32_t VersionOf(const BookConnection& connection);

/// Brings a book of an earlier version up to BookVersion, in one transaction: adds the fields that came since, without
/// values, and the menu entries that planbook has learned since. What is in the book stays as it is. Nothing for a book
/// of this version. Throws BookError; the file then stays as it was.
void BringUp(const BookConnection& connection);

}  // namespace planbook
