// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

#include "automation/MemberNumber.h"

namespace planview {

/// Reads and writes a worksheet cell by cell. Rows and columns from 1. Throws what the worksheet throws.
class SheetCells {
public:
    /// Throws ObjectNotSet where there is no worksheet.
    explicit SheetCells(const Variant& worksheet);

    /// What the following calls are about.
    void GoTo(std::int16_t row, std::int16_t column);
    void SetInterior(std::int16_t colorIndex);
    void SetLocked(bool locked);
    void SetValue(const Variant& value);
    [[nodiscard]] Variant Value();
    /// Whether the cell is one of several merged ones; false where the worksheet does not tell.
    [[nodiscard]] bool IsMerged();

private:
    ObjectRef worksheet_;
    ObjectRef cell_;
    std::array<Variant, 2> place_;
    DispatchId cells_;
    MemberNumber interior_{"Interior"};
    MemberNumber colorIndex_{"ColorIndex"};
    MemberNumber locked_{"Locked"};
    MemberNumber value_{"Value"};
    MemberNumber mergeCells_{"MergeCells"};
};

}  // namespace planview
