// SPDX-License-Identifier: MIT
#include "dialogs/frmUpload.h"
#include "spreadsheet/SpreadsheetFixture.h"

namespace planview {

using test::Lines;

namespace {

class UploadTest : public test::SpreadsheetTest {
protected:
    UploadTest() { DownloadToFake(); }

    void Edit(int row, int column, const Variant& value) { fake->cells[{row, column}].value = value; }
    static Lines Texts(const UploadPreview& preview) {
        Lines texts;
        for (const UploadChange& change : preview.changes) {
            const char* const from = change.origin == UploadOrigin::Workbook ? ""
                                     : change.origin == UploadOrigin::Book   ? "book: "
                                                                             : "both: ";
            EXPECT_TRUE(change.IsRefused() || change.taken == (change.origin == UploadOrigin::Workbook));
            texts.push_back(from + change.line + "/" + change.period + ": " + change.before + " -> " + change.after +
                            (change.IsRefused() ? " (" + change.refusal + ")" : ""));
        }
        return texts;
    }
    [[nodiscard]] Lines Differences() { return Texts(context.upload.Preview("plan.xlsx")); }
    void WhileShown(std::function<void(frmUpload&)> act) {
        platform.whileShown = [act](Form& form) { act(dynamic_cast<frmUpload&>(form)); };
    }
    void RunUpload() {
        platform.openPaths = {"/plans/plan.xlsx"};
        context.upload.Run();
    }
    [[nodiscard]] std::string InTab(const MemoryTable& table) const {
        std::string text;
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            text += (row > 1 ? " " : "") + table.Value(row, "Z").AsText() + "," + table.Value(row, "C").AsText() + "=" +
                    table.Value(row, "V").AsText();
        }
        return text;
    }
};

}  // namespace

TEST_F(UploadTest, ComparesWhatTheSheetSaysWithTheGrid) {
    const struct {
        const char* name;
        int row;
        int column;
        Variant value;
        const char* expected;  ///< empty: no difference
    } cases[] = {
        {"the same", 2, 2, 1234.5, ""},
        {"the same as a text", 2, 2, "1.234,5", ""},
        {"the same in fewer digits", 2, 2, 1234.5000000000001, ""},
        {"another number", 2, 2, 7.25, "Sales/May 01: 1234,5 -> 7,25"},
        {"a decimal text", 2, 3, "2,5", "Sales/May 02: 10 -> 2,5"},
        {"a whole number", 2, 3, std::int32_t{11}, "Sales/May 02: 10 -> 11"},
        {"emptied", 2, 3, Variant(), "Sales/May 02: 10 -> "},
        {"emptied to blanks", 2, 3, "  ", "Sales/May 02: 10 -> "},
        {"filled", 2, 4, -1, "Sales/May 03:  -> -1"},
        {"still empty", 2, 4, "", ""},
        {"a word", 2, 2, "much",
         "Sales/May 01: 1234,5 -> much (This is not a number. Enter digits with a point or a comma, or nothing.)"},
        {"an error", 2, 2, "#DIV/0!",
         "Sales/May 01: 1234,5 -> #DIV/0! (This is the error #DIV/0!, a division by zero. Mend the formula in the "
         "workbook.)"},
        {"a formula without a value", 2, 2, "=B3*2",
         "Sales/May 01: 1234,5 -> =B3*2 (This formula was never calculated. Open the workbook in a spreadsheet "
         "application and save it.)"},
        {"a date", 2, 2, "2026-02-01",
         "Sales/May 01: 1234,5 -> 2026-02-01 (This is a date or a time. Give the cell a number format in the "
         "workbook and enter a number.)"},
        {"a time", 2, 2, "18:00",
         "Sales/May 01: 1234,5 -> 18:00 (This is a date or a time. Give the cell a number format in the "
         "workbook and enter a number.)"},
        {"true", 2, 2, true,
         "Sales/May 01: 1234,5 -> TRUE (This is not a number. Enter digits with a point or a comma, or nothing.)"},
        {"no finite number", 2, 2, std::numeric_limits<double>::infinity(),
         "Sales/May 01: 1234,5 -> no finite number (This is not a number. Enter digits with a point or a comma, or "
         "nothing.)"},
        {"read-only", 4, 2, 5, "Result/May 01: 1231,5 -> 5 (This cell is read-only.)"},
        {"a text line", 5, 2, 5, "Notes/May 01:  -> 5 (This line carries text and takes no values.)"},
    };
    for (const auto& row : cases) {
        DownloadToFake();
        Edit(row.row, row.column, row.value);
        EXPECT_EQ(Differences(), row.expected[0] == '\0' ? Lines{} : Lines{row.expected}) << row.name;
    }
    EXPECT_EQ(InTab(*tables.tabOld), "") << "looking changes nothing";
    EXPECT_EQ(events.size(), 0U);
}

TEST_F(UploadTest, EachChangeKnowsTheFormatOfItsCell) {
    context.grid.driver.Format({"COL1", "ROW1"}, "#,##0", false);
    Edit(2, 2, 9876.5);
    Edit(3, 2, 5);
    const UploadPreview preview = context.upload.Preview("plan.xlsx");
    ASSERT_EQ(preview.changes.size(), 2U);
    EXPECT_EQ(preview.changes[0].format, "#,##0");
    EXPECT_EQ(preview.changes[0].after, "9876,5");
}

TEST_F(UploadTest, TellsWhereAValueWasChanged) {
    const struct {
        const char* name;
        Variant inWorkbook;
        const char* inBook;
        const char* expected;
    } cases[] = {
        {"in neither", 10, nullptr, ""},
        {"in the workbook", 11, nullptr, "Sales/May 02: 10 -> 11"},
        {"in the book", 10, "12", "book: Sales/May 02: 12 -> 10"},
        {"emptied in the book", 10, "", "book: Sales/May 02:  -> 10"},
        {"in both", 11, "12", "both: Sales/May 02: 12 -> 11"},
        {"in both, to the same", 12, "12", ""},
        {"to another form of the same number", "10,0", nullptr, ""},
        {"to no number, and in the book", "x", "12",
         "both: Sales/May 02: 12 -> x (This is not a number. Enter digits with a point or a comma, or nothing.)"},
    };
    for (const auto& row : cases) {
        tables.tab->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "V"}, 10);
        context.grid.construction.CreateFromTables();
        DownloadToFake();
        Edit(2, 3, row.inWorkbook);
        if (row.inBook) {
            context.grid.control.EnterText(context.grid.control.FindCell({"COL2", "ROW1"}).value(), row.inBook);
        }
        EXPECT_EQ(Differences(), row.expected[0] == '\0' ? Lines{} : Lines{row.expected}) << row.name;
    }
    tables.tab->Put(DefaultMember, std::vector<Variant>{std::int16_t{4}, "V"}, 99);
    context.grid.construction.CreateFromTables();
    DownloadToFake();
    tables.tab->Put(DefaultMember, std::vector<Variant>{std::int16_t{4}, "V"}, 100);
    context.grid.construction.CreateFromTables();
    EXPECT_EQ(Differences(), Lines{}) << "a read-only cell that the workbook did not change is no refusal";
}

TEST_F(UploadTest, OnlyWhatTheWorkbookChangedIsTickedByItself) {
    Edit(2, 2, 5);
    Edit(2, 3, 6);
    const auto enter = [&](const char* column, const char* row, const char* text) {
        context.grid.control.EnterText(context.grid.control.FindCell({column, row}).value(), text);
    };
    enter("COL2", "ROW1", "7");
    enter("COL1", "ROW2", "8");
    WhileShown([&](frmUpload& form) {
        EXPECT_EQ(form.lblSummary, "1 changed value, 1 changed in the table too, 1 changed in the table only");
        EXPECT_EQ(form.cmdOkCaption, "Apply 1 change");
        EXPECT_EQ(RemarkOf(form.Preview().changes[1]), "Changed in both. It was 10,0.");
        EXPECT_EQ(RemarkOf(form.Preview().changes[2]), "Changed in the table. It was -3.");
        form.Tick(2, true);
        form.cmdOk_Click();
    });
    RunUpload();
    EXPECT_EQ(Shown("COL1", "ROW1"), "5");
    EXPECT_EQ(Shown("COL2", "ROW1"), "7");
    EXPECT_EQ(Shown("COL1", "ROW2"), "-3") << "ticked by hand: as it was downloaded";
}

TEST_F(UploadTest, LinesOfOneCaptionAreFoundAfterSorting) {
    tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "FREET"}, "Sales");
    const auto swapRows = [&] {
        for (int column = 1; column <= 4; ++column) {
            std::swap(fake->cells[{2, column}], fake->cells[{3, column}]);
        }
    };
    const char* const remark =
        "Several lines are called \"Sales\"; they were taken in the order in which they stand. Look at their values if "
        "the workbook was sorted.";
    const char* const note =
        "Several lines are called \"Sales\", and which is which cannot be told; their values are left alone.";
    const struct {
        const char* name;
        bool sameValues;
        bool hasRecord;
        std::function<void()> edit;
        Lines changes;
        Lines notes;
        Lines remarks;
    } cases[] = {
        {"sorted and changed",
         false,
         true,
         [&] {
             swapRows();
             Edit(2, 4, 5);
         },
         {"ROW2/COL3=5"},
         {},
         {}},
        {"changed", false, true, [&] { Edit(2, 4, 5); }, {"ROW1/COL3=5"}, {}, {}},
        {"the same values", true, true, [&] { Edit(3, 4, 5); }, {"ROW2/COL3=5"}, {}, {remark}},
        {"the same values, other lines sorted",
         true,
         true,
         [&] {
             Edit(3, 4, 5);
             std::swap(fake->cells[{4, 1}], fake->cells[{5, 1}]);
         },
         {},
         {note},
         {}},
        {"without a record", false, false, [&] { Edit(3, 4, 5); }, {"ROW2/COL3=5"}, {}, {remark}},
        {"without a record, a line added",
         false,
         false,
         [&] {
             Edit(3, 4, 5);
             Edit(6, 1, "Margin");
         },
         {},
         {"Row 6, \"Margin\", belongs to no line of the table and is not read.", note},
         {}},
    };
    for (const auto& row : cases) {
        tables.tab->Clear();
        for (int line = 1; line <= 2; ++line) {
            tables.AddValue(line, 1, row.sameValues ? 1 : line);
            tables.AddValue(line, 2, row.sameValues ? 1 : 10 * line);
        }
        context.grid.construction.CreateFromTables();
        DownloadToFake();
        fake->addedName = row.hasRecord ? fake->addedName : "";
        row.edit();
        const UploadPreview preview = context.upload.Preview("plan.xlsx");
        Lines changes;
        for (const UploadChange& change : preview.changes) {
            changes.push_back(change.row + "/" + change.column + "=" + change.after);
        }
        EXPECT_EQ(changes, row.changes) << row.name;
        EXPECT_EQ(preview.notes, row.notes) << row.name;
        EXPECT_EQ(preview.remarks, row.remarks) << row.name;
    }
}

TEST_F(UploadTest, ALineThatWasRenamedInTheBookIsFoundByItsKey) {
    Edit(3, 2, 5);
    tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "FREET"}, "Expenses");
    context.grid.construction.CreateFromTables();
    EXPECT_EQ(Differences(), Lines{"Expenses/May 01: -3 -> 5"});
    EXPECT_EQ(context.upload.Preview("plan.xlsx").notes, Lines{});
    fake->addedName.clear();
    EXPECT_EQ(Differences(), Lines{}) << "without the record its caption is another one";
}

TEST_F(UploadTest, ReadsTextsInTheirPlace) {
    const struct {
        const char* why;
        const char* first;   // in Sales/May 01, whose code groups
        const char* second;  // in Costs/May 01
        Lines expected;
        const char* note = "";
    } cases[] = {
        {"by the number code, guessed",
         "136.000",
         "136.000",
         {"Sales/May 01: 1234,5 -> 136000", "Costs/May 01: -3 -> 136"},
         "\"136.000\" in \"Sales\", \"May 01\" is a text that can mean 136.000 or 136 and is taken as the first, as "
         "are "
         "others like it. Make the texts numbers in the workbook where that is wrong."},
        {"by another text behind it", "136.000", "1.5", {"Sales/May 01: 1234,5 -> 136", "Costs/May 01: -3 -> 1,5"}},
        {"by another text before it", "1.234,5", "136.000", {"Costs/May 01: -3 -> 136000"}},
        {"as cells show them", "50%", "(7)", {"Sales/May 01: 1234,5 -> 0,5", "Costs/May 01: -3 -> -7"}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        DownloadToFake();
        Edit(2, 2, row.first);
        Edit(3, 2, row.second);
        const UploadPreview preview = context.upload.Preview("plan.xlsx");
        EXPECT_EQ(Texts(preview), row.expected);
        EXPECT_EQ(preview.remarks, *row.note == '\0' ? Lines{} : Lines{row.note});
    }
}

TEST_F(UploadTest, TakesNoEmptinessFromMergedCells) {
    Edit(2, 2, "");
    fake->cells[(test::FakeSpreadsheet::Place{2, 2})].merged = true;
    Edit(2, 3, 5);
    fake->cells[(test::FakeSpreadsheet::Place{2, 3})].merged = true;
    EXPECT_EQ(Differences(),
              (Lines{"Sales/May 01: 1234,5 ->  (The cell is merged with others in the workbook. Unmerge them there.)",
                     "Sales/May 02: 10 -> 5"}));
}

TEST_F(UploadTest, SaysWhatDoesNotMatch) {
    const struct {
        const char* name;
        int row;
        int column;
        const char* caption;
        const char* note;
    } cases[] = {
        {"a renamed line", 3, 1, "Expenses",
         "Row 3 is called \"Expenses\" where the table has the line \"Costs\"; its values are left alone. Give it its "
         "old name to have them read."},
        {"a renamed period", 1, 3, "June",
         "Column C is called \"June\" where the table has the period \"May 02\"; its values are left alone. Give it "
         "its old name to have them read."},
        {"an extra line", 6, 1, "Margin", "Row 6, \"Margin\", belongs to no line of the table and is not read."},
        {"an extra period far behind", 1, 40, "Year",
         "Column AN, \"Year\", belongs to no period of the table and is not read."},
        {"a line without a caption", 3, 1, "", "The line \"Costs\" is not in the workbook and stays as it is."},
        {"a line twice", 3, 1, "Sales", nullptr},
    };
    for (const auto& row : cases) {
        DownloadToFake();
        Edit(2, 2, 5);
        Edit(row.row, row.column, row.caption);
        const UploadPreview preview = context.upload.Preview("plan.xlsx");
        EXPECT_EQ(preview.error, "") << row.name;
        if (row.note) {
            EXPECT_EQ(preview.notes, Lines{row.note}) << row.name;
            EXPECT_EQ(Texts(preview), Lines{"Sales/May 01: 1234,5 -> 5"}) << row.name;
        } else {
            EXPECT_EQ(preview.notes,
                      (Lines{"The line \"Costs\" is not in the workbook and stays as it is.",
                             "Several lines are called \"Sales\", and which is which cannot be told; their values are "
                             "left alone."}));
            EXPECT_EQ(Texts(preview), Lines{}) << row.name;
        }
    }
}

TEST_F(UploadTest, TakesNothingFromAnotherBook) {
    ExpectErrors();
    fake->sheetName = "Other";
    for (int row = 2; row <= 5; ++row) {
        Edit(row, 1, "X" + std::to_string(row));
    }
    RunUpload();
    EXPECT_EQ(
        Messages(),
        "This is no download of this table: most lines on its sheet \"Other\" are none of the table's. Choose the "
        "workbook that was downloaded from it, or save it with the right sheet in front.\n");
    EXPECT_EQ(platform.formCalls, Lines{});
    EXPECT_EQ(InTab(*tables.tabOld), "");
}

TEST_F(UploadTest, AppliesWhatIsTickedAsOneAction) {
    Edit(2, 2, 5);
    Edit(2, 3, "");
    Edit(3, 4, 7.5);
    Edit(4, 2, 1);
    WhileShown([&](frmUpload& form) {
        EXPECT_EQ(form.lblFile, "plan.xlsx, sheet Tabelle1");
        EXPECT_EQ(form.lblSummary, "3 changed values, 1 refused");
        EXPECT_EQ(form.cmdOkCaption, "Apply 3 changes");
        form.Tick(1, false);
        form.Tick(3, true);
        EXPECT_EQ(form.Ticked(), 2) << "a refused one cannot be ticked";
        EXPECT_EQ(form.cmdOkCaption, "Apply 2 changes");
        form.cmdOk_Click();
    });
    RunUpload();

    EXPECT_EQ(Shown("COL1", "ROW1"), "5");
    EXPECT_EQ(Shown("COL2", "ROW1"), "10") << "unticked";
    EXPECT_EQ(Shown("COL3", "ROW2"), "7,5");
    EXPECT_EQ(Shown("COL1", "ROW3"), "1231,5") << "refused";
    EXPECT_EQ(InTab(*tables.tab), "1,1=5 1,2=10 2,1=-3 3,1=1231.5 2,3=7.5");
    EXPECT_EQ(InTab(*tables.tabOld), "1,1=1234.5 2,3=");
    EXPECT_EQ(events, std::vector<EventId>{EventId::GridStartUpdate}) << "as a paste announces it";
    EXPECT_EQ(Messages(), "");
    EXPECT_EQ(platform.formCalls, (Lines{"load frmUpload", "show frmUpload", "hide frmUpload", "unload frmUpload"}));

    context.grid.valueEntry.Undo();
    EXPECT_EQ(Shown("COL1", "ROW1"), "1234,5");
    EXPECT_EQ(Shown("COL3", "ROW2"), "");
    EXPECT_FALSE(context.grid.history.CanUndo()) << "it was one step";
}

TEST_F(UploadTest, AsksBeforeItEmptiesMuch) {
    Edit(2, 2, Variant());
    Edit(2, 3, 11);
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        WhileShown([](frmUpload& form) { form.cmdOk_Click(); });
        platform.answer = answer;
        platform.messages.clear();
        RunUpload();
        EXPECT_EQ(
            Messages(),
            "This empties 1 of 4 values. The workbook may come from a table that was not complete. Empty them?\n");
        const bool empties = answer == MessageAnswer::Yes;
        EXPECT_EQ(Shown("COL1", "ROW1"), empties ? "" : "1234,5");
        EXPECT_EQ(Shown("COL2", "ROW1"), empties ? "11" : "10");
    }
}

TEST_F(UploadTest, SingleValueAnnouncesEachCell) {
    context.shared.settings.singleValue = 1;
    Edit(2, 2, 5);
    Edit(3, 2, 6);
    WhileShown([](frmUpload& form) { form.cmdOk_Click(); });
    RunUpload();
    EXPECT_EQ(events, (std::vector<EventId>{EventId::GridValueChanged, EventId::GridValueChanged}));
}

TEST_F(UploadTest, CancelAndClosingChangeNothing) {
    Edit(2, 2, 5);
    for (const bool byButton : {true, false}) {
        WhileShown([&](frmUpload& form) {
            if (byButton) {
                form.cmdCancel_Click();
            }
        });
        RunUpload();
    }
    WhileShown([](frmUpload& form) {
        form.Tick(0, false);
        form.cmdOk_Click();
        EXPECT_EQ(form.ButtonPressed, "CANCEL") << "nothing is ticked";
    });
    RunUpload();
    platform.openPaths = {};
    context.upload.Run();
    EXPECT_EQ(Shown("COL1", "ROW1"), "1234,5");
    EXPECT_EQ(InTab(*tables.tabOld), "");
    EXPECT_EQ(platform.fileRequests.back().title, "Upload from Excel sheet");
    EXPECT_EQ(platform.fileRequests.back().extensions, (Lines{"xlsx", "xlsm"}));
}

TEST_F(UploadTest, WithoutDifferencesItSaysSo) {
    RunUpload();
    EXPECT_EQ(Messages(), "The workbook holds the same values as the table. There is nothing to upload.\n");
    EXPECT_EQ(platform.messages[0].icon, MessageIcon::Information);
    EXPECT_EQ(platform.formCalls, Lines{});
}

TEST_F(UploadTest, LeavesAloneWhatChangedMeanwhile) {
    Edit(2, 2, 5);
    Edit(2, 3, 6);
    Edit(3, 2, 7);
    const struct {
        const char* name;
        std::function<void()> meanwhile;
        int changed;
    } cases[] = {
        {"nothing", [] {}, 3},
        {"another value in one cell",
         [&] {
             context.grid.control.EnterText(context.grid.control.FindCell({"COL2", "ROW1"}).value(), "99");
         },
         2},
        {"the grid built again as it was", [&] { context.grid.construction.CreateFromTables(); }, 3},
        {"a line replaced by another one",
         [&] {
             tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "FREET"}, "Other");
             context.grid.construction.CreateFromTables();
         },
         2},
        {"the grid gone", [&] { context.grid.control.Destroy(true); }, 0},
    };
    for (const auto& row : cases) {
        context.grid.construction.CreateFromTables();
        platform.messages.clear();
        const UploadPreview preview = context.upload.Preview("plan.xlsx");
        ASSERT_EQ(preview.changes.size(), 3U) << row.name;
        row.meanwhile();
        const UploadResult result = context.upload.Apply(preview);
        EXPECT_EQ(result.changed, row.changed) << row.name;
        EXPECT_EQ(result.outdated, 3 - row.changed) << row.name;
        // Back to what it was.
        tables.lineIndex->Put(DefaultMember, std::vector<Variant>{std::int16_t{2}, "FREET"}, "Costs");
        tables.tab->Clear();
        tables.AddValue(1, 1, "1234.5");
        tables.AddValue(1, 2, 10);
        tables.AddValue(2, 1, -3);
        tables.AddValue(3, 1, 1231.5);
        context.grid.construction.CreateFromTables();
    }
}

TEST_F(UploadTest, TheUserHearsOfWhatWasLeftAlone) {
    Edit(2, 2, 5);
    Edit(2, 3, 6);
    WhileShown([&](frmUpload& form) {
        context.grid.control.EnterText(context.grid.control.FindCell({"COL2", "ROW1"}).value(), "99");
        form.cmdOk_Click();
    });
    RunUpload();
    EXPECT_EQ(Messages(), "1 cell changed.\n1 cell left alone: the table was changed since the workbook was read.\n");
    EXPECT_EQ(Shown("COL2", "ROW1"), "99");
}

TEST_F(UploadTest, ALockedGridRefusesEverything) {
    Edit(2, 2, 5);
    context.grid.control.SetReadOnly(true);
    EXPECT_EQ(Differences(), Lines{"Sales/May 01: 1234,5 -> 5 (This table is open for reading only.)"});
}

TEST_F(UploadTest, AFailingCallEndsItsOwnProcedure) {
    ExpectErrors();
    const struct {
        const char* failing;
        const char* procedure;
    } cases[] = {
        {"Application.Workbooks.Open", "GetActiveSheet"},
        {"Workbook.ActiveSheet", "GetActiveSheet"},
        {"Worksheet.Name", "GetActiveSheet"},
        {"Workbook.Worksheets", "GetActiveSheet"},
        {"members of Cell", "UploadLabels"},
    };
    Edit(2, 2, 5);
    for (const auto& row : cases) {
        ForgetEntries();
        fake->failing = row.failing;
        const UploadPreview preview = context.upload.Preview("plan.xlsx");
        EXPECT_NE(preview.error, "") << row.failing;
        EXPECT_TRUE(preview.changes.empty()) << row.failing;
        const Lines errors = Entries(IsError);
        ASSERT_EQ(errors.size(), 1U) << row.failing;
        EXPECT_NE(errors[0].find(std::string("| ") + row.procedure + " |"), std::string::npos) << errors[0];
        EXPECT_EQ(EntriesOf("Quit").size(), 1U) << row.failing;
        EXPECT_EQ(fake->objects, 0) << row.failing;
        EXPECT_FALSE(context.grid.control.Settings().waiting) << row.failing;
    }
    platform.objects.Unregister("Excel.Application");
    RunUpload();
    EXPECT_EQ(Messages(), "No connection to Microsoft Excel !\n");
}

TEST_F(UploadTest, CancellingTheReadingEndsIt) {
    Edit(2, 2, 5);
    platform.progress.cancelAt = 2;
    RunUpload();
    EXPECT_EQ(Messages(), "");
    EXPECT_EQ(platform.formCalls, Lines{});
    EXPECT_EQ(context.upload.Preview("plan.xlsx").error, "Reading the workbook was cancelled.");
    EXPECT_EQ(fake->objects, 0);
}

TEST_F(UploadTest, SaysInTheTraceWhatItDoes) {
    Edit(2, 2, 5);
    WhileShown([](frmUpload& form) { form.cmdOk_Click(); });
    RunUpload();
    EXPECT_EQ(SpreadsheetEntries(), (Lines{
                                        "EXCEL | {} | #EXCEL UPLOAD# | BEGIN",
                                        "EXCEL |  | connect | {}",
                                        "EXCEL |  | CheckVersion | {version:True}",
                                        "EXCEL |  | GetActiveSheet | {}",
                                        "EXCEL |  | UploadLabels | {column label: May 01}",
                                        "EXCEL |  | UploadLabels | {column label: May 02}",
                                        "EXCEL |  | UploadLabels | {column label: May 03}",
                                        "EXCEL |  | UploadLabels | {row label: Sales}",
                                        "EXCEL |  | UploadLabels | {row label: Costs}",
                                        "EXCEL |  | UploadLabels | {row label: Result}",
                                        "EXCEL |  | UploadLabels | {row label: Notes}",
                                        "EXCEL |  | UploadData | {cid: COL1 - rid: ROW1 - before: 1234,5 - after: 5}",
                                        "EXCEL |  | Quit | {}",
                                        "EXCEL |  | Terminate | {}",
                                        "EXCEL |  | Upload | {changed: 1 - refused: 0 - outdated: 0}",
                                    }));
}

}  // namespace planview
