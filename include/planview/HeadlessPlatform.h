// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <planview/Export.h>
#include <planview/ObjectRegistry.h>
#include <planview/Platform.h>

namespace planview {

/// A platform without a screen, for hosts that build and read a view in a service or a test.
///
/// Message boxes answer with their default button, forms, popups and progress are never shown, file dialogs are
/// cancelled, the clipboard is one of its own, objects are those that the host registers, and the system information is
/// that of the operating system. The log folder is "planview" in the user's state folder
/// (`XDG_STATE_HOME`, else "~/.local/state").
class PLANVIEW_EXPORT HeadlessPlatform {
public:
    HeadlessPlatform();
    ~HeadlessPlatform();
    HeadlessPlatform(const HeadlessPlatform&) = delete;
    HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

    /// For the constructor of PlanView; valid as long as this object.
    [[nodiscard]] Platform Interfaces() noexcept;
    /// Where the host registers objects of other programs, such as the spreadsheet application. Empty at first.
    [[nodiscard]] ObjectRegistry& Objects() noexcept;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace planview
