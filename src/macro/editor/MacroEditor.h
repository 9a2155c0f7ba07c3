// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>
#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/GridControl.h"
#include "components/TreeControl.h"
#include "macro/editor/ElementSpots.h"
#include "macro/editor/TypedFormula.h"
#include "macro/tree/MacroHistory.h"
#include "macro/tree/MacroOutcome.h"
#include "macro/tree/MacroOutline.h"
#include "macro/tree/MacroTable.h"
#include "macro/tree/MacroToolbar.h"
#include "trace/Failures.h"

namespace planview {

/// What the macro editor works on.
struct MacroEditorParts {
    GridControl& grid;
    const TableSlots& tables;
    TreeControl& tree;
    EventSource& events;
    Popups& popups;
    MessageBoxes& messageBoxes;
    MacroToolbar& toolbar;
    /// Rebuilds the tree from MACRO_TREE.
    std::function<void()> buildTree;
    /// Runs the macro or recording with this key.
    std::function<MacroOutcome(const std::string& key)> run;
    std::function<MacroProblems(const std::string& key)> check;
    /// Shows the user what the macro with this key would change, and changes what he leaves ticked.
    std::function<MacroOutcome(const std::string& key)> preview;
    /// Hears of what fails.
    std::shared_ptr<Failures> failures{};
};

/// One element of the active macro, as `MacroView` shows it.
struct MacroElement {
    std::string key;
    std::string text;  ///< a sentence
    std::string note;  ///< the name that the user gave it; empty if it has its usual one
    MacroNodeType type = MacroNodeType::Folder;
    int depth = 0;          ///< 0 for the macro itself
    bool isPart = false;    ///< belongs to the statement or condition above it
    bool inactive = false;  ///< it or a parent is left out of runs
    std::string problem;    ///< found by the last check
};

/// Is told when the editor looks different.
class MacroEditorWatcher {
public:
    virtual ~MacroEditorWatcher() = default;
    virtual void EditorChanged() = 0;
    /// The user wants to work in the editor: its list takes the keyboard.
    virtual void EditorOpened() {}
};

/// The macro editor without a screen: the elements of the active macro (`MacroView`), the operand that is being entered
/// (`txtOpa`), and what the buttons do (`cmdOpa`, `cmdOpe` and the others).
///
/// The active macro is the one that the tree's selected node is or belongs to; the current element is that node. Every
/// change is written to MACRO_TREE at once, the tree is rebuilt, and `MacroTreeExpand` tells the host. Message() says
/// what could not be done. Undo() takes changes back. Where the grid is read only nothing is changed. Each operation
/// writes a trace entry under "MACROVIEW" and ends at an error trap.
class PLANVIEW_EXPORT MacroEditor final : private TreeWatcher {
public:
    inline static constexpr std::string_view Label = "MACROVIEW";

    explicit MacroEditor(MacroEditorParts parts);
    ~MacroEditor() override;
    MacroEditor(const MacroEditor&) = delete;
    MacroEditor& operator=(const MacroEditor&) = delete;

    void SetWatcher(MacroEditorWatcher* watcher) noexcept { watcher_ = watcher; }

    // --- What it shows

    /// Empty while no macro is active; then there are no elements.
    [[nodiscard]] const std::string& MacroKey() const noexcept { return macroKey_; }
    [[nodiscard]] const std::vector<MacroElement>& Elements() const noexcept { return elements_; }
    /// The 0-based index of the current element in Elements(), -1 without one.
    [[nodiscard]] int Current() const noexcept;
    void SetCurrent(int element);
    /// Goes to the node with this key, empty for the selected one, and takes the keyboard.
    void Open(const std::string& key);
    /// A recording is listed, but can only be run, renamed or deleted as a whole.
    [[nodiscard]] bool IsRecording() const noexcept;
    /// Where the next element goes relative to the current one.
    [[nodiscard]] MacroSpot Spot() const noexcept { return spot_; }
    void SetSpot(MacroSpot spot);
    /// What went wrong, or what to do next; may be empty.
    [[nodiscard]] const std::string& Message() const noexcept { return message_; }
    [[nodiscard]] bool MessageIsProblem() const noexcept { return messageIsProblem_; }

    // --- The operand

    [[nodiscard]] const std::string& OperandText() const noexcept { return operandText_; }
    void SetOperandText(std::string text);
    /// Suggestions for the operand: captions of lines and the macro's own names.
    [[nodiscard]] std::vector<std::string> Completions() const;
    /// `cmdOpa`: adds the operand text as an element, a typed formula ("Retail = Retail * 1,05; 2015") as all of its
    /// elements, or without a text what is selected in the grid: a whole line as a
    /// line, a cell as an element, a block or several lines as an area, whole columns as the periods of the macro.
    void TakeOperand();
    /// `cmdOpe`: adds the operand text, if there is one, then the operator. A ")" without "(" closes the function that
    /// the current element is in.
    void AddOperator(const std::string& value);
    void AddFunction(const std::string& value);

    // --- The elements

    /// Adds a macro after the active one and makes it the active one.
    void NewMacro();
    /// A toolbar button: adds an element of that kind; a popup asks if there is a choice.
    void AddElement(ToolbarButton button);
    void AddCondition(bool otherwise);
    /// Makes the next element a statement after the one that the current element is in.
    void NextStatement();
    /// The text becomes the name of a macro or element, or the value of a number. Own lines, elements and areas are
    /// renamed everywhere in the macro.
    void Rename(const std::string& text);
    /// The same for any node of the tree whose label the user has edited; the tree is not rebuilt. Returns a sentence
    /// where the node does not take the text. Throws what the table throws.
    [[nodiscard]] std::string RenameNode(const std::string& key, const std::string& text);
    /// The text to offer for Rename().
    [[nodiscard]] std::string NameToEdit() const;
    void Move(bool up);
    /// Moves any node of the tree beside or below another one, if their kinds allow it.
    void MoveTo(const std::string& key, const std::string& target, TreeDrop drop);
    /// A whole macro or recording only if the user agrees.
    void Delete();
    /// Leaves the element out of runs, or includes it again.
    void ToggleActive();

    /// Takes back the last change of macros, or makes it again.
    void Undo();
    void Redo();
    [[nodiscard]] bool CanUndo() const noexcept { return history_.CanUndo() && MayChange(); }
    [[nodiscard]] bool CanRedo() const noexcept { return history_.CanRedo() && MayChange(); }
    /// Whether macros can be changed at all.
    [[nodiscard]] bool MayChange() const noexcept { return !parts_.grid.IsReadOnly(); }
    /// Shows the user a message beside the elements.
    void Tell(std::string message);

    // --- The macro

    /// "GENERATE". Elements with problems are marked until there are none.
    void Check();
    void Run();
    /// As Run(), after the user has seen what changes and has left out what he does not want.
    void Preview();

private:
    // TreeWatcher
    void NodesReset() override { Reload(); }
    void TextChanged(TreeNode /*node*/) override { Reload(); }
    void ExpandedChanged(TreeNode /*node*/) override {}
    void SelectionChanged() override { Reload(); }
    void ShowNode(TreeNode /*node*/) override {}
    void EditLabel(TreeNode /*node*/) override {}

    void RunBy(std::string_view method, const std::function<MacroOutcome(const std::string& key)>& run);
    /// Runs an operation under an error trap; an error becomes the message.
    void Operate(std::string_view method, const std::function<void()>& body);
    /// The same for what changes macros.
    void Change(std::string_view method, const std::function<void()>& body);
    /// Runs an action of the user; what it writes is one step of the history.
    void AsOneStep(const std::function<void()>& action);
    /// Changes MACRO_TREE inside AsOneStep().
    void Write(const std::function<void(MacroTable& table)>& change);
    void Restore(std::string (MacroHistory::*step)(const HostTable& table));
    [[nodiscard]] bool AgreesToDelete();
    void Reload();
    void ReadElements();
    /// Marks elements with problems. The message is the first problem, or `done` if there is none.
    void Tell(const MacroProblems& problems, std::string done);
    void Mark(const MacroProblems& problems);
    void Say(std::string text, bool isProblem = true);
    void Changed() const;
    void ShowInToolbar();

    [[nodiscard]] const MacroNode* CurrentNode() const noexcept;
    /// Changes MACRO_TREE. If the change returns a key, rebuilds the tree and makes that node the current element.
    bool Edit(const std::function<std::optional<std::string>(MacroTable& table)>& change);
    void Build(const std::string& currentKey);
    void Announce();
    bool Add(const NewMacroNode& node);
    bool AddSelection();
    void AddSelectionAs(MacroNodeType type);
    bool AddPeriods(const NewMacroNode& node);
    bool TakeText();
    bool TakeFormula(const std::string& text);
    bool AddStatement(const TypedFormula& formula);
    bool AddExpression(const TypedFormula& formula);
    /// Adds what stands in the parts whose keys are known.
    void AddInside(const TypedFormula& formula, std::vector<std::string>& keys, std::size_t from);
    [[nodiscard]] ElementSpot StatementSpot() const;
    [[nodiscard]] bool TakesPeriods(const NewMacroNode& periods);
    void CloseFunction(int function);
    [[nodiscard]] std::string Ask(const std::string& caption, std::vector<PopupEntry> choices);
    void AskOperator();
    void AskFunction();
    void AskAttribute();
    void AskOwn(MacroNodeType type);
    void AddConditionString();

    MacroEditorParts parts_;
    MacroEditorWatcher* watcher_ = nullptr;
    std::string macroKey_;
    MacroOutline outline_;
    std::vector<MacroElement> elements_;
    std::string currentKey_;
    MacroSpot spot_ = MacroSpot::Inside;
    MacroHistory history_;
    MacroChanges* step_ = nullptr;  // what AsOneStep() collects
    std::string operandText_;
    std::string message_;
    bool messageIsProblem_ = false;
    bool marksProblems_ = false;
    bool isWorking_ = false;  // the editor itself is changing the tree
};

}  // namespace planview
