// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <planview/Export.h>
#include <planview/Failure.h>

#include "automation/ListenerList.h"

namespace planview {

/// What has failed in one control, for those who want to hear. They hear when the call that failed has come to its end,
/// and not of what fails while they are being told: a listener that calls the control again must not be called for
/// ever.
class Failures {
public:
    [[nodiscard]] ListenerList<void(const Failure&)>& Listeners() noexcept { return listeners_; }
    void Note(Failure failure);
    void Tell() noexcept;
    /// For the end of the control.
    void Abandon() noexcept;

private:
    ListenerList<void(const Failure&)> listeners_;
    std::vector<Failure> noted_;
    bool telling_ = false;
};

/// Stands wherever a control is called, by its host or by a view. A failure that ends at a trap belongs to the
/// innermost of these on the thread. Its end tells. One of nothing changes nothing.
class PLANVIEW_EXPORT FailureScope {
public:
    explicit FailureScope(std::shared_ptr<Failures> failures) noexcept;
    ~FailureScope();
    FailureScope(const FailureScope&) = delete;
    FailureScope& operator=(const FailureScope&) = delete;

    /// Nothing where no control is at work.
    static void Note(const Failure& failure) noexcept;

private:
    std::shared_ptr<Failures> failures_;
    Failures* before_;
};

}  // namespace planview
