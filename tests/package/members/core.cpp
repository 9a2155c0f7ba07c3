// SPDX-License-Identifier: MIT
// Names every public member of PlanView::core, as Use.h says.

#include <iostream>

#include <planview/AutomationObject.h>
#include <planview/Calculation.h>
#include <planview/CellKey.h>
#include <planview/Commands.h>
#include <planview/Diagnostics.h>
#include <planview/Editing.h>
#include <planview/Events.h>
#include <planview/Exchange.h>
#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/Failure.h>
#include <planview/FormulaProblem.h>
#include <planview/FormulaReading.h>
#include <planview/Macros.h>
#include <planview/MemoryTable.h>
#include <planview/ObjectRegistry.h>
#include <planview/PlanView.h>
#include <planview/Platform.h>
#include <planview/Recording.h>
#include <planview/SaveBeside.h>
#include <planview/Spreadsheet.h>
#include <planview/Trace.h>
#include <planview/TypedNumber.h>
#include <planview/Variant.h>
#include <planview/Version.h>
#include <planview/View.h>

#include "Use.h"

using namespace planview;

namespace {

void UseValues() {
    const Variant value;
    UseAll(value, &Variant::GetKind, &Variant::IsEmpty, &Variant::TextIf, &Variant::AsBoolean, &Variant::AsInt16,
           &Variant::AsInt32, &Variant::AsDouble, &Variant::AsText, &Variant::AsObject);
    const Variant values[] = {true,
                              std::int16_t{1},
                              1,
                              1.5,
                              "text",
                              std::string("text"),
                              std::string_view("text"),
                              ObjectRef(),
                              std::make_shared<MemoryTable>(std::vector<std::string>()),
                              Variant::Nothing()};
    static_cast<void>(values[0] == value);
    static_cast<void>(AutomationError(AutomationErrorCode::Failed, "text").Code());
    const CellKey key{"COL1", "ROW1"};
    const CellKeyView view = key;
    static_cast<void>(view.column.empty() || key == CellKey());
}

void UseTable() {
    const std::shared_ptr<MemoryTable> shared = MemoryTable::WithFieldsOf("TAB");
    MemoryTable table({"Z"});
    UseAll(table, &MemoryTable::RowCount, &MemoryTable::Fields, &MemoryTable::AddRowWith, &MemoryTable::RemoveRow,
           &MemoryTable::Clear, &MemoryTable::Reserve, &MemoryTable::Value, &MemoryTable::SetValue);
    table.AddRow();
    table.AddRow({1, 2});
    static_cast<void>(table.Get(table.IdOf("rowCount"), {}));
    table.Put(DefaultMember, {}, 1);
    table.Call(1, {});
}

void UsePlatform() {
    ObjectRegistry objects;
    UseAll(objects, &ObjectRegistry::Register, &ObjectRegistry::Unregister);
    static_cast<void>(objects.Create("Excel.Application"));
    Platform platform{.objects = &objects};
    if (platform.messageBoxes && platform.forms && platform.clipboard && platform.system && platform.popups &&
        platform.fileDialogs && platform.progress) {
        UseAll(*platform.messageBoxes, &MessageBoxes::Show);
        UseAll(*platform.clipboard, &Clipboard::Get, &Clipboard::Set);
        UseAll(*platform.system, &SystemInformation::Memory, &SystemInformation::PlatformId,
               &SystemInformation::LogFolder, &SystemInformation::DecimalMark);
        UseAll(*platform.popups, &Popups::Choose);
        UseAll(*platform.fileDialogs, &FileDialogs::Save, &FileDialogs::Open);
        UseAll(*platform.objects, &ObjectFactory::Create);
        UseAll(*platform.progress, &Progress::Begin, &Progress::Advance, &Progress::End);
        struct HostForm final : Form {
            std::string_view Name() const noexcept override { return "form"; }
            std::string_view Caption() const noexcept override { return "Form"; }
        } form;
        platform.forms->Load(form);
        platform.forms->ShowModal(form);
        platform.forms->Hide(form);
        platform.forms->Unload(form);
    }
}

void UseEvents(PlanView& view) {
    PlanViewEvents events;
    events.GridValueChanged(1, "", 1, "", 1);
    events.GridCellDblClick(1, "", 1, "", "");
    events.GridCellMouseDown(1, 1, "", 1, "", "");
    events.ColumnResized(1, "", 1, "");
    events.RowResized(1, "", 1, "");
    events.ChartMouseDown(1);
    events.GridStartUpdate();
    events.GridTreeNodeClick("", "");
    events.GridTreeNodeExpand("", "");
    events.GridTreeMacroClick("", "");
    events.GridTreeMacroExpand("", "");
    events.MacroTreeMouseDown("", "");
    events.GridTreeMacroCollapse("", "");
    events.GridPopupMenuPressed(1, "", 1, "", 1, "");
    events.GridReturnKeyPressed();
    events.MacroTreeNodeDropped("", "", 1);
    events.MacroTreeExpand();
    events.MacroTreeCollapse();
    events.MacroDragSelection("");
    events.MacroRecordSave();
    events.OnEvent(DescribeEvents().front().id, {});
    view.AddSink(events);
    view.RemoveSink(events);
}

#define SETTERS(TABLE) &PlanView::PROP_Set_##TABLE, &PlanView::plvSet_##TABLE
#define TABLE(TABLE) &PlanView::PROP_Get_##TABLE, SETTERS(TABLE)

void UseMembers(PlanView& view) {
    UseAll(view, &PlanView::plv_EnableTrace, &PlanView::plv_DisableTrace, &PlanView::plv_LayoutShow,
           &PlanView::plv_LayoutHide, &PlanView::plv_LayoutMode, &PlanView::plv_LayoutModeDisable,
           &PlanView::plv_ActiveNode, &PlanView::plv_MarkedRowsHide, &PlanView::plv_MarkedRowsShow,
           &PlanView::DP_Import_Texts, &PlanView::DP_Import_Attribute, &PlanView::DP_Import_Create,
           &PlanView::DP_Import_Update, &PlanView::DP_Import_PopupMenu, &PlanView::DP_Import_MacroTree);
    UseAll(view, TABLE(GRID_ATTR), TABLE(COLS_INDEX), TABLE(LINE_INDEX), TABLE(TAB), TABLE(TAB_OLD), TABLE(FIXED_COLS),
           TABLE(FIXED_LINES), SETTERS(FIXED_TAB), TABLE(CELL_ATTR), TABLE(GRID_TREE), TABLE(MACRO_TREE), TABLE(TEXTS),
           TABLE(COLMENU), TABLE(ROWMENU), TABLE(GRIDMENU), TABLE(CELLMENU), TABLE(MACROREC));
    UseAll(view, &PlanView::GetTable, &PlanView::SetTable, &PlanView::Run, &PlanView::StatesOf,
           &PlanView::AddCommandListener, &PlanView::RemoveCommandListener);
    static_cast<void>(view.StateOf(DescribeCommands().front().command));
    static_cast<void>(view.Call(view.IdOf(DescribeMembers().front().name), {}));
    static_cast<void>(view.Get(1, {}));
    view.Put(1, {}, TableNames().front());
    view.Terminate();
}

void UseFacets(PlanView& view) {
    Editing editing = view.Editing();
    UseAll(editing, &Editing::Undo, &Editing::Redo, &Editing::CanUndo, &Editing::CanRedo, &Editing::Copy, &Editing::Cut,
           &Editing::Paste, &Editing::Fill, &Editing::DeleteContents, &Editing::RaiseSelected, &Editing::ChangeValues,
           &Editing::SetReadOnly, &Editing::IsReadOnly, &Editing::PendingCells, &Editing::AddBulkListener,
           &Editing::RemoveBulkListener, &Editing::AddHintListener, &Editing::AddOutcomeListener,
           &Editing::RemoveOutcomeListener, &Editing::RemoveHintListener);
    View shown = view.View();
    UseAll(shown, &View::SwitchChart, &View::ChartShown, &View::SwitchMacroTree, &View::MacroTreeShown,
           &View::ShowSelectedColumnsInChart, &View::ShowSelectedRowsInChart, &View::LeaveForecastView,
           &View::HideColumns, &View::ShowColumns, &View::HideRows, &View::ShowRows, &View::UpdateCells,
           &View::UpdateColumns, &View::UpdateRows, &View::TextOf, &View::ValueOf, &View::SelectedCells,
           &View::CurrentCell, &View::EnterFocus, &View::ExitFocus, &View::GotFocus, &View::LostFocus, &View::Resize);
    Exchange exchange = view.Exchange();
    UseAll(exchange, &Exchange::SetOptions, &Exchange::Options, &Exchange::Download, &Exchange::Upload,
           &Exchange::DownloadTo, &Exchange::PreviewUpload, &Exchange::ApplyUpload);
    Macros macros = view.Macros();
    UseAll(macros, &Macros::Run, &Macros::Preview, &Macros::RunPreviewed, &Macros::Replay, &Macros::Check,
           &Macros::MoveNode);
    Recording recording = view.Recording();
    UseAll(recording, &Recording::Start, &Recording::Pause, &Recording::Stop, &Recording::UndoStep, &Recording::IsOn,
           &Recording::IsPaused, &Recording::Steps, &Recording::AddListener, &Recording::RemoveListener,
           &Recording::Keep);
    Calculation calculation = view.Calculation();
    UseAll(calculation, &Calculation::SetFormulas, &Calculation::Formulas, &Calculation::IsComputed,
           &Calculation::FormulaOf, &Calculation::Explain, &Calculation::Read, &Calculation::Spread,
           &Calculation::Problems);
    Diagnostics diagnostics = view.Diagnostics();
    UseAll(diagnostics, &Diagnostics::TraceIsOn, &Diagnostics::ShowTrace, &Diagnostics::LastBuild,
           &Diagnostics::AddFailureListener, &Diagnostics::RemoveFailureListener);
    static_cast<void>(TableReport().IsComplete());
    struct OwnFacet final : Facet {
        explicit OwnFacet(PlanView& control) : Facet(control) { static_cast<void>(State()); }
    };
    static_cast<void>(OwnFacet(view));
}

}  // namespace

int main(int argc, char*[]) {
    if (argc < 0) {
        PlanView view;
        UseValues();
        UseTable();
        UsePlatform();
        UseEvents(view);
        UseFacets(view);
        UseMembers(view);
        if (TraceIsOn()) {
            WriteTraceLog(std::cout);
            static_cast<void>(TraceStream(std::cout).Error());
        }
        static_cast<void>(ReadTypedNumber("1"));
        SaveBeside("saved", [](const std::filesystem::path&) {});
        SaveStream("saved", [](std::ostream&) {});
        ThrowCannotSave("saved", 0);
    }
    std::cout << VersionMajor << '.' << VersionMinor << '.' << VersionRevision << '\n';
}
