// SPDX-License-Identifier: MIT
#include <QImage>
#include <QProcess>
#include <QStringList>
#include <algorithm>
#include <array>
#include <filesystem>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "book/BookSnapshot.h"
#include "book/BookStore.h"
#include "planbook/TestFolder.h"

namespace {

struct Outcome {
    int exitCode = -1;  ///< -1 for a crash
    std::string out;
    std::string error;
};

/// Runs planbook in a folder, with no display unless one is named.
Outcome RunPlanbook(const TestFolder& folder, const QStringList& arguments, const QString& display = {},
                    const QString& platform = {}) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"}) {
        environment.remove(name);
    }
    if (!display.isEmpty()) {
        environment.insert("DISPLAY", display);
    }
    if (!platform.isEmpty()) {
        environment.insert("QT_QPA_PLATFORM", platform);
    }
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(folder.Path("").string()));
    process.start(PLANBOOK_PROGRAM, arguments);
    Outcome outcome;
    if (!process.waitForFinished()) {
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
        outcome.exitCode = process.exitCode();
    }
    outcome.out = process.readAllStandardOutput().toStdString();
    outcome.error = process.readAllStandardError().toStdString();
    return outcome;
}

void MakeSample(const TestFolder& folder) {
    const Outcome outcome = RunPlanbook(folder, {"--import", EXAMPLES_FOLDER "/us-employment.csv", "--names",
                                                 EXAMPLES_FOLDER "/us-employment.names", "us.planbook"});
    ASSERT_EQ(outcome.exitCode, 0) << outcome.error;
    EXPECT_TRUE(outcome.out.starts_with(
        "us.planbook: 120 periods, 23 lines, 2760 numbers\n"
        "661 numbers of the table are not what their formulas compute; the largest difference is 0.9."))
        << outcome.out;
    EXPECT_EQ(outcome.error, "");
}

struct CommandCase {
    const char* name;
    QStringList arguments;
    int exitCode;
    const char* error;
};

void PrintTo(const CommandCase& command, std::ostream* stream) {
    *stream << command.name;
}

class Command : public testing::TestWithParam<CommandCase> {};

TEST_P(Command, EndsWithItsCodeAndMessageAndChangesNothing) {
    const TestFolder folder;
    folder.Write("bad.csv", "month,a\n2008-01,x\n");
    folder.Write("text.txt", "no book");
    MakeSample(folder);
    std::filesystem::copy_file(folder.Path("us.planbook"), folder.Path("other.planbook"));
    const auto before = folder.Contents();
    const Outcome outcome = RunPlanbook(folder, GetParam().arguments);
    EXPECT_EQ(outcome.exitCode, GetParam().exitCode);
    EXPECT_TRUE(Contains(outcome.error, GetParam().error)) << outcome.error;
    EXPECT_TRUE(outcome.error.starts_with("planbook: ")) << outcome.error;
    EXPECT_EQ(folder.Contents(), before);
}

const CommandCase Commands[] = {
    {"UnknownOption", {"--zoom", "us.planbook"}, 2, "planbook --help says what there is."},
    {"TwoBooks", {"a", "b"}, 2, "\"b\" is one too many"},
    {"ImportWithoutBook", {"--import", "bad.csv"}, 2, "--import needs a BOOK"},
    {"NamesWithoutImport", {"--names", "x", "us.planbook"}, 2, "--names needs --import"},
    {"LightAndDark", {"--light", "--dark", "us.planbook"}, 2, "--light and --dark do not go together"},
    {"BadSize", {"--screenshot", "p.png", "--size", "1440", "us.planbook"}, 2, "such as 1440x900, not \"1440\""},
    {"BadScale", {"--screenshot", "p.png", "--scale", "nan", "us.planbook"}, 2, "--scale takes a number"},
    {"BadDecimal", {"--import", "bad.csv", "--decimal", ";", "b"}, 2, "--decimal takes point or comma"},
    {"DownloadWithoutBook", {"--download", "a.xlsx"}, 2, "--download needs a BOOK"},
    {"DownloadWithoutName", {"--download", "", "us.planbook"}, 2, "--download needs the name of a file"},
    {"BookWithoutName", {"--upload", "a.xlsx", ""}, 2, "the name of the BOOK is empty"},
    {"DryRunWithoutUpload", {"--dry-run", "us.planbook"}, 2, "--dry-run needs --upload"},
    {"PrintSetupOfUpload", {"--upload", "a.xlsx", "--print-setup", "us.planbook"}, 2, "--print-setup needs --download"},
    {"DownloadAndUpload", {"--download", "a", "--upload", "b", "us.planbook"}, 2, "--download and --upload do not go"},
    {"UploadAndPicture", {"--upload", "a", "--screenshot", "p.png", "us.planbook"}, 2, "do not go together"},
    {"ForceOfDownload", {"--download", "a", "--force", "us.planbook"}, 2, "--force needs --import"},
    {"DownloadOverBook", {"--download", "./us.planbook", "us.planbook"}, 1, "there is a planning book of that name"},
    {"UploadOfText", {"--upload", "text.txt", "us.planbook"}, 1, "text.txt"},
    {"DownloadOfNoBook", {"--download", "a.xlsx", "text.txt"}, 1, "it is no planning book"},
    {"MacroWithoutBook", {"--macro", "x"}, 2, "--macro needs a BOOK"},
    {"LineWithoutMacro", {"--line", "x", "us.planbook"}, 2, "--line needs --macro"},
    {"MacroAndPicture", {"--macro", "x", "--screenshot", "p.png", "us.planbook"}, 2, "do not go together"},
    {"MacroForNoLine", {"--macro", "2015 as in 2014", "us.planbook"}, 1, "Say which one by --line CAPTION. The lines"},
    {"UnknownMacro", {"--macro", "x", "us.planbook"}, 1, "It has these: \n  Raise 2015 by 5 %\n"},
    {"UnknownLine",
     {"--macro", "2015 as in 2014", "--line", "Lost", "us.planbook"},
     1,
     "called \"Lost\". The lines are: \n  Total nonfarm\n"},
    {"MacroOnAReadOnlyLine",
     {"--macro", "2015 as in 2014", "--line", "Change on month", "us.planbook"},
     1,
     "Change on month"},
    {"SetWithoutNumber", {"--set", "Construction", "Jan 08"}, 2, "--set needs a LINE, a PERIOD and a NUMBER"},
    {"SetOfTwoReadings",
     {"--set", "Construction", "Jan 08", "-136.000", "us.planbook"},
     2,
     "\"-136.000\" can be read as -136000 and as -136.000; write -136000 or -136.0000"},
    {"SetWithoutBook", {"--set", "Construction", "Jan 08", "9000"}, 2, "--set needs a BOOK"},
    {"SetGroups",
     {"--set", "Construction", "Jan 08", "1.234,5", "us.planbook"},
     2,
     "such as 9000 or 9000.5, not \"1.2"},
    {"SetOfNoLine",
     {"--set", "Construction", "Jan 08", "1", "--set", "Lost", "Jan 08", "1", "us.planbook"},
     1,
     "of lines, the book has none called \"Lost\". There are: \n  Total nonfarm\n"},
    {"SetOfNoPeriod", {"--set", "Private", "Jan 07x", "1", "us.planbook"}, 1, "of periods, the book has none called"},
    {"SetOfNoSum",
     {"--set", "Construction", "Jan 08", "1", "--set", "Change on month", "Feb 08", "-1", "us.planbook"},
     1,
     "Cannot set \"Change on month\" in \"Feb 08\""},
    {"CheckAndFormulas", {"--check", "--formulas", "us.planbook"}, 2, "--formulas and --check do not go together"},
    {"TotalsOfWeeks", {"--import", "bad.csv", "--totals", "quarter,week", "b"}, 2, "not \"quarter,week\""},
    {"TotalsWithoutImport", {"--totals", "year", "us.planbook"}, 2, "--totals needs --import"},
    {"CheckWithoutBook", {"--check"}, 2, "--check needs a BOOK"},
    {"BadCsv", {"--import", "bad.csv", "b"}, 1, "line 2, column 2: \"x\" (a) is no number"},
    {"NoCsv", {"--import", "none.csv", "b"}, 1, "there is no such file"},
    {"CsvIsFolder", {"--import", ".", "b"}, 1, "it is a folder"},
    {"BookExists", {"--import", EXAMPLES_FOLDER "/us-employment.csv", "us.planbook"}, 1, "add --force"},
    {"NoBook", {"--screenshot", "p.png", "text.txt"}, 1, "it is no planning book"},
    {"NoSuchBook", {"--trace", "t", "none"}, 1, "there is no such file"},
    {"NoDisplay", {"us.planbook"}, 1, "Cannot open a window: there is no display"},
    {"PictureInNoFolder",
     {"--screenshot", "none/p.png", "us.planbook"},
     1,
     "Cannot save 'none/p.png': the folder 'none'"},
    {"PictureOverBook", {"--screenshot", "us.planbook", "us.planbook"}, 1, "there is a planning book of that name"},
    {"TraceOverBook", {"--trace", "./us.planbook", "us.planbook"}, 1, "there is a planning book of that name"},
    {"PictureOverAnotherBook",
     {"--screenshot", "other.planbook", "us.planbook"},
     1,
     "there is a planning book of that name"},
    {"TraceOverAnotherBook", {"--trace", "other.planbook", "us.planbook"}, 1, "there is a planning book of that name"},
};

INSTANTIATE_TEST_SUITE_P(Refused, Command, testing::ValuesIn(Commands),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(Planbook, ADisplayThatDoesNotAnswerIsAMessage) {
    const TestFolder folder;
    MakeSample(folder);
    const Outcome outcome = RunPlanbook(folder, {"us.planbook"}, "localhost:4711");
    EXPECT_EQ(outcome.exitCode, 1) << outcome.error;
    EXPECT_TRUE(Contains(outcome.error, "planbook: Cannot open a window: ")) << outcome.error;
}

TEST(Planbook, HelpAndVersionNeedNothing) {
    const TestFolder folder;
    EXPECT_TRUE(Contains(RunPlanbook(folder, {"--help"}).out, "--import DATA.csv BOOK"));
    EXPECT_TRUE(RunPlanbook(folder, {"--version"}).out.starts_with("planbook "));
}

TEST(Planbook, RunsTheMacrosOfTheSampleBookWithoutADisplay) {
    const TestFolder folder;
    MakeSample(folder);
    const auto run = [&](const QStringList& arguments) {
        const Outcome outcome = RunPlanbook(folder, QStringList{"--macro"} + arguments + QStringList{"us.planbook"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
        EXPECT_EQ(outcome.error, "");
        return outcome.out;
    };
    const std::string copied = run({"2015 as in 2014", "--line", "Retail trade"});
    EXPECT_TRUE(Contains(copied, "Retail trade, Jan 15: 15501.7 -> 15256.3\n")) << copied;
    EXPECT_TRUE(Contains(copied, ": 12 cells changed.\n")) << copied;
    const std::string raised = run({"Raise 2015 by 5 %", "--line", "Retail trade"});
    EXPECT_TRUE(Contains(raised, "Retail trade, Jan 15: 15256.3 -> 16019.115\n")) << raised;
    EXPECT_TRUE(Contains(raised, "Total nonfarm, Jan 15: ")) << "what is computed follows:\n" << raised;
    const std::string grown = run({"Retail grows as wholesale"});
    EXPECT_TRUE(Contains(grown, "Retail trade, Jan 15: 16019.115 -> 15448.3177642741\n")) << grown;
    EXPECT_TRUE(Contains(grown, ": 12 cells changed.\n")) << grown;
}

TEST(Planbook, ComputesChecksAndSpreadsWithoutADisplay) {
    const TestFolder folder;
    folder.Write("plan.csv", "month,all,a,b,half\n2008-01,40,10,30,0\n2008-02,60,20,40,0\n");
    folder.Write("names",
                 "[lines]\nall = All | total\na = A | line | | 1\nb = B | line | | 1\n"
                 "[formulas]\nAll = SUM(MEMBERS) | entry\nHalf = All / 2 | 3\nHalf, Feb 08 = 5\n");
    ASSERT_EQ(RunPlanbook(folder, {"--import", "plan.csv", "--names", "names", "plan"}).exitCode, 0);
    const auto run = [&](const QStringList& arguments, int exitCode) {
        const Outcome outcome = RunPlanbook(folder, arguments);
        EXPECT_EQ(outcome.exitCode, exitCode) << outcome.error;
        return outcome.out;
    };
    EXPECT_EQ(run({"--formulas", "plan"}, 0), "All = SUM(MEMBERS) | entry\nHalf = All / 2 | 3\nHalf, Feb 08 = 5\n");
    EXPECT_EQ(run({"--check", "plan"}, 0), "plan: what is computed fits its leaves\n");

    EXPECT_EQ(run({"--set", "A", "Feb 08", "-10", "--set", "All", "Jan 08", "60,4", "plan"}, 0),
              "All, Jan 08: 40 -> 60.4\nAll, Feb 08: 60 -> 30\nA, Jan 08: 10 -> 15\nA, Feb 08: 20 -> -10\n"
              "B, Jan 08: 30 -> 45.4\nHalf, Jan 08: 20 -> 30.2\nplan: 6 values changed\n");
    const planbook::Book book = planbook::LoadBook(folder.Path("plan"));
    EXPECT_EQ(book[planbook::BookTable::TabOld].RowCount(), 3) << "the leaves are pending";
    EXPECT_EQ(run({"--check", "plan"}, 0), "plan: what is computed fits its leaves\n");

    ChangeBook(folder.Path("plan"), "UPDATE TAB SET V = 100 WHERE Z = 2 AND C = 1");
    const std::string file = ReadFile(folder.Path("plan"));
    EXPECT_EQ(run({"--check", "plan"}, 3),
              "plan: 2 computed values are not what the leaves give:\n"
              "All, Jan 08: 60.4 in the book, 145.4 by its formula\n"
              "Half, Jan 08: 30.2 in the book, 72.7 by its formula\n");
    EXPECT_EQ(ReadFile(folder.Path("plan")), file) << "checking changes nothing";
    ChangeBook(folder.Path("plan"), "UPDATE FORMULAS SET FORMULA = '{ROW9|Lost} / 2' WHERE TARGET = 'ROW4'");
    EXPECT_TRUE(Contains(run({"--formulas", "plan"}, 3), "Half = {ROW9|Lost} / 2 | 3\n"));
}

/// A book of one line with the values 1, 2, 3, ... and the macro "Add one".
void MakeCounter(const TestFolder& folder, const char* name) {
    std::string table = "month,a\n";
    for (int month = 1; month <= 12; ++month) {
        table +=
            "2008-" + std::string(month < 10 ? "0" : "") + std::to_string(month) + "," + std::to_string(month) + "\n";
    }
    folder.Write("counter.csv", table);
    folder.Write("counter.names", "[macros]\nAdd one = [a] = [a] + 1\n");
    ASSERT_EQ(RunPlanbook(folder, {"--import", "counter.csv", "--names", "counter.names", name}).exitCode, 0);
}

double ValueOf(const TestFolder& folder, const char* book, int row, int column) {
    return planbook::BookSnapshot(planbook::LoadBook(folder.Path(book))).ValueOf({row, column}).AsDouble();
}

/// Whoever says that it has added one has done so, whatever the others do at the same time.
TEST(Planbook, MacrosThatRunAtTheSameTimeLoseNothing) {
    const TestFolder folder;
    MakeCounter(folder, "counter");
    constexpr int Runs = 4;
    int done = 0;
    for (int round = 0; round < 3; ++round) {
        std::array<QProcess, Runs> runs;
        for (QProcess& run : runs) {
            run.setWorkingDirectory(QString::fromStdString(folder.Path("").string()));
            run.start(PLANBOOK_PROGRAM, {"--macro", "Add one", "counter"});
        }
        for (QProcess& run : runs) {
            ASSERT_TRUE(run.waitForFinished());
            const std::string out = run.readAllStandardOutput().toStdString();
            EXPECT_EQ(run.exitCode() == 0, Contains(out, "12 cells changed")) << out;
            done += run.exitCode() == 0 ? 1 : 0;
        }
    }
    EXPECT_GT(done, 0);
    EXPECT_EQ(ValueOf(folder, "counter", 1, 1), 1 + done);
    EXPECT_EQ(ValueOf(folder, "counter", 1, 12), 12 + done);
}

struct OutputCase {
    QStringList arguments;
    int exitCode;
};

TEST(Planbook, NothingIncompleteGoesOutWithoutAWord) {
    const TestFolder folder;
    MakeCounter(folder, "faulty");
    MakeCounter(folder, "good");
    ChangeBook(folder.Path("faulty"), "UPDATE TAB SET V = 'n/a' WHERE C < 4");
    const OutputCase cases[] = {
        {{"--download", "faulty.xlsx", "faulty"}, 3},
        {{"--screenshot", "faulty.png", "faulty"}, 3},
        {{"--trace", "faulty.txt", "faulty"}, 3},
        {{"--macro", "Add one", "faulty"}, 1},
    };
    for (const OutputCase& output : cases) {
        const Outcome outcome = RunPlanbook(folder, output.arguments);
        EXPECT_EQ(outcome.exitCode, output.exitCode) << outcome.error;
        EXPECT_TRUE(Contains(outcome.error, "TAB, row 3, field V: \"n/a\" is no number")) << outcome.error;
    }
    EXPECT_FALSE(Contains(ReadFile(folder.Path("faulty.txt")), "ERROR")) << "the rest was not read from end to end";

    // Only what was changed in a workbook since its download is taken from it, whichever of the two is incomplete.
    const std::string before = ReadFile(folder.Path("good"));
    const Outcome left = RunPlanbook(folder, {"--upload", "faulty.xlsx", "good"});
    EXPECT_EQ(left.exitCode, 0);
    EXPECT_TRUE(Contains(left.out, "nothing to change, 3 changed in the book only")) << left.out;
    EXPECT_EQ(ReadFile(folder.Path("good")), before);
    ASSERT_EQ(RunPlanbook(folder, {"--download", "good.xlsx", "good"}).exitCode, 0);
    EXPECT_EQ(RunPlanbook(folder, {"--upload", "good.xlsx", "faulty"}).exitCode, 3);
}

TEST(Planbook, WhatAViewCouldNotReadIsNotImported) {
    const TestFolder folder;
    folder.Write("long.csv", "month," + std::string(70000, 'x') + "\n2008-01,1\n");
    const Outcome outcome = RunPlanbook(folder, {"--import", "long.csv", "long"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(Contains(outcome.error, "LINE_INDEX, row 1, field FREET: a text of 70000 bytes is too long"))
        << outcome.error;
    EXPECT_FALSE(folder.Contents().contains("long"));
}

int PixelsLike(const QImage& picture, bool (*matches)(QColor)) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += matches(picture.pixelColor(x, y)) ? 1 : 0;
        }
    }
    return count;
}

TEST(Planbook, WritesPicturesOfTheSizeAndSchemeAskedFor) {
    const TestFolder folder;
    MakeSample(folder);
    const auto book = ReadFile(folder.Path("us.planbook"));
    const auto picture = [&](const QStringList& options) {
        const Outcome outcome = RunPlanbook(folder, QStringList{"--screenshot", "p.png", "us.planbook"} + options);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
        EXPECT_EQ(outcome.error, "");
        return QImage(QString::fromStdString(folder.Path("p.png").string()), "PNG");
    };
    const auto isRed = [](QColor color) { return color.red() > 180 && color.green() < 90 && color.blue() < 90; };

    EXPECT_EQ(picture({}).size(), QSize(1440, 900));
    const QImage light = picture({"--light", "--size", "1440x1400"});  // so high that all lines can be seen
    EXPECT_GT(PixelsLike(light, [](QColor color) { return color.lightness() > 200; }), 1440 * 1400 / 2);
    EXPECT_GT(PixelsLike(light, isRed), 50) << "the months in which the total fell are not red";

    const QImage dark = picture({"--dark", "--size", "800x500", "--scale", "1.5"});
    EXPECT_EQ(dark.size(), QSize(1200, 750));
    EXPECT_GT(PixelsLike(dark, [](QColor color) { return color.lightness() < 60; }), 1200 * 750 / 2);
    EXPECT_EQ(ReadFile(folder.Path("us.planbook")), book) << "looking at a book changed it";
}

TEST(Planbook, WritesTheTraceWithoutADisplayAndWithoutErrors) {
    const TestFolder folder;
    folder.Write("small.csv", "month,a,b\n2008-01,1,-2\n2008-02,3,4.5\n");
    ASSERT_EQ(RunPlanbook(folder, {"--import", "small.csv", "small"}).exitCode, 0);
    const Outcome outcome = RunPlanbook(folder, {"--trace", "trace.txt", "small"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    const std::string trace = ReadFile(folder.Path("trace.txt"));
    for (const char* entry : {"{table: GRID_ATTR}", "{table: MACROREC}", "DP_Import_Create", "#CELL_ATTR#"}) {
        EXPECT_TRUE(Contains(trace, entry)) << entry << " is missing in\n" << trace;
    }
    EXPECT_FALSE(Contains(trace, "ERROR")) << trace;
}

TEST(Planbook, ATraceHoldsAllOfALargeBookAndReplacesAnOlderOneOnlyAsAWhole) {
    const TestFolder folder;
    MakeSample(folder);
    folder.Write("trace.txt", "older");
    EXPECT_EQ(RunPlanbook(folder, {"--trace", "trace.txt", "none"}).exitCode, 1);
    EXPECT_EQ(ReadFile(folder.Path("trace.txt")), "older");
    EXPECT_EQ(RunPlanbook(folder, {"--trace", "trace.txt", "us.planbook"}).exitCode, 0);
    const std::string trace = ReadFile(folder.Path("trace.txt"));
    EXPECT_GT(std::count(trace.begin(), trace.end(), '\n'), 5000);
    EXPECT_TRUE(Contains(trace.substr(0, 1000), "Trace_Enable")) << trace.substr(0, 1000);
}

TEST(Planbook, APlatformWithoutAScreenIsNoDisplay) {
    const TestFolder folder;
    MakeCounter(folder, "counter");
    for (const char* platform : {"offscreen", "minimal:enable_fonts"}) {
        EXPECT_EQ(RunPlanbook(folder, {"--trace", "trace.txt", "counter"}, {}, platform).exitCode, 0) << platform;
        const Outcome window = RunPlanbook(folder, {"counter"}, {}, platform);
        EXPECT_EQ(window.exitCode, 1) << platform;
        EXPECT_TRUE(Contains(window.error, "there is no display")) << window.error;
    }
}

}  // namespace
