// SPDX-License-Identifier: MIT
// A macro of ten statements over the whole of 181 × 181 cells.

#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include <planview/PlanView.h>

#include "BenchTables.h"
#include "support/ScriptedPlatform.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;
constexpr int Statements = 10;

/// Writes MACRO_TREE row by row.
class MacroRows {
public:
    explicit MacroRows(MemoryTable& table) : table_(table) {}

    std::string Add(const std::string& parent, const char* type, const std::string& value) {
        const std::string key = "M" + std::to_string(table_.RowCount() + 1);
        table_.AddRowWith({{"NODEKEY", key},
                           {"NODEREF", parent},
                           {"RELATION", 4},
                           {"NODETEXT", value},
                           {"NODETYPE", type},
                           {"NODEVALUE", value}});
        return key;
    }

private:
    MemoryTable& table_;
};

/// Each of its statements: `target` = all cells * 1,01 + the sum of two lines, one period earlier.
std::string AddMacro(MemoryTable& table, const char* targetType, const std::string& target) {
    MacroRows rows(table);
    const std::string all = "ROW1:ROW" + std::to_string(Side);
    const std::string macro = rows.Add("", "M_MAKRO", "Plan");
    for (int i = 0; i < Statements; ++i) {
        const std::string statement = rows.Add(macro, targetType, target);
        rows.Add(statement, "M_TABAREA", all);
        rows.Add(statement, "M_OPERATOR", "*");
        rows.Add(statement, "M_CONSTANT", i % 2 == 0 ? "1,01" : "0,99");
        rows.Add(statement, "M_OPERATOR", "+");
        const std::string sum = rows.Add(statement, "M_FUNCTION", "SUM");
        rows.Add(sum, "M_TABAREA", "ROW1:ROW2");
    }
    return macro;
}

void Run(benchmark::State& state, const char* targetType, const std::string& target, bool changes) {
    const test::Tables tables = MakeTables(Plan(Side));
    const std::string macro = AddMacro(*tables.macroTree, targetType, target);
    test::ScriptedPlatform platform;
    PlanView control(platform.Interfaces());
    tables.GiveTo(control);
    control.DP_Import_Attribute();
    control.DP_Import_MacroTree();
    control.DP_Import_Create();
    for ([[maybe_unused]] auto _ : state) {
        const MacroResult result = control.RunMacro(macro);
        state.PauseTiming();
        if (!result.done || result.cells != (changes ? Side * Side : 0)) {
            state.SkipWithError(result.message.c_str());
        }
        control.Undo();
        tables.tabOld->Clear();  // as after accepting the changes
        state.ResumeTiming();
    }
}

void RunMacro(benchmark::State& state) {
    Run(state, "M_TABAREA", "ROW1:ROW" + std::to_string(Side), true);
}

/// The same without changing a cell: what reading, checking and computing take of it.
void ComputeMacro(benchmark::State& state) {
    Run(state, "M_MAKAREA", "Own", false);
}

BENCHMARK(RunMacro)->Unit(benchmark::kMicrosecond);
BENCHMARK(ComputeMacro)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace planview::bench
