// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
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
#include "macro/run/MacroProblem.h"
#include "macro/tree/MacroOutline.h"
#include "macro/tree/MacroTable.h"
#include "macro/tree/MacroToolbar.h"

namespace planview {

/// What the macro editor works on.
struct MacroEditorParts {
    GridControl& grid;
    const TableSlots& tables;
    TreeControl& tree;
    EventSource& events;
    Popups& popups;
    MacroToolbar& toolbar;
    /// Builds the tree anew from MACRO_TREE.
    std::function<void()> buildTree;
    /// Runs the macro or recording with this key; says in `message` what it did.
    std::function<MacroProblems(const std::string& key, std::string& message)> run;
    std::function<MacroProblems(const std::string& key)> check;
};

/// One element of the active macro, as `MacroView` shows it.
struct MacroLine {
    std::string key;
    std::string text;  ///< a sentence
    std::string note;  ///< what the user has renamed it to; empty where it has its usual name
    MacroNodeType type = MacroNodeType::Folder;
    int depth = 0;          ///< 0 for the macro itself
    bool isPart = false;    ///< of the statement or condition above it
    bool inactive = false;  ///< it, or what it is in, is left out
    std::string problem;    ///< what a check has said about it
};

/// Hears that something of the editor looks different.
class MacroEditorWatcher {
public:
    virtual ~MacroEditorWatcher() = default;
    virtual void EditorChanged() = 0;
};

/// The macro editor without a screen: the elements of the active macro (`MacroView`), the operand that the user is
/// about to take (`txtOpa`), and what its buttons do (`cmdOpa`, `cmdOpe` and the others).
///
/// The active macro is the one that the tree's selected node is, or stands in; the current element is that node. Every
/// change goes into MACRO_TREE at once, the tree is built anew, and `MacroTreeExpand` tells the host. What cannot be
/// done is told by Message(). Each operation leaves an entry under "MACROVIEW" and ends at an error trap.
class PLANVIEW_EXPORT MacroEditor final : private TreeWatcher {
public:
    inline static constexpr std::string_view Label = "MACROVIEW";

    explicit MacroEditor(MacroEditorParts parts);
    ~MacroEditor() override;
    MacroEditor(const MacroEditor&) = delete;
    MacroEditor& operator=(const MacroEditor&) = delete;

    void SetWatcher(MacroEditorWatcher* watcher) noexcept { watcher_ = watcher; }

    // --- What it shows

    /// Empty while no macro is active; then the lists are empty, too.
    [[nodiscard]] const std::string& MacroKey() const noexcept { return macroKey_; }
    [[nodiscard]] const std::vector<MacroLine>& Lines() const noexcept { return lines_; }
    /// The 0-based place of the current element in Lines(), -1 without one.
    [[nodiscard]] int Current() const noexcept;
    void SetCurrent(int line);
    /// A recording is listed, but only as a whole run, renamed or deleted.
    [[nodiscard]] bool IsRecording() const noexcept;
    /// Where the next element goes, seen from the current one.
    [[nodiscard]] MacroSpot Spot() const noexcept { return spot_; }
    void SetSpot(MacroSpot spot);
    /// What went wrong last, or what to do next; empty when there is nothing to say.
    [[nodiscard]] const std::string& Message() const noexcept { return message_; }
    [[nodiscard]] bool MessageIsProblem() const noexcept { return messageIsProblem_; }

    // --- The operand

    [[nodiscard]] const std::string& OperandText() const noexcept { return operandText_; }
    void SetOperandText(std::string text);
    /// What the user may be about to enter: line captions and the macro's own names.
    [[nodiscard]] std::vector<std::string> Completions() const;
    /// `cmdOpa`: takes the text, or what is selected in the grid where there is none. A whole line gives a line, a cell
    /// an element, a block or several lines an area, whole columns the periods of the macro.
    void TakeOperand();
    /// What is selected in the grid, whatever the text is.
    void TakeSelection();
    /// `cmdOpe`: takes a text that is still to be taken, then adds the operator. ")" and ";" that have no bracket of
    /// their own belong to the function that the current element stands in.
    void AddOperator(const std::string& value);
    void AddFunction(const std::string& value);

    // --- The elements

    /// Adds a macro of its own behind the active one and makes it the active one.
    void NewMacro();
    /// A button of the toolbar: adds an element of that kind, asking by a popup where there is a choice.
    void AddElement(ToolbarButton button);
    void AddCondition(bool otherwise);
    /// The next element becomes a statement behind the one that the current element is in.
    void NextStatement();
    /// A macro and most elements take the text as their name; an own line, element or area is renamed wherever the
    /// macro names it; a number takes it as its value.
    void Rename(const std::string& text);
    /// What Rename() begins with.
    [[nodiscard]] std::string NameToEdit() const;
    void Move(bool up);
    /// Moves any node of the tree beside or below another one, where the kinds of both go together.
    void MoveTo(const std::string& key, const std::string& target, TreeDrop place);
    void Delete();
    /// Takes the element out of the macro, or in again.
    void ToggleActive();

    // --- The macro

    /// "GENERATE". From then on the elements with problems are marked, until there are none.
    void Check();
    void Run();

private:
    struct Spotted;

    // The tree has changed.
    void NodesReset() override { Reload(); }
    void TextChanged(TreeNode /*node*/) override { Reload(); }
    void ExpandedChanged(TreeNode /*node*/) override {}
    void SelectionChanged() override { Reload(); }
    void ShowNode(TreeNode /*node*/) override {}
    void EditLabel(TreeNode /*node*/) override {}

    /// Runs an operation under an error trap; a failure becomes the message.
    void Operate(std::string_view method, const std::function<void()>& body);
    void Reload();
    void ReadLines();
    void Mark(const MacroProblems& problems);
    void Say(std::string text, bool isProblem = true);
    void Changed() const;
    void ShowInToolbar();

    [[nodiscard]] const MacroNode* CurrentNode() const noexcept;
    /// The table has changed: builds the tree anew and makes this node the current one.
    void Built(const std::string& key);
    void Announce();
    [[nodiscard]] MacroSpot UsualSpot() const;
    [[nodiscard]] bool IsContainer(int node) const;
    [[nodiscard]] bool HoldsStatements(int node) const;
    /// Where an element of this type goes; no value where it cannot go anywhere, and then Message() says why.
    [[nodiscard]] std::optional<Spotted> SpotFor(MacroNodeType type);
    bool Add(NewMacroNode node);
    bool AddPlaceOf(ToolbarButton button);
    bool AddSelection();
    bool AddPeriods(const std::string& value, const std::string& name);
    bool TakeText();
    [[nodiscard]] std::optional<NewMacroNode> NodeFromText(const std::string& text) const;
    [[nodiscard]] std::vector<std::string> OwnNames(MacroNodeType type) const;
    void CloseFunction();
    [[nodiscard]] int FunctionAround(int node) const;
    [[nodiscard]] std::string Ask(const std::string& caption, std::vector<PopupEntry> entries);
    void AskOperator();
    void AskFunction();
    void AskAttribute();
    void AskOwn(MacroNodeType type);
    void AddConditionString();

    MacroEditorParts parts_;
    MacroEditorWatcher* watcher_ = nullptr;
    std::string macroKey_;
    MacroOutline outline_;
    std::vector<MacroLine> lines_;
    std::string currentKey_;
    MacroSpot spot_ = MacroSpot::Inside;
    std::string operandText_;
    std::string message_;
    bool messageIsProblem_ = false;
    bool marksProblems_ = false;
    bool isWorking_ = false;  // the tree changes because of the editor
};

}  // namespace planview
