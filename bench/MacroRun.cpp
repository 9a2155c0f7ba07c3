// SPDX-License-Identifier: MIT
// A macro of ten statements over the whole of 181 × 181 cells, beside a plain loop of the same arithmetic.

#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <planview/PlanView.h>

#include "BenchTables.h"
#include "automation/HostTable.h"
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
        const MacroResult result = control.Macros().Run(macro);
        state.PauseTiming();
        if (!result.done || result.cells != (changes ? Side * Side : 0)) {
            state.SkipWithError(result.message.c_str());
        }
        control.Editing().Undo();
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

/// The numbers of TAB into a vector, the same ten statements on it, and every result back, late-bound like the old
/// values in TAB_OLD.
void PlainRunMacro(benchmark::State& state) {
    const test::Tables tables = MakeTables(Plan(Side));
    const HostTable tab(tables.tab);
    const HostTable old(tables.tabOld);
    constexpr auto Cells = static_cast<HostTable::Row>(Side * Side);
    for ([[maybe_unused]] auto _ : state) {
        std::vector<double> values;
        for (HostTable::Row row = 1; row <= Cells; ++row) {
            values.push_back(tab.Value(row, "V").AsDouble());
        }
        const std::vector<double> before = values;
        for (int i = 0; i < Statements; ++i) {
            const double factor = i % 2 == 0 ? 1.01 : 0.99;
            std::vector<double> sums(Side);
            for (std::size_t column = 0; column < Side; ++column) {
                sums[column] = values[column] + values[Side + column];
            }
            for (std::size_t cell = 0; cell < values.size(); ++cell) {
                values[cell] = values[cell] * factor + sums[cell % Side];
            }
        }
        for (HostTable::Row row = 1; row <= Cells; ++row) {
            const auto cell = static_cast<std::size_t>(row) - 1;
            tab.Put(row, "V", values[cell]);
            const HostTable::Row added = old.AddRow();
            old.Put(added, "Z", static_cast<std::int16_t>(cell / Side + 1));
            old.Put(added, "C", static_cast<std::int16_t>(cell % Side + 1));
            old.Put(added, "V", before[cell]);
        }

        state.PauseTiming();
        if (tables.tabOld->RowCount() != Cells || tables.tab->Value(Cells, "V") == tables.tabOld->Value(Cells, "V")) {
            state.SkipWithError("not every cell was changed");
        }
        for (HostTable::Row row = 1; row <= Cells; ++row) {
            tab.Put(row, "V", before[static_cast<std::size_t>(row) - 1]);
        }
        tables.tabOld->Clear();
        state.ResumeTiming();
    }
}

BENCHMARK(PlainRunMacro)->Unit(benchmark::kMicrosecond);
BENCHMARK(RunMacro)->Unit(benchmark::kMicrosecond);
BENCHMARK(ComputeMacro)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace planview::bench
