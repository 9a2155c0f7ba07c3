// SPDX-License-Identifier: MIT
#include "app/PlanCommands.h"

#include <algorithm>
#include <cstdio>

#include "book/BookError.h"

namespace planbook {

namespace {

void Print(const std::vector<std::string>& lines, std::size_t most) {
    for (std::size_t i = 0; i < std::min(most, lines.size()); ++i) {
        std::printf("%s\n", lines[i].c_str());
    }
    if (lines.size() > most) {
        std::printf("and %zu more\n", lines.size() - most);
    }
}

}  // namespace

ExitCode ListFormulas(const std::filesystem::path& book) {
    const BookPlan plan(book);
    const std::vector<std::string> formulas = plan.Formulas();
    if (formulas.empty()) {
        std::printf("%s: no formulas\n", book.c_str());
    }
    Print(formulas, formulas.size());
    return TellReport(book, plan.Report());
}

ExitCode CheckFormulas(const std::filesystem::path& book) {
    constexpr std::size_t Most = 20;
    const BookPlan plan(book);
    const std::vector<std::string> differences = plan.Differences();
    if (differences.empty()) {
        std::printf("%s: what is computed fits its leaves\n", book.c_str());
    } else {
        std::printf("%s: %zu computed value%s not what the leaves give:\n", book.c_str(), differences.size(),
                    differences.size() == 1 ? " is" : "s are");
        Print(differences, Most);
    }
    const ExitCode readable = TellReport(book, plan.Report());
    return differences.empty() ? readable : ExitCode::Partly;
}

ExitCode SetNumbers(const SetRequest& request) {
    constexpr int MostTries = 20;
    for (int tries = 0; tries < MostTries; ++tries) {
        BookPlan plan(request.book);
        for (const PlanEntry& entry : request.entries) {
            plan.Set(entry);
        }
        const std::vector<std::string> changes = plan.Changes();
        if (plan.Save()) {
            Print(changes, changes.size());
            std::printf("%s: %zu value%s changed\n", request.book.c_str(), changes.size(),
                        changes.size() == 1 ? "" : "s");
            return TellReport(request.book, plan.Report());
        }
    }
    throw BookError("Cannot change the book \"" + request.book.string() +
                    "\": other programs kept changing it. Nothing was stored; try again when they are done.");
}

}  // namespace planbook
