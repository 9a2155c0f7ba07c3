// SPDX-License-Identifier: MIT
#include "control/ControlContext.h"

#include "dialogs/frmUpload.h"
#include "trace/ErrorTrap.h"

namespace planview {

ControlShared::ControlShared(const Desktop& platform)
    : desktop(platform),
      events([](std::string_view event, std::string_view error) { TraceError("USERCONTROL", event, error); }) {}

ControlContext::ControlContext(const Desktop& desktop)
    : shared(desktop),
      grid(shared, macros.recording, [this] { chart.Step(); }),
      chart(shared, grid),
      macros(shared, grid, runner),
      download({grid.driver, shared.tables, spreadsheetOptions, shared.busy, desktop.objects, desktop.fileDialogs,
                desktop.messageBoxes, desktop.progress}),
      upload({grid.driver, shared.tables, spreadsheetOptions, shared.busy, grid.valueEntry, desktop.objects,
              desktop.fileDialogs, desktop.messageBoxes, desktop.progress,
              [this](UploadPreview& preview) { return ConfirmUpload(shared.desktop.forms, preview); }}),
      runner({shared.tables,
              grid.driver,
              shared.settings,
              grid.history,
              grid.trackHistory,
              grid.valueEntry,
              grid.clipboard,
              grid.otherReading,
              grid.sizeEvents,
              grid.hostUpdate,
              shared.busy,
              chart.control,
              chart.commands,
              grid.generalOptions,
              grid.rowAttributes,
              chart.options,
              download,
              upload,
              macros.recording,
              macros.nodes,
              macros.editor,
              shared.events,
              shared.layout,
              shared.desktop,
              [this](const ColorQuestion& question) { return shared.chooseColor(question); },
              [this](Cell cell, std::string_view sentence) { return grid.TellBeside(cell, sentence); },
              [this] { chart.Step(); }}),
      keyHandling({grid.control, grid.keys, runner, grid.hostUpdate, shared.busy, [this] { chart.Step(); }}),
      menus({shared.tables, shared.events, shared.desktop.popups, shared.busy, runner}),
      gridHandlers({shared, grid, chart, runner, keyHandling, menus}),
      chartHandlers({shared, grid, chart, runner, menus}),
      treeHandlers({shared, macros, runner, menus}) {
    shared.chooseColor = [this](const ColorQuestion& question) { return menus.ChooseColor(question); };
    grid.control.SetEvents(&gridHandlers);
    chart.control.SetEvents(&chartHandlers);
    macros.tree.SetEvents(&treeHandlers);
    macros.toolbar.SetEvents(&treeHandlers);
}

ControlContext::~ControlContext() {
    macros.toolbar.SetEvents(nullptr);
    macros.tree.SetEvents(nullptr);
    chart.control.SetEvents(nullptr);
    grid.control.SetEvents(nullptr);
}

}  // namespace planview
