// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>

#include "automation/TableObject.h"
#include "xlsx/SheetContext.h"

namespace planview::xlsx {

class RangeObject;

/// The looks of a range stand in objects of their own, which live inside the range's: handing one out makes none.
class FontObject final : public TableObject<FontObject> {
public:
    static constexpr std::string_view ObjectName = "Font";
    static std::span<const Member> Members();
    explicit FontObject(RangeObject& of) noexcept : range(of) {}
    RangeObject& range;
};

class InteriorObject final : public TableObject<InteriorObject> {
public:
    static constexpr std::string_view ObjectName = "Interior";
    static std::span<const Member> Members();
    explicit InteriorObject(RangeObject& of) noexcept : range(of) {}
    RangeObject& range;
};

class BordersObject final : public TableObject<BordersObject> {
public:
    static constexpr std::string_view ObjectName = "Borders";
    static std::span<const Member> Members();
    explicit BordersObject(RangeObject& of) noexcept : range(of) {}
    RangeObject& range;
};

/// One cell, whole rows, whole columns, or all cells of a sheet.
class RangeObject final : public TableObject<RangeObject>, public std::enable_shared_from_this<RangeObject> {
public:
    /// What "Count" counts.
    enum class Unit : std::uint8_t { Cells, Rows, Columns };

    static constexpr std::string_view ObjectName = "Range";
    static std::span<const Member> Members();

    RangeObject(SheetContext sheet, const Area& area, Unit unit)
        : sheet_(std::move(sheet)), area_(area), unit_(unit), font_(*this), interior_(*this), borders_(*this) {}
    RangeObject(const RangeObject&) = delete;
    RangeObject& operator=(const RangeObject&) = delete;

    /// Makes the object stand for another range of its sheet; for an object that nobody else holds.
    void Retarget(const Area& area, Unit unit) noexcept {
        area_ = area;
        unit_ = unit;
    }

    [[nodiscard]] const Area& Place() const noexcept { return area_; }
    [[nodiscard]] Unit Counted() const noexcept { return unit_; }
    [[nodiscard]] const SheetContext& Of() const noexcept { return sheet_; }

    void Change(StyleProperty property, double value);
    /// Of the range's first cell.
    [[nodiscard]] const CellStyle& Style() const;

    [[nodiscard]] ObjectRef Font() { return {shared_from_this(), &font_}; }
    [[nodiscard]] ObjectRef Interior() { return {shared_from_this(), &interior_}; }
    [[nodiscard]] ObjectRef Borders() { return {shared_from_this(), &borders_}; }

    [[nodiscard]] Variant Value() const;
    void SetValue(const Variant& value);

private:
    SheetContext sheet_;
    Area area_;
    Unit unit_;
    FontObject font_;
    InteriorObject interior_;
    BordersObject borders_;
};

}  // namespace planview::xlsx
