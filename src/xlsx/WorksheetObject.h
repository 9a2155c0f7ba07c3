// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>

#include "automation/TableObject.h"
#include "xlsx/RangeObject.h"
#include "xlsx/SheetContext.h"

namespace planview::xlsx {

class PageSetupObject final : public TableObject<PageSetupObject> {
public:
    static constexpr std::string_view ObjectName = "PageSetup";
    static std::span<const Member> Members();
    explicit PageSetupObject(SheetContext of) noexcept : sheet(std::move(of)) {}
    SheetContext sheet;
};

/// The window on a workbook, of which only the panes are known.
class WindowObject final : public TableObject<WindowObject> {
public:
    static constexpr std::string_view ObjectName = "Window";
    static std::span<const Member> Members();
    explicit WindowObject(SheetContext of) noexcept : sheet(std::move(of)) {}
    SheetContext sheet;
};

class WorksheetObject final : public TableObject<WorksheetObject> {
public:
    static constexpr std::string_view ObjectName = "Worksheet";
    static std::span<const Member> Members();

    explicit WorksheetObject(SheetContext sheet) noexcept : sheet_(std::move(sheet)) {}

    [[nodiscard]] const SheetContext& Of() const noexcept { return sheet_; }

    /// The object of a range: one that was handed out before and that nobody holds any more, else a new one.
    [[nodiscard]] Variant Range(const Area& area, RangeObject::Unit unit) {
        if (range_.use_count() == 1) {
            range_->Retarget(area, unit);
        } else {
            range_ = std::make_shared<RangeObject>(sheet_, area, unit);
        }
        return Variant(ObjectRef(range_));
    }

    void Rename(const std::string& name);
    void SetVisible(std::int32_t code);
    void MoveBefore(const WorksheetObject& other);

private:
    SheetContext sheet_;
    std::shared_ptr<RangeObject> range_;
};

}  // namespace planview::xlsx
