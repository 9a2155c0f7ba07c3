// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <optional>
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
///
/// The list may be used on any thread; all else is the window's, and belongs to the thread that shows it.
class PLANVIEW_EXPORT frmTrace final : public Form, public std::enable_shared_from_this<frmTrace> {
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

    /// The instance; creates it when there is none.
    [[nodiscard]] static std::shared_ptr<frmTrace> Share();
    /// The instance where there is one now.
    [[nodiscard]] static std::shared_ptr<frmTrace> Find() noexcept;
    /// Switches the trace on and answers the instance for it: a new one where a trace that has been switched off is not
    /// done with the one that there is. A null reference where the trace is on already.
    [[nodiscard]] static std::shared_ptr<frmTrace> SwitchOn();
    /// Switches the trace off and answers its instance, which is for no other trace. A null reference where the trace
    /// is off already.
    [[nodiscard]] static std::shared_ptr<frmTrace> SwitchOff();
    /// This is the instance no more, if it was; it ends with the last one who shares it.
    static void End(const frmTrace& form) noexcept;

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

    /// The memory of the machine, all of it; none while the window is not shown, or when the system does not tell.
    [[nodiscard]] std::optional<MemoryStatus> Memory() const;

    /// What the menu works with while the window is shown; null while it is not. Answers what was set before.
    std::shared_ptr<const Desktop> SetPlatform(std::shared_ptr<const Desktop> platform) noexcept;

private:
    frmTrace();
    void ToggleOnTop();
    void DeleteAll(const Desktop& platform);

    std::shared_ptr<const Desktop> platform_;
    bool isOff_ = false;  // its trace has been switched off; guarded as the instance is
};

}  // namespace planview
