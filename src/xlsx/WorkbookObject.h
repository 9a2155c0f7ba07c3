// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "automation/TableObject.h"
#include "xlsx/WorksheetObject.h"

namespace planview::xlsx {

class WorkbookObject final : public TableObject<WorkbookObject> {
public:
    static constexpr std::string_view ObjectName = "Workbook";
    static std::span<const Member> Members();

    explicit WorkbookObject(std::shared_ptr<Workbook> workbook) noexcept : workbook_(std::move(workbook)) {}

    /// Throws where the workbook is closed.
    [[nodiscard]] Workbook& Book() const;
    [[nodiscard]] bool IsClosed() const noexcept { return workbook_->closed; }
    /// From 0; reads the sheet from the workbook's file where that has not been done.
    [[nodiscard]] SheetContext SheetAt(std::size_t index) const;
    /// By number from 1 or by name.
    [[nodiscard]] SheetContext SheetOf(const Variant& key) const;
    [[nodiscard]] const std::shared_ptr<Workbook>& Shared() const noexcept { return workbook_; }

    /// A new sheet before the one in front; then the new one is in front.
    [[nodiscard]] SheetContext AddSheet() const;
    void Save(const std::string& fileName) const;
    void Close() const noexcept { workbook_->Close(); }

private:
    std::shared_ptr<Workbook> workbook_;
};

class WorksheetsObject final : public TableObject<WorksheetsObject> {
public:
    static constexpr std::string_view ObjectName = "Worksheets";
    static std::span<const Member> Members();
    explicit WorksheetsObject(std::shared_ptr<Workbook> workbook) : of(std::move(workbook)) {}
    WorkbookObject of;
};

/// The workbooks of one application; the last one is in front.
class WorkbooksObject final : public TableObject<WorkbooksObject> {
public:
    static constexpr std::string_view ObjectName = "Workbooks";
    static std::span<const Member> Members();

    [[nodiscard]] std::shared_ptr<WorkbookObject> Add();
    [[nodiscard]] std::shared_ptr<WorkbookObject> Open(const std::string& fileName);
    [[nodiscard]] std::shared_ptr<WorkbookObject> At(std::int32_t number);
    [[nodiscard]] std::int32_t Count();
    /// Closes all without saving; none can be made or opened any more.
    void Quit() noexcept;

private:
    void ExpectRunning() const;
    void ForgetClosed();

    std::vector<std::shared_ptr<WorkbookObject>> workbooks_;
    bool hasQuit_ = false;
};

}  // namespace planview::xlsx
