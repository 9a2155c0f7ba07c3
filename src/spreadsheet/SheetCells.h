// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <planview/AutomationObject.h>

namespace planview {

/// The number of a member, asked once: of all that writing a cell takes, looking its members up by name would be the
/// dearest part. Good for objects that one and the same member answers, which have the same members.
class MemberNumber {
public:
    explicit constexpr MemberNumber(std::string_view name) noexcept : name_(name) {}

    [[nodiscard]] DispatchId Of(const AutomationObject& object) {
        if (!known_) {
            id_ = object.IdOf(name_);
            known_ = true;
        }
        return id_;
    }

private:
    std::string_view name_;
    DispatchId id_ = DefaultMember;
    bool known_ = false;
};

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
