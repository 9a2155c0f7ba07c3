// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>

#include <planview/Export.h>

namespace planview {

/// What becomes of a file that has the target's name already.
enum class IfThere { Replace, Refuse };

/// Has `write` make a file beside `target`, and gives it the target's name when it is whole: a save that fails leaves
/// the file that was there as it was, and nothing beside it.
///
/// Throws AutomationError with a text for the user where the folder or the file does not allow it, and passes on what
/// `write` throws. A link is followed. The new file takes the permissions and the group of the old one; while it is
/// written only its owner may read it.
PLANVIEW_EXPORT void SaveBeside(const std::filesystem::path& target,
                                const std::function<void(const std::filesystem::path& beside)>& write,
                                IfThere ifThere = IfThere::Replace);

/// The same for what is written into a stream; a stream that fails is a full disk or the like.
PLANVIEW_EXPORT void SaveStream(const std::filesystem::path& target, const std::function<void(std::ostream&)>& write);

/// Throws AutomationError "Cannot save ...": why, by the error number of the system, and what to do now.
[[noreturn]] PLANVIEW_EXPORT void ThrowCannotSave(const std::filesystem::path& target, int systemError);

}  // namespace planview
