// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace planview {

/// The keys of the column and row last touched, control-wide; trace entries show them.
struct CurrentKeys {
    std::string column;
    std::string row;
};

}  // namespace planview
