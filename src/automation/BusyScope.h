// SPDX-License-Identifier: MIT
#pragma once

namespace planview {

/// Sets a busy flag for its lifetime; can be nested.
class BusyScope {
public:
    explicit BusyScope(bool& busy) noexcept : busy_(busy), before_(busy) { busy_ = true; }
    ~BusyScope() { busy_ = before_; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    bool& busy_;
    bool before_;
};

}  // namespace planview
