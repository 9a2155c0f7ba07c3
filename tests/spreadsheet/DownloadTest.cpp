// SPDX-License-Identifier: MIT
#include <algorithm>

#include "spreadsheet/SpreadsheetFixture.h"

namespace planview {

using test::Lines;

namespace {

class DownloadTest : public test::SpreadsheetTest {
protected:
    [[nodiscard]] bool Saved() const {
        return std::any_of(fake->log.begin(), fake->log.end(),
                           [](const std::string& entry) { return entry.starts_with("Workbook.Saveas"); });
    }
    void ExpectEnded(const std::string& name) const {
        EXPECT_EQ(std::count(fake->log.begin(), fake->log.end(), "Application.Quit"), 1) << name;
        EXPECT_EQ(fake->objects, 0) << name << ": a reference is left";
        EXPECT_FALSE(context.grid.control.Settings().waiting) << name;
        EXPECT_FALSE(context.shared.busy) << name;
    }
    [[nodiscard]] std::string Sheet() {
        std::string text;
        for (int row = 1; row <= 5; ++row) {
            for (int column = 1; column <= 4; ++column) {
                const test::FakeSpreadsheet::CellState& cell = fake->cells[{row, column}];
                text += "[" + cell.value.AsText() + (cell.interior.empty() ? "" : " " + cell.interior) +
                        (cell.locked == "True" ? " locked" : "") + "]";
            }
            text += "\n";
        }
        return text;
    }
};

/// Misses what not every application has.
class PlainWorksheet final : public AutomationObject {
public:
    explicit PlainWorksheet(ObjectRef inner) : inner_(std::move(inner)) {}
    DispatchId IdOf(std::string_view name) const override {
        for (const char* missing : {"NumberFormat", "ActiveWindow", "PageSetup"}) {
            if (name == missing) {
                ThrowUnknownMember("Plain", name);
            }
        }
        return inner_->IdOf(name);
    }
    Variant Get(DispatchId member, Arguments arguments) override { return Wrapped(inner_->Get(member, arguments)); }
    Variant Call(DispatchId member, Arguments arguments) override { return Wrapped(inner_->Call(member, arguments)); }
    void Put(DispatchId member, Arguments arguments, const Variant& value) override {
        inner_->Put(member, arguments, value);
    }

private:
    static Variant Wrapped(const Variant& value) {
        return value.GetKind() == Variant::Kind::Object ? Variant(std::make_shared<PlainWorksheet>(value.AsObject()))
                                                        : value;
    }
    ObjectRef inner_;
};

}  // namespace

TEST_F(DownloadTest, AFileThatTheHostRefusesIsNotWritten) {
    context.spreadsheetOptions.refusal = [](const std::string& file) {
        return file == "/plans/book" ? "There is a book." : "";
    };
    platform.savePaths = {"/plans/book"};
    context.download.Run();
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(platform.messages[0].text, "There is a book.");
    EXPECT_EQ(context.download.SaveTo("/plans/book"), "There is a book.");
    EXPECT_EQ(fake->log, Lines{}) << "nothing was even begun";
    EXPECT_EQ(context.download.SaveTo("/plans/plan.xlsx"), "");
    EXPECT_TRUE(Saved());
}

TEST_F(DownloadTest, WritesTheWholeTablesAndSaysSoInTheTrace) {
    platform.savePaths = {"/plans/Plan \xC3\xA4.xlsx"};
    context.download.Run();

    EXPECT_EQ(Sheet(),
              "[][May 01][May 02][May 03]\n"
              "[Sales][1234.5 2][10 2][ 2]\n"
              "[Costs][-3 2][ 2][ 2]\n"
              "[Result][1231.5 15 locked][ 15 locked][ 15 locked]\n"
              "[Notes][ 15 locked][ 15 locked][ 15 locked]\n");
    EXPECT_EQ(fake->cells[(test::FakeSpreadsheet::Place{2, 2})].value.GetKind(), Variant::Kind::Double);
    EXPECT_TRUE(fake->cells[(test::FakeSpreadsheet::Place{5, 2})].value.IsEmpty()) << "no number for text lines";
    EXPECT_EQ(fake->log, (Lines{
                             "Application.Workbooks.Add",
                             "Workbook.Title=Zet Q/7 download",
                             "Workbook.Subject=PlanView",
                             "Worksheet.Unprotect",
                             "Worksheet.Cells.HorizontalAlignment=4",
                             "Worksheet.Cells.Borders.LineStyle=1",
                             "Worksheet.Cells.Borders.ColorIndex=1",
                             "Worksheet.Cells.Font.Size=10",
                             "Worksheet.Columns(1).Font.Bold=True",
                             "Worksheet.Columns(1).Font.Size=10",
                             "Worksheet.Columns(1).ColumnWidth=20",
                             "Worksheet.Columns(1).Interior.ColorIndex=15",
                             "Worksheet.Columns(1).Borders.LineStyle=9",
                             "Worksheet.Columns(1).Borders.ColorIndex=1",
                             "Worksheet.Columns(1).HorizontalAlignment=2",
                             "Worksheet.Rows(1).Font.Bold=True",
                             "Worksheet.Rows(1).Font.Size=10",
                             "Worksheet.Rows(1).Interior.ColorIndex=15",
                             "Worksheet.Rows(1).Borders.LineStyle=9",
                             "Worksheet.Rows(1).Borders.ColorIndex=1",
                             "Worksheet.Rows(1).HorizontalAlignment=2",
                             "Worksheet.Rows(2).NumberFormat=#,##0.0",
                             "Worksheet.Columns(1).NumberFormat=@",
                             "Worksheet.Rows(1).NumberFormat=@",
                             "Application.ActiveWindow.SplitRow=1",
                             "Application.ActiveWindow.SplitColumn=1",
                             "Application.ActiveWindow.FreezePanes=True",
                             "Worksheet.Protect",
                             "Worksheets.Add",
                             "Added.Name=PlanView download",
                             "Worksheet.Move(object)",
                             "Added.Visible=0",
                             "Added.Protect",
                             "Workbook.Saveas(/plans/Plan \xC3\xA4.xlsx)",
                             "Application.Quit",
                         }));
    EXPECT_EQ(Entries(), (Lines{
                             "EXCEL | {} | #EXCEL DOWNLOAD# | BEGIN",
                             "EXCEL |  | connect | {}",
                             "EXCEL |  | CheckVersion | {version:True}",
                             "GRIDCTL |  | state | {value:True}",
                             "EXCEL |  | NewSheet | {}",
                             "EXCEL |  | FormatSheet | {}",
                             "EXCEL |  | DownloadLabels | {column label: May 01}",
                             "EXCEL |  | DownloadLabels | {column label: May 02}",
                             "EXCEL |  | DownloadLabels | {column label: May 03}",
                             "EXCEL |  | DownloadLabels | {row label: Sales}",
                             "EXCEL |  | DownloadLabels | {row label: Costs}",
                             "EXCEL |  | DownloadLabels | {row label: Result}",
                             "EXCEL |  | DownloadLabels | {row label: Notes}",
                             "EXCEL |  | DownloadData | {label: Sales}",
                             "EXCEL |  | DownloadData | {label: Costs}",
                             "EXCEL |  | DownloadData | {label: Result}",
                             "EXCEL |  | DownloadData | {label: Notes}",
                             "EXCEL |  | Save | {}",
                             "EXCEL |  | Quit | {}",
                             "GRIDCTL |  | state | {value:False}",
                             "EXCEL |  | Terminate | {}",
                         }));
    EXPECT_EQ(platform.progress.titles, Lines{"Saving the table as a workbook"});
    EXPECT_EQ(platform.progress.ended, 1);
    EXPECT_EQ(Messages(), "");
    EXPECT_LE(fake->cellLookUps, 7) << "members of cells are looked up for each cell";
    ExpectEnded("saved");
}

TEST_F(DownloadTest, KeysAndValuesAreKeptOnAHiddenSheet) {
    tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "FREET"}, "Costs|\\\tnet");
    DownloadToFake();
    const auto record = [&](int row) { return fake->added[{row, 1}].value.AsText(); };
    EXPECT_EQ(record(1), "PlanView download 1");
    EXPECT_EQ(record(2), "|COL1|COL2|COL3");
    EXPECT_EQ(record(3), "|May 01|May 02|May 03");
    EXPECT_EQ(record(4), "|ROW1|Sales|1234,5|10|");
    EXPECT_EQ(record(5), "|ROW2|Costs\\|\\\\\\tnet|-3||");
    EXPECT_EQ(record(7), "|ROW4|Notes|||") << "text lines have no values";
}

TEST_F(DownloadTest, WithoutASecondSheetTheTableIsSavedAllTheSame) {
    for (const char* failing : {"Worksheets.Add", "Added.Name", "Worksheet.Move", "Added.Visible", "AddedCell.Value"}) {
        fake = std::make_shared<test::FakeSpreadsheet>();
        fake->failing = failing;
        EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "") << failing;
        EXPECT_TRUE(Saved()) << failing;
        fake->failing.clear();
        EXPECT_EQ(context.upload.Preview("plan.xlsx").changes.size(), 0U) << failing << ": half a record is none";
    }
}

TEST_F(DownloadTest, CaptionsFollowLtext) {
    tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{1}, "LTEXT"}, "P");
    tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{1}, "PLOBT"}, "object");
    tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "LTEXT"}, "");
    tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "DDICT"}, "dictionary");
    DownloadToFake();
    EXPECT_EQ(fake->Value(2, 1), "object");
    EXPECT_EQ(fake->Value(3, 1), "dictionary");
    EXPECT_EQ(fake->Value(4, 1), "Result");
}

TEST_F(DownloadTest, AsksForTheFileInTheHostsWords) {
    context.download.Run();
    context.shared.tables.TEXTS = HostTable(tables.texts);
    test::AddRow(*tables.texts, {{"ENTRY", 135}, {"TEXT", "In Excel sichern"}});
    context.spreadsheetOptions.folder = "/plans";
    context.spreadsheetOptions.fileName = "May.xlsx";
    platform.savePaths = {"", "May.xlsx"};
    context.download.Run();
    context.download.Run();

    ASSERT_EQ(platform.fileRequests.size(), 3U);
    EXPECT_EQ(platform.fileRequests[0].title, "Save to Excel sheet");
    EXPECT_EQ(platform.fileRequests[0].extensions, Lines{"xlsx"});
    EXPECT_EQ(platform.fileRequests[0].fileName, "Plan.xlsx");
    EXPECT_EQ(platform.fileRequests[1].title, "In Excel sichern");
    EXPECT_EQ(platform.fileRequests[1].folder, "/plans");
    EXPECT_EQ(platform.fileRequests[1].fileName, "May.xlsx");
    EXPECT_EQ(fake->log, Lines{}) << "cancelled, empty, unchanged";
    EXPECT_EQ(SpreadsheetEntries().size(), 3U) << "nothing but the opening entries";
}

TEST_F(DownloadTest, WithoutAnApplicationThereIsAMessage) {
    for (const bool fails : {false, true}) {
        if (fails) {
            ExpectErrors();
            platform.objects.Register("Excel.Application", []() -> ObjectRef {
                throw AutomationError(AutomationErrorCode::Failed, "no licence");
            });
        } else {
            platform.objects.Unregister("Excel.Application");
        }
        platform.messages.clear();
        platform.savePaths = {"plan.xlsx"};
        context.download.Run();
        ASSERT_EQ(platform.messages.size(), 1U);
        EXPECT_EQ(platform.messages[0].text, "No connection to Microsoft Excel !");
        EXPECT_EQ(platform.messages[0].title, "Internal error message");
        EXPECT_EQ(platform.messages[0].icon, MessageIcon::Error);
        EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "No connection to Microsoft Excel !");
        EXPECT_EQ(platform.messages.size(), 1U) << "a host without dialogs gets the text alone";
        EXPECT_EQ(EntriesOf("state"), Lines{});
    }
}

TEST_F(DownloadTest, AnotherVersionIsUsedAllTheSame) {
    fake->version = "8.0a";
    DownloadToFake();
    platform.savePaths = {"plan.xlsx"};
    context.download.Run();
    EXPECT_EQ(EntriesOf("CheckVersion"), Lines{"EXCEL |  | CheckVersion | {version:False}"});
    EXPECT_TRUE(Saved());
}

TEST_F(DownloadTest, AFailingCallEndsItsOwnProcedure) {
    ExpectErrors();
    const struct {
        const char* failing;
        const char* procedure;
        bool saved;
    } cases[] = {
        {"Application.Version", "CheckVersion", true},
        {"Application.Workbooks.Add", "NewSheet", false},
        {"Workbook.Worksheets", "NewSheet", false},
        {"Workbook.Subject", "NewSheet", false},
        {"Worksheet.Unprotect", "FormatSheet", true},
        {"Worksheet.Columns(1).Borders", "FormatSheet", true},
        {"Cell.Value", "DownloadLabels", false},
        {"Cell.Interior", "DownloadData", false},
        {"Cell.Locked", "DownloadData", false},
        {"Worksheet.Protect", "DownloadData", false},
        {"Workbook.Saveas", "Save", false},
        {"Application.Quit", "Quit", true},
    };
    for (const auto& row : cases) {
        fake = std::make_shared<test::FakeSpreadsheet>();
        fake->failing = row.failing;
        ForgetEntries();
        const std::string error = context.download.SaveTo("plan.xlsx");
        EXPECT_EQ(Saved(), row.saved) << row.failing;
        EXPECT_EQ(error.empty(), row.saved) << row.failing << ": " << error;
        EXPECT_TRUE(row.saved || error.find(std::string("fails at ") + row.failing) != std::string::npos) << error;
        const Lines errors = Entries(IsError);
        ASSERT_EQ(errors.size(), 1U) << row.failing;
        EXPECT_NE(errors[0].find(std::string("| ") + row.procedure + " |"), std::string::npos) << errors[0];
        EXPECT_EQ(EntriesOf("Quit").front(), "EXCEL |  | Quit | {}") << row.failing;
        EXPECT_EQ(EntriesOf("Terminate").size(), 1U) << row.failing;
        EXPECT_EQ(fake->objects, 0) << row.failing;
        EXPECT_FALSE(context.grid.control.Settings().waiting) << row.failing;
    }
    EXPECT_EQ(platform.messages.size(), 0U);
    fake->failing = "Workbook.Saveas";
    platform.savePaths = {"plan.xlsx"};
    context.download.Run();
    EXPECT_EQ(Messages(), "The table was not saved as a workbook. fails at Workbook.Saveas(plan.xlsx)\n");
}

TEST_F(DownloadTest, AnApplicationOfTheHostMayLackTheExtras) {
    context.spreadsheetOptions.printSetup = true;
    platform.objects.Register("Excel.Application", [this]() -> ObjectRef {
        return std::make_shared<PlainWorksheet>(test::MakeApplication(fake));
    });
    EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "");
    EXPECT_EQ(fake->Value(2, 2), "1234.5");
    EXPECT_TRUE(Saved());
    EXPECT_EQ(EntriesOf("FreezePanes").size(), 1U);
    ExpectEnded("plain");
}

TEST_F(DownloadTest, PrintSetUpIsAnOption) {
    const auto hasPage = [&] {
        return std::count_if(fake->log.begin(), fake->log.end(),
                             [](const std::string& entry) { return entry.starts_with("Worksheet.PageSetup."); });
    };
    EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "");
    EXPECT_EQ(hasPage(), 0);
    context.spreadsheetOptions.printSetup = true;
    EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "");
    EXPECT_EQ(hasPage(), 3);
}

TEST_F(DownloadTest, TheHostsMarkStandsInTheCorner) {
    context.spreadsheetOptions.mark = "INCOMPLETE: 1 place";
    EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "");
    EXPECT_EQ(fake->cells[(test::FakeSpreadsheet::Place{1, 1})].value, Variant("INCOMPLETE: 1 place"));
    EXPECT_EQ(fake->cells[(test::FakeSpreadsheet::Place{1, 2})].value, Variant("May 01"));
}

TEST_F(DownloadTest, CancellingLeavesNothing) {
    for (const int step : {1, 2, 3}) {
        fake->log.clear();
        platform.progress.cancelAt = step;
        platform.savePaths = {"plan.xlsx"};
        context.download.Run();
        EXPECT_FALSE(Saved()) << step;
        EXPECT_EQ(platform.progress.done, step);
        EXPECT_EQ(Messages(), "") << "the user knows that he has cancelled";
        ExpectEnded("cancelled");
    }
}

TEST_F(DownloadTest, WideColumnsGetRoom) {
    tables.AddValue(2, 2, 1234567890.5);
    context.grid.construction.CreateFromTables();
    EXPECT_EQ(context.download.SaveTo("plan.xlsx"), "");
    EXPECT_EQ(std::count_if(fake->log.begin(), fake->log.end(),
                            [](const std::string& entry) { return entry.ends_with(").ColumnWidth=17"); }),
              1);
}

TEST_F(DownloadTest, WhatDoesNotFit16BitsEndsAtTheTrap) {
    ExpectErrors();
    class Endless final : public AutomationObject {
    public:
        explicit Endless(std::int32_t rows) : rows_(rows) {}
        DispatchId IdOf(std::string_view) const override { return 1; }
        Variant Get(DispatchId member, Arguments) override { return member == 1 ? Variant(rows_) : Variant(""); }
        Variant Call(DispatchId, Arguments) override { return {}; }
        void Put(DispatchId, Arguments, const Variant&) override {}

    private:
        std::int32_t rows_;
    };
    for (const std::int32_t rows : {32767, 32768, -1}) {
        context.shared.tables.LINE_INDEX = HostTable(std::make_shared<Endless>(rows));
        const std::string error = context.download.SaveTo("plan.xlsx");
        EXPECT_NE(error, "") << rows;
        EXPECT_FALSE(Saved()) << rows;
    }
    context.shared.tables.LINE_INDEX = HostTable();
    EXPECT_NE(context.download.SaveTo("plan.xlsx"), "") << "no table";
    EXPECT_FALSE(Saved());
    EXPECT_EQ(fake->objects, 0);
}

TEST_F(DownloadTest, RunsOnceAtATime) {
    platform.savePaths = {"a.xlsx", "b.xlsx"};
    std::string second;
    platform.objects.Register("Excel.Application", [&] {
        second = context.download.SaveTo("c.xlsx");
        context.download.Run();
        return test::MakeApplication(fake);
    });
    context.download.Run();
    EXPECT_EQ(second, "A download is running already. Wait for its end.");
    EXPECT_EQ(std::count_if(fake->log.begin(), fake->log.end(),
                            [](const std::string& entry) { return entry.starts_with("Workbook.Saveas"); }),
              1);
}

TEST_F(DownloadTest, AHostWithoutDialogsGetsAnswers) {
    PlanView control(platform.Interfaces());
    tables.GiveTo(control);
    control.DP_Import_Create();
    EXPECT_EQ(control.Exchange().DownloadTo("plan.xlsx"), "");
    EXPECT_TRUE(Saved());
    fake->cells[(test::FakeSpreadsheet::Place{2, 2})].value = 5;
    const UploadPreview preview = control.Exchange().PreviewUpload("plan.xlsx");
    EXPECT_EQ(preview.error, "");
    ASSERT_EQ(preview.changes.size(), 1U);
    EXPECT_EQ(control.Exchange().ApplyUpload(preview).changed, 1);
    EXPECT_TRUE(control.Editing().CanUndo());
    EXPECT_EQ(control.Exchange().ApplyUpload(preview).outdated, 1) << "it has been applied already";

    platform.objects.Unregister("Excel.Application");
    EXPECT_EQ(control.Exchange().DownloadTo("plan.xlsx"), "No connection to Microsoft Excel !");
    EXPECT_EQ(control.Exchange().PreviewUpload("plan.xlsx").error, "No connection to Microsoft Excel !");
    control.Terminate();
    EXPECT_EQ(control.Exchange().DownloadTo("plan.xlsx"), "The control has ended.");
    EXPECT_EQ(control.Exchange().PreviewUpload("plan.xlsx").error, "The control has ended.");
    EXPECT_EQ(control.Exchange().ApplyUpload(preview).changed, 0);
}

TEST_F(DownloadTest, TheCommandIsInThePopup) {
    platform.choices = {"mnuExcelDn"};
    platform.savePaths = {"plan.xlsx"};
    context.menus.Open(LabelColumnKey, HeadingRowKey, PopupPlace::Mouse);
    EXPECT_TRUE(Saved());
}

}  // namespace planview
