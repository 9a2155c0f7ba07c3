// SPDX-License-Identifier: MIT
// From the host's tables to a finished grid.

#include <memory>

#include <benchmark/benchmark.h>

#include <planview/PlanView.h>

#include "BenchTables.h"
#include "Peers.h"

namespace planview::bench {

namespace {

/// Each round builds in a control of its own; only the building is timed.
void Create(benchmark::State& state, bool traced) {
    const Plan plan(static_cast<int>(state.range(0)));
    const test::Tables tables = MakeTables(plan);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto control = std::make_unique<PlanView>();
        tables.GiveTo(*control);
        control->DP_Import_Attribute();
        if (traced) {
            control->plv_EnableTrace();
        }
        state.ResumeTiming();

        control->DP_Import_Create();

        state.PauseTiming();
        control.reset();  // switches the trace off again
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * plan.CellCount());
}

void CreateUntraced(benchmark::State& state) {
    Create(state, false);
}

void CreateTraced(benchmark::State& state) {
    Create(state, true);
}

void PeerCreate(benchmark::State& state) {
    const Plan plan(static_cast<int>(state.range(0)));
    const PeerSource source(plan);
    for ([[maybe_unused]] auto _ : state) {
        auto table = std::make_unique<QTableWidget>();
        FillPeer(*table, source);

        state.PauseTiming();
        table.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * plan.CellCount());
}

BENCHMARK(CreateUntraced)->Name("Create")->Arg(20)->Arg(60)->Arg(181)->Unit(benchmark::kMicrosecond);
BENCHMARK(CreateTraced)->Arg(181)->Unit(benchmark::kMicrosecond);
BENCHMARK(PeerCreate)->Arg(20)->Arg(60)->Arg(181)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace planview::bench
