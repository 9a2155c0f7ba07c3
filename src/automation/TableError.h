// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include <planview/AutomationObject.h>
#include <planview/Export.h>

namespace planview {

/// A place in a host's table; empty and 0 where a failure is about the table as a whole, or about none.
struct TablePlace {
    std::string table;  ///< one of the seventeen names
    std::string field;
    int row = 0;  ///< from 1 on
};

/// An access to a host's table that failed, with the code and the text of what was thrown there.
class PLANVIEW_EXPORT TableError final : public AutomationError {
public:
    TableError(AutomationErrorCode code, const std::string& text, TablePlace place)
        : AutomationError(code, text), place_(std::move(place)) {}
    [[nodiscard]] const TablePlace& Place() const noexcept { return place_; }

private:
    TablePlace place_;
};

}  // namespace planview
