// SPDX-License-Identifier: MIT
// How much the heap grows by a finished grid. Each subject is measured in a process of its own, so that neither finds
// memory that the other one has left behind.

#include "Memory.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <planview/PlanView.h>

#include "BenchTables.h"
#include "Exchange.h"
#include "Peers.h"
#include "Spreadsheet.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;

std::int64_t HeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<std::int64_t>(info.uordblks + info.hblkhd);
}

std::int64_t GrowthByGrid() {
    const test::Tables tables = MakeTables(Plan(Side));
    PlanView control;
    tables.GiveTo(control);
    control.DP_Import_Attribute();
    const std::int64_t before = HeapBytes();
    control.DP_Import_Create();
    return HeapBytes() - before;
}

std::int64_t GrowthByPeer() {
    const PeerSource source{Plan(Side)};
    QTableWidget table;
    const std::int64_t before = HeapBytes();
    FillPeer(table, source);
    return HeapBytes() - before;
}

#ifdef PLANVIEW_BENCH_XLSX

/// By how many bytes the process grows at most while the work runs. The figures of the heap alone would not show what
/// is freed before the end.
template <class Work>
std::int64_t PeakGrowth(Work&& work) {
    const auto figure = [](std::string_view name) {
        std::ifstream status("/proc/self/status");
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with(name)) {
                return std::stoll(line.substr(name.size())) * 1024;
            }
        }
        return 0LL;
    };
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
    const std::int64_t before = figure("VmRSS:");
    work();
    return figure("VmHWM:") - before;
}

std::int64_t GrowthByWorkbook(const std::function<void(const std::string&)>& write) {
    const std::string path = std::filesystem::temp_directory_path() / "planview-bench-memory.xlsx";
    const std::int64_t growth = PeakGrowth([&] { write(path); });
    std::filesystem::remove(path);
    return growth;
}

#endif

void HeapGrowth(benchmark::State& state, const char* subject) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command = "exec '" + program + "' " + std::string(HeapGrowthArgument) + subject;
    std::int64_t bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"), pclose);
        if (!output || std::fscanf(output.get(), "%ld", &bytes) != 1) {
            state.SkipWithError("the measuring process did not answer");
            return;
        }
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

BENCHMARK_CAPTURE(HeapGrowth, grid, "grid")->Iterations(1);
BENCHMARK_CAPTURE(HeapGrowth, peer, "peer")->Iterations(1);
#ifdef PLANVIEW_BENCH_XLSX
BENCHMARK_CAPTURE(HeapGrowth, workbook, "workbook")->Name("PeakGrowth/workbook")->Iterations(1);
BENCHMARK_CAPTURE(HeapGrowth, workbookDownload, "workbook-download")->Name("PeakGrowth/download")->Iterations(1);
BENCHMARK_CAPTURE(HeapGrowth, workbookPeer, "workbook-peer")->Name("PeakGrowth/peer")->Iterations(1);
#endif

}  // namespace

int PrintHeapGrowth(std::string_view subject) {
#ifdef PLANVIEW_BENCH_XLSX
    if (subject.starts_with("workbook")) {
        std::cout << (subject == "workbook-download"
                          ? GrowthByWorkbook(PreparedDownload())
                          : GrowthByWorkbook(subject == "workbook" ? &WriteOwnWorkbook : &WritePeerWorkbook))
                  << '\n';
        return 0;
    }
#endif
    std::cout << (subject == "grid" ? GrowthByGrid() : GrowthByPeer()) << '\n';
    return 0;
}

}  // namespace planview::bench
