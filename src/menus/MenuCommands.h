// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace planview {

/// The commands that menu entries ask for, each bound to the operation that carries it out. Whoever owns an operation
/// binds it; the entries of commands without one are disabled.
class MenuCommands {
public:
    MenuCommands();

    /// All names, in the order in which a pending command is compared with them.
    [[nodiscard]] static std::span<const std::string_view> Names() noexcept;

    /// Throws WrongArguments for a name that is none.
    void Bind(std::string_view command, std::function<void()> operation);
    [[nodiscard]] bool IsBound(std::string_view command) const;
    /// Runs the operation; an error in it ends in the trace. Nothing for another name, or where none is bound.
    void Run(std::string_view command) const;
    /// Called after a command has run without an error. There is one listener.
    void SetListener(std::function<void(std::string_view command)> listener) { listener_ = std::move(listener); }

private:
    std::vector<std::function<void()>> operations_;  // as Names()
    std::function<void(std::string_view command)> listener_;
};

}  // namespace planview
