// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <planview/Platform.h>

namespace planview {

/// Shows the progress of an operation for as long as the object lives.
class ProgressScope {
public:
    ProgressScope(Progress& progress, std::string_view title, int steps) : progress_(progress) {
        progress_.Begin(title, steps < 1 ? 1 : steps);
    }
    ~ProgressScope() { progress_.End(); }
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

    /// False when the user has cancelled, from then on.
    [[nodiscard]] bool Advance(int done) { return running_ = running_ && progress_.Advance(done); }
    [[nodiscard]] bool IsCancelled() const noexcept { return !running_; }

private:
    Progress& progress_;
    bool running_ = true;
};

}  // namespace planview
