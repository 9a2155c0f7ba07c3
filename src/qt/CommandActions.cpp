// SPDX-License-Identifier: MIT
#include "qt/CommandActions.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>

#include <planview/qt/PlanViewWidget.h>

#include "macro/editor/MacroEditor.h"
#include "qt/grid/GridView.h"

namespace planview {

namespace {

constexpr double FaintWeight = 0.35;  // of a disabled action's picture

/// A command that is about the text of an open entry.
struct EditorCommand {
    Command command;
    void (*run)(QLineEdit& line);
    bool (*can)(const QLineEdit& line);
};

bool hasSelection(const QLineEdit& line) {
    return line.hasSelectedText();
}

constexpr EditorCommand EditorCommands[] = {
    {Command::Undo, [](QLineEdit& line) { line.undo(); }, [](const QLineEdit& line) { return line.isUndoAvailable(); }},
    {Command::Redo, [](QLineEdit& line) { line.redo(); }, [](const QLineEdit& line) { return line.isRedoAvailable(); }},
    {Command::Cut, [](QLineEdit& line) { line.cut(); }, hasSelection},
    {Command::Copy, [](QLineEdit& line) { line.copy(); }, hasSelection},
    {Command::Paste, [](QLineEdit& line) { line.paste(); }, [](const QLineEdit&) { return true; }},
};

const EditorCommand* findEditorCommand(Command command) {
    const auto* const found = std::find_if(std::begin(EditorCommands), std::end(EditorCommands),
                                           [&](const EditorCommand& each) { return each.command == command; });
    return found == std::end(EditorCommands) ? nullptr : found;
}

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void show(QAction& action, const CommandState& state) {
    const QPointer<QAction> alive(&action);  // the host hears of each change
    action.setText(toQt(state.caption));
    if (alive) {
        action.setEnabled(state.enabled);
    }
    if (alive && action.isCheckable()) {
        action.setChecked(state.checked);
    }
    if (alive) {
        action.setToolTip(toQt(state.reason));  // without one it is the text
    }
    if (alive) {
        action.setStatusTip(toQt(state.reason));
    }
}

}  // namespace

CommandActions::CommandActions(PlanViewWidget& widget, PlanView& view, GridView& grid, const EntryGuard& guard)
    : QObject(&widget), guard_(guard), widget_(widget), view_(view), grid_(grid), soon_(new QTimer(this)) {
    soon_->setSingleShot(true);
    soon_->setInterval(0);
    guard_.connect(soon_, &QTimer::timeout, this, "CommandActions", [this] { update(); });
    connect(&grid_, &GridView::gridChanged, this, &CommandActions::changed);
    connect(&grid_.editor(), &GridEditor::openChanged, this, &CommandActions::changed);
}

QAction* CommandActions::action(Command command) {
    const auto known = actions_.find(command);
    if (known != actions_.end() && known->second) {
        return known->second;
    }
    const auto commands = DescribeCommands();
    const auto description =
        std::find_if(commands.begin(), commands.end(), [&](const auto& each) { return each.command == command; });
    if (description == commands.end()) {
        return nullptr;
    }
    auto* action = new QAction(this);
    action->setObjectName(toQt(description->name));
    action->setMenuRole(QAction::NoRole);
    action->setCheckable(description->checkable);
    // Shown only: the view has its keys itself, and an entry and the host's other widgets keep theirs.
    action->setShortcut(QKeySequence::fromString(toQt(description->key), QKeySequence::PortableText));
    action->setShortcutContext(Qt::WidgetShortcut);
    if (description->argumentCount == 0) {
        guard_.connect(action, &QAction::triggered, this, "CommandActions", [this, command] {
            // While a menu bar has the keyboard, the keys of its entries are live; choosing an entry gives it back
            // first.
            if (qobject_cast<QMenuBar*>(QApplication::focusWidget())) {
                changed();
            } else {
                widget_.run(command);
            }
        });
    }
    setIcon(*action, description->icon);
    actions_[command] = action;
    show(*action, statesOf({command}).front());
    return action;
}

bool CommandActions::canRun(Command command) const {
    return statesOf({command}).front().enabled;
}

QLineEdit* CommandActions::openEditor() const {
    const GridEditor& editor = grid_.editor();
    return editor.isOpen() ? editor.line() : nullptr;
}

bool CommandActions::runInEditor(Command command) {
    QLineEdit* line = openEditor();
    const EditorCommand* known = line ? findEditorCommand(command) : nullptr;
    if (known) {
        known->run(*line);
    }
    return known != nullptr;
}

void CommandActions::setMacros(MacroEditor& editor, std::vector<const QWidget*> widgets) {
    editor_ = &editor;
    macroWidgets_ = std::move(widgets);
}

bool CommandActions::macrosHaveFocus() const {
    const QWidget* const focus = QApplication::focusWidget();
    return focus && std::any_of(macroWidgets_.begin(), macroWidgets_.end(),
                                [&](const QWidget* widget) { return widget == focus || widget->isAncestorOf(focus); });
}

bool CommandActions::runInMacros(Command command) {
    if ((command != Command::Undo && command != Command::Redo) || !macrosHaveFocus()) {
        return false;
    }
    guard_.run("UndoMacros", [&] {
        if (command == Command::Undo) {
            editor_->Undo();
        } else {
            editor_->Redo();
        }
    });
    return true;
}

std::vector<CommandState> CommandActions::statesOf(const std::vector<Command>& commands) const {
    std::vector<CommandState> states = view_.StatesOf(commands);
    if (const QLineEdit* line = openEditor()) {
        for (std::size_t i = 0; i < commands.size(); ++i) {
            if (const EditorCommand* known = findEditorCommand(commands[i])) {
                states[i].enabled = known->can(*line);
                states[i].reason.clear();
            }
        }
    }
    if (macrosHaveFocus()) {
        for (std::size_t i = 0; i < commands.size(); ++i) {
            if (commands[i] == Command::Undo || commands[i] == Command::Redo) {
                const bool isUndo = commands[i] == Command::Undo;
                states[i].enabled = isUndo ? editor_->CanUndo() : editor_->CanRedo();
                states[i].reason = states[i].enabled ? ""
                                   : isUndo          ? "There is no change of macros to take back."
                                                     : "There is no change of macros to make again.";
            }
        }
    }
    return states;
}

// --- Following

void CommandActions::changed() {
    if (!actions_.empty()) {
        soon_->start();
    }
}

void CommandActions::update() {
    soon_->stop();
    if (QLineEdit* line = openEditor(); line && line != watched_) {
        watched_ = line;
        connect(line, &QLineEdit::textChanged, this, &CommandActions::changed);
        connect(line, &QLineEdit::selectionChanged, this, &CommandActions::changed);
    }
    std::erase_if(actions_, [](const auto& each) { return !each.second; });
    std::vector<Command> commands;
    for (const auto& [command, action] : actions_) {
        commands.push_back(command);
    }
    const std::vector<CommandState> states = statesOf(commands);
    const QPointer<CommandActions> self(this);
    for (std::size_t i = 0; i < commands.size() && self; ++i) {
        if (const auto found = actions_.find(commands[i]); found != actions_.end() && found->second) {
            show(*found->second, states[i]);
        }
    }
}

void CommandActions::updateIcons() {
    for (const CommandDescription& description : DescribeCommands()) {
        const auto found = actions_.find(description.command);
        if (found != actions_.end() && found->second) {
            setIcon(*found->second, description.icon);
        }
    }
}

void CommandActions::setIcon(QAction& action, std::string_view picture) const {
    if (picture.empty()) {
        return;
    }
    action.setIcon(grid_.bitmaps().icon(std::string(picture), BitmapPixels, widget_.devicePixelRatioF(),
                                        GridTheme::forPalette(widget_.palette()), FaintWeight));
}

}  // namespace planview
