// SPDX-License-Identifier: MIT
#include "control/ControlContext.h"

#include "control/MacroCommands.h"
#include "dialogs/frmUpload.h"
#include "trace/ErrorTrap.h"

namespace planview {

ControlContext::ControlContext(const Desktop& desktop)
    : platform(desktop),
      events([](std::string_view event, std::string_view error) { TraceError("USERCONTROL", event, error); }),
      recording({tables, grid, events, platform.messageBoxes}),
      hostUpdate(grid, tables, events),
      construction({driver, tables, keys}, settings),
      valueEntry({driver, tables, settings, keys, events, hostUpdate, history, busy, desktop.messageBoxes, recording,
                  [this] { ChartStep(); }, [this](bool running) { TellBulk(running); }}),
      clipboard({grid, keys, valueEntry, desktop.clipboard, desktop.messageBoxes,
                 [this](Cell cell, std::string_view reason) { return TellBeside(cell, reason); }}),
      sizeEvents(tables, driver, keys, hostUpdate),
      chartData({chart, grid, tables, settings, chartSettings, desktop.messageBoxes}),
      chartCommands({chart, driver, tables, settings, chartSettings, chartData, hostUpdate, desktop.messageBoxes,
                     [this] { layout.LayOut(); }, [this] { return chooseColor(); }}),
      generalOptions({settings, tables, driver, hostUpdate, desktop.forms, [this] { return chooseColor(); }}),
      rowAttributes({settings, tables, driver, hostUpdate, desktop.forms, desktop.messageBoxes,
                     [this] { return chooseColor(); }, [this] { ChartStep(); }}),
      chartOptions({settings, chartSettings, tables, hostUpdate, desktop.forms, desktop.messageBoxes,
                    [this] { return chooseColor(); }, [this] { return chartCommands.CommonType(); },
                    [this](ChartType type) { chartCommands.ChooseType(type); }, [this] { chartCommands.Rebuild(); }}),
      download({driver, tables, spreadsheetOptions, busy, desktop.objects, desktop.fileDialogs, desktop.messageBoxes,
                desktop.progress}),
      upload({driver, tables, spreadsheetOptions, busy, valueEntry, desktop.objects, desktop.fileDialogs,
              desktop.messageBoxes, desktop.progress,
              [this](UploadPreview& preview) { return ConfirmUpload(platform.forms, preview); }}),
      runner({tables,
              driver,
              settings,
              history,
              valueEntry,
              clipboard,
              sizeEvents,
              hostUpdate,
              busy,
              chart,
              chartCommands,
              generalOptions,
              rowAttributes,
              chartOptions,
              download,
              upload,
              recording,
              macroTree,
              macroEditor,
              events,
              layout,
              platform,
              [this] { return chooseColor(); },
              [this] { ChartStep(); }}),
      keyHandling({grid, keys, runner, hostUpdate, busy, [this] { ChartStep(); }}),
      menus({tables, events, platform.popups, busy, runner}),
      gridHandlers(*this),
      chartHandlers(*this),
      treeHandlers(*this),
      macroEditor({grid, tables, tree, events, platform.popups, toolbar, [this] { modMacro::Build(macroTree); },
                   [this](const std::string& key) { return RunMacroCommand(*this, key, false); },
                   [this](const std::string& key) { return CheckMacroCommand(*this, key); }}) {
    chooseColor = [this] { return menus.ChooseColor(); };
    showChartPopup = [this](std::string_view place) { menus.Open(place, {}, PopupPlace::Mouse); };
    grid.SetEvents(&gridHandlers);
    chart.SetEvents(&chartHandlers);
    tree.SetEvents(&treeHandlers);
    toolbar.SetEvents(&treeHandlers);
}

ControlContext::~ControlContext() {
    toolbar.SetEvents(nullptr);
    tree.SetEvents(nullptr);
    chart.SetEvents(nullptr);
    grid.SetEvents(nullptr);
}

void ControlContext::ChartStep() {
    chartCommands.ChartStep();
}

bool ControlContext::TellBeside(const Cell& cell, std::string_view reason) const {
    const auto listener = hintListener;
    return listener && listener(grid.KeyOf(cell), reason);
}

void ControlContext::TellBulk(bool running) const {
    if (const auto listener = bulkListener) {  // a copy: it may take itself away
        listener(running);
    }
}

}  // namespace planview
