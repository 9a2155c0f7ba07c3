// SPDX-License-Identifier: MIT
#pragma once

namespace planview {

/// @{
/// The version of these headers, major.minor.revision.
inline constexpr int VersionMajor = 0;
inline constexpr int VersionMinor = 1;
inline constexpr int VersionRevision = 0;
/// @}

}  // namespace planview
