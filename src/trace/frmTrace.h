// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <string_view>

#include <planview/Export.h>

#include "components/ListView.h"
#include "platform/Desktop.h"

namespace planview {

/// An entry of the trace window's menu. The indexes have gaps; a caption "-" is a separator.
struct TraceMenuEntry {
    int Index = 0;
    std::string_view Caption;
    bool RadioCheck = false;  ///< the check mark is a bullet
    bool Checked = false;
};

/// The trace window: the one place where trace entries live. One instance per process, created on first use.
class PLANVIEW_EXPORT frmTrace final : public Form {
public:
    static constexpr std::string_view FormName = "frmTrace";

    /// The indexes of the menu.
    enum TraceMenu : int { AlwaysOnTop = 10, DeleteAllItems = 20, CheckMemory = 30, InsertBookmark = 80, Exit = 90 };

    /// A place inside the form, in twips (1/1440 inch).
    struct Place {
        int Left = 30;
        int Top = 30;
        int Width = 0;
        int Height = 0;
    };

    /// The instance; creates it, with its list's columns, when there is none.
    [[nodiscard]] static frmTrace& Instance();
    /// Whether there is an instance now.
    [[nodiscard]] static bool Exists() noexcept;
    /// The instance as one who needs its entries beyond End() holds it.
    [[nodiscard]] static std::shared_ptr<frmTrace> Share();
    /// Ends the instance; its entries end with the last one who shares it.
    static void End() noexcept;

    [[nodiscard]] std::string_view Name() const noexcept override { return FormName; }
    [[nodiscard]] std::string_view Caption() const noexcept override { return "Trace [Morvida]"; }

    /// Items: the control as text, then message, method or event, parameter, key.
    ListView TraceView;
    Place TraceViewPlace;

    static constexpr std::string_view mnuMain = "Trace";
    std::array<TraceMenuEntry, 8> mnuTrac;

    /// Does what the entry with this index stands for. Deleting, checking and hiding need the window to be shown.
    /// The form may have ended when this returns.
    void mnuTrac_Click(int index);
    /// Fits the list into the form, whose size is in twips. A width that leaves nothing is taken, a height is not.
    void Form_Resize(int width, int height) noexcept;

    /// What the menu works with while the window is shown; null while it is not. Answers what was set before.
    std::shared_ptr<const Desktop> SetPlatform(std::shared_ptr<const Desktop> platform) noexcept;

private:
    frmTrace();
    void ToggleOnTop();
    static void DeleteAll(const Desktop& platform);

    std::shared_ptr<const Desktop> platform_;
};

}  // namespace planview
