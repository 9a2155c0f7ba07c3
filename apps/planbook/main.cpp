// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <cstdio>
#include <exception>
#include <string>

#include <planview/Version.h>

#include "app/CommandLine.h"
#include "app/PlanCommands.h"
#include "app/RunMacro.h"
#include "app/RunView.h"
#include "book/BookError.h"
#include "exchange/PreviewText.h"
#include "exchange/WorkbookExchange.h"

namespace {

using planbook::ExitCode;

QStringList ArgumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    return arguments;
}

void RunImport(int& argc, char** argv, const planbook::ImportRequest& request) {
    const QCoreApplication application(argc, argv);  // the SQL driver is a plug-in
    const planbook::ImportResult result = planbook::ImportBook(request);
    std::printf("%s: %d periods, %d lines, %d numbers\n", request.book.c_str(), result.periods, result.lines,
                result.cells);
    const planbook::Contradictions& found = result.contradictions;
    if (found.count > 0) {
        std::printf(
            "%d numbers of the table are not what their formulas compute; the largest difference is %.6g. The book has "
            "what is computed from its leaves:\n",
            found.count, found.largest);
        for (const std::string& line : found.first) {
            std::printf("  %s\n", line.c_str());
        }
        if (const std::size_t more = static_cast<std::size_t>(found.count) - found.first.size(); more > 0) {
            std::printf("  and %zu more\n", more);
        }
    }
}

ExitCode RunDownload(int& argc, char** argv, const planbook::ExchangeRequest& request) {
    const QCoreApplication application(argc, argv);
    planbook::WorkbookExchange exchange(request.book);
    exchange.Download(request.workbook, request.printSetup);
    std::printf("%s: %d periods, %d lines\n", request.workbook.c_str(), exchange.Periods(), exchange.Lines());
    return planbook::TellReport(request.book, exchange.Report());
}

/// Nobody is there to be asked.
void RefuseToEmpty(const planbook::ExchangeRequest& request, const planview::UploadPreview& preview) {
    if (preview.EmptiesMuch() && !request.force) {
        throw planbook::BookError("Nothing was uploaded: \"" + request.workbook.string() + "\" would empty " +
                                  std::to_string(preview.Emptied()) + " of " + std::to_string(preview.values) +
                                  " values. It may come from a book that was not complete. If the values are to go, "
                                  "add --force.");
    }
}

ExitCode RunUpload(int& argc, char** argv, const planbook::ExchangeRequest& request) {
    const QCoreApplication application(argc, argv);
    planbook::WorkbookExchange exchange(request.book);
    const planview::UploadPreview preview = exchange.Preview(request.workbook);
    std::fputs(planbook::PreviewText(preview).toUtf8().constData(), stdout);
    bool whole = planbook::TellReport(request.book, exchange.Report()) == ExitCode::Done;
    whole = planbook::IsWhole(preview) && whole;
    if (request.dryRun) {
        std::puts("Dry run: the book was not changed.");
    } else {
        RefuseToEmpty(request, preview);
        const planview::UploadResult result = exchange.Apply(preview);
        whole = whole && result.refused == 0 && result.outdated == 0;
        std::printf("%s: %s changed\n", request.book.c_str(),
                    planbook::CountedValues(result.changed).toUtf8().constData());
    }
    return whole ? ExitCode::Done : ExitCode::Partly;
}

ExitCode Run(int& argc, char** argv) {
    const planbook::CommandLine commandLine = planbook::ParseCommandLine(ArgumentsOf(argc, argv));
    if (commandLine.help) {
        std::fputs(planbook::HelpText().toUtf8().constData(), stdout);
    } else if (commandLine.version) {
        std::printf("planbook %d.%d.%d\n", planview::VersionMajor, planview::VersionMinor, planview::VersionRevision);
    } else if (commandLine.import) {
        RunImport(argc, argv, *commandLine.import);
    } else if (commandLine.download) {
        return RunDownload(argc, argv, *commandLine.download);
    } else if (commandLine.upload) {
        return RunUpload(argc, argv, *commandLine.upload);
    } else if (commandLine.formulas || commandLine.check || commandLine.set) {
        const QCoreApplication application(argc, argv);
        return commandLine.formulas ? planbook::ListFormulas(*commandLine.formulas)
               : commandLine.check  ? planbook::CheckFormulas(*commandLine.check)
                                    : planbook::SetNumbers(*commandLine.set);
    } else if (commandLine.macro) {
        return planbook::RunMacro(argc, argv, *commandLine.macro);
    } else {
        return planbook::RunView(argc, argv, commandLine.view);
    }
    return ExitCode::Done;
}

int Report(ExitCode code, const char* message, const char* advice) {
    std::fprintf(stderr, "planbook: %s\n%s", message, advice);
    return static_cast<int>(code);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return static_cast<int>(Run(argc, argv));
    } catch (const planbook::UsageError& error) {
        return Report(ExitCode::Usage, error.what(), "planbook --help says what there is.\n");
    } catch (const std::exception& error) {
        return Report(ExitCode::Failed, error.what(), "");
    }
}
