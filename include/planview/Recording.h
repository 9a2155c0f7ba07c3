// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/Listener.h>

namespace planview {

/// Recording what the user does. Macros::Replay() does it again.
class PLANVIEW_EXPORT Recording final : public Facet {
public:
    /// That of this control.
    explicit Recording(PlanView& control) noexcept : Facet(control) {}

    /// Records what the user does from now on into MACROREC, or goes on with a recording that was paused. What was in
    /// MACROREC is dropped when a recording begins. Tells the user if there is no such table.
    void Start();
    /// Records nothing until Start(); what is recorded stays.
    void Pause();
    /// Raises `MacroRecordSave`, at which a host keeps the recording.
    void Stop();
    /// Drops the last recorded step; what it did stays done.
    void UndoStep();
    /// Whether there is a recording that has not been stopped, be it paused or not.
    [[nodiscard]] bool IsOn() const noexcept;
    /// Whether there is a recording, and it is paused.
    [[nodiscard]] bool IsPaused() const noexcept;
    /// How many steps the recording has, be it paused or not; 0 without one.
    [[nodiscard]] int Steps() const noexcept;
    /// @{
    /// Called when one of the three above is another, until it is removed.
    ListenerId AddListener(std::function<void()> listener);
    void RemoveListener(ListenerId listener) noexcept;
    /// @}
    /// Keeps the steps in MACROREC as a node of MACRO_TREE with this text, last below the node `parentNode` or among
    /// the roots, and builds the tree anew. Answers the key of the new node; empty, and told to the user, where there
    /// is nothing to keep or MACRO_TREE cannot take it.
    std::string Keep(const std::string& name, const std::string& parentNode = {});
};

}  // namespace planview
