// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <planview/Listener.h>

#include "automation/ErrorText.h"

namespace planview {

template <class Signature>
class ListenerList;

/// Functions that hear of one thing. While one is called, listeners can be added, which are not called for what is
/// being told, and removed, which are not called any more.
template <class Result, class... Arguments>
class ListenerList<Result(Arguments...)> {
public:
    using Listener = std::function<Result(Arguments...)>;

    /// Nothing for an empty function.
    ListenerId Add(Listener listener) {
        if (!listener) {
            return {};
        }
        const auto id = static_cast<ListenerId>(++last_);
        listeners_.push_back({id, std::make_shared<const Listener>(std::move(listener))});
        return id;
    }
    /// Nothing for an unknown one.
    void Remove(ListenerId id) noexcept {
        std::erase_if(listeners_, [id](const Entry& each) { return each.id == id; });
    }
    void Clear() noexcept { listeners_.clear(); }

    /// Calls all, in the order in which they were added.
    void Tell(Arguments... arguments) const {
        const std::vector<Entry> now = listeners_;
        for (const Entry& each : now) {
            if (Has(each.id)) {
                (*each.call)(arguments...);
            }
        }
    }
    /// The same; one that throws keeps none of the others from hearing.
    void TellEach(Arguments... arguments) const noexcept {
        static_cast<void>(ErrorTextOf([&] {
            const std::vector<Entry> now = listeners_;
            for (const Entry& each : now) {
                if (Has(each.id)) {
                    static_cast<void>(ErrorTextOf([&] { (*each.call)(arguments...); }));
                }
            }
        }));
    }
    [[nodiscard]] bool IsEmpty() const noexcept { return listeners_.empty(); }
    /// Calls them, the newest first, until one answers true; false where none does.
    [[nodiscard]] bool Ask(Arguments... arguments) const {
        const std::vector<Entry> now = listeners_;
        return std::any_of(now.rbegin(), now.rend(),
                           [&](const Entry& each) { return Has(each.id) && (*each.call)(arguments...); });
    }

private:
    struct Entry {
        ListenerId id;
        std::shared_ptr<const Listener> call;
    };

    [[nodiscard]] bool Has(ListenerId id) const {
        return std::any_of(listeners_.begin(), listeners_.end(), [id](const Entry& each) { return each.id == id; });
    }

    std::vector<Entry> listeners_;
    std::uint64_t last_ = 0;
};

}  // namespace planview
