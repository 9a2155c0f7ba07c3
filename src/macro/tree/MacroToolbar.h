// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "automation/HostTable.h"

namespace planview {

/// The buttons of the macro toolbar in their order: one per kind of macro element, then the check of a macro and
/// whether an element is left out.
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

/// What is fixed of a button.
struct ToolbarButtonInfo {
    ToolbarButton button;
    std::string_view field;    ///< of TEXTS; the button's name in the trace
    std::string_view tooltip;  ///< where TEXTS has none
    std::string_view icon;     ///< the name of its picture
};

/// All buttons in their order.
[[nodiscard]] PLANVIEW_EXPORT std::span<const ToolbarButtonInfo, ToolbarButtonCount> ToolbarButtons() noexcept;

/// Hears that a button looks different.
class ToolbarWatcher {
public:
    virtual ~ToolbarWatcher() = default;
    virtual void ToolbarChanged() = 0;
};

/// The macro toolbar without a screen: its tooltips, which buttons can be pressed, and what the user does to it.
class PLANVIEW_EXPORT MacroToolbar {
public:
    inline static constexpr std::string_view Label = "TREETOOL";

    MacroToolbar();

    /// Takes the tooltips from TEXTS: each row's fields in their order, later rows over earlier ones. A button for
    /// which no row has a text gets its own English one. Throws AutomationError.
    void TooltipTexts(const HostTable& texts);
    [[nodiscard]] const std::string& Tooltip(ToolbarButton button) const { return At(button).tooltip; }

    void SetEnabled(ToolbarButton button, bool enabled);
    [[nodiscard]] bool IsEnabled(ToolbarButton button) const { return At(button).enabled; }
    /// Whether the button looks pressed down, as INACTIVE does for an element that is left out.
    void SetChecked(ToolbarButton button, bool checked);
    [[nodiscard]] bool IsChecked(ToolbarButton button) const { return At(button).checked; }

    void SetWatcher(ToolbarWatcher* watcher) noexcept { watcher_ = watcher; }
    /// Hears of each press of an enabled button, and of the grid's selection being dragged from the toolbar.
    std::function<void(ToolbarButton button)> onPress;
    std::function<void(const std::string& selection)> onDragSelection;

    // --- What the user does (called by a view)

    void UserPress(ToolbarButton button);
    /// `selection`: as SelectionText() has it.
    void UserDragSelection(const std::string& selection);

private:
    struct State {
        std::string tooltip;
        bool enabled = true;
        bool checked = false;
    };
    [[nodiscard]] const State& At(ToolbarButton button) const { return states_[static_cast<std::size_t>(button)]; }
    [[nodiscard]] State& At(ToolbarButton button) { return states_[static_cast<std::size_t>(button)]; }
    void Changed() const;

    std::array<State, ToolbarButtonCount> states_;
    ToolbarWatcher* watcher_ = nullptr;
};

}  // namespace planview
