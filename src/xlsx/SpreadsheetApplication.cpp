// SPDX-License-Identifier: MIT
#include <memory>
#include <span>

#include <planview/ObjectRegistry.h>
#include <planview/xlsx/SpreadsheetApplication.h>

#include "automation/TableObject.h"
#include "xlsx/WorkbookObject.h"

namespace planview::xlsx {

namespace {

using Arguments = AutomationObject::Arguments;

class ApplicationObject final : public TableObject<ApplicationObject>,
                                public std::enable_shared_from_this<ApplicationObject> {
public:
    static constexpr std::string_view ObjectName = "Application";

    static std::span<const Member> Members() {
        static constexpr Member members[] = {
            {"Application", 1, [](ApplicationObject& self, Arguments) -> Variant { return self.shared_from_this(); }},
            // The version whose members these are.
            {"Version", 2, [](ApplicationObject&, Arguments) -> Variant { return "8.0"; }},
            {"Workbooks", 3, [](ApplicationObject& self, Arguments) -> Variant { return self.workbooks_; }},
            {"Quit", 4, nullptr, nullptr,
             [](ApplicationObject& self, Arguments) -> Variant {
                 self.workbooks_->Quit();
                 return {};
             }},
            {"ActiveWindow", 5,
             [](ApplicationObject& self, Arguments) -> Variant {
                 const auto inFront =
                     self.workbooks_->Count() == 0 ? nullptr : self.workbooks_->At(self.workbooks_->Count());
                 if (!inFront) {
                     return Variant::Nothing();
                 }
                 return std::make_shared<WindowObject>(inFront->SheetAt(inFront->Book().activeSheet));
             }},
        };
        return members;
    }

private:
    std::shared_ptr<WorkbooksObject> workbooks_ = std::make_shared<WorkbooksObject>();
};

}  // namespace

ObjectRef MakeApplication() {
    return std::make_shared<ApplicationObject>();
}

void Register(ObjectRegistry& registry) {
    registry.Register("Excel.Application", &MakeApplication);
}

}  // namespace planview::xlsx
