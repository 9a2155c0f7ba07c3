// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

#include <planview/Export.h>
#include <planview/Facet.h>

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
};

}  // namespace planview
