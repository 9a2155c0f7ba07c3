// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <planview/AutomationObject.h>

#include "automation/MemberNames.h"

namespace planview::test {

/// A spreadsheet application of a test: keeps what is put into its cells, writes down every other put and call, and
/// fails where the test says. Any member name is known, and answers an object that knows any member name.
///
/// "Worksheet.Rows(1).Font.Bold=True" is a put, "Workbook.Saveas(plan.xlsx)" a call.
struct FakeSpreadsheet {
    struct CellState {
        Variant value;
        std::string interior;
        std::string locked;
        bool merged = false;
    };
    using Place = std::pair<int, int>;  // row, column

    std::map<Place, CellState> cells;
    std::map<Place, CellState> added;  ///< of the sheet that was added
    std::string addedName;             ///< empty: no sheet was added
    std::vector<std::string> log;      ///< of all but single cells
    std::string failing;               ///< the put, call or get that fails; "Cells.Value" for the single cells
    std::string version = "8.0";
    std::string sheetName = "Tabelle1";
    int objects = 0;      ///< alive
    int cellLookUps = 0;  ///< of members of single cells, by name

    [[nodiscard]] std::string Value(int row, int column) { return cells[{row, column}].value.AsText(); }
};

using FakeRef = std::shared_ptr<FakeSpreadsheet>;

class FakeObject final : public AutomationObject {
public:
    FakeObject(FakeRef fake, std::string path, FakeSpreadsheet::Place cell = {})
        : fake_(std::move(fake)), path_(std::move(path)), cell_(cell) {
        ++fake_->objects;
    }
    ~FakeObject() override { --fake_->objects; }
    FakeObject(const FakeObject&) = delete;
    FakeObject& operator=(const FakeObject&) = delete;

    DispatchId IdOf(std::string_view name) const override {
        fake_->cellLookUps += cell_ == FakeSpreadsheet::Place() ? 0 : 1;
        if (fake_->failing == "members of " + path_) {
            ThrowUnknownMember(path_, name);
        }
        std::vector<std::string>& names = Names();
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (SameMemberName(names[i], name)) {
                return static_cast<DispatchId>(i) + 1;
            }
        }
        names.emplace_back(name);
        return static_cast<DispatchId>(names.size());
    }

    Variant Get(DispatchId member, Arguments arguments) override {
        const std::string& name = NameOf(member);
        if (name == "Cells" && arguments.size() == 2) {
            return Made(path_ == "Added" ? "AddedCell" : "Cell", {arguments[0].AsInt16(), arguments[1].AsInt16()});
        }
        const std::string what = Step(name, arguments);
        FailAt(what);
        if (name == "Version") {
            return fake_->version;
        }
        if (name == "Name") {
            return fake_->sheetName;
        }
        if (cell_ != FakeSpreadsheet::Place()) {
            return name == "Value"        ? State().value
                   : name == "MergeCells" ? Variant(State().merged)
                                          : Made(path_ + "." + name, cell_);
        }
        if (name == "Application") {
            return Made("Application");
        }
        if (name == "Worksheets" && arguments.empty()) {
            return Made("Worksheets");
        }
        if (name == "Worksheets" && arguments[0].AsText() == fake_->addedName) {
            return Made("Added");
        }
        if (name == "Worksheets" && arguments[0].AsText().starts_with("PlanView")) {
            throw AutomationError(AutomationErrorCode::SubscriptOutOfRange, "there is no such sheet");
        }
        return Made(name == "Worksheets" || name == "ActiveSheet" ? "Worksheet" : what);
    }

    void Put(DispatchId member, Arguments arguments, const Variant& value) override {
        const std::string& name = NameOf(member);
        if (cell_ != FakeSpreadsheet::Place()) {
            FailAt(path_ + "." + name);
            FakeSpreadsheet::CellState& cell = State();
            if (name == "Value") {
                cell.value = value;
            } else {
                (name == "Locked" ? cell.locked : cell.interior) = value.AsText();
            }
            return;
        }
        const std::string what = Step(name, arguments) + "=" + value.AsText();
        FailAt(what);
        fake_->log.push_back(what);
        if (path_ == "Added" && name == "Name") {
            fake_->addedName = value.AsText();
        }
    }

    Variant Call(DispatchId member, Arguments arguments) override {
        const std::string what = Step(NameOf(member), arguments);
        FailAt(what);
        fake_->log.push_back(what);
        if (path_ == "Worksheets") {
            fake_->added.clear();
            return Made("Added");
        }
        return NameOf(member) == "Add" || NameOf(member) == "Open" ? Made("Workbook") : Variant();
    }

private:
    static std::vector<std::string>& Names() {
        static std::vector<std::string> names;
        return names;
    }
    static const std::string& NameOf(DispatchId member) { return Names().at(static_cast<std::size_t>(member) - 1); }

    [[nodiscard]] FakeSpreadsheet::CellState& State() const {
        return (path_.starts_with("Added") ? fake_->added : fake_->cells)[cell_];
    }
    [[nodiscard]] Variant Made(const std::string& path, FakeSpreadsheet::Place cell = {}) const {
        return std::make_shared<FakeObject>(fake_, path, cell);
    }
    [[nodiscard]] std::string Step(const std::string& name, Arguments arguments) const {
        std::string text = path_ + "." + name;
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            const bool isObject = arguments[i].GetKind() == Variant::Kind::Object;
            text += (i == 0 ? "(" : ",") + (isObject ? "object" : arguments[i].AsText()) +
                    (i + 1 == arguments.size() ? ")" : "");
        }
        return text;
    }
    void FailAt(const std::string& what) const {
        if (!fake_->failing.empty() && what.starts_with(fake_->failing)) {
            throw AutomationError(AutomationErrorCode::Failed, "fails at " + what);
        }
    }

    FakeRef fake_;
    std::string path_;
    FakeSpreadsheet::Place cell_;
};

[[nodiscard]] inline ObjectRef MakeApplication(const FakeRef& fake) {
    return std::make_shared<FakeObject>(fake, "Application");
}

}  // namespace planview::test
