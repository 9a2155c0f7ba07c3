// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "automation/TableSlots.h"
#include "grid/CurrentKeys.h"
#include "grid/HostUpdate.h"
#include "grid/modGrid.h"

namespace planview {

/// Takes over what the user did to the size of a heading: into the table row of that column or row, and to all marked
/// ones as well, in the table and in the grid. Then the grid is redrawn once and the host is told. Keys other than
/// planning keys are ignored. Sizes in logical pixels.
class SizeEvents {
public:
    SizeEvents(const TableSlots& tables, modGrid& driver, CurrentKeys& keys, HostUpdate& hostUpdate)
        : tables_(tables), driver_(driver), keys_(keys), hostUpdate_(hostUpdate) {}

    /// The keys of all columns or rows that have the size now.
    using Sized = std::vector<std::string>;

    Sized ColumnResized(const std::string& column, int width);
    Sized RowResized(const std::string& row, int height);
    /// The height of the row that a column is shown as in the switched view.
    Sized SwitchedColumnResized(const std::string& column, int height);
    /// The width of the column that a row is shown as in the switched view.
    Sized SwitchedRowResized(const std::string& row, int width);

private:
    struct Change;
    Sized Apply(const Change& change, const std::string& key, int size);

    const TableSlots& tables_;
    modGrid& driver_;
    CurrentKeys& keys_;
    HostUpdate& hostUpdate_;
};

}  // namespace planview
