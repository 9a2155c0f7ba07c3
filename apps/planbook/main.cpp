#include <QCoreApplication>
#include <cstdio>
#include <exception>

#include <planview/Version.h>

#include "app/CommandLine.h"
#include "app/RunMacro.h"
#include "app/RunView.h"
#include "book/BookError.h"

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
}

void Run(int& argc, char** argv) {
    const planbook::CommandLine commandLine = planbook::ParseCommandLine(ArgumentsOf(argc, argv));
    if (commandLine.help) {
        std::fputs(planbook::HelpText().toUtf8().constData(), stdout);
    } else if (commandLine.version) {
        std::printf("planbook %d.%d.%d\n", planview::VersionMajor, planview::VersionMinor, planview::VersionRevision);
    } else if (commandLine.import) {
        RunImport(argc, argv, *commandLine.import);
    } else if (commandLine.macro) {
        planbook::RunMacro(argc, argv, *commandLine.macro);
    } else {
        planbook::RunView(argc, argv, commandLine.view);
    }
}

int Report(ExitCode code, const char* message, const char* advice) {
    std::fprintf(stderr, "planbook: %s\n%s", message, advice);
    return static_cast<int>(code);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Run(argc, argv);
        return static_cast<int>(ExitCode::Done);
    } catch (const planbook::UsageError& error) {
        return Report(ExitCode::Usage, error.what(), "planbook --help says what there is.\n");
    } catch (const std::exception& error) {
        return Report(ExitCode::Failed, error.what(), "");
    }
}
