// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace planview::xlsx {

struct Workbook;

/// Writes the workbook as an .xlsx file and reads the file back before it takes the place of an older one. Throws
/// AutomationError with a text for the user where it cannot be written; an older file is whole then.
void SaveWorkbook(const Workbook& workbook, const std::filesystem::path& target);

}  // namespace planview::xlsx
