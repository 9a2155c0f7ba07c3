// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "xlsx/ReadLimits.h"

namespace planview::xlsx {

struct Workbook;

/// Opens an .xlsx file (or one with macros, which are left alone) and reads its active sheet; the others follow when
/// they are used. Throws AutomationError with a text for the user, "Cannot open ...: ...".
[[nodiscard]] std::shared_ptr<Workbook> OpenWorkbook(const std::filesystem::path& path, const ReadLimits& limits = {});

/// The same of a file's bytes; throws BrokenFile.
[[nodiscard]] std::shared_ptr<Workbook> ReadWorkbook(std::vector<char> bytes, const ReadLimits& limits = {});

/// Reads a sheet that has not been used yet.
void EnsureLoaded(Workbook& workbook, std::size_t index);

}  // namespace planview::xlsx
