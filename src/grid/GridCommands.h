// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/TableSlots.h"
#include "grid/HostUpdate.h"
#include "grid/UserActions.h"
#include "grid/modGrid.h"

namespace planview {

/// The menu-level commands on whole columns and rows. Each shows the waiting pointer while it works, repaints the grid
/// once, brings the chart up to date where it is shown, and ends by telling the host.
class GridCommands {
public:
    GridCommands(const TableSlots& tables, modGrid& driver, HostUpdate& hostUpdate, UserActions& actions,
                 std::function<void()> chartStep)
        : tables_(tables),
          driver_(driver),
          hostUpdate_(hostUpdate),
          actions_(actions),
          chartStep_(std::move(chartStep)) {}

    void HideColumns();  ///< "#HIDE COLUMNS#"
    void ShowColumns();  ///< "#SHOW COLUMNS#"
    void HideRows();     ///< "#HIDE ROWS#"
    void ShowRows();     ///< "#SHOW ROWS#"
    /// The same commands for the columns or rows with these keys, in the place of those that are selected.
    void ShowColumns(const std::vector<std::string>& keys);
    void ShowRows(const std::vector<std::string>& keys);
    void ResetHeights();  ///< "#RESET HEIGHT#"
    void ResetWidths();   ///< "#RESET WIDTH#"

private:
    template <class Operation>
    void Run(std::string_view command, const Operation& operation);

    const TableSlots& tables_;
    modGrid& driver_;
    HostUpdate& hostUpdate_;
    UserActions& actions_;
    std::function<void()> chartStep_;
};

}  // namespace planview
