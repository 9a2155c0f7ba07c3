// SPDX-License-Identifier: MIT
#include "xlsx/WorkbookObject.h"

#include <algorithm>
#include <filesystem>

#include "automation/MemberNames.h"
#include "automation/Utf8.h"
#include "xlsx/Paths.h"
#include "xlsx/WorkbookReader.h"
#include "xlsx/WorkbookWriter.h"

namespace planview::xlsx {

namespace {

using Arguments = AutomationObject::Arguments;

constexpr const char* FirstSheetName = "Tabelle1";
constexpr const char* SheetNameStart = "Tabelle";

Variant ObjectOf(SheetContext sheet) {
    return std::make_shared<WorksheetObject>(std::move(sheet));
}

/// A text that the file's properties can hold.
std::string PropertyText(const Variant& value, const char* what) {
    constexpr std::size_t Longest = 255;
    std::string text = ToValidUtf8(value.AsText());
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    if (text.size() > Longest) {
        SheetContext::Refuse(std::string("The ") + what + " is longer than " + std::to_string(Longest) + " bytes");
    }
    return text;
}

}  // namespace

std::span<const WorkbookObject::Member> WorkbookObject::Members() {
    static constexpr Member members[] = {
        {"Worksheets", 1,
         [](WorkbookObject& self, Arguments arguments) -> Variant {
             if (arguments.empty()) {
                 return std::make_shared<WorksheetsObject>(self.Shared());
             }
             ExpectArguments(arguments, 1, "Worksheets");
             return ObjectOf(self.SheetOf(arguments[0]));
         }},
        {"ActiveSheet", 2,
         [](WorkbookObject& self, Arguments) { return ObjectOf(self.SheetAt(self.Book().activeSheet)); }},
        {"Title", 3, [](WorkbookObject& self, Arguments) -> Variant { return self.Book().title; },
         [](WorkbookObject& self, Arguments, const Variant& value) {
             self.Book().title = PropertyText(value, "title");
         }},
        {"Subject", 4, [](WorkbookObject& self, Arguments) -> Variant { return self.Book().subject; },
         [](WorkbookObject& self, Arguments, const Variant& value) {
             self.Book().subject = PropertyText(value, "subject");
         }},
        {"Saveas", 5, nullptr, nullptr,
         [](WorkbookObject& self, Arguments arguments) -> Variant {
             ExpectArguments(arguments, 1, "Saveas");
             self.Save(arguments[0].AsText());
             return {};
         }},
        {"Close", 6, nullptr, nullptr,
         [](WorkbookObject& self, Arguments) -> Variant {
             self.Close();
             return {};
         }},
    };
    return members;
}

Workbook& WorkbookObject::Book() const {
    if (workbook_->closed) {
        SheetContext::Refuse("The workbook is closed");
    }
    return *workbook_;
}

SheetContext WorkbookObject::SheetAt(std::size_t index) const {
    EnsureLoaded(Book(), index);
    return SheetContext(workbook_, index);
}

SheetContext WorkbookObject::SheetOf(const Variant& key) const {
    const auto& worksheets = Book().worksheets;
    if (const std::string* const name = key.TextIf()) {
        const auto found = std::find_if(worksheets.begin(), worksheets.end(),
                                        [&](const auto& worksheet) { return SameMemberName(worksheet->name, *name); });
        if (found == worksheets.end()) {
            throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                                  "The workbook has no sheet named '" + *name + "'");
        }
        return SheetAt(static_cast<std::size_t>(found - worksheets.begin()));
    }
    return SheetAt(static_cast<std::size_t>(
        NumberUpTo(key, static_cast<std::int32_t>(worksheets.size()), "The number of a sheet,") - 1));
}

SheetContext WorkbookObject::AddSheet() const {
    Workbook& book = Book();
    if (book.source) {
        SheetContext::Refuse("A workbook that was opened is read only; it takes no sheet");
    }
    std::size_t number = book.worksheets.size() + 1;
    std::string name;
    do {
        name = SheetNameStart + std::to_string(number++);
    } while (std::any_of(book.worksheets.begin(), book.worksheets.end(),
                         [&](const auto& worksheet) { return SameMemberName(worksheet->name, name); }));
    book.worksheets.insert(book.worksheets.begin() + static_cast<std::ptrdiff_t>(book.activeSheet),
                           std::make_unique<Worksheet>(name, book.styles));
    return SheetContext(workbook_, book.activeSheet);
}

void WorkbookObject::Save(const std::string& fileName) const {
    const Workbook& book = Book();
    if (book.source) {
        SheetContext::Refuse("A workbook that was opened is read only; it cannot be saved");
    }
    const std::filesystem::path target = PathOf(fileName);
    if (!SameMemberName(target.extension().string(), ".xlsx")) {
        SheetContext::Refuse("Cannot save '" + fileName + "': the name of a workbook ends in .xlsx. Add that to it.");
    }
    SaveWorkbook(book, target);
}

std::span<const WorksheetsObject::Member> WorksheetsObject::Members() {
    static constexpr Member members[] = {
        {"Item", DefaultMember,
         [](WorksheetsObject& self, Arguments arguments) {
             ExpectArguments(arguments, 1, "Item");
             return ObjectOf(self.of.SheetOf(arguments[0]));
         }},
        {"Count", 1,
         [](WorksheetsObject& self, Arguments) -> Variant {
             return static_cast<std::int32_t>(self.of.Book().worksheets.size());
         }},
        {"Add", 2, nullptr, nullptr,
         [](WorksheetsObject& self, Arguments arguments) {
             ExpectArguments(arguments, 0, "Add");
             return ObjectOf(self.of.AddSheet());
         }},
    };
    return members;
}

std::span<const WorkbooksObject::Member> WorkbooksObject::Members() {
    static constexpr Member members[] = {
        {"Item", DefaultMember,
         [](WorkbooksObject& self, Arguments arguments) -> Variant {
             ExpectArguments(arguments, 1, "Item");
             return self.At(arguments[0].AsInt32());
         }},
        {"Add", 1, nullptr, nullptr,
         [](WorkbooksObject& self, Arguments arguments) -> Variant {
             ExpectArguments(arguments, 0, "Add");
             return self.Add();
         }},
        {"Open", 2, nullptr, nullptr,
         [](WorkbooksObject& self, Arguments arguments) -> Variant {
             ExpectArguments(arguments, 1, "Open");
             return self.Open(arguments[0].AsText());
         }},
        {"Count", 3, [](WorkbooksObject& self, Arguments) -> Variant { return self.Count(); }},
    };
    return members;
}

std::shared_ptr<WorkbookObject> WorkbooksObject::Add() {
    ExpectRunning();
    auto workbook = std::make_shared<Workbook>();
    workbook->worksheets.push_back(std::make_unique<Worksheet>(FirstSheetName, workbook->styles));
    ForgetClosed();
    return workbooks_.emplace_back(std::make_shared<WorkbookObject>(std::move(workbook)));
}

std::shared_ptr<WorkbookObject> WorkbooksObject::Open(const std::string& fileName) {
    ExpectRunning();
    ForgetClosed();
    return workbooks_.emplace_back(std::make_shared<WorkbookObject>(OpenWorkbook(PathOf(fileName))));
}

std::shared_ptr<WorkbookObject> WorkbooksObject::At(std::int32_t number) {
    return workbooks_[static_cast<std::size_t>(NumberUpTo(number, Count(), "The number of a workbook,") - 1)];
}

std::int32_t WorkbooksObject::Count() {
    ExpectRunning();
    ForgetClosed();
    return static_cast<std::int32_t>(workbooks_.size());
}

void WorkbooksObject::Quit() noexcept {
    for (const auto& workbook : workbooks_) {
        workbook->Close();
    }
    workbooks_.clear();
    hasQuit_ = true;
}

void WorkbooksObject::ExpectRunning() const {
    if (hasQuit_) {
        SheetContext::Refuse("The spreadsheet application has quit");
    }
}

void WorkbooksObject::ForgetClosed() {
    workbooks_.erase(
        std::remove_if(workbooks_.begin(), workbooks_.end(), [](const auto& workbook) { return workbook->IsClosed(); }),
        workbooks_.end());
}

}  // namespace planview::xlsx
