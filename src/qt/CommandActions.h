// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <vector>

#include <planview/Commands.h>

#include "qt/EntryGuard.h"

class QAction;
class QLineEdit;
class QTimer;

namespace planview {

class GridView;
class MacroEditor;
class PlanView;
class PlanViewWidget;

/// The commands as actions for the host's menus and tool bars. Brings them up to date once per turn of the event loop,
/// however much has changed. While a cell is being edited, Undo, Redo, Cut, Copy and Paste act on the editor's text;
/// while the focus is at the macros, Undo and Redo act on these.
class CommandActions final : public QObject {
    Q_OBJECT

public:
    CommandActions(PlanViewWidget& widget, PlanView& view, GridView& grid, const EntryGuard& guard);

    /// The widgets in which macros are worked on.
    void setMacros(MacroEditor& editor, std::vector<const QWidget*> widgets);

    /// Made when it is first asked for; null for a number that is no command.
    [[nodiscard]] QAction* action(Command command);
    [[nodiscard]] bool canRun(Command command) const;
    /// False where no entry is open, or the command is not about its text.
    bool runInEditor(Command command);
    /// False where the focus is not at the macros, or the command is none of theirs.
    bool runInMacros(Command command);

    /// What can be run may be another one.
    void changed();
    /// Brings the actions up to date now.
    void update();
    /// Takes the colours of the widget's palette for the icons.
    void updateIcons();

private:
    [[nodiscard]] QLineEdit* openEditor() const;
    [[nodiscard]] bool macrosHaveFocus() const;
    [[nodiscard]] std::vector<CommandState> statesOf(const std::vector<Command>& commands) const;
    void setIcon(QAction& action, std::string_view picture) const;

    EntryGuard guard_;
    PlanViewWidget& widget_;
    PlanView& view_;
    GridView& grid_;
    QTimer* soon_;
    QPointer<QLineEdit> watched_;
    MacroEditor* editor_ = nullptr;
    std::vector<const QWidget*> macroWidgets_;
    std::map<Command, QPointer<QAction>> actions_;
};

}  // namespace planview
