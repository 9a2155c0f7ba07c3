// SPDX-License-Identifier: MIT
#include "control/GridPart.h"

namespace planview {

GridPart::GridPart(ControlShared& shared, UserActions& actions, const std::function<void()>& chartStep)
    : hostUpdate(control, shared.tables, shared.events),
      construction({driver, shared.tables, keys}, shared.settings),
      trackHistory({shared.tables, driver, history, hostUpdate, actions, chartStep}),
      valueEntry({driver, shared.tables, shared.settings, keys, shared.events, hostUpdate, history, shared.busy,
                  shared.desktop.messageBoxes, actions, chartStep,
                  [this](const TrackStep& step, bool backwards) { trackHistory.Apply(step, backwards); },
                  [this](bool running) { TellBulk(running); }}),
      otherReading(
          {control, valueEntry, [this](Cell cell, std::string_view sentence) { return TellBeside(cell, sentence); }}),
      clipboard({control, keys, valueEntry, otherReading, shared.desktop.clipboard, shared.desktop.messageBoxes,
                 [this](Cell cell, std::string_view reason) { return TellBeside(cell, reason); }}),
      sizeEvents(shared.tables, driver, keys, hostUpdate),
      generalOptions({shared.settings, shared.tables, driver, hostUpdate, shared.desktop.forms,
                      [&shared](const ColorQuestion& question) { return shared.chooseColor(question); }}),
      rowAttributes({shared.settings, shared.tables, driver, hostUpdate, shared.desktop.forms,
                     shared.desktop.messageBoxes,
                     [&shared](const ColorQuestion& question) { return shared.chooseColor(question); }, chartStep}) {}

void GridPart::TellBulk(bool running) const {
    bulkListeners.Tell(running);
}

bool GridPart::TellBeside(const Cell& cell, std::string_view reason) const {
    return hintListeners.Ask(control.KeyOf(cell), reason);
}

}  // namespace planview
