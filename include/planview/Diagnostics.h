// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/Failure.h>
#include <planview/Listener.h>

namespace planview {

/// Finding out why something does not happen. The trace is shared by all controls of the process; `plv_EnableTrace` and
/// `plv_DisableTrace` switch it.
class PLANVIEW_EXPORT Diagnostics final : public Facet {
public:
    /// Those of this control.
    explicit Diagnostics(PlanView& control) noexcept : Facet(control) {}

    /// Whether the trace is on.
    [[nodiscard]] bool TraceIsOn() const noexcept;
    /// Shows the trace window; nothing while the trace is off.
    void ShowTrace();

    /// What the last build (DP_Import_Create) has made of the seven tables that it reads, in its order: COLS_INDEX,
    /// LINE_INDEX, FIXED_COLS, FIXED_LINES, TAB, FIXED_TAB, CELL_ATTR. Empty before the first one.
    [[nodiscard]] std::vector<TableReport> LastBuild() const;
    /// @{
    /// Called with each failure that ends a part of what the control does, and with the first refused row of each table
    /// of a build; not where the control only looks whether a table has an optional field. Called when the call or the
    /// user's action in which it failed has come to its end, so that the listener may do whatever a host may; what
    /// fails in the listener itself, or in its calls of the control, is not told again. Called until it is removed.
    ListenerId AddFailureListener(std::function<void(const Failure& failure)> listener);
    void RemoveFailureListener(ListenerId listener) noexcept;
    /// @}
};

}  // namespace planview
