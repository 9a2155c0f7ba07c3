// SPDX-License-Identifier: MIT
// A host without a screen, as a service or a nightly job is one: builds a plan, changes it and writes it as a workbook.
// "headless PLAN.xlsx"

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include <planview/MemoryTable.h>
#include <planview/ObjectRegistry.h>
#include <planview/PlanView.h>
#include <planview/xlsx/SpreadsheetApplication.h>

using planview::MemoryTable;

namespace {

constexpr int Months = 12;
enum Line { Sales = 1, Costs, Result, LineCount = Result };

/// The tables of a year's plan. The result is the difference of the lines above it.
struct Plan {
    std::shared_ptr<MemoryTable> columns = MemoryTable::WithFieldsOf("COLS_INDEX");
    std::shared_ptr<MemoryTable> lines = MemoryTable::WithFieldsOf("LINE_INDEX");
    std::shared_ptr<MemoryTable> cells = MemoryTable::WithFieldsOf("TAB");

    Plan() {
        const char* const names[] = {"Sales", "Costs", "Result"};
        for (int line = 1; line <= LineCount; ++line) {
            lines->AddRowWith({{"LINE", line},
                               {"LTEXT", "F"},
                               {"FREET", names[line - 1]},
                               {"ROW_FORMAT", "#,##0.00"},
                               {"READONLY", line == Result ? "X" : ""},
                               {"ROW_FG", 1}});
        }
        for (int month = 1; month <= Months; ++month) {
            columns->AddRowWith({{"COLUMN", month}, {"PERDY", "Month " + std::to_string(month)}});
            for (int line = 1; line <= LineCount; ++line) {
                cells->AddRowWith({{"Z", line}, {"C", month}, {"V", 0.0}});
            }
            Set(Sales, month, 1200 + 35.5 * month);
            Set(Costs, month, 1010 + 12.25 * month);
        }
    }

    [[nodiscard]] double Get(Line line, int month) const { return cells->Value(CellOf(line, month), "V").AsDouble(); }

    void Set(Line line, int month, double value) {
        cells->SetValue(CellOf(line, month), "V", value);
        cells->SetValue(CellOf(Result, month), "V", Get(Sales, month) - Get(Costs, month));
    }

private:
    static int CellOf(Line line, int month) { return (month - 1) * LineCount + line; }
};

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::cerr << "headless PLAN.xlsx\n";
        return 2;
    }
    Plan plan;
    planview::ObjectRegistry objects;   // before the control, which uses it to its end
    planview::xlsx::Register(objects);  // what the control downloads to
    planview::PlanView control({.objects = &objects});
    control.PROP_Set_COLS_INDEX(plan.columns);
    control.PROP_Set_LINE_INDEX(plan.lines);
    control.PROP_Set_TAB(plan.cells);
    control.DP_Import_Create();

    // The host owns the tables: it changes them, and the control reads them again.
    for (int month = 7; month <= Months; ++month) {
        plan.Set(Costs, month, plan.Get(Costs, month) * 0.95);
    }
    control.DP_Import_Update();

    const std::string fault = control.Exchange().DownloadTo(std::filesystem::absolute(argv[1]).string());
    if (!fault.empty()) {
        std::cerr << fault << '\n';
        return 1;
    }
}
