// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <planview/AutomationObject.h>

#include "xlsx/Workbook.h"

namespace planview::xlsx {

/// A sheet as its objects reach it: what they may do now is asked at each use.
class SheetContext {
public:
    SheetContext(std::shared_ptr<Workbook> workbook, std::size_t index) noexcept
        : workbook_(std::move(workbook)), worksheet_(workbook_->worksheets[index].get()) {}

    [[nodiscard]] Workbook& Book() const noexcept { return *workbook_; }

    /// For reading values: throws where the workbook is closed.
    [[nodiscard]] Worksheet& Read() const {
        if (workbook_->closed) {
            Refuse("The workbook is closed");
        }
        return *worksheet_;
    }

    /// For formats of a workbook that is being made: those of an opened one are not read.
    [[nodiscard]] Worksheet& Formats() const {
        Worksheet& worksheet = Read();
        if (workbook_->source) {
            Refuse("A workbook that was opened answers values, no formats, and cannot be changed");
        }
        return worksheet;
    }

    /// For changing anything that the sheet's protection covers.
    [[nodiscard]] Worksheet& Change() const {
        Worksheet& worksheet = Formats();
        if (worksheet.isProtected) {
            Refuse("The sheet '" + worksheet.name + "' is protected");
        }
        return worksheet;
    }

    [[noreturn]] static void Refuse(const std::string& why) { throw AutomationError(AutomationErrorCode::Failed, why); }

private:
    std::shared_ptr<Workbook> workbook_;
    Worksheet* worksheet_;  // of the workbook
};

/// The argument as a whole number from 1 to `most`; `what` names it in the message.
[[nodiscard]] inline std::int32_t NumberUpTo(const Variant& argument, std::int32_t most, std::string_view what) {
    const std::int32_t number = argument.AsInt32();
    if (number < 1 || number > most) {
        throw AutomationError(
            AutomationErrorCode::SubscriptOutOfRange,
            std::string(what) + " " + std::to_string(number) + " is outside 1 to " + std::to_string(most));
    }
    return number;
}

}  // namespace planview::xlsx
