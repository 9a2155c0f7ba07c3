// SPDX-License-Identifier: MIT
#include "control/ControlContext.h"

#include "control/MacroCommands.h"
#include "control/MenuWiring.h"
#include "dialogs/frmUpload.h"
#include "trace/ErrorTrap.h"

namespace planview {

ControlContext::ControlContext(const Platform& desktop)
    : platform(desktop),
      events([](std::string_view event, std::string_view error) { TraceError("USERCONTROL", event, error); }),
      recording({tables, grid, events, platform.messageBoxes}),
      hostUpdate(grid, tables, events),
      construction({driver, tables, keys}, settings),
      valueEntry({driver, tables, settings, keys, events, hostUpdate, history, busy, desktop.messageBoxes, recording,
                  [this] { ChartStep(); }, [this](bool running) { TellBulk(running); }}),
      clipboard({grid, keys, valueEntry, desktop.clipboard, desktop.messageBoxes,
                 [this](Cell cell, std::string_view reason) { return TellBeside(cell, reason); }}),
      keyHandling({grid, keys, clipboard, hostUpdate, busy, [this] { ChartStep(); },
                   [this] { modPlan::Trace_Show(platform); }}),
      commands(tables, driver, hostUpdate, recording, [this] { ChartStep(); }),
      sizeEvents(tables, driver, keys, hostUpdate, recording),
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
      menus({tables, events, platform.popups, busy,
             [this](const CellKey& clicked) { return MenuStateOf(*this, clicked); }}),
      gridHandlers(*this),
      chartHandlers(*this),
      treeHandlers(*this),
      macroEditor({grid, tables, tree, events, platform.popups, toolbar, [this] { modMacro::Build(macroTree); },
                   [this](const std::string& key, std::string& message) {
                       MacroResult result;
                       MacroProblems problems = RunMacroCommand(*this, key, false, result);
                       message = result.message;
                       return problems;
                   },
                   [this](const std::string& key) { return CheckMacroCommand(*this, key); }}) {
    BindMenuCommands(*this);
    grid.SetEvents(&gridHandlers);
    chart.SetEvents(&chartHandlers);
    tree.SetEvents(&treeHandlers);
    toolbar.onPress = [this](ToolbarButton button) { macroEditor.AddElement(button); };
    toolbar.onDragSelection = [this](const std::string& selection) {
        const Variant argument(selection);
        events.Raise(EventId::MacroDragSelection, {&argument, 1});
    };
}

ControlContext::~ControlContext() {
    tree.SetEvents(nullptr);
    chart.SetEvents(nullptr);
    grid.SetEvents(nullptr);
}

void ControlContext::ChartStep() {
    chartCommands.ChartStep();
}

bool ControlContext::TellBeside(const Cell& cell, std::string_view reason) const {
    const auto listener = hintListener;
    return listener && listener(cell, reason);
}

void ControlContext::TellBulk(bool running) const {
    if (const auto listener = bulkListener) {  // a copy: it may take itself away
        listener(running);
    }
}

}  // namespace planview
