// SPDX-License-Identifier: MIT
// Runs the benchmarks and prints how the control compares with its peers.
//
// Takes the arguments of Google Benchmark. What is not given is chosen for a noisy machine: several repetitions in
// mixed order, of which the medians count.

#include <QApplication>
#include <QFont>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "Memory.h"
#include "Ratios.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QFont font("DejaVu Sans");
    font.setPixelSize(12);
    QApplication::setFont(font);

    const std::string_view heapGrowth = planview::bench::HeapGrowthArgument;
    if (argc == 2 && std::string_view(argv[1]).starts_with(heapGrowth)) {
        return planview::bench::PrintHeapGrowth(std::string_view(argv[1]).substr(heapGrowth.size()));
    }

    std::vector<std::string> texts{argv[0], "--benchmark_repetitions=11", "--benchmark_min_time=0.05",
                                   "--benchmark_enable_random_interleaving=true"};
    texts.insert(texts.end(), argv + 1, argv + argc);
    std::vector<char*> arguments;
    for (std::string& text : texts) {
        arguments.push_back(text.data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }

    planview::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.WriteRatios(std::cout) ? 0 : 1;
}
