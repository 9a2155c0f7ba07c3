// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "book/BookCheck.h"
#include "book/BookPlan.h"
#include "import/Import.h"

namespace planbook {

enum class ExitCode : int {
    Done = 0,
    Failed = 1,  ///< an operation that could not be done
    Usage = 2,   ///< a command line that says nothing sensible
    Partly = 3   ///< done, but for some of it; the output says which
};

/// A command line that cannot be understood. `what()` says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the user wants to see, and how.
struct ViewRequest {
    std::optional<std::filesystem::path> book;
    std::optional<std::filesystem::path> screenshot;
    std::optional<std::filesystem::path> trace;
    QSize size = {1440, 900};  ///< of the window, in logical pixels
    double scale = 1.0;        ///< pixels of the picture per logical pixel
    enum class Scheme { System, Light, Dark } scheme = Scheme::System;
};

/// A workbook to be written from a book, or to be read into it.
struct ExchangeRequest {
    std::filesystem::path workbook;
    std::filesystem::path book;
    bool printSetup = false;  ///< of a download
    bool dryRun = false;      ///< of an upload: only says what it would do
    bool force = false;       ///< of an upload: may empty much
};

/// A macro or recording to run in a book, without a window.
struct MacroRequest {
    std::string name;
    std::filesystem::path book;
    std::optional<std::string> line;  ///< the caption of the line that is the selected one
};

/// Numbers to be entered into a book, without a window.
struct SetRequest {
    std::vector<PlanEntry> entries;
    std::filesystem::path book;
};

/// Exactly one of these is wanted.
struct CommandLine {
    bool help = false;
    bool version = false;
    std::optional<ImportRequest> import;
    std::optional<ExchangeRequest> download;
    std::optional<ExchangeRequest> upload;
    std::optional<MacroRequest> macro;
    std::optional<std::filesystem::path> formulas;  ///< of this book
    std::optional<std::filesystem::path> check;
    std::optional<SetRequest> set;
    ViewRequest view;
};

/// `arguments` without the program's name. Throws UsageError. Needs no application object.
[[nodiscard]] CommandLine ParseCommandLine(const QStringList& arguments);

[[nodiscard]] QString HelpText();

/// Tells, on the error output, what of a book could not be read.
[[nodiscard]] ExitCode TellReport(const std::filesystem::path& book, const BookReport& report);

}  // namespace planbook
