// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <utility>

#include "qt/EntryGuard.h"

namespace planview {

/// A widget all of whose event handlers run guarded. Slots, timers of other objects and event filters do so by hand.
template <class Base>
class GuardedWidget : public Base {
public:
    template <class... Arguments>
    explicit GuardedWidget(EntryGuard guard, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), guard_(std::move(guard)) {}

    [[nodiscard]] const EntryGuard& guard() const noexcept { return guard_; }

protected:
    bool event(QEvent* event) final {
        return guard_.run(*event, [&] { return handleEvent(event); });
    }
    /// In the place of event().
    virtual bool handleEvent(QEvent* event) { return Base::event(event); }

private:
    const EntryGuard guard_;
};

/// The same for a widget that scrolls: most of its events come through its viewport.
template <class Base>
class GuardedView : public GuardedWidget<Base> {
public:
    using GuardedWidget<Base>::GuardedWidget;

protected:
    bool viewportEvent(QEvent* event) final {
        return this->guard().run(*event, [&] { return handleViewportEvent(event); });
    }
    /// In the place of viewportEvent().
    virtual bool handleViewportEvent(QEvent* event) { return Base::viewportEvent(event); }
};

}  // namespace planview
