// SPDX-License-Identifier: MIT
#include "control/GridPart.h"

#include "grid/TrackCaptions.h"

namespace planview {

GridPart::GridPart(ControlShared& shared, UserActions& actions, const std::function<void()>& chartStep)
    : userActions(actions),
      hostUpdate(control, shared.tables, shared.events),
      tables{driver, shared.tables, keys},
      calculation(driver, shared.tables),
      construction(tables, shared.settings, [this] { calculation.Build(); }),
      trackHistory({shared.tables, driver, history, hostUpdate, actions, chartStep}),
      valueEntry({driver, shared.tables, shared.settings, keys, shared.events, hostUpdate, history, shared.busy,
                  shared.desktop.messageBoxes, actions, chartStep,
                  [this](const TrackStep& step, bool backwards) { trackHistory.Apply(step, backwards); },
                  [this](bool running) { TellBulk(running); },
                  [this](std::string_view sentence) { TellOutcome(sentence); }, &calculation}),
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

void GridPart::Build() {
    const TrackCaptions before = CaptionsOf(control);
    construction.CreateFromTables();
    if (const std::unordered_set<std::string> gone = GoneSince(before, control); !gone.empty()) {
        userActions.StepsEmptied(history.Leave(gone));
    }
}

void GridPart::Update(const std::function<void(TableUpdate& update)>& add) {
    TableUpdate update(tables);
    add(update);
    {
        const modGrid::RedrawAtEnd redraw(driver, modGrid::Entries::None);
        update.Run();
        calculation.Build();
    }
    ++updates;
}

void GridPart::TellBulk(bool running) const {
    bulkListeners.Tell(running);
}

void GridPart::TellOutcome(std::string_view sentence) const {
    outcomeListeners.Tell(sentence);
}

bool GridPart::TellBeside(const Cell& cell, std::string_view reason) const {
    return hintListeners.Ask(control.KeyOf(cell), reason);
}

}  // namespace planview
