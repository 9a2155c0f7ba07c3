// SPDX-License-Identifier: MIT
#include "spreadsheet/SpreadsheetSession.h"

#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view ApplicationIdentifier = "Excel.Application";
constexpr std::string_view KnownVersion = "8.0";
constexpr std::string_view SheetOfNewWorkbook = "Tabelle1";
constexpr std::string_view WorkbookTitle = "Zet Q/7 download";
constexpr std::string_view ProductName = "PlanView";

void TraceStep(std::string_view procedure) {
    TraceWrite(SpreadsheetLabel, "", procedure, "{}");
}

}  // namespace

bool SpreadsheetSession::Connect() {
    TraceStep("connect");
    ObjectRef application;
    Run("connect", [&] { application = objects_.Create(ApplicationIdentifier); });
    if (!application) {
        return false;
    }
    application_ = Late(std::move(application));
    CheckVersion();
    return true;
}

bool SpreadsheetSession::CheckVersion() {
    bool known = false;
    // What an application without a version fails at later says more than this.
    if (const std::optional<std::string> error = ErrorTextOf(
            [&] { known = application_.Get("Application").Get("Version").Value().AsText() == KnownVersion; })) {
        TraceError(SpreadsheetLabel, "CheckVersion", *error);
    }
    if (TraceEnabled) {
        TraceWrite(SpreadsheetLabel, "", "CheckVersion", TraceText("{version:", known, "}"));
    }
    return known;
}

bool SpreadsheetSession::NewSheet() {
    TraceStep("NewSheet");
    return Run("NewSheet", [&] {
        workbook_ = application_.Get("Workbooks").Call("Add");
        sheetName_ = SheetOfNewWorkbook;
        worksheet_ = workbook_.Get("Worksheets", sheetName_);
        workbook_.Put("Title", WorkbookTitle);
        workbook_.Put("Subject", ProductName);
    });
}

bool SpreadsheetSession::GetActiveSheet(const std::string& fileName) {
    TraceStep("GetActiveSheet");
    return Run("GetActiveSheet", [&] {
        fileName_ = fileName;
        workbook_ = application_.Get("Workbooks").Call("Open", fileName_);
        sheetName_ = workbook_.Get("ActiveSheet").Get("Name").Value().AsText();
        worksheet_ = workbook_.Get("Worksheets", sheetName_);
    });
}

bool SpreadsheetSession::Saveas(const std::string& fileName) {
    TraceStep("Save");
    return Run("Save", [&] {
        fileName_ = fileName;
        workbook_.Call("Saveas", fileName_);
    });
}

void SpreadsheetSession::Quit() {
    TraceStep("Quit");
    Run("Quit", [&] { application_.Get("Application").Call("Quit"); });
}

void SpreadsheetSession::Terminate() {
    TraceStep("Terminate");
    // The inner objects first: the application may end with the last reference to it.
    ResumeNext([&] { worksheet_ = Late(ObjectRef()); }, [&] { workbook_ = Late(ObjectRef()); },
               [&] { application_ = Late(ObjectRef()); });
    fileName_.clear();
    sheetName_.clear();
}

}  // namespace planview
