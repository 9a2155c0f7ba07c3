// SPDX-License-Identifier: MIT
#include <limits>

#include <planview/ObjectRegistry.h>

#include "xlsx/XlsxFixture.h"

namespace planview::test {

namespace {

using ObjectModelTest = XlsxTest;

TEST_F(ObjectModelTest, TheRegistryMakesAnApplicationForEachRequest) {
    ObjectRegistry registry;
    xlsx::Register(registry);
    const Late first(registry.Create("Excel.Application"));
    const Late second(registry.Create("Excel.Application"));
    EXPECT_EQ(first.Get("Application").Get("Version").Value(), Variant("8.0"));
    first.Get("Workbooks").Call("Add");
    EXPECT_EQ(first.Get("Workbooks").Get("Count").Value(), Variant(1));
    EXPECT_EQ(second.Get("Workbooks").Get("Count").Value(), Variant(0));
}

TEST_F(ObjectModelTest, WhatCannotBeDoneSaysSo) {
    const Late sheet = NewSheet();
    const Late cell = sheet.Get("Cells", 1, 1);
    struct Case {
        const char* name;
        std::function<void()> action;
        AutomationErrorCode code;
    };
    using enum AutomationErrorCode;
    const Case cases[] = {
        {"row 0", [&] { sheet.Call("Cells", 0, 1); }, SubscriptOutOfRange},
        {"row behind the last", [&] { sheet.Call("Rows", 1'048'577); }, SubscriptOutOfRange},
        {"column behind the last", [&] { sheet.Call("Cells", 1, 16'385); }, SubscriptOutOfRange},
        {"one number for a cell", [&] { sheet.Call("Cells", 1); }, WrongArguments},
        {"colour 57", [&] { cell.Get("Interior").Put("ColorIndex", 57); }, SubscriptOutOfRange},
        {"colour 0", [&] { cell.Get("Borders").Put("ColorIndex", 0); }, SubscriptOutOfRange},
        {"line style 99", [&] { cell.Get("Borders").Put("LineStyle", 99); }, SubscriptOutOfRange},
        {"alignment 9", [&] { cell.Put("HorizontalAlignment", 9); }, SubscriptOutOfRange},
        {"size 0", [&] { cell.Get("Font").Put("Size", 0); }, SubscriptOutOfRange},
        {"width 256", [&] { cell.Put("ColumnWidth", 256); }, SubscriptOutOfRange},
        {"open quotes in a format", [&] { cell.Put("NumberFormat", "0\"x"); }, TypeMismatch},
        {"infinity", [&] { cell.Put("Value", std::numeric_limits<double>::infinity()); }, TypeMismatch},
        {"an object as value", [&] { cell.Put("Value", application_.Value()); }, TypeMismatch},
        {"32,768 characters", [&] { cell.Put("Value", std::string(32'768, 'x')); }, Failed},
        {"value of a row", [&] { sheet.Get("Rows", 1).Call("Value"); }, Failed},
        {"value for everything", [&] { sheet.Get("Cells").Put("Value", 1); }, Failed},
        {"unknown sheet", [&] { book_.Call("Worksheets", "Sheet1"); }, SubscriptOutOfRange},
        {"sheet 2 of 1", [&] { book_.Call("Worksheets", 2); }, SubscriptOutOfRange},
        {"no name", [&] { sheet.Put("Name", ""); }, Failed},
        {"a name with a slash", [&] { sheet.Put("Name", "1/2"); }, Failed},
        {"32 characters of a name", [&] { sheet.Put("Name", std::string(32, 'x')); }, Failed},
        {"title rows that are columns", [&] { sheet.Get("PageSetup").Put("PrintTitleRows", "$A:$A"); }, TypeMismatch},
        {"unknown member", [&] { cell.Call("Formula"); }, UnknownMember},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        try {
            one.action();
            ADD_FAILURE() << "it was done";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.Code(), one.code) << error.what();
            EXPECT_STRNE(error.what(), "");
        }
    }
    EXPECT_EQ(ValueAt(sheet, 1, 1), "e:");
}

TEST_F(ObjectModelTest, AnotherSheetIsAddedMovedAndHidden) {
    const Late first = NewSheet();
    EXPECT_NE(AutomationMessage([&] { first.Put("Visible", 0); }), "") << "the only one";
    const Late added = book_.Get("Worksheets").Call("Add");
    EXPECT_EQ(added.Get("Name").Value().AsText(), "Tabelle2");
    EXPECT_EQ(book_.Get("ActiveSheet").Get("Name").Value().AsText(), "Tabelle2");
    added.Get("Cells", 1, 1).Put("Value", "kept");
    first.Call("Move", added.Value());
    EXPECT_EQ(book_.Get("Worksheets", 1).Get("Name").Value().AsText(), "Tabelle1");
    EXPECT_EQ(ValueAt(book_.Get("Worksheets", 2), 1, 1), "t:kept");
    added.Put("Visible", 0);
    EXPECT_EQ(book_.Get("ActiveSheet").Get("Name").Value().AsText(), "Tabelle1");
    EXPECT_NE(AutomationMessage([&] { first.Call("Move", book_.Value()); }), "");
}

TEST_F(ObjectModelTest, ProtectionHoldsBackAllButOpenCells) {
    const Late sheet = NewSheet();
    sheet.Get("Cells", 2, 2).Put("Locked", false);
    sheet.Call("Protect");
    sheet.Get("Cells", 2, 2).Put("Value", 5);
    EXPECT_NE(AutomationMessage([&] { sheet.Get("Cells", 1, 2).Put("Value", 5); }).find("B1 locked"),
              std::string::npos);
    EXPECT_NE(AutomationMessage([&] { sheet.Get("Cells", 2, 2).Put("Locked", true); }), "");
    EXPECT_NE(AutomationMessage([&] { sheet.Get("Columns", 2).Put("ColumnWidth", 5); }), "");
    sheet.Call("Unprotect");
    sheet.Get("Cells", 1, 2).Put("Value", 6);
    EXPECT_EQ(ValueAt(sheet, 2, 2) + ValueAt(sheet, 1, 2), "d:5d:6");
}

TEST_F(ObjectModelTest, ARangeInUseIsNotTakenForAnother) {
    const Late sheet = NewSheet();
    const Late first = sheet.Get("Cells", 1, 1);
    const Late interior = sheet.Get("Cells", 2, 1).Get("Interior");
    const Late third = sheet.Get("Cells", 3, 1);
    first.Put("Value", 1);
    third.Put("Value", 3);
    interior.Put("ColorIndex", 6);
    EXPECT_EQ(ValueAt(sheet, 1, 1) + ValueAt(sheet, 2, 1) + ValueAt(sheet, 3, 1), "d:1e:d:3");
    EXPECT_EQ(sheet.Get("Cells", 2, 1).Get("Interior").Get("ColorIndex").Value(), Variant(6));
    EXPECT_EQ(sheet.Get("Cells", 3, 1).Get("Interior").Get("ColorIndex").Value(), Variant(-4142));
}

TEST_F(ObjectModelTest, AfterQuitNothingIsLeft) {
    const Late sheet = NewSheet();
    sheet.Get("Cells", 1, 1).Put("Value", 1);
    application_.Get("Application").Call("Quit");
    EXPECT_NE(AutomationMessage([&] { static_cast<void>(ValueAt(sheet, 1, 1)); }), "");
    EXPECT_NE(AutomationMessage([&] { book_.Call("Saveas", Path("late.xlsx").string()); }), "");
    EXPECT_NE(AutomationMessage([&] { application_.Get("Workbooks").Call("Add"); }), "");
    EXPECT_FALSE(std::filesystem::exists(Path("late.xlsx")));
}

TEST_F(ObjectModelTest, ObjectsOutliveTheirApplication) {
    const Late sheet = NewSheet();
    application_ = Late(Variant());
    book_ = Late(Variant());
    sheet.Get("Cells", 1, 1).Put("Value", "still there");
    EXPECT_EQ(ValueAt(sheet, 1, 1), "t:still there");
}

}  // namespace

}  // namespace planview::test
