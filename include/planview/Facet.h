// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <planview/Export.h>

namespace planview {

class PlanView;

namespace detail {
struct ControlState;  // what a control consists of
}

/// What the parts of a control's interface have in common.
///
/// Each is a handle: cheap to make and to copy, and all of the same kind that belong to one control are the same. It
/// may outlive the control: when that has ended, its commands do nothing, and what it answers is what an empty control
/// would. Like the control, it is used on the thread that created the control. None of its methods throws.
class PLANVIEW_EXPORT Facet {
protected:
    /// Of this control.
    explicit Facet(PlanView& control) noexcept;
    /// The state of the control, kept alive by this handle.
    [[nodiscard]] const std::shared_ptr<detail::ControlState>& State() const noexcept;

private:
    std::shared_ptr<detail::ControlState> state_;
};

}  // namespace planview
