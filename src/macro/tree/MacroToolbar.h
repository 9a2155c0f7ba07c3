// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "automation/HostTable.h"

namespace planview {

/// The buttons of the macro toolbar in order: one per kind of macro element, then checking a macro and leaving an
/// element out.
enum class ToolbarButton : std::uint8_t {
    CondString,
    Condition,
    TabLine,
    TabElement,
    TabArea,
    Operator,
    Function,
    MakLine,
    MakElement,
    MakArea,
    Attribute,
    Generate,
    Inactive
};
inline constexpr std::size_t ToolbarButtonCount = 13;

/// The constant properties of a button.
struct ToolbarButtonInfo {
    ToolbarButton button;
    std::string_view field;    ///< in TEXTS, and its name in the trace
    std::string_view tooltip;  ///< if TEXTS has none
    std::string_view icon;     ///< name of its picture
};

/// All buttons in order.
[[nodiscard]] PLANVIEW_EXPORT std::span<const ToolbarButtonInfo, ToolbarButtonCount> ToolbarButtons() noexcept;

/// Is told when a button looks different.
class ToolbarWatcher {
public:
    virtual ~ToolbarWatcher() = default;
    virtual void ToolbarChanged() = 0;
};

/// Is told what the user does to the toolbar.
class ToolbarEvents {
public:
    virtual ~ToolbarEvents() = default;
    virtual void ButtonPressed(ToolbarButton button) = 0;
    /// The grid's selection was dragged from the toolbar. `selection`: see SelectionText().
    virtual void SelectionDragged(const std::string& selection) = 0;
};

/// The macro toolbar without a screen: tooltips, which buttons look pressed, and what the user does.
class PLANVIEW_EXPORT MacroToolbar {
public:
    inline static constexpr std::string_view Label = "TREETOOL";

    MacroToolbar();

    /// Reads the tooltips from TEXTS; later rows override earlier ones. A button without a text gets its English one.
    /// Throws AutomationError.
    void TooltipTexts(const HostTable& texts);
    [[nodiscard]] const std::string& Tooltip(ToolbarButton button) const { return At(button).tooltip; }

    /// Whether the button looks pressed, as INACTIVE does for an inactive element.
    void SetChecked(ToolbarButton button, bool checked);
    [[nodiscard]] bool IsChecked(ToolbarButton button) const { return At(button).checked; }

    void SetWatcher(ToolbarWatcher* watcher) noexcept { watcher_ = watcher; }
    void SetEvents(ToolbarEvents* events) noexcept { events_ = events; }

    // --- User actions, called by the view

    void UserPress(ToolbarButton button);
    /// `selection`: see SelectionText().
    void UserDragSelection(const std::string& selection);

private:
    struct State {
        std::string tooltip;
        bool checked = false;
    };
    [[nodiscard]] const State& At(ToolbarButton button) const { return states_[static_cast<std::size_t>(button)]; }
    [[nodiscard]] State& At(ToolbarButton button) { return states_[static_cast<std::size_t>(button)]; }
    void Changed() const;

    std::array<State, ToolbarButtonCount> states_;
    ToolbarWatcher* watcher_ = nullptr;
    ToolbarEvents* events_ = nullptr;
};

}  // namespace planview
