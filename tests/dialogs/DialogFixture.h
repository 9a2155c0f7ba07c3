// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/ContextOnTables.h"

namespace planview::test {

/// A host's table that writes down what is put into it: "ROW_BG=5".
class LoggedTable final : public AutomationObject {
public:
    explicit LoggedTable(TableRef table) : table_(std::move(table)) {}

    DispatchId IdOf(std::string_view name) const override { return table_->IdOf(name); }
    Variant Get(DispatchId member, Arguments arguments) override { return table_->Get(member, arguments); }
    Variant Call(DispatchId member, Arguments arguments) override { return table_->Call(member, arguments); }
    void Put(DispatchId member, Arguments arguments, const Variant& value) override {
        table_->Put(member, arguments, value);
        puts.push_back(arguments[1].AsText() + "=" + value.AsText());
    }

    std::vector<std::string> puts;

private:
    TableRef table_;
};

/// A built grid of three columns and five rows; forms are filled in by the test.
class DialogTest : public ContextTest, public EventSink {
protected:
    DialogTest() {
        for (int i = 1; i <= 3; ++i) {
            tables.AddColumn(i, "P");
        }
        for (int i = 1; i <= 5; ++i) {
            tables.AddLine(i, ("Line " + std::to_string(i)).c_str(), {{"ROW_HEIGHT", 20 + i}});
        }
        tables.AddValue(2, 1, "12.5");
        lineLog = std::make_shared<LoggedTable>(tables.lineIndex);
        gridLog = std::make_shared<LoggedTable>(tables.gridAttr);
        Build();
        context.shared.tables.LINE_INDEX = HostTable(lineLog);
        context.shared.tables.GRID_ATTR = HostTable(gridLog);
        context.shared.events.AddSink(*this);
        Forget();
    }

    void OnEvent(EventId event, std::span<const Variant>) override {
        updates += event == EventId::GridStartUpdate ? 1 : 0;
    }
    void Forget() {
        ForgetEntries();
        lineLog->puts.clear();
        gridLog->puts.clear();
        platform.formCalls.clear();
    }
    /// What the user does while a form of this kind is shown.
    template <class WantedForm>
    void WhileShown(std::function<void(WantedForm&)> act) {
        platform.whileShown = [act](Form& form) { act(dynamic_cast<WantedForm&>(form)); };
    }
    static std::string Text(const MemoryTable& table, std::int32_t row, const char* field) {
        return table.Value(row, field).AsText();
    }

    std::shared_ptr<LoggedTable> lineLog;
    std::shared_ptr<LoggedTable> gridLog;
    int updates = 0;
};

}  // namespace planview::test
