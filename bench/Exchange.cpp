// SPDX-License-Identifier: MIT
// The grid into a workbook and back, beside the libraries below without the grid.

#include "Exchange.h"

#include <cstdio>
#include <filesystem>
#include <memory>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <planview/ObjectRegistry.h>
#include <planview/PlanView.h>
#include <planview/xlsx/SpreadsheetApplication.h>

#include "BenchTables.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;

/// Removes its file at the end.
struct TemporaryWorkbook {
    explicit TemporaryWorkbook(const char* name)
        : path((std::filesystem::temp_directory_path() / (std::to_string(getpid()) + name)).string()) {}
    ~TemporaryWorkbook() { std::remove(path.c_str()); }
    TemporaryWorkbook(const TemporaryWorkbook&) = delete;
    TemporaryWorkbook& operator=(const TemporaryWorkbook&) = delete;
    std::string path;
};

/// A control with a plan whose workbook is that of the peer: each fifth line read-only, all of them with a format.
struct Exchange {
    Exchange() : plan(Side), tables(MakeTables(plan)), control({.objects = &objects}) {
        for (std::int32_t row = 1; row <= Side; ++row) {
            tables.lineIndex->SetValue(row, "READONLY", row % 5 == 0 ? "X" : "");
            tables.lineIndex->SetValue(row, "ROW_FORMAT", "#,##0.0");
        }
        xlsx::Register(objects);
        tables.GiveTo(control);
        control.DP_Import_Attribute();
        control.DP_Import_Create();
    }

    Plan plan;
    test::Tables tables;
    ObjectRegistry objects;
    PlanView control;
};

void Download(benchmark::State& state) {
    Exchange exchange;
    const TemporaryWorkbook file("-download.xlsx");
    for ([[maybe_unused]] auto _ : state) {
        if (const std::string error = exchange.control.Exchange().DownloadTo(file.path); !error.empty()) {
            state.SkipWithError(error.c_str());
        }
    }
}

/// All but the user's part: reading, comparing, listing the one cell that differs.
void Upload(benchmark::State& state) {
    Exchange exchange;
    const TemporaryWorkbook file("-upload.xlsx");
    (void)exchange.control.Exchange().DownloadTo(file.path);
    exchange.tables.tab->SetValue(1, "V", 4711);
    exchange.control.DP_Import_Create();
    for ([[maybe_unused]] auto _ : state) {
        const UploadPreview preview = exchange.control.Exchange().PreviewUpload(file.path);
        if (preview.changes.size() != 1) {
            state.SkipWithError("one cell should differ");
        }
    }
}

BENCHMARK(Download)->Unit(benchmark::kMicrosecond);
BENCHMARK(Upload)->Unit(benchmark::kMicrosecond);

}  // namespace

std::function<void(const std::string&)> PreparedDownload() {
    return [exchange = std::make_shared<Exchange>()](const std::string& path) {
        (void)exchange->control.Exchange().DownloadTo(path);
    };
}

}  // namespace planview::bench
