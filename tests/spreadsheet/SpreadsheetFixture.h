// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/ContextOnTables.h"
#include "support/FakeSpreadsheet.h"

namespace planview::test {

/// Three periods; the lines "Sales" and "Costs", a read-only "Result" and the text line "Notes"; a spreadsheet
/// application of the test.
class SpreadsheetTest : public ContextTest, public EventSink {
protected:
    SpreadsheetTest() : fake(std::make_shared<FakeSpreadsheet>()) {
        for (int i = 1; i <= 3; ++i) {
            tables.AddColumn(i, ("May 0" + std::to_string(i)).c_str(), {{"COL_HIDDEN", i == 3 ? "X" : ""}});
        }
        tables.AddLine(1, "Sales", {{"ROW_FORMAT", "#,##0.0"}});
        tables.AddLine(2, "Costs");
        tables.AddLine(3, "Result", {{"READONLY", "X"}});
        tables.AddLine(4, "Notes", {{"ROW_TEXT", "X"}});
        tables.AddValue(1, 1, "1234.5");
        tables.AddValue(1, 2, 10);
        tables.AddValue(2, 1, -3);
        tables.AddValue(3, 1, 1231.5);
        Build();
        context.shared.events.AddSink(*this);
        platform.objects.Register("Excel.Application", [this] { return MakeApplication(fake); });
        platform.formCalls.clear();
        ForgetEntries();
    }
    ~SpreadsheetTest() override { context.shared.events.RemoveSink(*this); }

    void OnEvent(EventId event, std::span<const Variant>) override {
        events.push_back(event);
        if (onEvent) {
            onEvent();
        }
    }
    [[nodiscard]] static Lines SpreadsheetEntries() {
        return Entries([](const ListItem& item) { return item.text == "EXCEL"; });
    }
    [[nodiscard]] std::string Shown(const char* column, const char* row) const {
        return context.grid.control.Contents(context.grid.control.FindCell({column, row}).value());
    }
    [[nodiscard]] std::string Messages() const {
        std::string text;
        for (const MessageBoxRequest& message : platform.messages) {
            text += message.text + "\n";
        }
        return text;
    }
    /// Puts what the grid holds onto the fake's sheet, as the download does.
    void DownloadToFake() {
        fake->cells.clear();
        EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "");
        fake->log.clear();
        ForgetEntries();
    }

    FakeRef fake;
    std::vector<EventId> events;
    std::function<void()> onEvent;
};

}  // namespace planview::test
