// SPDX-License-Identifier: MIT
#pragma once

namespace planview {

/// Whether the user's steps are being recorded.
enum class RecordState { Off, Running, Interrupted };

}  // namespace planview
