// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>

namespace planview::xlsx {

/// Has `write` make a file beside `target`, and gives it the target's name when it is whole: a save that fails leaves
/// the file that was there as it was, and nothing beside it.
///
/// Throws AutomationError with a text for the user where the folder or the file does not allow it, and passes on what
/// `write` throws. A link is followed; the new file takes the permissions of the old one.
void SaveBeside(const std::filesystem::path& target, const std::function<void(const std::filesystem::path&)>& write);

/// Throws AutomationError "Cannot save ...": why, by the error number of the system, and what to do now.
[[noreturn]] void ThrowCannotSave(const std::filesystem::path& target, int systemError);

/// The path of a UTF-8 name and back.
[[nodiscard]] std::filesystem::path PathOf(std::string_view utf8);
[[nodiscard]] std::string TextOf(const std::filesystem::path& path);

}  // namespace planview::xlsx
