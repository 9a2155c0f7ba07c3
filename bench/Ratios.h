// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace planview::bench {

/// Prints the runs as they come and keeps them, to hold the control against its peers at the end.
class RatioReporter final : public benchmark::ConsoleReporter {
public:
    RatioReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override;

    /// Writes a table of medians: measured, bar and hope, one line for each piece of work that has run. Returns whether
    /// every bar in it is kept.
    bool WriteRatios(std::ostream& out) const;

private:
    /// The median by which a benchmark counts: bytes where it measures them, else seconds per iteration or, with
    /// `perItem`, per item. NaN when it has not run.
    [[nodiscard]] double Median(const std::string& benchmark, bool perItem = false) const;

    struct Sample {
        double amount;
        double items;  ///< of one iteration
    };
    std::map<std::string, std::vector<Sample>> samples_;
};

}  // namespace planview::bench
