// SPDX-License-Identifier: MIT
#include "macro/tree/MacroToolbar.h"

#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::array<ToolbarButtonInfo, ToolbarButtonCount> Buttons{{
    {ToolbarButton::CondString, "CONDSTRING", "Insert the expression that a condition tests", "macro-condstring"},
    {ToolbarButton::Condition, "CONDITION", "Insert a condition (if, else)", "macro-condition"},
    {ToolbarButton::TabLine, "TABLINE", "Insert a line of the table", "macro-tabline"},
    {ToolbarButton::TabElement, "TABELEMENT", "Insert a cell of the table", "macro-tabelement"},
    {ToolbarButton::TabArea, "TABAREA", "Insert an area of the table", "macro-tabarea"},
    {ToolbarButton::Operator, "OPERATOR", "Insert an operator", "macro-operator"},
    {ToolbarButton::Function, "FUNCTION", "Insert a function", "macro-function"},
    {ToolbarButton::MakLine, "MAKLINE", "Insert a line of the macro's own", "macro-makline"},
    {ToolbarButton::MakElement, "MAKELEMENT", "Insert a value of the macro's own", "macro-makelement"},
    {ToolbarButton::MakArea, "MAKAREA", "Insert an area of the macro's own", "macro-makarea"},
    {ToolbarButton::Attribute, "ATTRIBUTE", "Insert a setting of the whole macro", "macro-attribute"},
    {ToolbarButton::Generate, "GENERATE", "Check the macro", "macro-generate"},
    {ToolbarButton::Inactive, "INACTIVE", "Leave the element out, or take it in again", "macro-inactive"},
}};

}  // namespace

std::span<const ToolbarButtonInfo, ToolbarButtonCount> ToolbarButtons() noexcept {
    return Buttons;
}

MacroToolbar::MacroToolbar() {
    for (const ToolbarButtonInfo& info : Buttons) {
        At(info.button).tooltip = info.tooltip;
    }
}

void MacroToolbar::TooltipTexts(const HostTable& texts) {
    TraceWrite(Label, "", "TooltipTexts", "{}");
    const HostTable table = texts;
    std::array<std::string, ToolbarButtonCount> found;
    const int count = table.RowCount();
    for (int row = 1; row <= count; ++row) {
        for (std::size_t i = 0; i < Buttons.size(); ++i) {
            std::string text = table.Text(static_cast<HostTable::Row>(row), Buttons[i].field);
            if (!text.empty()) {
                found[i] = std::move(text);
            }
        }
    }
    for (std::size_t i = 0; i < Buttons.size(); ++i) {
        states_[i].tooltip = found[i].empty() ? std::string(Buttons[i].tooltip) : found[i];
    }
    Changed();
}

void MacroToolbar::SetChecked(ToolbarButton button, bool checked) {
    if (At(button).checked != checked) {
        At(button).checked = checked;
        Changed();
    }
}

void MacroToolbar::UserPress(ToolbarButton button) {
    ErrorTrap(Label, "ButtonClick", [&] {
        const std::string_view name = Buttons[static_cast<std::size_t>(button)].field;
        if (TraceEnabled) {
            TraceWrite(Label, "", "ButtonClick", TraceText("{button: ", name, "}"));
        }
        if (events_) {
            events_->ButtonPressed(button);
        }
    });
}

void MacroToolbar::UserDragSelection(const std::string& selection) {
    ErrorTrap(Label, "DragSelection", [&] {
        if (TraceEnabled) {
            TraceWrite(Label, "", "DragSelection", TraceText("{selection: ", selection, "}"));
        }
        if (events_) {
            events_->SelectionDragged(selection);
        }
    });
}

void MacroToolbar::Changed() const {
    if (watcher_) {
        watcher_->ToolbarChanged();
    }
}

}  // namespace planview
