// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <planview/Platform.h>

namespace planview {

/// The pieces that a control has where its host gives none; planview/Platform.h says what they do.
class HeadlessPlatform {
public:
    HeadlessPlatform();
    ~HeadlessPlatform();
    HeadlessPlatform(const HeadlessPlatform&) = delete;
    HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

    /// All of them; valid as long as this object.
    [[nodiscard]] Platform Interfaces() noexcept;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace planview
