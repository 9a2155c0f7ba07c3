// SPDX-License-Identifier: MIT
// Names every public member of PlanView::qt, as Use.h says.

#include <planview/qt/PlanViewWidget.h>

#include "Use.h"

using namespace planview;

namespace {

/// What a class derived from the widget may use, too.
class Derived : public PlanViewWidget {
public:
    void UseProtected() {
        PlanViewWidget::changeEvent(nullptr);
        PlanViewWidget::resizeEvent(nullptr);
        PlanViewWidget::keyPressEvent(nullptr);
    }
};

#define SETTERS(TABLE) &PlanViewWidget::PROP_Set_##TABLE, &PlanViewWidget::plvSet_##TABLE
#define TABLE(TABLE) &PlanViewWidget::PROP_Get_##TABLE, SETTERS(TABLE)

void UseMembers(PlanViewWidget& view) {
    UseAll(view, TABLE(GRID_ATTR), TABLE(COLS_INDEX), TABLE(LINE_INDEX), TABLE(TAB), TABLE(TAB_OLD), TABLE(FIXED_COLS),
           TABLE(FIXED_LINES), SETTERS(FIXED_TAB), TABLE(CELL_ATTR), TABLE(GRID_TREE), TABLE(MACRO_TREE), TABLE(TEXTS),
           TABLE(COLMENU), TABLE(ROWMENU), TABLE(GRIDMENU), TABLE(CELLMENU), TABLE(MACROREC));
    UseAll(
        view, &PlanViewWidget::control, &PlanViewWidget::objects, &PlanViewWidget::colorScheme,
        &PlanViewWidget::setColorScheme, &PlanViewWidget::textScale, &PlanViewWidget::setTextScale,
        &PlanViewWidget::registerBitmap, &PlanViewWidget::renderToImage, &PlanViewWidget::chartImage,
        &PlanViewWidget::plv_EnableTrace, &PlanViewWidget::plv_DisableTrace, &PlanViewWidget::plv_LayoutShow,
        &PlanViewWidget::plv_LayoutHide, &PlanViewWidget::plv_LayoutMode, &PlanViewWidget::plv_LayoutModeDisable,
        &PlanViewWidget::plv_ActiveNode, &PlanViewWidget::plv_MarkedRowsHide, &PlanViewWidget::plv_MarkedRowsShow,
        &PlanViewWidget::DP_Import_Texts, &PlanViewWidget::DP_Import_Attribute, &PlanViewWidget::DP_Import_Create,
        &PlanViewWidget::DP_Import_Update, &PlanViewWidget::DP_Import_PopupMenu, &PlanViewWidget::DP_Import_MacroTree,
        &PlanViewWidget::run, &PlanViewWidget::table, &PlanViewWidget::setTable, &PlanViewWidget::canUndo,
        &PlanViewWidget::canRedo, &PlanViewWidget::undo, &PlanViewWidget::redo, &PlanViewWidget::copy,
        &PlanViewWidget::cut, &PlanViewWidget::paste, &PlanViewWidget::fill, &PlanViewWidget::deleteContents,
        &PlanViewWidget::raiseSelected, &PlanViewWidget::hideColumns, &PlanViewWidget::showColumns,
        &PlanViewWidget::hideRows, &PlanViewWidget::showRows, &PlanViewWidget::switchChart, &PlanViewWidget::chartShown,
        &PlanViewWidget::switchMacroTree, &PlanViewWidget::macroTreeShown, &PlanViewWidget::showSelectedColumnsInChart,
        &PlanViewWidget::showSelectedRowsInChart, &PlanViewWidget::leaveForecastView, &PlanViewWidget::download,
        &PlanViewWidget::upload, &PlanViewWidget::downloadTo, &PlanViewWidget::previewUpload,
        &PlanViewWidget::applyUpload, &PlanViewWidget::spreadsheetOptions, &PlanViewWidget::setSpreadsheetOptions,
        &PlanViewWidget::spreadsheetPrintSetup, &PlanViewWidget::setSpreadsheetPrintSetup, &PlanViewWidget::action,
        &PlanViewWidget::saveChart, &PlanViewWidget::isReadOnly, &PlanViewWidget::setReadOnly,
        &PlanViewWidget::finishEditing, &PlanViewWidget::selectCell, &PlanViewWidget::currentColumn,
        &PlanViewWidget::currentRow, &PlanViewWidget::startRecording, &PlanViewWidget::pauseRecording,
        &PlanViewWidget::stopRecording, &PlanViewWidget::undoRecordedStep, &PlanViewWidget::isRecording,
        &PlanViewWidget::isRecordingPaused, &PlanViewWidget::recordedSteps, &PlanViewWidget::keepRecording,
        &PlanViewWidget::replayMacro, &PlanViewWidget::runMacro, &PlanViewWidget::runMacroPreviewed,
        &PlanViewWidget::editMacro, &PlanViewWidget::checkMacro, &PlanViewWidget::moveMacroNode,
        &PlanViewWidget::isAnnouncingSeveral, &PlanViewWidget::currentCellName, &PlanViewWidget::selectedCells,
        &PlanViewWidget::selectionSum, &PlanViewWidget::selectionMean, &PlanViewWidget::pendingChanges,
        &PlanViewWidget::refreshPendingChanges, &PlanViewWidget::GridValueChanged, &PlanViewWidget::GridCellDblClick,
        &PlanViewWidget::GridCellMouseDown, &PlanViewWidget::ColumnResized, &PlanViewWidget::RowResized,
        &PlanViewWidget::ChartMouseDown, &PlanViewWidget::GridStartUpdate, &PlanViewWidget::GridTreeNodeClick,
        &PlanViewWidget::GridTreeNodeExpand, &PlanViewWidget::GridTreeMacroClick, &PlanViewWidget::GridTreeMacroExpand,
        &PlanViewWidget::MacroTreeMouseDown, &PlanViewWidget::GridTreeMacroCollapse,
        &PlanViewWidget::GridPopupMenuPressed, &PlanViewWidget::GridReturnKeyPressed,
        &PlanViewWidget::MacroTreeNodeDropped, &PlanViewWidget::MacroTreeExpand, &PlanViewWidget::MacroTreeCollapse,
        &PlanViewWidget::MacroDragSelection, &PlanViewWidget::MacroRecordSave, &PlanViewWidget::colorSchemeChanged,
        &PlanViewWidget::textScaleChanged, &PlanViewWidget::undoAvailable, &PlanViewWidget::redoAvailable,
        &PlanViewWidget::pendingChangesChanged, &PlanViewWidget::selectionSummaryChanged,
        &PlanViewWidget::recordingChanged, &PlanViewWidget::severalValuesAnnounced, &PlanViewWidget::failed,
        &PlanViewWidget::cellText, &PlanViewWidget::cellValue, &PlanViewWidget::cellFormula,
        &PlanViewWidget::enterPanes, &PlanViewWidget::announce, &PlanViewWidget::panesLeft,
        &PlanViewWidget::updateCells, &PlanViewWidget::updateColumns, &PlanViewWidget::updateRows,
        &PlanViewWidget::saveState, &PlanViewWidget::restoreState);
    static_cast<void>(view.PlanViewWidget::sizeHint());
    static_cast<void>(view.PlanViewWidget::minimumSizeHint());
    static_cast<void>(view.PlanViewWidget::metaObject());
    static_cast<void>(view.PlanViewWidget::qt_metacast(nullptr));
    static_cast<void>(view.PlanViewWidget::qt_metacall(QMetaObject::InvokeMetaMethod, 0, nullptr));
}

}  // namespace

int main(int argc, char*[]) {
    if (argc < 0) {
        PlanViewWidget view(Platform{});
        Derived derived;
        derived.UseProtected();
        UseMembers(view);
    }
}
