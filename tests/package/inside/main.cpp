// SPDX-License-Identifier: MIT
// Prints the version of PlanView's headers and a number as the control shows it.

#include <iostream>
#include <sstream>
#include <string>

#include <planview/MemoryTable.h>
#include <planview/PlanView.h>
#include <planview/Trace.h>
#include <planview/Version.h>

using planview::MemoryTable;

int main() {
    const auto columns = MemoryTable::WithFieldsOf("COLS_INDEX");
    const auto lines = MemoryTable::WithFieldsOf("LINE_INDEX");
    const auto cells = MemoryTable::WithFieldsOf("TAB");
    columns->AddRowWith({{"COLUMN", 1}, {"PERDY", "January"}});
    lines->AddRowWith({{"LINE", 1}, {"LTEXT", "F"}, {"FREET", "Sales"}});
    cells->AddRowWith({{"Z", 1}, {"C", 1}, {"V", 1250.5}});

    planview::PlanView control;
    control.PROP_Set_COLS_INDEX(columns);
    control.PROP_Set_LINE_INDEX(lines);
    control.PROP_Set_TAB(cells);
    control.plv_EnableTrace();
    control.DP_Import_Create();
    std::ostringstream trace;
    planview::WriteTraceLog(trace);
    const bool built =
        trace.str().find("contents:1250,5") != std::string::npos && columns->Value(1, "GRID_ID").AsText() == "COL1";
    std::cout << planview::VersionMajor << '.' << planview::VersionMinor << '.' << planview::VersionRevision << ": "
              << (built ? "built" : "not built") << '\n';
    return built ? 0 : 1;
}
