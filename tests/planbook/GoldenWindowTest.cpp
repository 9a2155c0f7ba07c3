// SPDX-License-Identifier: MIT
#include <QAction>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <functional>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/HostMessageBoxes.h"
#include "app/MainWindow.h"
#include "components/GridControl.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "import/Import.h"
#include "planbook/ScriptedQuestions.h"
#include "planbook/TestFolder.h"
#include "support/TraceOracle.h"
#include "support/Transcript.h"

namespace planbook {
namespace {

constexpr const char* Names = R"([book]
title   = US employment
unit    = thousand
source  = Bureau of Labor Statistics
open-at = 2008-02-01
[chart]
title      = Employment
from       = 2008-01-01
to         = 2008-04-01
optimum    = 13500
range-from = 12500
range-to   = 14500
[lines]
nonfarm            = Total nonfarm   | total
goods_producing    = Goods producing | help
construction       = Construction    | line |        | 0 | column
manufacturing      = Manufacturing   | line | people | 1 | line
[macros]
Raise by 5 %       = SELECTED = SELECTED * 1.05 | 2008-01-01 : 2008-03-01
)";

/// The first months of 2008 of the sample table.
std::filesystem::path SampleBook(const TestFolder& folder) {
    constexpr int Columns = 9;
    std::ifstream sample(std::string(EXAMPLES_FOLDER) + "/us-employment.csv");
    std::string table;
    for (std::string line; std::getline(sample, line);) {
        if (line.starts_with("month") || (line.starts_with("2008-0") && line < "2008-06")) {
            std::istringstream fields(line);
            std::string field;
            for (int i = 0; i < Columns && std::getline(fields, field, ','); ++i) {
                table += (i > 0 ? "," : "") + field;
            }
            table += "\n";
        }
    }
    ImportRequest request;
    request.source = folder.Write("sample.csv", table);
    request.names = folder.Write("sample.names", Names);
    request.book = folder.Path("sample.planbook");
    ImportBook(request);
    return request.book;
}

/// planbook on the screen with the sample book, its trace, and what a user does with keys and menus.
class GoldenWindow : public testing::Test {
protected:
    GoldenWindow() : window_(boxes_, true, &questions_) {}

    void Step(const char* name, const std::function<void()>& act) {
        act();
        QApplication::processEvents();
        transcript_.Begin(name);
        planview::ListView& list = planview::frmTrace::Share()->TraceView;
        for (std::size_t i = 0; i < list.Count(); ++i) {
            transcript_.Add(Masked(planview::test::EntryText(list.Item(i))));
        }
        list.Clear();
        for (const std::string& failure : std::exchange(questions_.failures, {})) {
            transcript_.Add("? " + Masked(failure));
        }
    }
    /// "abc" types, "<Ctrl+C>" presses.
    static void Press(const std::vector<const char*>& keys) {
        for (const char* key : keys) {
            QWidget* focus = QApplication::focusWidget();
            ASSERT_TRUE(focus) << "nothing has the focus";
            if (const QKeySequence sequence =
                    *key == '<' ? QKeySequence(QString(key).chopped(1).mid(1)) : QKeySequence();
                !sequence.isEmpty()) {
                QTest::keyClick(focus, sequence[0].key(), sequence[0].keyboardModifiers());
            } else {
                QTest::keyClicks(focus, key);
            }
        }
    }
    /// Triggers an entry of the menu bar: {"View", "Hide selected rows"}.
    void Choose(const QStringList& path) {
        QApplication::processEvents();  // actions follow what can be done
        QList<QAction*> entries = window_.menuBar()->actions();
        for (const QString& text : path) {
            const auto found = std::find_if(entries.begin(), entries.end(), [&](const QAction* action) {
                return action->text().section('\t', 0, 0).remove('&').remove("…") == text;
            });
            ASSERT_NE(found, entries.end()) << text.toStdString();
            if (QMenu* menu = (*found)->menu()) {
                Q_EMIT menu->aboutToShow();
                entries = menu->actions();
            } else {
                ASSERT_TRUE((*found)->isEnabled()) << text.toStdString();
                (*found)->trigger();
                QApplication::processEvents();
            }
        }
    }
    [[nodiscard]] planview::GridControl& Grid() { return planview::ControlParts(window_.view().control()).Grid(); }
    [[nodiscard]] planview::Cell At(const char* column, const char* row) {
        return Grid().FindCell({column, row}).value();
    }

    const TestFolder folder_;
    ScriptedQuestions questions_;
    HostMessageBoxes boxes_;
    MainWindow window_;
    planview::test::Transcript transcript_;

private:
    /// Without what depends on the machine: its memory, its fonts (and so the sizes of the panes), the folder.
    [[nodiscard]] std::string Masked(std::string text) const {
        const std::string folder = folder_.Path("").string();
        for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
            text.replace(at, folder.size(), "*/");
        }
        static const std::regex Sizes("(width|height|version): ?[0-9.]+|[0-9.]+ KBytes");
        const bool isOfMachine = text.starts_with("USERCONTROL") || text.find("| Layout |") != std::string::npos;
        return isOfMachine ? std::regex_replace(text, Sizes, "$1 *") : text;
    }
};

/// What the user does here, and the trace of it, is kept in golden/window.txt.
TEST_F(GoldenWindow, LeavesTheTraceThatWasKept) {
    using planview::SelectionMode;
    Step("the sample book is opened", [&] { window_.openBook(SampleBook(folder_)); });
    Step("the window is shown", [&] {
        window_.resize(780, 780);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    });
    Step("values are typed", [&] {
        Press({"<Down>", "<Down>", "<Down>", "<Down>", "999,5", "<Return>", "1234", "<Tab>", "12", "<Esc>"});
    });
    Step("a cell is copied to two others", [&] {
        Press({"<Up>", "<Left>", "<Ctrl+C>", "<Down>", "<Shift+Right>", "<Ctrl+V>"});
    });
    Step("cells are emptied, and that is undone and made again", [&] { Press({"<Del>", "<Ctrl+Z>", "<Ctrl+Y>"}); });
    Step("rows are hidden and shown", [&] {
        Grid().SelectRow(Grid().FindRow("ROW7").value(), SelectionMode::Replace);
        Grid().SelectRow(Grid().FindRow("ROW8").value(), SelectionMode::Add);
        Choose({"View", "Hide selected rows"});
        Grid().SelectAll();
        Choose({"View", "Show selected rows"});
    });
    Step("a point of the chart is dragged",
         [&] { planview::ControlParts(window_.view().control()).Chart().UserChangedPoint(1, 2, 7500.5); });
    Step("the chart is hidden and shown", [&] {
        Choose({"View", "Chart", "Chart"});
        Choose({"View", "Chart", "Chart"});
    });
    Step("a line goes into the chart", [&] {
        Grid().SelectRow(Grid().FindRow("ROW7").value(), SelectionMode::Replace);
        Choose({"View", "Chart"});
        window_.view().showSelectedRowsInChart();  // marks them while the chart is hidden
    });
    Step("a macro is run on the selected line", [&] {
        Grid().SelectCell(At("COL2", "ROW7"), SelectionMode::Replace);
        Choose({"Macro", "Run on selected line", "Raise by 5 %"});
    });
    Step("a recording is made and replayed", [&] {
        Choose({"Macro", "Start recording"});
        Grid().SelectCell(At("COL1", "ROW7"), SelectionMode::Replace);
        Press({"42", "<Return>"});
        questions_.names = {"Recorded"};
        Choose({"Macro", "Stop recording"});
        Choose({"Macro", "Run", "Recorded"});
    });
    Step("the macro tree is shown", [&] { Choose({"View", "Macros"}); });
    Step("the book is downloaded and uploaded", [&] {
        const QString workbook = QString::fromStdString(folder_.Path("sample.xlsx").string());
        EXPECT_EQ(window_.view().downloadTo(workbook), QString());
        Grid().EnterText(At("COL2", "ROW7"), "17");
        planview::UploadPreview preview = window_.view().previewUpload(workbook);
        for (planview::UploadChange& change : preview.changes) {
            change.taken = true;  // the book was changed since
        }
        window_.view().applyUpload(preview);
    });
    Step("the changes are reverted", [&] { Choose({"Edit", "Revert changes"}); });
    Step("the window is closed", [&] { EXPECT_TRUE(window_.close()); });
    transcript_.ExpectKept(std::string(GOLDEN_FOLDER) + "/window.txt");
}

}  // namespace
}  // namespace planbook
