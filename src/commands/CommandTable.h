// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <planview/Commands.h>
#include <planview/Export.h>

#include "commands/CommandCall.h"
#include "commands/KeyStroke.h"

namespace planview {

struct CommandParts;
class CommandSituation;

/// Where a command's keys are listened to.
enum class KeyScope {
    Table,   ///< while the table has the keyboard
    Control  ///< in every pane that has no use for them itself
};

/// How a recording holds a command that was done, and how it is done again.
enum class StepKind {
    None,       ///< not recorded
    Values,     ///< value entry tells the recording what cells got which values
    Marks,      ///< the headings that are selected then, as a step of SelectHeadings
    Headings,   ///< SelectHeadings itself
    Plain,      ///< on nothing in particular
    State,      ///< what was switched: "X" for on; done again where the state is another one
    OnColumns,  ///< on the selected columns: they are selected, then the command runs
    OnRows,
    NamedColumns,  ///< on columns by their keys, whatever is selected
    NamedRows
};

/// What a late-bound call hands over.
enum class CallArguments { None, Value, Keys, KeysAndValue };

[[nodiscard]] constexpr int CountOf(CallArguments arguments) noexcept {
    return arguments == CallArguments::None ? 0 : arguments == CallArguments::KeysAndValue ? 2 : 1;
}

/// All there is to know of a command. Menus, keys, the control's methods, the widget's actions, recording and replaying
/// read it here and nowhere else.
struct CommandRow {
    Command command;
    std::string_view name;     ///< in popups, in recordings, for late binding
    std::string_view caption;  ///< with "&" before the mnemonic
    CommandGroup group;
    /// What runs. It throws, or says `call.done = false`, where it is not done.
    void (*run)(CommandParts& on, CommandCall& call);

    std::string_view popupCaption = {};  ///< where its popup calls it otherwise than the caption without mnemonic
    std::string_view key = {};           ///< for ReadKeyStroke()
    std::string_view otherKey = {};
    KeyScope keyScope = KeyScope::Table;
    std::string_view icon = {};
    CallArguments arguments = CallArguments::None;

    /// Why it cannot be run now, a sentence for the user; empty where it can. Without it there is never a reason.
    std::string (*whyNot)(const CommandSituation& now) = nullptr;
    /// Whether it is checked; without it it never is.
    bool (*checked)(const CommandSituation& now) = nullptr;
    /// Whether there is `checked`; g++ compares no pointer in a constant expression while it sanitizes.
    bool checkable = false;
    /// The caption for now, empty for the usual one.
    std::string_view (*captionNow)(const CommandSituation& now) = nullptr;

    /// It changes what the tables say other than single values, and is not run where the host lets nothing be edited.
    /// Values ask cell by cell; what is only about the view is always possible.
    bool changesTables = false;
    /// Whether undo takes back what it does to columns and rows.
    bool undoesTracks = false;

    StepKind step = StepKind::None;
    /// The step in a sentence: "%P" stands for the columns and rows, "%V" for the value, "%S" for "on" or "off".
    std::string_view sentence = {};
    /// Why the recorded step does not fit any more, as the end of a sentence. Without it a step whose columns and rows
    /// were found fits.
    std::optional<std::string> (*misfit)(const CommandParts& on, const CommandCall& call) = nullptr;

    // What the trace calls it where a failure ends it, other than from a popup.
    std::string_view control = "GRIDCTL";
    std::string_view method = {};  ///< empty: the name

    [[nodiscard]] constexpr std::string_view Method() const noexcept { return method.empty() ? name : method; }
    /// What popups call it.
    [[nodiscard]] std::string PopupCaption() const;
};

/// All commands.
[[nodiscard]] std::span<const CommandRow> CommandRows() noexcept;

/// Null for a number that is none.
[[nodiscard]] const CommandRow* FindCommand(Command command) noexcept;
/// The same; throws UnknownMember for a number that is none.
[[nodiscard]] const CommandRow& RowOf(Command command);
/// The one place where a text becomes a command, without regard to case; null for a text that is none.
[[nodiscard]] const CommandRow* FindCommand(std::string_view name) noexcept;
/// The same; throws UnknownMember for a text that is none.
[[nodiscard]] Command CommandNamed(std::string_view name);
/// The command of that key there; null for none.
[[nodiscard]] PLANVIEW_EXPORT const CommandRow* FindCommand(KeyStroke key, KeyScope scope) noexcept;

/// The sentence of a recorded step's command; empty for a text that is none.
[[nodiscard]] std::string_view SentenceOf(std::string_view name) noexcept;

}  // namespace planview
