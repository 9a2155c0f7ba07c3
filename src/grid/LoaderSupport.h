#pragma once

#include <string_view>

#include "grid/Loaders.h"
#include "trace/ErrorTrap.h"

namespace planview {

/// The loaders never redraw; the grid is drawn once when all of them have run.
inline constexpr bool NoRedraw = false;

/// The frame of every loader: the opening entry, then the body under an error trap.
template <class Body>
void RunLoader(std::string_view name, std::string_view tableMarker, Body&& body) noexcept {
    modPlan::TraceWrite("GRIDCTL", "", "BEGIN", tableMarker);
    ErrorTrap("GRIDCTL", name, body);
}

/// Calls body(i) for each row of the table; `rowCount` is read once.
template <class Body>
void ForEachRow(const HostTable& table, Body&& body) {
    const int count = table.RowCount();
    for (int i = 1; i <= count; ++i) {
        body(static_cast<HostTable::Row>(i));
    }
}

}  // namespace planview
