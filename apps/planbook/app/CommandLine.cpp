// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QRegularExpression>
#include <array>
#include <cstdio>
#include <utility>

namespace planbook {

namespace {

constexpr const char* Import = "import";
constexpr const char* Names = "names";
constexpr const char* Decimal = "decimal";
constexpr const char* Totals = "totals";
constexpr const char* Force = "force";
constexpr const char* Download = "download";
constexpr const char* PrintSetup = "print-setup";
constexpr const char* Upload = "upload";
constexpr const char* DryRun = "dry-run";
constexpr const char* Macro = "macro";
constexpr const char* Line = "line";
constexpr const char* Formulas = "formulas";
constexpr const char* Check = "check";
constexpr const char* Set = "set";
constexpr const char* Screenshot = "screenshot";
constexpr const char* Size = "size";
constexpr const char* Scale = "scale";
constexpr const char* Light = "light";
constexpr const char* Dark = "dark";
constexpr const char* Trace = "trace";
constexpr const char* Help = "help";
constexpr const char* Version = "version";

constexpr int MinSide = 200;
constexpr int MaxSide = 10000;
constexpr double MinScale = 0.5;
constexpr double MaxScale = 4.0;

[[noreturn]] void Refuse(const QString& why) {
    throw UsageError(why.toStdString());
}

std::filesystem::path ToPath(const QString& text) {
    return text.toStdString();
}

QSize ReadSize(const QString& text) {
    static const QRegularExpression form("^(\\d{1,5})[xX](\\d{1,5})$");
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || size.width() < MinSide || size.height() < MinSide || size.width() > MaxSide ||
        size.height() > MaxSide) {
        Refuse(QString("--size takes a width and a height from %1 to %2, such as 1440x900, not \"%3\"")
                   .arg(MinSide)
                   .arg(MaxSide)
                   .arg(text));
    }
    return size;
}

double ReadScale(const QString& text) {
    bool isNumber = false;
    const double scale = text.toDouble(&isNumber);
    if (!isNumber || !(scale >= MinScale && scale <= MaxScale)) {
        Refuse(QString("--scale takes a number from %1 to %2, not \"%3\"").arg(MinScale).arg(MaxScale).arg(text));
    }
    return scale;
}

DecimalMark ReadDecimalMark(const QString& text) {
    if (text == "point") {
        return DecimalMark::Point;
    }
    if (text == "comma") {
        return DecimalMark::Comma;
    }
    Refuse(QString("--decimal takes point or comma, not \"%1\"").arg(text));
}

PeriodTotals ReadTotals(const QString& text) {
    PeriodTotals totals;
    for (const QString& part : text.split(',')) {
        if (part == "quarter") {
            totals.quarters = true;
        } else if (part == "year") {
            totals.years = true;
        } else {
            Refuse(QString("--totals takes quarter, year or both as quarter,year, not \"%1\"").arg(text));
        }
    }
    return totals;
}

/// A number as it stands in a table of numbers, but without groups, and refused where it may be meant to have them.
double ReadNumber(const QString& text) {
    static const QRegularExpression form("^[+-]?\\d+([.,]\\d+)?$");
    static const QRegularExpression grouped("^([+-]?[1-9]\\d{0,2})[.,](\\d{3})$");
    if (const QRegularExpressionMatch parts = grouped.match(text); parts.hasMatch()) {
        const QString whole = parts.captured(1) + parts.captured(2);
        const QString decimal = parts.captured(1) + "." + parts.captured(2);
        Refuse(QString("--set: \"%1\" can be read as %2 and as %3; write %2 or %4")
                   .arg(text, whole, decimal, decimal + "0"));
    }
    bool isNumber = form.match(text).hasMatch();
    const double number = isNumber ? QString(text).replace(',', '.').toDouble(&isNumber) : 0;
    if (!isNumber) {
        Refuse(QString("--set takes a number such as 9000 or 9000.5, not \"%1\"").arg(text));
    }
    return number;
}

/// Takes the three arguments behind each --set out of the others; the option itself stays. Numbers may have a sign, by
/// which a parser would take them for options.
std::vector<PlanEntry> TakeEntries(QStringList& arguments) {
    constexpr int Parts = 3;
    std::vector<PlanEntry> entries;
    const QString option = QString("--") + Set;
    for (qsizetype i = arguments.indexOf(option); i >= 0; i = arguments.indexOf(option, i + 1)) {
        if (arguments.size() - i - 1 < Parts) {
            Refuse("--set needs a LINE, a PERIOD and a NUMBER");
        }
        entries.push_back(
            {arguments[i + 1].toStdString(), arguments[i + 2].toStdString(), ReadNumber(arguments[i + Parts])});
        arguments.remove(i + 1, Parts);
    }
    return entries;
}

/// Refuses an option that says nothing without another one.
void RequireWith(const QCommandLineParser& parser, const char* option, const char* other) {
    if (parser.isSet(option) && !parser.isSet(other)) {
        Refuse(QString("--%1 needs --%2").arg(option, other));
    }
}

void RefuseTogether(const QCommandLineParser& parser, const char* option, const char* other) {
    if (parser.isSet(option) && parser.isSet(other)) {
        Refuse(QString("--%1 and --%2 do not go together").arg(option, other));
    }
}

void CheckCombination(const QCommandLineParser& parser) {
    for (const char* option : {Names, Decimal, Totals}) {
        RequireWith(parser, option, Import);
    }
    if (!parser.isSet(Upload)) {
        RequireWith(parser, Force, Import);
    }
    for (const char* option : {Size, Scale}) {
        RequireWith(parser, option, Screenshot);
    }
    RequireWith(parser, PrintSetup, Download);
    RequireWith(parser, DryRun, Upload);
    RequireWith(parser, Line, Macro);
    constexpr std::array Works{Import, Download, Upload, Macro, Formulas, Check, Set};
    for (std::size_t i = 0; i < Works.size(); ++i) {
        for (const char* option : {Screenshot, Trace, Light, Dark}) {
            RefuseTogether(parser, Works[i], option);
        }
        for (std::size_t other = i + 1; other < Works.size(); ++other) {
            RefuseTogether(parser, Works[i], Works[other]);
        }
    }
    RefuseTogether(parser, Light, Dark);
    if (parser.positionalArguments().size() > 1) {
        Refuse(QString("one BOOK at a time; \"%1\" is one too many").arg(parser.positionalArguments().at(1)));
    }
    for (const char* option : {Import, Names, Download, Upload, Screenshot, Trace}) {
        if (parser.isSet(option) && parser.value(option).isEmpty()) {
            Refuse(QString("--%1 needs the name of a file").arg(option));
        }
    }
    if (parser.positionalArguments().contains(QString())) {
        Refuse("the name of the BOOK is empty");
    }
    for (const char* option : {Import, Download, Upload, Macro, Formulas, Check, Set, Screenshot, Trace}) {
        if (parser.isSet(option) && parser.positionalArguments().isEmpty()) {
            Refuse(QString("--%1 needs a BOOK").arg(option));
        }
    }
}

ImportRequest ReadImport(const QCommandLineParser& parser) {
    ImportRequest request;
    request.source = ToPath(parser.value(Import));
    request.book = ToPath(parser.positionalArguments().first());
    if (parser.isSet(Names)) {
        request.names = ToPath(parser.value(Names));
    }
    if (parser.isSet(Decimal)) {
        request.decimalMark = ReadDecimalMark(parser.value(Decimal));
    }
    if (parser.isSet(Totals)) {
        request.totals = ReadTotals(parser.value(Totals));
    }
    request.force = parser.isSet(Force);
    return request;
}

ExchangeRequest ReadExchange(const QCommandLineParser& parser, const char* option) {
    ExchangeRequest request;
    request.workbook = ToPath(parser.value(option));
    request.book = ToPath(parser.positionalArguments().first());
    request.printSetup = parser.isSet(PrintSetup);
    request.dryRun = parser.isSet(DryRun);
    request.force = parser.isSet(Force);
    return request;
}

MacroRequest ReadMacro(const QCommandLineParser& parser) {
    MacroRequest request;
    request.name = parser.value(Macro).toStdString();
    request.book = ToPath(parser.positionalArguments().first());
    if (parser.isSet(Line)) {
        request.line = parser.value(Line).toStdString();
    }
    return request;
}

ViewRequest ReadView(const QCommandLineParser& parser) {
    ViewRequest request;
    if (!parser.positionalArguments().isEmpty()) {
        request.book = ToPath(parser.positionalArguments().first());
    }
    if (parser.isSet(Screenshot)) {
        request.screenshot = ToPath(parser.value(Screenshot));
    }
    if (parser.isSet(Trace)) {
        request.trace = ToPath(parser.value(Trace));
    }
    if (parser.isSet(Size)) {
        request.size = ReadSize(parser.value(Size));
    }
    if (parser.isSet(Scale)) {
        request.scale = ReadScale(parser.value(Scale));
    }
    if (parser.isSet(Light)) {
        request.scheme = ViewRequest::Scheme::Light;
    } else if (parser.isSet(Dark)) {
        request.scheme = ViewRequest::Scheme::Dark;
    }
    return request;
}

}  // namespace

CommandLine ParseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    for (const char* option :
         {Import, Names, Decimal, Totals, Download, Upload, Macro, Line, Screenshot, Size, Scale, Trace}) {
        parser.addOption(QCommandLineOption(option, QString(), "value"));
    }
    for (const char* option : {Formulas, Check, Set, Force, PrintSetup, DryRun, Light, Dark}) {
        parser.addOption(QCommandLineOption(option));
    }
    parser.addOption(QCommandLineOption(QStringList{"h", Help}));
    parser.addOption(QCommandLineOption(QStringList{"v", Version}));
    QStringList others = arguments;
    std::vector<PlanEntry> entries = TakeEntries(others);
    if (!parser.parse(QStringList{"planbook"} + others)) {
        Refuse(parser.errorText());
    }

    CommandLine commandLine;
    commandLine.help = parser.isSet(Help);
    commandLine.version = parser.isSet(Version);
    if (commandLine.help || commandLine.version) {
        return commandLine;
    }
    CheckCombination(parser);
    if (parser.isSet(Import)) {
        commandLine.import = ReadImport(parser);
    } else if (parser.isSet(Download)) {
        commandLine.download = ReadExchange(parser, Download);
    } else if (parser.isSet(Upload)) {
        commandLine.upload = ReadExchange(parser, Upload);
    } else if (parser.isSet(Formulas)) {
        commandLine.formulas = ToPath(parser.positionalArguments().first());
    } else if (parser.isSet(Check)) {
        commandLine.check = ToPath(parser.positionalArguments().first());
    } else if (parser.isSet(Set)) {
        commandLine.set = SetRequest{std::move(entries), ToPath(parser.positionalArguments().first())};
    } else if (parser.isSet(Macro)) {
        commandLine.macro = ReadMacro(parser);
    } else {
        commandLine.view = ReadView(parser);
    }
    return commandLine;
}

QString HelpText() {
    return QStringLiteral(R"(planbook shows and makes planning books.

  planbook [BOOK]                            opens a window with the book
  planbook --import DATA.csv BOOK            makes a book from a table of numbers
  planbook --download PLAN.xlsx BOOK         writes the table as a workbook
  planbook --upload PLAN.xlsx BOOK           takes changed values from that workbook
  planbook --macro NAME BOOK                 runs a macro or replays a recording
  planbook --formulas BOOK                   lists what is computed, and how
  planbook --check BOOK                      computes everything again and compares
  planbook --set LINE PERIOD NUMBER BOOK     enters a number
  planbook --screenshot PICTURE.png BOOK     writes a picture of the book
  planbook --trace FILE BOOK                 writes what the view did when it ends

Import: the first column of DATA.csv holds the periods, every further one a line.
  --names FILE        how the lines are called, their order, totals, units, the title
  --decimal MARK      point or comma, where the numbers do not tell
  --totals LIST       quarter, year or quarter,year: computed columns behind their months
  --force             replaces BOOK when it is a book; another file is never replaced

Workbooks:
  --print-setup       the download prints landscape, with its captions on every page
  --dry-run           the upload only lists what it would change
  --force             the upload may empty more than a tenth of the values

Macro: prints each cell that changed. With an unknown NAME it lists those of the book.
  --line CAPTION      on this line, where the macro is for the selected line or about one
                      line alone

Formulas:
  --check             names the first values that are not what the leaves give
  --set               may stand several times; a number for a total is spread over its lines;
                      all numbers are entered, or none; prints each cell that changed

View:
  --light, --dark     the colours; else those of the desktop
  --size WIDTHxHEIGHT of the picture's window, 1440x900
  --scale FACTOR      pixels of the picture per pixel of the window, 0.5 to 4

  --help, --version

Only windows need a display; a trace without a display ends by itself.

Exit codes: 0 done; 1 failed, the message says what, where and what now; 2 a command
line that cannot be understood; 3 done, but not with everything: an upload that some
values were left out of, or would be, because they are refused or do not match, a book
of which something could not be read or computed, or one that --check finds other values
in; the message names each place. A failure changes no file.
)");
}

ExitCode TellReport(const std::filesystem::path& book, const BookReport& report) {
    if (report.IsWhole()) {
        return ExitCode::Done;
    }
    std::fputs(ReportText(book, report).c_str(), stderr);
    return ExitCode::Partly;
}

}  // namespace planbook
