// SPDX-License-Identifier: MIT
#include "control/ChartPart.h"

namespace planview {

ChartPart::ChartPart(ControlShared& shared, GridPart& grid)
    : data({control, grid.control, shared.tables, shared.settings, settings, shared.desktop.messageBoxes}),
      commands({control, grid.driver, shared.tables, shared.settings, settings, data, grid.hostUpdate,
                shared.desktop.messageBoxes, [&shared] { shared.layout.LayOut(); },
                [&shared](const ColorQuestion& question) { return shared.chooseColor(question); }}),
      options({shared.settings, settings, shared.tables, grid.hostUpdate, shared.desktop.forms,
               shared.desktop.messageBoxes,
               [&shared](const ColorQuestion& question) { return shared.chooseColor(question); },
               [this] { return commands.CommonType(); }, [this] { return control.State().ValueFormat(); },
               [this](ChartType type) { commands.ChooseType(type); }, [this] { commands.Rebuild(); }}) {}

}  // namespace planview
