// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>

namespace planbook {

/// A sentence where a planning book has this name, which would be lost; else the empty text.
[[nodiscard]] std::string OutputRefusal(const std::filesystem::path& file);
/// Throws BookError where there is such a refusal.
void CheckOutput(const std::filesystem::path& file);

/// Writes a file that is not a book; one of that name is replaced when the new one is whole. Throws BookError.
void WriteOutput(const std::filesystem::path& file, const std::function<void(std::ostream&)>& write);

/// Runs `body` and writes the whole trace of it, however long. Where the body throws, or the trace cannot be written
/// as a whole, the file that was there stays.
void WriteTraceOf(const std::filesystem::path& file, const std::function<void()>& body);
/// What the trace holds now.
void WriteTrace(const std::filesystem::path& file);

}  // namespace planbook
