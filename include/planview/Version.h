#pragma once

namespace planview {

inline constexpr int VersionMajor = 0;
inline constexpr int VersionMinor = 1;
inline constexpr int VersionRevision = 0;

}  // namespace planview
