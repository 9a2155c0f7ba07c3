#pragma once

#include <planview/Platform.h>

#include "components/ListView.h"

namespace planview {

/// The trace window: the one place where trace entries live. One instance per process, created on first use.
class frmTrace final : public Form {
public:
    /// The instance; creates it, with its list's columns, when there is none.
    [[nodiscard]] static frmTrace& Instance();
    /// Whether there is an instance now.
    [[nodiscard]] static bool Exists() noexcept;
    /// Ends the instance and its entries.
    static void End() noexcept;

    [[nodiscard]] std::string_view Name() const noexcept override { return "frmTrace"; }
    [[nodiscard]] std::string_view Caption() const noexcept override { return "Trace [Morvida]"; }

    /// Items: the control as text, then message, method or event, parameter, key.
    ListView TraceView;

private:
    frmTrace();
};

}  // namespace planview
